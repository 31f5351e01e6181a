#include "core/attributes/boolattribute.h"

#include "core/attributes/valueattribute_p.h"

namespace OMC {

template <>
constexpr ValueRules valueRules<AT_BoolAttr>{.description = QT_TRANSLATE_NOOP("OMC::Attribute", "BoolAttr(%1, %2)"),
                                             .tellsRefusal = true,
                                             .skipsPresentLocalValue = true};

template class ValueAttribute<AT_BoolAttr>;

void BoolAttribute::setValue(int frame, bool value)
{
    changeValue(typed<AT_BoolAttr>(), frame, value);
}

} // namespace OMC
