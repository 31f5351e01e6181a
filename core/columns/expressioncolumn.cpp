#include "core/columns/expressioncolumn.h"

#include "core/frame/undo.h"
#include "core/host/tu_exprtimedvalue.h"

#include <cmath>

namespace OMC {

ExpressionColumn::ExpressionColumn(TUExprTimedValue* timedValue) : Column(timedValue) {}

std::string ExpressionColumn::__str__() const
{
    return described(tr("ExpressionColumn(\"%1\")"));
}

QVariant ExpressionColumn::getEntry(double frame, int) const
{
    const TUExprTimedValue& column = timedValue();
    if (!std::isfinite(frame))
        throwInvalidArgument(0);
    return column.evaluate(frame);
}

// Required: the words of the sentence, with their gap.
void ExpressionColumn::setEntry(double, QVariant, int)
{
    validate();
    throw Exception(tr("Unable to set value of the expression column at a given frame - the must be changed instead."));
}

QString ExpressionColumn::getExpressionText() const
{
    return timedValue().expression();
}

// Required: a command that fails goes unnoticed. A text that can't be evaluated is told ahead of it.
void ExpressionColumn::setExpressionText(const QString& text)
{
    TUExprTimedValue& column = timedValue();
    const QString fault = column.faultOf(text);
    if (!fault.isEmpty())
        throw Exception(fault);
    undo::manager(column.sceneCommon())
        .execute(new tu_timedvalue::expr::SetExprCmd(&column, text), tr("Set Expression Value"));
}

// A wrapper leads to the column that it was made for, or to nothing.
TUExprTimedValue& ExpressionColumn::timedValue() const
{
    return static_cast<TUExprTimedValue&>(target());
}

} // namespace OMC
