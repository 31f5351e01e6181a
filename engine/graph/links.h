#pragma once

namespace brindle::engine {

class Node;
class Port;

/// Whether a link from an out-port to an in-port may stand: one kind, two nodes of one group, no circle. A source that
/// the in-port has already doesn't count.
bool isLinkAllowed(const Port& out, const Port& in);

/// Whether a link from one node to another would close a circle.
///
/// It costs nothing when the first node has no source or the second feeds nothing, and else as much as the smaller one
/// of two walks: from the first node against the flow, and from the second one with the flow. A chain or a tree that
/// is linked in any order thus costs a logarithm a link on average.
bool closesCircle(const Node& from, const Node& to);

} // namespace brindle::engine
