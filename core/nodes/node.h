#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

class MO_Node;
class TUGroup;

namespace OMC {

class AllocatedRect2D;
class AttributeList;
class Node_Colour;
class MetaDataHandler;
class Node_Coordinates;
class NodeSubselectionList;
class PortList;

/// A node of a scene's graph. An object follows its node through a rename and is invalid for ever once the node is
/// gone.
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
    Q_PROPERTY(uint width READ getWidth)
    Q_PROPERTY(uint height READ getHeight)
    Q_PROPERTY(OMC::Obj rect READ getRect)
    Q_PROPERTY(bool enabled READ getEnabled WRITE setEnabled)
    Q_PROPERTY(bool cached READ getCached WRITE setCached)
    Q_PROPERTY(bool locked READ getLocked WRITE setLocked)
    Q_PROPERTY(QVariant colour READ getColour WRITE setColour)
    Q_PROPERTY(bool cacheable READ getCacheable)
    Q_PROPERTY(int version_max READ getVersionMax)
    Q_PROPERTY(int version READ getVersion WRITE setVersion)
    Q_PROPERTY(OMC::Obj matte_port READ getMattePort)
    Q_PROPERTY(bool thumbnail_timeline READ getThumbnailTimeline WRITE setThumbnailTimeline)
    Q_PROPERTY(OMC::Obj data READ getData)
    Q_PROPERTY(OMC::Obj metadata READ getMetadata)
    Q_PROPERTY(bool valid READ getValid)
    Q_PROPERTY(OMC::Obj subselections READ getSubselections)

public:
    /// The wrapper for an engine node, which the caller owns (as a rule through an Obj); null for null.
    static Node* getWrapped(MO_Node* node);

    std::string __str__() const override;

    virtual Obj getAttributes() const; ///< The node's parameters.
    /// The in-ports, in a list whose class follows the node's port mode; fails for a node without in-ports.
    virtual Obj getPortsIn() const;
    /// The out-ports, in a list whose class follows the node's port mode; fails for a node without out-ports.
    virtual Obj getPortsOut() const;
    /// The same, for a caller that takes the wrapper itself.
    AttributeList* newAttributes() const;
    PortList* newPortsIn() const;
    PortList* newPortsOut() const;

    virtual Obj parentScene() const; ///< The node's scene.
    virtual Obj parentGroup() const; ///< The group around the node; an invalid one at the root.

    /// Moves the node to a group, or beside a node that is no group; the target is a node or its path. Fails for a
    /// group that is, or lies in, the node itself. A drop that the engine refuses is silent: the node stays where it
    /// was, as `path` tells. The place in the node view is kept: x and y are not used. This object goes on with the
    /// moved node, all others of it are invalid.
    virtual void moveTo(const Obj& place, int x, int y);
    virtual void moveTo(const QString& path, int x, int y);

    virtual QString getName() const; ///< The name within the group; what the project can't hold in it is changed.
    virtual void setName(const QString& name);
    /// The names from the root group down: "Top/Group/Node". Writing it moves the node to the group before the last
    /// slash, also when it is there, and names it by what follows.
    virtual QString getPath() const;
    virtual void setPath(const QString& path);
    virtual QString getType() const; ///< The kind of node: "PEG", "READ", "COMPOSITE", ...

    /// The place in the node view, y growing downwards: Node_Coordinates when read, also of an invalid node; when
    /// written a list of two or three numbers, a point or another node's coordinates. What tells no z keeps the node's;
    /// fractions are cut off.
    virtual QVariant getPosition() const;
    Node_Coordinates* newPosition() const;
    virtual void setPosition(const QVariant& position) const;

    virtual unsigned int getWidth() const;  ///< Of the box in the node view, in its units; 80 where nothing shows it.
    virtual unsigned int getHeight() const; ///< Likewise; 0 where nothing shows it, 80 in a batch.
    /// The box in the node view, an AllocatedRect2D; its y is 32 greater than that of `position`.
    virtual Obj getRect() const;
    AllocatedRect2D* newRect() const; ///< The same, for a caller that takes the object itself.

    virtual bool getEnabled() const; ///< Whether the node takes part; a disabled node lets its input through.
    virtual void setEnabled(bool enabled);
    virtual bool getCached() const; ///< Whether the node's pictures are kept; a node that makes none refuses silently.
    virtual void setCached(bool cached);
    virtual bool getLocked() const; ///< Whether people's tools leave the node alone; scripts are not held by it.
    virtual void setLocked(bool locked);
    /// The colour in the node view: Node_Colour when read; takes every form of a colour.
    virtual void setColour(const QVariant& colour);
    virtual QVariant getColour() const;
    Node_Colour* newColour() const;
    virtual bool getCacheable() const; ///< Whether the node's pictures can be kept.
    virtual int getVersionMax() const; ///< The highest version of what the node computes; -1 for a group.
    virtual void setVersion(int version);
    virtual int getVersion() const;   ///< The version of what the node computes; -1 for a group.
    virtual Obj getMattePort() const; ///< The first in-port that is a matte; null without one.
    virtual void setThumbnailTimeline(bool shown);
    virtual bool getThumbnailTimeline() const; ///< Whether the timeline shows the node's pictures in small.
    virtual Obj getData() const;               ///< Not supported: reading it fails.
    virtual Obj getMetadata() const;           ///< The named values that the node carries along.
    MetaDataHandler* newMetadata() const;
    virtual bool getValid() const; ///< Whether the node is still there; never fails.

    /// The handles of the node's gizmo that a person can pick; a list of an invalid node fails at its first use.
    Obj getSubselections() const;
    /// The same, for a caller that takes the wrapper itself.
    NodeSubselectionList* newSubselections() const;

    /// Moves the node to a group; all forms of `moveTo` end here.
    virtual void moveNode(TUGroup* group, int x, int y);

    /// Whether the other object is a wrapper, of whatever class, of the same engine node.
    bool __eq__(const Obj& other) const;
    bool operator==(const Obj& other) const { return __eq__(other); }

    MO_Node* getNode() const; ///< The engine node, or null once it is gone.

    /// Throws the sentence for a node that is gone.
    [[noreturn]] static void throwNodeGone();

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
