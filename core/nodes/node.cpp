#include "core/nodes/node.h"

#include "core/attributes/attributelist.h"
#include "core/elements/metadatahandler.h"
#include "core/frame/undo.h"
#include "core/geometry/colour.h"
#include "core/geometry/point3d.h"
#include "core/geometry/rectangles.h"
#include "core/host/application.h"
#include "core/host/mo_backdrop.h"
#include "core/host/mo_node.h"
#include "core/host/mo_port.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/node_colour.h"
#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodemove.h"
#include "core/nodes/nodesubselectionlist.h"
#include "core/nodes/nodewrappervisitor.h"
#include "core/scene/scene.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace OMC {

namespace {

/// Cuts a coordinate to the engine's integers; refuses what they can't hold.
int truncated(double coordinate)
{
    constexpr double low = std::numeric_limits<int>::min();
    constexpr double high = std::numeric_limits<int>::max();
    if (!(coordinate > low - 1.0 && coordinate < high + 1.0))
        BaseObject::throwInvalidArgument(0);
    return static_cast<int>(coordinate);
}

/// The group that a move to a node leads to.
TUGroup* groupAt(MO_Node& target)
{
    TUGroup* group = target.group() ? target.group() : target.parentGroup();
    if (!group)
        throw Exception(Node::tr("Unable to find the target group."));
    return group;
}

/// The size of a node in the node view.
struct Size {
    unsigned int width = 80;
    unsigned int height = 0;
    bool isDrawn = false;
};

constexpr int undrawnBoxHeight = 32;

/// Cuts a length to an integer; one that no view can have is 0.
unsigned int cutLength(double length)
{
    return length >= 0 && length <= std::numeric_limits<int>::max() ? static_cast<unsigned int>(length) : 0;
}

/// Required: the heights differ between a batch, a program without a node view, and one with it.
Size sizeOf(const MO_Node& node)
{
    if (ST_BatchParams::isBatchScripting() || ST_BatchParams::isBatchRendering() || ST_BatchParams::isBatchPython())
        return {80, 80, false};
    const PLUG_NetworkViewInterface* view = PLUG_Services::getNetworkViewInterface();
    if (!view)
        return {};
    constexpr double far = std::numeric_limits<double>::max();
    TURect box{.left = -far, .top = far, .right = far, .bottom = -far};
    view->getNodeRect(&node, 0, box);
    return {cutLength(box.right - box.left), cutLength(box.bottom - box.top), true};
}

} // namespace

/// Brings a wrapper back to its node when a move has failed: the node left the scene, where it stands again.
class Node::Homecoming {
public:
    Homecoming(Node& wrapper, const MO_Node& node)
        : m_wrapper(wrapper),
          m_scene(node.sceneCommon()),
          m_path(node.qualifiedName())
    {}
    Homecoming(const Homecoming&) = delete;
    Homecoming& operator=(const Homecoming&) = delete;
    ~Homecoming()
    {
        if (m_wrapper.isGone())
            m_wrapper.setTarget(node_util::getNodeFromQualifiedName_optimized(m_scene, m_path));
    }

private:
    Node& m_wrapper;
    const SC_SceneCommon* m_scene;
    QString m_path;
};

Node::Node(MO_Node* node) : EngineView(node) {}

Node* Node::getWrapped(MO_Node* node)
{
    if (!node)
        return nullptr;
    NodeWrapperVisitor visitor;
    node->accept(visitor);
    return visitor.take();
}

std::string Node::__str__() const
{
    return textAs("Node");
}

Obj Node::getAttributes() const
{
    return Obj(newAttributes());
}

AttributeList* Node::newAttributes() const
{
    return new AttributeList(&target(), QStringList(), AttributeList::AllOfLevel);
}

Obj Node::getPortsIn() const
{
    return Obj(newPortsIn());
}

PortList* Node::newPortsIn() const
{
    MO_Node& node = target();
    switch (node.portMode()) {
    case MO_DynamicInPorts:
    case MO_DynamicInPortsOnly:
    case MO_DynamicPorts:
        return new MultiInPortList(&node);
    case MO_DynamicOutPortsOnly:
        throw Exception(tr("Multi-In nodes do not support in-ports."));
    case MO_FixedPorts:
        break;
    }
    return new InPortList(&node);
}

Obj Node::getPortsOut() const
{
    return Obj(newPortsOut());
}

PortList* Node::newPortsOut() const
{
    MO_Node& node = target();
    switch (node.portMode()) {
    case MO_DynamicInPortsOnly:
        throw Exception(tr("The node does not support out-ports."));
    case MO_DynamicOutPortsOnly:
    case MO_DynamicPorts:
        return new MultiPortList(&node, false);
    case MO_FixedPorts:
    case MO_DynamicInPorts:
        break;
    }
    return new PortList(&node, false);
}

