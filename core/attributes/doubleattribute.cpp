#include "core/attributes/doubleattribute.h"

#include "core/attributes/valueattribute_p.h"

namespace OMC {

template <>
constexpr ValueRules valueRules<AT_DoubleAttr>{.description = QT_TRANSLATE_NOOP("OMC::Attribute", "DoubleAttr(%1, %2)"),
                                               .offsetLabel =
                                                   QT_TRANSLATE_NOOP("OMC::Attribute", "Set Attribute Value")};

template class ValueAttribute<AT_DoubleAttr>;
template class NumberAttribute<AT_DoubleAttr>;

double DoubleAttribute::getDefault() const
{
    return typed<AT_DoubleAttr>().defaultValue();
}

} // namespace OMC
