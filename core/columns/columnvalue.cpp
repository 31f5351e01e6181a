#include "core/columns/columnvalue.h"

#include "core/frame/finite.h"

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

double ColumnValue::numberFrom(const QVariant& variant)
{
    bool read = false;
    double value = 0;
    if (const QObject* object = QVariantToPointer(variant)) {
        if (const auto* other = dynamic_cast<const ColumnValue*>(object))
            value = other->getValue().toDouble(&read);
    } else {
        value = variant.toDouble(&read);
    }
    if (!read)
        throw Exception(tr("Invalid type set on column value."));
    requireFinite(value, 0);
    return value;
}

} // namespace OMC
