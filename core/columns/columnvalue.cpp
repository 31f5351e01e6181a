#include "core/columns/columnvalue.h"

namespace OMC {

std::string ColumnValue::__str__() const
{
    return "ColumnValue()";
}

double ColumnValue::getFrame() const
{
    throwUnexpected();
}

QVariant ColumnValue::getValue() const
{
    throwUnexpected();
}

void ColumnValue::setValue(const QVariant&)
{
    throwUnexpected();
}

} // namespace OMC
