#include "engine/attributes/complexattribute.h"

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

template class ComplexAttribute<AT_ComplexAttr>;
template class ComplexAttribute<AT_DrawingAttr>;
template class ComplexAttribute<AT_ColorAttr>;
template class ComplexAttribute<AT_Position2dAttr>;
template class ComplexAttribute<AT_Position3dAttr>;

} // namespace brindle::engine
