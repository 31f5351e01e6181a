#include "core/nodes/nodewrappervisitor.h"

#include "core/nodes/cameranode.h"
#include "core/nodes/displaynode.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/pegnode.h"

namespace OMC {

NodeWrapperVisitor::NodeWrapperVisitor() = default;

NodeWrapperVisitor::~NodeWrapperVisitor() = default;

void NodeWrapperVisitor::visit(TUGroup& node)
{
    m_wrapper = std::make_unique<GroupNode>(&node);
}

void NodeWrapperVisitor::visit(TUPegModule& node)
{
    m_wrapper = std::make_unique<PegNode>(&node);
}

void NodeWrapperVisitor::visit(TUCameraModule& node)
{
    m_wrapper = std::make_unique<CameraNode>(&node);
}

void NodeWrapperVisitor::visit(TUDisplayModule& node)
{
    m_wrapper = std::make_unique<DisplayNode>(&node);
}

// A node that shows drawings is a plain Node and no ReadNode: required, scripts tell it by its type.
void NodeWrapperVisitor::visit(MO_ElementModule& node)
{
    m_wrapper.reset(new Node(&node));
}

void NodeWrapperVisitor::visit(MO_Module& node)
{
    m_wrapper.reset(new Node(&node));
}

Node* NodeWrapperVisitor::take()
{
    return m_wrapper.release();
}

} // namespace OMC
