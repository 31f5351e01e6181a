#pragma once

#include "core/host/mo_node.h"

#include <memory>

/// The handles on a node's gizmo that a person can pick one by one.
class BRINDLE_HOST_EXPORT SLB_NodePickAdaptor {
public:
    virtual ~SLB_NodePickAdaptor() = default;

    virtual int handleCount() const = 0;
};

/// Makes the pick adaptor of the node that accepts it. Groups, and node types without a gizmo, have none.
class BRINDLE_HOST_EXPORT SLB_NodePickAdaptorFactory : public MO_AbstractModuleVisitorWithModuleFallback {
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module& node) override;
    void visit(TUGroup& group) override;

    /// The adaptor of the node that was visited last, or null; it lives as long as the factory.
    const SLB_NodePickAdaptor* pickAdaptor() const { return m_adaptor.get(); }

private:
    std::unique_ptr<SLB_NodePickAdaptor> m_adaptor;
};
