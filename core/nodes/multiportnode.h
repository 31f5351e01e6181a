#pragma once

#include "core/nodes/node.h"

namespace OMC {

class Port;

/// A node inside a group that faces the group's ports.
///
/// Its operations do nothing and its text is empty, by design: the ports of such a node come and go through its port
/// lists, and `Node::getWrapped` gives such a node as a plain Node.
class BRINDLE_CORE_EXPORT MultiPortNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(MultiPortNode)

public:
    explicit MultiPortNode(MO_Node* node);

    std::string __str__() const override;

    virtual Port* addPort(unsigned int index, bool before);
    virtual Port* addPort(const Port* port, bool before);
    virtual bool removePort(unsigned int index);
    virtual bool removePort(const Port* port);
};

/// The node that faces the group's in-ports from inside.
class BRINDLE_CORE_EXPORT MultiPortInNode : public MultiPortNode {
    Q_OBJECT
    BRINDLE_COPYABLE(MultiPortInNode)

public:
    explicit MultiPortInNode(MO_Node* node);
};

/// The node that faces the group's out-ports from inside.
class BRINDLE_CORE_EXPORT MultiPortOutNode : public MultiPortNode {
    Q_OBJECT
    BRINDLE_COPYABLE(MultiPortOutNode)

public:
    explicit MultiPortOutNode(MO_Node* node);
};

} // namespace OMC
