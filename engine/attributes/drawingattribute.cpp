#include "engine/attributes/drawingattribute.h"

#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_seqtimedvalue.h"

#include <memory>

namespace brindle::engine {

template <typename Base>
TUSeqTimedValue* ExposedAttribute<Base>::exposures() const
{
    return dynamic_cast<TUSeqTimedValue*>(m_socket.linkedTimedValue());
}

template <typename Base>
QString ExposedAttribute<Base>::textAt(double frame) const
{
    const TUSeqTimedValue* column = exposures();
    return column ? column->getTiming(frame) : m_local;
}

template <typename Base>
CO_Command* ExposedAttribute<Base>::setTextCommand(double frame, const QString& text)
{
    TUSeqTimedValue* column = exposures();
    if (!column)
        return new SetLocal<ExposedAttribute, QString>(*this, text);
    auto commands = std::make_unique<CO_AndCommand>();
    column->createSetValueCmd(nullptr, frame, {text}, 0, *commands);
    return commands.release();
}

template <typename Base>
bool ExposedAttribute<Base>::setLocalValue(const QString& value)
{
    if (value == m_local)
        return false;
    m_local = value;
    return true;
}

template class ExposedAttribute<AT_ElementAttr>;
template class ExposedAttribute<AT_TimingAttr>;

TUElementTimedValue* ElementAttribute::linkedElementTimedValue() const
{
    return dynamic_cast<TUElementTimedValue*>(exposures());
}

int ElementAttribute::getElementId() const
{
    if (const TUElementTimedValue* column = linkedElementTimedValue())
        return column->elementId();
    const TUElementMgr* elements = sceneCommon() ? sceneCommon()->elementManager() : nullptr;
    return elements && !localValue().isEmpty() ? elements->elementByName(localValue(), 0).id() : -1;
}

template <typename Class>
Class& DrawingAttribute::memberAs(QStringView keyword) const
{
    return static_cast<Class&>(*memberNamed(keyword));
}

bool DrawingAttribute::getElementMode() const
{
    return elementModeAttr()->value(1);
}

AT_BoolAttr* DrawingAttribute::elementModeAttr() const
{
    return &memberAs<AT_BoolAttr>(u"element_mode");
}

AT_Attr* DrawingAttribute::drawingAttr() const
{
    return memberNamed(getElementMode() ? u"element" : u"timing");
}

TUTimedValue* DrawingAttribute::linkedTimedValue() const
{
    return drawingAttr()->socket()->linkedTimedValue();
}

TUSeqTimedValue* DrawingAttribute::linkedSeqTimedValue() const
{
    return dynamic_cast<TUSeqTimedValue*>(linkedTimedValue());
}

int DrawingAttribute::getElementId() const
{
    return memberAs<AT_ElementAttr>(u"element").getElementId();
}

QString DrawingAttribute::getElementName() const
{
    return elements() ? elements()->elementById(getElementId()).name() : QString();
}

QString DrawingAttribute::timingName() const
{
    const TUTimedValue* column = linkedTimedValue();
    return column ? column->getName() : QString();
}

QString DrawingAttribute::value(double frame) const
{
    const TUSeqTimedValue* column = linkedSeqTimedValue();
    if (column)
        return column->getTiming(frame);
    return getElementMode() ? QString() : memberAs<AT_TimingAttr>(u"timing").value(frame);
}

double DrawingAttribute::drawingScaleFactor(double frame) const
{
    const int element = getElementId();
    const EM_DrawingId drawing =
        elements() ? elements()->getDrawingId(element, value(frame), false) : EM_InvalidDrawingId;
    return drawing == EM_InvalidDrawingId ? 1.0 : elements()->getDrawingScaleFactor(element, drawing);
}

// In element mode a drawing is named through a column only.
CO_Command* DrawingAttribute::setTextCommand(double frame, const QString& text)
{
    return getElementMode() && !linkedTimedValue() ? nullptr : drawingAttr()->setTextCommand(frame, text);
}

const TUElementMgr* DrawingAttribute::elements() const
{
    return sceneCommon() ? sceneCommon()->elementManager() : nullptr;
}

} // namespace brindle::engine