Obj Node::parentScene() const
{
    const SC_SceneCommon* scene = target().sceneCommon();
    if (!scene)
        unexpected::fail(unexpected::ExceptionMisspelt);
    return Obj(new Scene(dynamic_cast<TUScene*>(scene->timedValues())));
}

Obj Node::parentGroup() const
{
    return Obj(new GroupNode(target().parentGroup()));
}

void Node::moveTo(const Obj& place, int x, int y)
{
    validate();
    const Node* wrapper = objectIn<Node>(place);
    MO_Node* node = wrapper ? wrapper->getNode() : nullptr;
    if (!node)
        throw Exception(tr("Unable to find the target node."));
    moveNode(groupAt(*node), x, y);
}

void Node::moveTo(const QString& path, int x, int y)
{
    const SC_SceneCommon* scene = target().sceneCommon();
    if (!scene)
        throwInvalid();
    MO_Node* node = node_util::getNodeFromQualifiedName_optimized(scene, path);
    if (!node)
        throw Exception(tr("Unable to find the target node."));
    moveNode(groupAt(*node), x, y);
}

QString Node::getName() const
{
    return target().instanceName();
}

void Node::setName(const QString& name)
{
    MO_Node& node = target();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    // The label has the name as it was given, not as the engine takes it: required, people look for what they typed.
    undo::run(manager, new tu_node::SetInstanceNameCmd(&node, TUModuleNameValidator::getValidName(name)),
              tr("Rename ") + node.instanceName() + tr(" to ") + name, tr("Failed to rename the node."));
}

QString Node::getPath() const
{
    return target().qualifiedName();
}

void Node::setPath(const QString& path)
{
    MO_Node& node = target();
    QStringList parts = path.split(QLatin1Char('/'));
    if (parts.size() < 2)
        throw Exception(tr("Invalid target path."));
    const QString wanted = parts.takeLast();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    const Homecoming homecoming(*this, node);
    undo::Scope scope(manager, tr("Changing the node path"));
    try {
        moveTo(parts.join(QLatin1Char('/')), node.x(), node.y());
        if (target().instanceName() != wanted)
            setName(wanted);
    } catch (const Exception&) {
        throw;
    } catch (...) {
        unexpected::fail();
    }
}

QString Node::getType() const
{
    return target().typeName();
}

// The coordinates of an invalid node are invalid themselves and say so at their first use.
QVariant Node::getPosition() const
{
    return toVariant(newPosition());
}

Node_Coordinates* Node::newPosition() const
{
    return new Node_Coordinates(getNode());
}

void Node::setPosition(const QVariant& position) const
{
    MO_Node& node = target();
    double x = 0.0;
    double y = 0.0;
    double z = node.z();
    Point3d::ConvertQVariant(position, x, y, z);
    truncated(y);
    const int engineX = truncated(x);
    const int engineY = truncated(y + double(Node_Coordinates::networkOffset));
    const int engineZ = truncated(z);
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    // The label names x though all three are set: required, the undo list has always said so.
    undo::run(manager, new tu_node::SetXYZCmd(&node, engineX, engineY, engineZ),
              tr("Set X position of ") + node.instanceName(), tr("Failed to set the node's position."));
}

bool Node::getEnabled() const
{
    return target().isEnabled();
}

void Node::setEnabled(bool enabled)
{
    MO_Node& node = target();
    // One label for both values, and a refusal is silent: required as it is.
    undo::manager(node.sceneCommon())
        .execute(new tu_node::EnabledNodeCmd(&node, enabled), tr("Enable ") + node.instanceName());
}

Obj Node::getSubselections() const
{
    return Obj(newSubselections());
}

NodeSubselectionList* Node::newSubselections() const
{
    return new NodeSubselectionList(getNode());
}

unsigned int Node::getWidth() const
{
    return sizeOf(target()).width;
}

unsigned int Node::getHeight() const
{
    return sizeOf(target()).height;
}

Obj Node::getRect() const
{
    return Obj(newRect());
}

// The engine's y: required, the box stands where the node view has it.
AllocatedRect2D* Node::newRect() const
{
    const MO_Node& node = target();
    const Size size = sizeOf(node);
    // Required: where nothing draws the node, the box is lower than `height` says.
    return new AllocatedRect2D(size.width, size.isDrawn ? size.height : undrawnBoxHeight, node.x(), node.y());
}

bool Node::getCached() const
{
    return target().cacheConfig().enabled;
}

void Node::setCached(bool cached)
{
    MO_Node& node = target();
    // One label for both values, and a refusal is silent: required as it is.
    undo::manager(node.sceneCommon())
        .execute(new tu_node::CacheNodeCmd(&node, cached), tr("Cache ") + node.instanceName());
}

