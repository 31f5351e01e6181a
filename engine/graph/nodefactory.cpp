#include "engine/graph/group.h"
#include "engine/transformations/movingmodules.h"

namespace brindle::engine {

namespace {

MO_Module* newModule(const NodeType& type)
{
    switch (type.nodeClass) {
    case NodeClass::Module:
        return new HostModule<MO_Module>(type);
    case NodeClass::Peg:
        return new PegModule(type);
    case NodeClass::Camera:
        return new HostModule<TUCameraModule>(type);
    case NodeClass::Display:
        return new HostModule<TUDisplayModule>(type);
    case NodeClass::Element:
        return new ElementModule(type);
    case NodeClass::MultiPortIn:
        return TUMultiPortIn::create();
    case NodeClass::MultiPortOut:
        return TUMultiPortOut::create();
    case NodeClass::Group:
        break;
    }
    return nullptr;
}

} // namespace

} // namespace brindle::engine

TUGroup* TUGroup::create()
{
    return new brindle::engine::Group;
}

MO_Module* TUGroup::createNode(const QString& type, int x, int y, int z, bool&, const void*)
{
    const brindle::engine::NodeType* found = brindle::engine::findNodeType(type);
    MO_Module* node = found ? brindle::engine::newModule(*found) : nullptr;
    if (node) {
        node->setX(x);
        node->setY(y);
        node->setZ(z);
    }
    return node;
}

TUMultiPortIn* TUMultiPortIn::create()
{
    return new brindle::engine::HostModule<TUMultiPortIn>(brindle::engine::multiPortInNodeType());
}

TUMultiPortOut* TUMultiPortOut::create()
{
    return new brindle::engine::HostModule<TUMultiPortOut>(brindle::engine::multiPortOutNodeType());
}
