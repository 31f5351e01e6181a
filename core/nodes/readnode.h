#pragma once

#include "core/nodes/node.h"

class MO_Node;

namespace OMC {

/// A node that shows the drawings of an element.
///
/// `Node::getWrapped` gives such a node as a plain Node.
class BRINDLE_CORE_EXPORT ReadNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(ReadNode)

public:
    explicit ReadNode(MO_Node* node);

    std::string __str__() const override;
};

} // namespace OMC
