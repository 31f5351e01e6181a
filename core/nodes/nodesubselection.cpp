#include "core/nodes/nodesubselection.h"

#include "core/host/mo_node.h"
#include "core/nodes/node.h"
#include "core/nodes/nodesubselectionnamefactory.h"

namespace OMC {

NodeSubselection::NodeSubselection(MO_Node* node, int index) : EngineView(node), m_index(index) {}

std::string NodeSubselection::__str__() const
{
    return QStringLiteral("NodeSubselection(\"%1\", \"%2\")").arg(target().qualifiedName(), getName()).toStdString();
}

QString NodeSubselection::getName() const
{
    const MO_Node& node = target();
    if (!m_name.isEmpty())
        return m_name;
    // Required: the digits are padded here, and are not in the names that a factory gives by default.
    const auto* factory = NodeSubselectionNameFactory::getFactory(node.typeName());
    m_name = factory ? factory->getSubselectionName(m_index)
                     : QStringLiteral("Handle_%1").arg(m_index, 3, 10, QLatin1Char('0'));
    return m_name;
}

int NodeSubselection::getIndex() const
{
    validate();
    return m_index;
}

void NodeSubselection::validate() const
{
    validateThreadLock();
    if (isGone())
        Node::throwNodeGone();
}

} // namespace OMC
