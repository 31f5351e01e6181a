#pragma once

#include "core/host/mo_node.h"

#include <memory>

namespace OMC {

class Node;

/// Makes the wrapper whose class fits the engine node that accepts it.
class NodeWrapperVisitor : public MO_AbstractModuleVisitorWithModuleFallback {
public:
    NodeWrapperVisitor();
    ~NodeWrapperVisitor() override;

    using MO_ModuleVisitor::visit;
    void visit(TUGroup& node) override;
    void visit(TUPegModule& node) override;
    void visit(TUCameraModule& node) override;
    void visit(TUDisplayModule& node) override;
    void visit(MO_ElementModule& node) override;
    void visit(MO_Module& node) override;

    /// Hands the wrapper of the last visit to the caller; null when there is none.
    Node* take();

private:
    std::unique_ptr<Node> m_wrapper;
};

} // namespace OMC
