#pragma once

#include "core/nodes/node.h"

class TUGroup;

namespace OMC {

class NodeList;

/// A node that holds nodes, and the two nodes inside it that face its ports.
class BRINDLE_CORE_EXPORT GroupNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(GroupNode)
    Q_PROPERTY(OMC::Obj multi_port_in READ getMultiPortIn)
    Q_PROPERTY(OMC::Obj multi_port_out READ getMultiPortOut)
    Q_PROPERTY(OMC::Obj nodes READ getNodes)

public:
    explicit GroupNode(TUGroup* group);

    std::string __str__() const override;

    /// The node that faces the group's in-ports (out-ports). A group without one gets one, which is an undoable step;
    /// empty when the engine refuses it.
    virtual Obj getMultiPortIn() const;
    virtual Obj getMultiPortOut() const;
    virtual Obj getNodes() const; ///< The NodeList of the direct sub-nodes.
    NodeList* newNodes() const;   ///< The same, for a caller that takes the list itself; null where there is none.

    TUGroup* getGroup() const; ///< The engine group, or null once it is gone.
};

} // namespace OMC
