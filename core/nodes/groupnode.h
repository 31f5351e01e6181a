#pragma once

#include "core/nodes/node.h"

#include <QList>

class TUGroup;

namespace OMC {

class BackdropList;
class NodeList;

/// A node that holds nodes, and the two nodes inside it that face its ports.
class BRINDLE_CORE_EXPORT GroupNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(GroupNode)
    Q_PROPERTY(OMC::Obj multi_port_in READ getMultiPortIn)
    Q_PROPERTY(OMC::Obj multi_port_out READ getMultiPortOut)
    Q_PROPERTY(OMC::Obj nodes READ getNodes)
    Q_PROPERTY(OMC::Obj backdrops READ getBackdrops)

public:
    explicit GroupNode(TUGroup* group);

    std::string __str__() const override;

    /// The node inside that faces the in-ports; it is made when there is none, as an undoable step. Null when the
    /// engine refuses it.
    virtual Obj getMultiPortIn() const;
    /// The node inside that faces the out-ports; it is made when there is none, as an undoable step. Null when the
    /// engine refuses it.
    virtual Obj getMultiPortOut() const;
    virtual Obj getNodes() const;     ///< The nodes directly in the group.
    NodeList* newNodes() const;       ///< The same, for a caller that takes the list itself; null where there is none.
    virtual Obj getBackdrops() const; ///< The coloured rectangles behind the nodes of the group.
    BackdropList*
    newBackdrops() const; ///< The same, for a caller that takes the list itself; null where there is none.

    /// Puts the nodes of the group in its place, with the links that lead through it, and gives them. The group is gone
    /// then, with its two multi-port nodes; all other nodes stay what they are.
    QList<QVariant> explode();

    TUGroup* getGroup() const; ///< The engine group, or null once it is gone.
};

} // namespace OMC
