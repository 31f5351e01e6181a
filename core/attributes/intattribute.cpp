#include "core/attributes/intattribute.h"

#include "core/attributes/typedattribute.h"

namespace OMC {

BaseObject* IntAttribute::copy() const
{
    return new IntAttribute(*this);
}

std::string IntAttribute::__str__() const
{
    return described(tr("IntAttr(%1, %2)"));
}

int IntAttribute::value(int frame) const
{
    return typed<AT_IntAttr>().value(frame);
}

int IntAttribute::localvalue() const
{
    return typed<AT_IntAttr>().localValue();
}

void IntAttribute::setValue(int frame, int value, bool adjustColumn)
{
    typed::setValue(typed<AT_IntAttr>(), frame, value, adjustColumn, tr("Set Attribute Value"));
}

void IntAttribute::setLocalvalue(int value)
{
    typed::setLocalValue(typed<AT_IntAttr>(), value, tr("Set Attribute local value."));
}

void IntAttribute::offsetValue(const QVariant& range, int delta)
{
    typed::offsetValue(typed<AT_IntAttr>(), range, delta, tr("Offset Attribute Value"));
}

int IntAttribute::getMinimum() const
{
    return typed<AT_IntAttr>().minValue();
}

int IntAttribute::getMaximum() const
{
    return typed<AT_IntAttr>().maxValue();
}

int IntAttribute::getStep() const
{
    return typed<AT_IntAttr>().step();
}

} // namespace OMC
