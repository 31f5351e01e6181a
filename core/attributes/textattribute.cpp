#include "core/attributes/textattribute.h"

#include "core/attributes/typedattribute.h"

namespace OMC {

BaseObject* TextAttribute::copy() const
{
    return new TextAttribute(*this);
}

std::string TextAttribute::__str__() const
{
    return described(tr("TextAttr(%1, %2)"));
}

QString TextAttribute::value(int frame) const
{
    return typed<AT_StringAttr>().value(frame);
}

QString TextAttribute::localvalue() const
{
    return typed<AT_StringAttr>().localValue();
}

void TextAttribute::setValue(int frame, const QString& value)
{
    auto& attr = typed<AT_StringAttr>();
    CO_CommandManager& manager = typed::managerOf(attr);
    auto* command =
        new tu_attr::SetValueCmd<AT_StringAttr>(attr, frame, value, PR_CachedPreferences::getSpConstantSegment(), true);
    undo::run(manager, command, tr("Set Attribute Value"), tr("Failed to set the attribute's value."));
}

void TextAttribute::setLocalvalue(const QString& value)
{
    if (!typed::setLocalValue(typed<AT_StringAttr>(), value, tr("Set Attribute local value.")))
        throw Exception(tr("Failed to set the attribute's local value."));
}

} // namespace OMC
