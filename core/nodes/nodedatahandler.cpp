#include "core/nodes/nodedatahandler.h"

#include "core/nodes/nodedatafactory.h"

#include <QStringList>

#include <algorithm>

namespace OMC {

NodeDataHandler::NodeDataHandler(const NodeDataHandler& other)
    : CountedList(other),
      m_nodeType(other.m_nodeType),
      m_keys(other.m_keys)
{
    setPosition(0);
}

std::string NodeDataHandler::__str__() const
{
    QStringList keys;
    for (const auto& entry : NodeDataFactory::registeredNodeData())
        keys.append(entry.first);
    if (keys.isEmpty())
        return tr("Brindle Views: (No views loaded)").toStdString();
    return tr("Brindle Views: (%1)").arg(keys.join(u',')).toStdString();
}

std::size_t NodeDataHandler::size() const
{
    const auto& registry = NodeDataFactory::registeredNodeData();
    return static_cast<std::size_t>(std::count_if(
        registry.begin(), registry.end(), [this](const auto& entry) { return entry.second->supports(m_nodeType); }));
}

QList<QString> NodeDataHandler::list() const
{
    QList<QString> keys;
    for (const auto& [key, factory] : NodeDataFactory::registeredNodeData()) {
        if (factory->supports(m_nodeType))
            keys.append(key);
    }
    return keys;
}

bool NodeDataHandler::contains(const QString& key) const
{
    const auto& registry = NodeDataFactory::registeredNodeData();
    const auto found = registry.find(key);
    return found != registry.end() && found->second->supports(m_nodeType);
}

Obj NodeDataHandler::get(const QString& key) const
{
    const auto& registry = NodeDataFactory::registeredNodeData();
    const auto found = registry.find(key);
    if (found == registry.end())
        throw Exception(tr("Unable to find view: %1").arg(key));
    if (!found->second->supports(m_nodeType))
        throw Exception(tr("Node data %1 is not supported on this node type (%2).").arg(key, m_nodeType));
    return found->second->create();
}

void NodeDataHandler::set(const QString&, const Obj&)
{
    throw Exception(tr("Unable to set data handlers."));
}

QString NodeDataHandler::__iterItem__() const
{
    if (position() >= m_keys.size())
        throwIndexOutOfRange();
    return m_keys[position()];
}

void NodeDataHandler::startIteration()
{
    const QList<QString> keys = list();
    m_keys.take({keys.begin(), keys.end()});
}

} // namespace OMC
