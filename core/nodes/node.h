#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

class MO_Node;
class TUGroup;

namespace OMC {

class AttributeList;
class Node_Coordinates;
class PortList;

/// One node of a scene's graph.
///
/// It holds a weak handle on the engine node and nothing else: every property is read from the engine at each access,
/// so a renamed node keeps its wrappers. When the node goes (removed, undone, project closed), all its wrappers say
/// "Node is no longer valid. Node may have been moved or deleted." from then on; only `valid` can still be asked. Any
/// number of wrappers of one node may exist; none of them owns it. `getWrapped` makes the one whose class fits the
/// node.
///
/// A move to a group makes a new node there and removes the old one: the wrapper that was told to move goes on with the
/// new node, all others are invalid. Undoing it brings the old node back, for which there are new wrappers only.
class BRINDLE_CORE_EXPORT Node : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(Node)
    Q_PROPERTY(OMC::Obj attributes READ getAttributes)
    Q_PROPERTY(OMC::Obj ports_in READ getPortsIn)
    Q_PROPERTY(OMC::Obj ports_out READ getPortsOut)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString path READ getPath WRITE setPath)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(QVariant position READ getPosition WRITE setPosition)
    Q_PROPERTY(bool enabled READ getEnabled WRITE setEnabled)
    Q_PROPERTY(bool valid READ getValid)

public:
    /// The wrapper for an engine node, which the caller owns (as a rule through an Obj); null for null.
    static Node* getWrapped(MO_Node* node);

    std::string __str__() const override;

    virtual Obj getAttributes() const; ///< The AttributeList of the node's top level.
    virtual Obj getPortsIn() const;    ///< Its class follows the node's port mode; throws for a node without in-ports.
    virtual Obj getPortsOut() const;   ///< Its class follows the node's port mode; throws for a node without out-ports.
    /// The same, for a caller that takes the wrapper itself.
    AttributeList* newAttributes() const;
    PortList* newPortsIn() const;
    PortList* newPortsOut() const;

    virtual Obj parentScene() const;
    virtual Obj parentGroup() const; ///< An invalid GroupNode at the root group.

    /// Moves the node to a group; to a node that is no group: beside it. Throws for a group that is, or lies in, the
    /// node itself. A drop that the engine refuses is silent: the node stays where it was, as `path` tells. The place
    /// in the node view is the engine's to choose: x and y are not used.
    virtual void moveTo(const Obj& place, int x, int y);
    virtual void moveTo(const QString& path, int x, int y);

    virtual QString getName() const;
    virtual void setName(const QString& name); ///< The engine takes the name with what it can't hold changed.
    virtual QString getPath() const;           ///< "Top/Group/Node".
    /// Moves the node to the group before the last slash, also when it is there, and names it by what follows.
    virtual void setPath(const QString& path);
    virtual QString getType() const; ///< "PEG", "READ", ...

    virtual QVariant getPosition() const; ///< A Node_Coordinates, also of an invalid node.
    Node_Coordinates* newPosition() const;
    /// Any form of Point3d::ConvertQVariant; one that tells no z keeps the node's. Fractions are cut off.
    virtual void setPosition(const QVariant& position) const;

    virtual bool getEnabled() const;
    virtual void setEnabled(bool enabled);
    virtual bool getValid() const; ///< Whether the node is there; never throws.

    /// What the forms of `moveTo` come down to.
    virtual void moveNode(TUGroup* group, int x, int y);

    /// Whether the other object is a wrapper, of whatever class, of the same engine node.
    bool __eq__(const Obj& other) const;
    bool operator==(const Obj& other) const { return __eq__(other); }

    MO_Node* getNode() const; ///< The engine node, or null once it is gone.

protected:
    friend class NodeWrapperVisitor;

    explicit Node(MO_Node* node);

    void validate() const override;
    /// "Class(path)", the text of a node's wrapper.
    std::string textAs(const char* className) const;

private:
    class Homecoming;
};

} // namespace OMC