bool Node::getLocked() const
{
    return target().lock();
}

void Node::setLocked(bool locked)
{
    MO_Node& node = target();
    if (!node.canLock())
        throw Exception(std::string("This node cannot be locked."));
    undo::manager(node.sceneCommon())
        .execute(new tu_node::LockNodeCmd(&node, locked), (locked ? tr("Lock ") : tr("Unlock ")) + node.instanceName());
}

void Node::setColour(const QVariant& value)
{
    MO_Node& node = target();
    int r = 255;
    int g = 255;
    int b = 255;
    int a = 255;
    Colour::QVariantToRGBAInt(value, r, g, b, a);
    const auto byte = [](int channel) { return std::clamp(channel, 0, 255); };
    const QColor colour(byte(r), byte(g), byte(b), byte(a));
    // Required: the node shows the colour whatever becomes of the command.
    node.setNodeColor(colour);
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_node::SetNodeColorCmd(&node, colour), tr("Set color position of ") + node.instanceName(),
              tr("Failed to set the node's colour."));
}

QVariant Node::getColour() const
{
    return toVariant(newColour());
}

Node_Colour* Node::newColour() const
{
    return new Node_Colour(&target());
}

bool Node::getCacheable() const
{
    return target().isCacheable();
}

int Node::getVersionMax() const
{
    const MO_Module* module = target().module();
    return module ? module->versionMax() : -1;
}

void Node::setVersion(int version)
{
    MO_Node& node = target();
    MO_Module* module = node.module();
    if ((module ? module->version() : -1) == version)
        return;
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_module::SetVersionCmd(module, version), tr("Set version of ") + node.instanceName(),
              tr("Failed to set the node's version."));
}

int Node::getVersion() const
{
    const MO_Module* module = target().module();
    return module ? module->version() : -1;
}

Obj Node::getMattePort() const
{
    MO_Node& node = target();
    for (unsigned int index = 0; index < node.nInPorts(); ++index) {
        const MO_Port* port = node.inPort(index);
        if (port && port->isMattePort())
            return Obj(new InPort(&node, port->id()));
    }
    return Obj();
}

void Node::setThumbnailTimeline(bool shown)
{
    MO_Node& node = target();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_node::ShowHideTimelineThumb(&node, shown),
              shown ? tr("Show Thumbnail") : tr("Hide Thumbnail"), tr("Failed to change the node's thumbnail state."));
}

bool Node::getThumbnailTimeline() const
{
    return target().isShowTimelineThumbnails();
}

// Of an invalid node too: required, it says that there is no such data before it looks for the node.
Obj Node::getData() const
{
    throw Exception(tr("View and tool data is not currently supported."));
}

// The metadata of an invalid node are invalid themselves and say so at their first use.
Obj Node::getMetadata() const
{
    return Obj(newMetadata());
}

MetaDataHandler* Node::newMetadata() const
{
    return new MetaDataHandler(getNode());
}

bool Node::getValid() const
{
    return getNode() != nullptr;
}

void Node::moveNode(TUGroup* group, int, int)
{
    MO_Node& node = target();
    if (!node.parentGroup())
        throw Exception(tr("The node source is invalid."));
    if (!group)
        throw Exception(tr("The target group is invalid."));
    const node_move::Terms terms{
        .makesMultiPort = true,
        .selectsAsBatch = false,
        .oneNodeOnly = true,
        .failsSilently = true,
        .noMultiPort = tr("Unable to find target's out multi-port."),
        .missingPart = unexpected::ErrorOccurred,
        .entersItself = tr("Unable to place the node in the group."),
        .failed = {},
        .severalNodes = tr("CHECK THIS -- IT SHOULD ONLY BE ONE, BUT I CANT CONFIRM THAT WITH GROUP NODES."),
    };
    const Homecoming homecoming(*this, node);
    const std::vector<MO_Node*> moved = node_move::moveNodes({&node}, node.sceneCommon(), *group, terms);
    if (!moved.empty() && moved.front() != findTarget())
        setTarget(moved.front());
}

bool Node::__eq__(const Obj& other) const
{
    const MO_Node& node = target();
    const Node* wrapper = objectIn<Node>(other);
    return wrapper && wrapper->getNode() == &node;
}

MO_Node* Node::getNode() const
{
    return findTarget();
}

void Node::validate() const
{
    if (isGone())
        throwNodeGone();
    validateThreadLock();
}

void Node::throwNodeGone()
{
    throw Exception(tr("Node is no longer valid. Node may have been moved or deleted."));
}

std::string Node::textAs(const char* className) const
{
    return (QLatin1String(className) + QLatin1Char('(') + target().qualifiedName() + QLatin1Char(')')).toStdString();
}

} // namespace OMC
