#include "core/host/slb_nodepickadaptor.h"

#include "engine/graph/node.h"
#include "engine/graph/nodetype.h"

namespace brindle::engine {

namespace {

class PickAdaptor final : public SLB_NodePickAdaptor {
public:
    explicit PickAdaptor(int handles) : m_handles(handles) {}

    int handleCount() const override { return m_handles; }

private:
    int m_handles;
};

} // namespace

} // namespace brindle::engine

void SLB_NodePickAdaptorFactory::visit(MO_Module& node)
{
    const brindle::engine::Node* engineNode = brindle::engine::engineNode(&node);
    const int handles = engineNode ? engineNode->type().handleCount : 0;
    m_adaptor = handles > 0 ? std::make_unique<brindle::engine::PickAdaptor>(handles) : nullptr;
}

void SLB_NodePickAdaptorFactory::visit(TUGroup&)
{
    m_adaptor = nullptr;
}
