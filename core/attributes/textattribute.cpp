#include "core/attributes/textattribute.h"

#include "core/attributes/valueattribute_p.h"

namespace OMC {

template <>
constexpr ValueRules valueRules<AT_StringAttr>{.description = QT_TRANSLATE_NOOP("OMC::Attribute", "TextAttr(%1, %2)"),
                                               .tellsRefusal = true};

template class ValueAttribute<AT_StringAttr>;

void TextAttribute::setValue(int frame, const QString& value)
{
    // No column holds texts, so none is made.
    auto& attr = typed<AT_StringAttr>();
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    const bool constantSegment = PR_CachedPreferences::getSpConstantSegment();
    run(manager, new tu_attr::SetValueCmd<AT_StringAttr>(attr, frame, value, constantSegment, true),
        tr("Set Attribute Value"), failedValue);
}

} // namespace OMC
