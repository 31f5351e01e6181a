#pragma once

#include "core/host/export.h"
#include "core/host/math_point.h"
#include "core/host/mo_basecontext.h"
#include "core/host/ut_sharedweak.h"

#include <QColor>
#include <QString>

#include <memory>
#include <vector>

class AT_Attr;
struct AT_AttrDesc;
class AT_DoubleAttr;
class AT_Position3dAttr;
class AT_Rotation3dAttr;
class AT_Scale3dAttr;
namespace Math {
class Matrix4x4;
}
class MO_Backdrop;
class MO_PortTransform;
class MO_Module;
class MO_ModuleVisitor;
class MO_Node;
class MO_Port;
class SC_SceneCommon;
class TIR_PerformanceTimer;
class TUGroup;
class TUScene;

/// Which port lists of a node are fixed and which grow: decides the class of its port lists.
enum MO_PortMode {
    MO_FixedPorts = 0,
    MO_DynamicInPorts = 1,
    MO_DynamicInPortsOnly = 2,  ///< No out-ports: TUMultiPortOut.
    MO_DynamicOutPortsOnly = 3, ///< No in-ports: TUMultiPortIn.
    MO_DynamicPorts = 4         ///< Both: TUGroup.
};

/// How a node keeps its pictures.
struct MO_CacheConfig {
    bool enabled = false;
};

/// A node of the scene's graph. It belongs to its group; while only the undo list keeps it, weak pointers to it are
/// expired. Positions are those of the node view, y growing downwards.
class BRINDLE_HOST_EXPORT MO_Node : public UT_SharedWeakBase {
public:
    virtual SC_SceneCommon* sceneCommon() const = 0; ///< Null before the node is given a scene.
    virtual TUGroup* parentGroup() const = 0;        ///< Null at the root group.
    virtual QString instanceName() const = 0;
    virtual QString qualifiedName() const = 0; ///< "Top/Group/Node".
    virtual QString typeName() const = 0;      ///< "PEG", "READ", ...

    /// Calls the `visit` of the node's own class. A group hands the visitor itself, and `MO_ModuleVisitor::visit`
    /// carries it through.
    virtual void accept(MO_ModuleVisitor& visitor) = 0;
    virtual MO_Module* module() = 0; ///< The node as a module, or null.
    virtual TUGroup* group() = 0;    ///< The node as a group, or null.

    virtual int x() const = 0;
    virtual int y() const = 0;
    virtual int z() const = 0;
    /// For a node that is in no group yet.
    virtual void setX(int x) = 0;
    virtual void setY(int y) = 0;
    virtual void setZ(int z) = 0;

    /// For a new node: the scene that it will live in, the name it gets when it is given none, and its name.
    virtual void setScene(SC_SceneCommon* scene) = 0;
    virtual QString defaultInstanceName() const = 0;
    virtual bool setInstanceName(const QString& name) = 0; ///< False when the name is refused.
    /// Whether a name can be taken as it stands, without a number behind it.
    virtual bool isNameAcceptable(const QString& name) const = 0;

    virtual bool isEnabled() const = 0;
    /// The node's colour in the node view; that of its type for a node without one of its own.
    virtual QColor getNodeColor() const = 0;
    /// Shows a colour at once, ahead of the command that records it: neither saved nor undone by itself.
    virtual void setNodeColor(const QColor& colour) = 0;
    virtual void setDirty() = 0;                           ///< Marks the node's picture as outdated.
    virtual bool isCacheable() const = 0;                  ///< Whether its pictures can be kept.
    virtual const MO_CacheConfig& cacheConfig() const = 0; ///< Whether, and how, they are.
    virtual bool canLock() const = 0;
    virtual bool lock() const = 0; ///< Whether people's tools leave the node alone; scripts are not held by it.
    virtual bool isShowTimelineThumbnails() const = 0; ///< Whether the timeline shows its pictures in small.

    virtual MO_PortMode portMode() const = 0;
    virtual unsigned int nInPorts() const = 0;
    virtual unsigned int nOutPorts() const = 0;
    virtual MO_Port* inPort(unsigned int index) const = 0; ///< Null when there is none.
    virtual MO_Port* outPort(unsigned int index) const = 0;
    virtual MO_Port* inPortFromId(unsigned int id) const = 0;
    virtual MO_Port* outPortFromId(unsigned int id) const = 0;
    virtual int inPortId(const MO_Port* port) const = 0; ///< The port's place on the node; -1 when it is not there.
    virtual int outPortId(const MO_Port* port) const = 0;
    virtual bool hasImageOutput() const = 0;
    virtual bool isModeMultiInPort() const = 0;

    /// What the node took when the scene was shown last; null where that isn't measured.
    virtual std::shared_ptr<TIR_PerformanceTimer> performanceTimer() const { return nullptr; }

    using AttrIterator = AT_Attr* const*;
    virtual AT_Attr* findAttributeByKeyword(const QString& keyword) const = 0; ///< One of the top level, or null.
    virtual AttrIterator attrsBegin() const = 0;
    virtual AttrIterator attrsEnd() const = 0;
    /// Appends all attributes of the node, at all levels, each ahead of those inside it.
    void getFullAttrList(std::vector<AT_AttrDesc>& list) const;
};

/// A node that computes something: every node but a group.
class BRINDLE_HOST_EXPORT MO_Module : public MO_Node {
public:
    virtual int version() const = 0;
    virtual int versionMax() const = 0;
    /// The transformation at the first out-port, or null where there is none to tell of. It belongs to the node, until
    /// the next question or change.
    virtual const MO_PortTransform* getPortTransformation(const MO_BaseContext& context) const = 0;
};

