#pragma once

#include "core/columns/column.h"

class TUExprTimedValue;

namespace OMC {

/// A column whose value at each frame is computed from a text. column[frame] gives the value, and can't be set.
class BRINDLE_CORE_EXPORT ExpressionColumn : public Column {
    Q_OBJECT
    BRINDLE_COPYABLE(ExpressionColumn)
    Q_PROPERTY(QString text READ getExpressionText WRITE setExpressionText)

public:
    explicit ExpressionColumn(TUExprTimedValue* timedValue);

    std::string __str__() const override;

    /// The value at a frame: 0 where the text can't be evaluated any more, which the log tells once. There are no
    /// sub-columns.
    QVariant getEntry(double frame, int subColumn = -1) const override;
    /// Fails: the values follow from the text.
    void setEntry(double frame, QVariant value, int subColumn = -1) override;

    /// The formula. frame is the frame, value("Arm") the value of the column of that name, and value("Arm", frame - 3)
    /// its value at another frame; any column whose values are numbers can be read, except one that reads this column.
    /// Operators: + - * / ^ (power), < > <= >= == !=, && and ||, and condition ? one : other. Constants: pi, e.
    /// Functions: abs, acos, asin, atan, atan2(y, x), ceil, clamp(x, low, high), cos, cosh, degrees, exp, floor,
    /// hypot(x, y), lerp(a, b, t), log, log10, log2, max, min, mod(x, y), pow(x, y), radians, round, sign, sin, sinh,
    /// sqrt, tan, tanh; angles in radians. An empty text is 0. A text that can't be evaluated is refused with the place
    /// in it.
    QString getExpressionText() const;
    void setExpressionText(const QString& text);

private:
    TUExprTimedValue& timedValue() const;
};

} // namespace OMC
