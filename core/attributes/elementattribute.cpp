#include "core/attributes/elementattribute.h"

#include "core/columns/elementcolumn.h"
#include "core/elements/element.h"
#include "core/frame/found.h"
#include "core/host/at_attr.h"
#include "core/host/tu_seqtimedvalue.h"

namespace OMC {

std::string ElementAttribute::__str__() const
{
    return described(tr("ElementAttr(%1, %2)"));
}

QString ElementAttribute::value(int frame) const
{
    const auto& attribute = typed<AT_ElementAttr>();
    const auto* column = attribute.linkedElementTimedValue();
    return shown(attribute.getElementId(), column ? column->getTiming(frame) : QString());
}

void ElementAttribute::setValue(int frame, const QVariant& drawings)
{
    auto& column = found(typed<AT_ElementAttr>().linkedElementTimedValue(),
                         [] { return tr("Failed to determine sequence column for drawing attribute."); });
    expose(column, frame, drawings, tr("Set Element Attribute Value"));
}

QVariant ElementAttribute::getElement() const
{
    const int element = typed<AT_ElementAttr>().getElementId();
    return element >= 0 ? toVariant(new Element(element)) : QVariant();
}

void ElementAttribute::setElement(const QVariant& element)
{
    auto& column = found(typed<AT_ElementAttr>().linkedElementTimedValue(),
                         [] { return tr("Attribute is not linked to a column."); });
    ElementColumn(&column).setElement(element);
}

QString ElementAttribute::getElementName() const
{
    const int element = typed<AT_ElementAttr>().getElementId();
    return element >= 0 ? Element(element).getName() : QString(QLatin1String(""));
}

} // namespace OMC
