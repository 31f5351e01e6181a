#include "core/attributes/intattribute.h"

#include "core/attributes/valueattribute_p.h"

namespace OMC {

template <>
constexpr ValueRules valueRules<AT_IntAttr>{.description = QT_TRANSLATE_NOOP("OMC::Attribute", "IntAttr(%1, %2)"),
                                            .offsetLabel =
                                                QT_TRANSLATE_NOOP("OMC::Attribute", "Offset Attribute Value")};

template class ValueAttribute<AT_IntAttr>;
template class NumberAttribute<AT_IntAttr>;

} // namespace OMC
