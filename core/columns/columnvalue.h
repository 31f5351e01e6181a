#pragma once

#include "core/frame/obj.h"

namespace OMC {

/// A column at one frame, whether a keyframe stands there or not.
///
/// It is never stored by the column and cheap to make.
class BRINDLE_CORE_EXPORT ColumnValue : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(double frame READ getFrame)
    Q_PROPERTY(QVariant value READ getValue WRITE setValue)

public:
    std::string __str__() const override;

    virtual double getFrame() const; ///< The frame.
    /// The value there; takes a number, or another column value, whose value it takes.
    virtual QVariant getValue() const;
    virtual void setValue(const QVariant& value);

protected:
    /// Differences of values under this are none.
    static constexpr double valueTolerance = 0.0001;
    /// The number in a script's argument: a number, or the value of another value object. Throws for all else.
    static double numberFrom(const QVariant& variant);
};

} // namespace OMC