/// The attributes of a peg by which it moves what hangs on it. Position and pivot are in fields, angles in degrees.
class BRINDLE_HOST_EXPORT MO_PegTransform {
public:
    virtual ~MO_PegTransform() = default;
    virtual AT_Position3dAttr* position() const = 0;
    virtual AT_DoubleAttr* rotationAngle() const = 0; ///< About z: the rotation in the plane.
    virtual AT_Rotation3dAttr* rotation3d() const = 0;
    virtual AT_DoubleAttr* skew() const = 0;
    virtual AT_Scale3dAttr* scale() const = 0; ///< In the plane its x and y count.
    virtual AT_Position3dAttr* pivot() const = 0;
    virtual Math::Point3d pivotAt(const MO_BaseContext& context) const = 0; ///< The pivot that it turns about.
    /// Whether it turns and scales in space, and not in the plane.
    virtual bool usesFullTransform() const = 0;
};

class BRINDLE_HOST_EXPORT TUPegModule : public MO_Module {
public:
    virtual const MO_PegTransform& pegTransform() const = 0;
};
class BRINDLE_HOST_EXPORT TUCameraModule : public MO_Module {};
class BRINDLE_HOST_EXPORT TUDisplayModule : public MO_Module {};
/// Shows an element's drawings.
class BRINDLE_HOST_EXPORT MO_ElementModule : public MO_Module {
public:
    /// What the node adds between a peg's pivot and its drawing: its own pivot, in fields, and its own transformation.
    /// False, and both are left alone, where it adds nothing.
    virtual bool getPivotForParent(const MO_BaseContext& context, Math::Point3d& pivot,
                                   Math::Matrix4x4& matrix) const = 0;
};
class BRINDLE_HOST_EXPORT TUMultiPortIn : public MO_Module {
public:
    /// A new one, which the caller owns.
    static TUMultiPortIn* create();
}; ///< The inside face of a group's in-ports.
class BRINDLE_HOST_EXPORT TUMultiPortOut : public MO_Module {
public:
    static TUMultiPortOut* create();
}; ///< The inside face of a group's out-ports.

/// A node that holds nodes. Sub-nodes keep the order in which they were added.
class BRINDLE_HOST_EXPORT TUGroup : public MO_Node {
public:
    /// A new group, which the caller owns, without a name, a scene and a place.
    static TUGroup* create();
    /// A new module of that type at a place of the node view, owned by the caller; null for an unknown type, "GROUP"
    /// included. `flag` is always true and comes back as it was; the last argument is always null.
    static MO_Module* createNode(const QString& type, int x, int y, int z, bool& flag, const void*);

    using NodeIterator = MO_Node* const*;
    virtual NodeIterator subNodesBegin() const = 0;
    virtual NodeIterator subNodesEnd() const = 0;
    virtual unsigned int nSubNodes() const = 0;
    virtual MO_Node* subNode(unsigned int index) const = 0;  ///< Null beyond the end.
    virtual MO_Node* subNode(const QString& name) const = 0; ///< A direct sub-node by its name, or null.
    /// All nodes below the group, depth first, each group ahead of its content; the group itself is left out.
    virtual void getRecursiveSubNodeList(std::vector<MO_Node*>& nodes) const = 0;
    virtual std::size_t nRecursiveSubNodes() const = 0;             ///< Their number.
    virtual MO_Node* recursiveSubNode(std::size_t index) const = 0; ///< One of them; null beyond the end.

    /// The backdrops, in the order in which they were added.
    virtual const std::vector<std::shared_ptr<MO_Backdrop>>& backdrops() const = 0;

    /// The node inside that faces the group's in-ports, or null while there is none.
    virtual TUMultiPortIn* getOutMultiPort() const = 0;
    /// The node inside that faces the group's out-ports, or null while there is none.
    virtual TUMultiPortOut* getInMultiPort() const = 0;
};

/// Called by MO_Node::accept with the node's own class. The `visit` of a kind falls back on the more general one; that
/// of a group carries the visitor to every module below it, however deep, without a call stack as deep as the groups.
class BRINDLE_HOST_EXPORT MO_ModuleVisitor {
public:
    virtual ~MO_ModuleVisitor() = default;
    virtual void visit(MO_Module&) {}
    virtual void visit(TUPegModule& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(TUCameraModule& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(TUDisplayModule& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(MO_ElementModule& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(TUMultiPortIn& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(TUMultiPortOut& node) { visit(static_cast<MO_Module&>(node)); }
    virtual void visit(TUGroup& group)
    {
        std::vector<MO_Node*> nodes;
        group.getRecursiveSubNodeList(nodes);
        for (MO_Node* node : nodes) {
            if (!node->group())
                node->accept(*this);
        }
    }
};

/// A visitor whose every kind ends, unless it is overridden, in `visit(MO_Module&)`.
using MO_AbstractModuleVisitorWithModuleFallback = MO_ModuleVisitor;

class BRINDLE_HOST_EXPORT TUModuleNameValidator {
public:
    /// The name changed so that the engine takes it: without "/" and control characters, trimmed, never empty.
    static QString getValidName(const QString& name);
};

namespace node_util {

/// The node at a path that begins with the root group's name, or null. A look-up a level, whatever the number of nodes.
BRINDLE_HOST_EXPORT MO_Node* getNodeFromQualifiedName_optimized(const SC_SceneCommon* scene, const QString& path);
/// The node at a path relative to a group, or null. `absolute` true takes a path from the root group instead.
BRINDLE_HOST_EXPORT MO_Node* getNodeFromQualifiedName(const TUGroup* base, const QString& path, bool absolute);

} // namespace node_util
