#include "core/attributes/boolattribute.h"

#include "core/attributes/typedattribute.h"

namespace OMC {

BaseObject* BoolAttribute::copy() const
{
    return new BoolAttribute(*this);
}

std::string BoolAttribute::__str__() const
{
    return described(tr("BoolAttr(%1, %2)"));
}

bool BoolAttribute::value(int frame) const
{
    return typed<AT_BoolAttr>().value(frame);
}

bool BoolAttribute::localvalue() const
{
    return typed<AT_BoolAttr>().localValue();
}

void BoolAttribute::setValue(int frame, bool value)
{
    if (!typed::setValue(typed<AT_BoolAttr>(), frame, value, false, tr("Set Attribute Value")))
        throw Exception(tr("Failed to set the attribute's value."));
}

void BoolAttribute::setLocalvalue(bool value)
{
    auto& attr = typed<AT_BoolAttr>();
    if (attr.localValue() == value)
        return;
    if (!typed::setLocalValue(attr, value, tr("Set Attribute local value.")))
        throw Exception(tr("Failed to set the attribute's local value."));
}

} // namespace OMC
