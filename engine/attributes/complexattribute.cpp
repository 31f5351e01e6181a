#include "engine/attributes/complexattribute.h"

#include "core/host/cm_rgba.h"
#include "engine/attributes/attributetext.h"

#include <QStringList>

#include <algorithm>
#include <memory>

namespace brindle::engine {

template <typename Base>
QString ComplexAttribute<Base>::textAt(double frame) const
{
    QStringList texts;
    for (auto member = attrsBegin(); member != attrsEnd(); ++member)
        texts.append((*member)->textAt(frame));
    return texts.join(", ");
}

template <typename Base>
CO_Command* ComplexAttribute<Base>::setTextCommand(double frame, const QString& text)
{
    const QStringList texts = text.split(',');
    if (texts.size() != m_members.count)
        return nullptr;
    auto commands = std::make_unique<CO_AndCommand>();
    for (int index = 0; index < m_members.count; ++index) {
        CO_Command* command = m_members.first[index]->setTextCommand(frame, texts[index].trimmed());
        if (!command)
            return nullptr;
        commands->add(command);
    }
    return commands.release();
}

AT_IntAttr* ColourAttribute::channel(int index) const
{
    return static_cast<IntAttribute*>(member(index));
}

template <typename Base>
Math::Point3d AxesAttribute<Base>::value(double frame) const
{
    Math::Point3d place;
    if (const PositionValues* path = m_socket.positions(); path && path->positionAt(frame, place))
        return place;
    return {axis(0)->value(frame), axis(1)->value(frame), axisCount() > 2 ? axis(2)->value(frame) : 0};
}

template <typename Base>
Math::Point3d AxesAttribute<Base>::localValue() const
{
    return {axis(0)->localValue(), axis(1)->localValue(), axisCount() > 2 ? axis(2)->localValue() : 0};
}

template <typename Base>
bool AxesAttribute<Base>::setValue(double frame, const Math::Point3d& value, bool constantSegment, bool force)
{
    PositionValues* path = m_socket.positions();
    if (!path)
        return false;
    Math::Point3d present;
    if (!force && path->positionAt(frame, present) && present == value)
        return false;
    return path->setPositionAt(frame, value, constantSegment);
}

template <typename Base>
QString AxesAttribute<Base>::textAt(double frame) const
{
    const Math::Point3d at = value(frame);
    QStringList texts{attribute_text::write(at.x), attribute_text::write(at.y)};
    if (axisCount() > 2)
        texts.append(attribute_text::write(at.z));
    return texts.join(", ");
}

template <typename Base>
CO_Command* AxesAttribute<Base>::setTextCommand(double frame, const QString& text)
{
    PositionValues* path = m_socket.positions();
    if (!path)
        return ComplexAttribute<Base>::setTextCommand(frame, text);
    const QStringList texts = text.split(',');
    Math::Point3d place;
    if (texts.size() != 3 || !attribute_text::read(texts[0], place.x) || !attribute_text::read(texts[1], place.y) ||
        !attribute_text::read(texts[2], place.z))
        return nullptr;
    return path->setPositionCommand(frame, place).release();
}

template class ComplexAttribute<AT_ComplexAttr>;
template class ComplexAttribute<AT_DrawingAttr>;
template class ComplexAttribute<AT_ColorAttr>;
template class ComplexAttribute<AT_Position2dAttr>;
template class ComplexAttribute<AT_Position3dAttr>;
template class ComplexAttribute<AT_Scale3dAttr>;
template class ComplexAttribute<AT_Rotation3dAttr>;
template class AxesAttribute<AT_Position2dAttr>;
template class AxesAttribute<AT_Position3dAttr>;
template class AxesAttribute<AT_Scale3dAttr>;
template class AxesAttribute<AT_Rotation3dAttr>;

} // namespace brindle::engine

void AT_ColorAttr::value(CM_Rgba& colour, double frame, const void*) const
{
    const auto at = [&](int index) { return channel(index)->value(frame); };
    colour = CM_Rgba(at(0), at(1), at(2), at(3));
}

void AT_ColorAttr::localValue(CM_Rgba& colour) const
{
    const auto local = [&](int index) { return channel(index)->localValue(); };
    colour = CM_Rgba(local(0), local(1), local(2), local(3));
}
