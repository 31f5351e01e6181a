#include "core/nodes/pegnode.h"

#include "core/host/mo_node.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace OMC {

namespace {

constexpr std::array<std::string_view, 6> shownSetters = {
    "set_pivot", "set_matrix", "set_translation", "set_rotation", "set_scale", "set_skew",
};

} // namespace

PegNode::PegNode(TUPegModule* node) : Node(node) {}

std::string PegNode::__str__() const
{
    return textAs("PegNode");
}

bool PegNode::filterDir(std::string& name) const
{
    return std::ranges::find(shownSetters, name) != shownSetters.end() || Node::filterDir(name);
}

} // namespace OMC
