#include "core/nodes/nodedatafactory.h"

namespace OMC {

NodeDataFactory::~NodeDataFactory() = default;

bool NodeDataFactory::registerNodeData(const QString& name, NodeDataFactory* factory)
{
    return registeredNodeData().try_emplace(name, std::unique_ptr<NodeDataFactory>(factory)).second;
}

NodeDataFactory::Registry& NodeDataFactory::registeredNodeData()
{
    static Registry registry;
    return registry;
}

} // namespace OMC
