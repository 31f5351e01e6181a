#include "core/attributes/doubleattribute.h"

#include "core/attributes/typedattribute.h"

namespace OMC {

BaseObject* DoubleAttribute::copy() const
{
    return new DoubleAttribute(*this);
}

std::string DoubleAttribute::__str__() const
{
    return described(tr("DoubleAttr(%1, %2)"));
}

double DoubleAttribute::value(int frame) const
{
    return typed<AT_DoubleAttr>().value(frame);
}

double DoubleAttribute::localvalue() const
{
    return typed<AT_DoubleAttr>().localValue();
}

void DoubleAttribute::setValue(int frame, double value, bool adjustColumn)
{
    auto& attr = typed<AT_DoubleAttr>();
    requireFinite(value, 1);
    typed::setValue(attr, frame, value, adjustColumn, tr("Set Attribute Value"));
}

void DoubleAttribute::setLocalvalue(double value)
{
    auto& attr = typed<AT_DoubleAttr>();
    requireFinite(value, 0);
    typed::setLocalValue(attr, value, tr("Set Attribute local value."));
}

void DoubleAttribute::resetValue(int frame)
{
    auto& attr = typed<AT_DoubleAttr>();
    typed::setValue(attr, frame, attr.defaultValue(), false, tr("Set Attribute Value"));
}

void DoubleAttribute::resetLocalvalue()
{
    auto& attr = typed<AT_DoubleAttr>();
    typed::setLocalValue(attr, attr.defaultValue(), tr("Set Attribute local value."));
}

void DoubleAttribute::offsetValue(const QVariant& range, double delta)
{
    auto& attr = typed<AT_DoubleAttr>();
    requireFinite(delta, 1);
    typed::offsetValue(attr, range, delta, tr("Set Attribute Value"));
}

double DoubleAttribute::getMinimum() const
{
    return typed<AT_DoubleAttr>().minValue();
}

double DoubleAttribute::getMaximum() const
{
    return typed<AT_DoubleAttr>().maxValue();
}

double DoubleAttribute::getStep() const
{
    return typed<AT_DoubleAttr>().step();
}

double DoubleAttribute::getDefault() const
{
    return typed<AT_DoubleAttr>().defaultValue();
}

} // namespace OMC
