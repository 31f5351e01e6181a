#pragma once

#include "core/host/tu_exprtimedvalue.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/expression.h"
#include "engine/curves/hostcolumn.h"

#include <QHash>

namespace brindle::engine {

extern const ColumnKind expressionKind;

/// A column of the open engine that computes its values: an Expression, which reads other columns by their names.
///
/// - A text is set when it can be evaluated then. What comes to be wrong with it later (a column that it reads goes or
///   is renamed, a circle of columns that read each other) makes the value 0, with one line in the log; so does a value
///   that is no finite number.
/// - The names are looked up again only when one that is read stands for another column.
/// - While one column is evaluated, the values of the others that it goes through are remembered. An evaluation that
///   goes through very many, or very deep, is given up.
///
/// The field of a file:
///
///     expression         the text
class ExpressionColumn final : public HostColumn<TUExprTimedValue>, public NumberValues {
public:
    static constexpr const char* fieldNames[] = {"expression"};

    explicit ExpressionColumn(const QString& name, bool anonymous = false);
    ~ExpressionColumn() override;

    QString expression() const override { return m_text; }
    double evaluate(double frame) const override;
    QString faultOf(const QString& text) const override;
    void setExpression(const QString& text); ///< Whether it can be evaluated or not.

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double, int, const QString&, int) override { return 1; } // Refused.
    void scale(double, int, CO_Command** command) override { *command = nullptr; }
    bool takesValues() const override { return false; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double) override { return nullptr; }

    bool fits(const AttributeMeta& attribute) const override;
    NumberValues* numbers() override { return this; }
    bool valueAt(double frame, double& value) const override;
    bool setValueAt(double, double, bool) override { return false; }
    std::unique_ptr<CO_Command> setValueCommand(double frame, double value) override;
    QStringList sources() const override { return m_sources; }
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift&) override { return nullptr; }
    std::unique_ptr<CO_Command> clearFramesCommand(int, int) override { return nullptr; }
    std::unique_ptr<CO_Command> pasteCommand(const Column&, const FramePaste&) override { return nullptr; }
    void keepFrames(int, int) override {} ///< Its values are those of a formula, which stays.
    /// Lets the formula read columns by other names, from names to names. For a column that is in no scene yet.
    void renameSources(const QHash<QString, QString>& names);
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;

private:
    struct Evaluation;
    class SourceReader;
    [[gnu::tls_model("initial-exec")]] static constinit thread_local Evaluation* running;

    double evaluateWithin(Evaluation& evaluation, double frame) const;
    double compute(double frame) const;
    bool isReady() const; ///< Whether the text can be evaluated.
    void prepare() const;
    /// The columns of the sources; throws `Expression::Fault`.
    std::vector<NumberValues*> numbersOf(const Expression& expression) const;
    bool isReadBy(const Column& column) const; ///< By it, or by what it reads.
    void log(const QString& reason) const;

    void keep(const QString& text);

    QString m_text;
    QStringList m_sources;
    mutable std::unique_ptr<Expression> m_expression; ///< Null until it is asked for, and for a text that is none.
    mutable std::vector<NumberValues*> m_numbers;     ///< The numbers of the expression's sources.
    mutable std::uint64_t m_revision = 0; ///< The readers' revision for which these were looked up; 0 for none.
    mutable bool m_isReady = false;
    mutable QString m_logged; ///< The reason for which the value was 0 last.
};

} // namespace brindle::engine
