#include "engine/graph/dragdrop.h"

#include "core/host/at_attr.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_node.h"
#include "engine/graph/linkcommands.h"
#include "engine/graph/links.h"
#include "engine/graph/nodecopy.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/scene.h"

#include <utility>

namespace brindle::engine {

namespace {

UT_SharedWeakPtrBase weak(UT_SharedWeakBase* target)
{
    UT_SharedWeakPtrBase pointer;
    pointer.assign(target);
    return pointer;
}

/// The selected nodes that lie in no other selected one.
std::vector<Node*> topsOf(const std::vector<MO_Node*>& hosts)
{
    std::vector<Node*> nodes;
    nodes.reserve(hosts.size());
    for (MO_Node* host : hosts) {
        if (Node* node = engineNode(host))
            nodes.push_back(node);
    }
    return topNodes(nodes);
}

/// Takes down what is dragged.
class Dragger {
public:
    explicit Dragger(DD_DragObject::Private& object) : m_object(object) {}

    void drag(const std::vector<Node*>& tops)
    {
        for (const Node* top : tops) {
            std::unique_ptr<MO_Node> host = copyNode(*top, m_copies, nullptr);
            m_object.tops.push_back({std::move(host), m_copies.at(top)});
        }
        for (Node* top : tops) {
            forEachFrom(*top, [this](const Node& node) {
                noteDrives(node);
                noteDefaults(node);
            });
            noteLinks(*top);
        }
    }

private:
    void noteDrives(const Node& node)
    {
        if (!node.hasAttributes())
            return;
        const AttributeSet& attributes = node.attributes();
        for (int place = 0; place < attributes.count(); ++place) {
            const auto* socket = static_cast<const Socket*>(attributes.at(place).socket());
            if (Column* column = socket ? socket->column() : nullptr)
                m_object.drives.push_back({m_copies.at(&node), place, weak(&column->timedValue()), socket->order()});
        }
    }

    void noteDefaults(const Node& node)
    {
        if (&node.host() == node.scene()->camera(false))
            m_object.camera = m_copies.at(&node);
        else if (&node.host() == node.scene()->defaultDisplay())
            m_object.display = m_copies.at(&node);
    }

    void noteLinks(const Node& top)
    {
        for (std::size_t place = 0; place < top.portCount(PortSide::In); ++place) {
            const Port& in = *top.port(PortSide::In, place);
            // A link between two dragged nodes is noted at its source.
            if (in.source() && !m_copies.contains(in.source()->owner()))
                m_object.links.push_back({end(*in.source()), end(in), in.kind()});
        }
        for (std::size_t place = 0; place < top.portCount(PortSide::Out); ++place) {
            const Port& out = *top.port(PortSide::Out, place);
            for (std::size_t i = 0; i < out.destinationCount(); ++i)
                m_object.links.push_back({end(out), end(*out.destination(i)), out.kind()});
        }
    }

    DraggedEnd end(const Port& port) const
    {
        const auto copy = m_copies.find(port.owner());
        if (copy != m_copies.end())
            return {copy->second, {}, port.place()};
        return {nullptr, weak(port.node()), port.place()};
    }

    DD_DragObject::Private& m_object;
    NodeCopies m_copies;
};

/// Links an attribute of a dropped node to a column: at a place among the column's links if that is free.
class DriveAttribute final : public CO_Command {
public:
    DriveAttribute(Socket& socket, Column& column, Socket::Order order)
        : m_socket(socket),
          m_column(column),
          m_order(order)
    {}

    Status execute() override
    {
        if (m_column.isTaken(m_order))
            m_order = m_socket.link(m_column);
        else
            m_socket.restore(m_column, m_order);
        return kOk;
    }

    Status unexecute() override
    {
        m_socket.unlink();
        return kOk;
    }

private:
    Socket& m_socket;
    Column& m_column;
    Socket::Order m_order;
};

TUCameraModule* asCamera(MO_Node* node)
{
    return dynamic_cast<TUCameraModule*>(node);
}

/// Makes the nodes of a drag object in a group.
class Dropper {
public:
    Dropper(CO_CommandManager& manager, Group& group, DD_Selection::Private& dropped)
        : m_manager(manager),
          m_group(group),
          m_dropped(dropped)
    {}

    bool drop(const DD_DragObject::Private& object)
    {
        for (const auto& top : object.tops) {
            MO_Node* host = copyNode(*top.node, m_copies, m_group.scene()).release();
            if (!run(std::make_unique<tu_node::AddSubNodeCmd>(&m_group, host)))
                return false;
            m_dropped.nodes.push_back(host);
        }
        for (const DraggedLink& link : object.links)
            restore(link);
        for (const DraggedDrive& drive : object.drives)
            restore(drive);
        if (object.camera)
            m_dropped.camera = &m_copies.at(object.camera)->host();
        return setDefaults(object);
    }

private:
    bool run(std::unique_ptr<CO_Command> command) { return m_manager.execute(command.release(), QString()); }

    /// The default camera and display are set again where the scene has none any more: nodes that move, also
    /// within a group that moves, stay what they were.
    bool setDefaults(const DD_DragObject::Private& object)
    {
        SC_SceneCommon& scene = *m_group.scene();
        if (m_dropped.camera && !scene.camera(false) &&
            !run(std::make_unique<SC_SceneCmds::SetDefaultCameraCmd>(&scene, asCamera(m_dropped.camera))))
            return false;
        if (!object.display || scene.defaultDisplay())
            return true;
        auto* display = dynamic_cast<TUDisplayModule*>(&m_copies.at(object.display)->host());
        return run(std::make_unique<SC_SceneCmds::SetDefaultDisplayCmd>(&scene, display));
    }

    void restore(const DraggedLink& link)
    {
        Node* from = nodeAt(link.from);
        Node* to = nodeAt(link.to);
        if (from && to) {
            linkPorts(from->port(PortSide::Out, link.from.place), to->port(PortSide::In, link.to.place));
            return;
        }
        if (from && link.from.dragged)
            m_dropped.lost.push_back({from, PortSide::Out, link.from.place, link.kind});
        if (to && link.to.dragged)
            m_dropped.lost.push_back({to, PortSide::In, link.to.place, link.kind});
    }

    void restore(const DraggedDrive& drive)
    {
        Column* column = Column::of(static_cast<TUTimedValue*>(drive.column.get()));
        if (!column || column->scene() != m_group.scene())
            return;
        const AT_Attr& attr = m_copies.at(drive.node)->attributes().at(drive.place);
        run(std::make_unique<DriveAttribute>(static_cast<Socket&>(*attr.socket()), *column, drive.order));
    }

    /// The node in the group where a link ends; null when it isn't there.
    Node* nodeAt(const DraggedEnd& end) const
    {
        if (end.dragged)
            return m_copies.at(end.dragged);
        Node* staying = engineNode(static_cast<MO_Node*>(end.staying.get()));
        return staying && staying->parent() == &m_group ? staying : nullptr;
    }

    /// A port that another node fed first keeps its link: when the nodes are still there that were dragged.
    void linkPorts(Port* out, Port* in)
    {
        if (out && in)
            run(std::make_unique<LinkPorts>(*out, *in));
    }

    CO_CommandManager& m_manager;
    Group& m_group;
    DD_Selection::Private& m_dropped;
    NodeCopies m_copies; ///< The copies of the drag object's nodes.
};

/// A group of the scene, or null.
Group* groupIn(SC_SceneCommon* scene, TUGroup* host)
{
    Scene* own = engineScene(scene);
    Group* group = engineGroup(host);
    return own && group && group->graph() == &own->graph() ? group : nullptr;
}

/// A node of the scene, or null.
Node* nodeIn(SC_SceneCommon* scene, MO_Node* host)
{
    Scene* own = engineScene(scene);
    Node* node = engineNode(host);
    return own && node && node->graph() == &own->graph() ? node : nullptr;
}

/// An in-port of the composite that nothing feeds, a new one if need be.
Port* freeInPort(Node& composite, CO_CommandManager& manager)
{
    const std::size_t count = composite.portCount(PortSide::In);
    for (std::size_t place = 0; place < count; ++place) {
        Port* in = composite.port(PortSide::In, place);
        if (!in->source())
            return in;
    }
    manager.execute(composite.addInPortCommand(static_cast<unsigned int>(count)), QString());
    return composite.port(PortSide::In, count);
}

/// The first out-port of a kind.
Port* firstOutPort(const Node& node, PortKind kind)
{
    for (std::size_t place = 0; place < node.portCount(PortSide::Out); ++place) {
        if (Port* out = node.port(PortSide::Out, place); out->kind() == kind)
            return out;
    }
    return nullptr;
}

bool isComposite(const Node& node)
{
    return node.type().name == u"COMPOSITE";
}

} // namespace

} // namespace brindle::engine

using brindle::engine::PortKind;
using brindle::engine::PortSide;

DD_Selection::DD_Selection() : d(std::make_unique<Private>()) {}

DD_Selection::~DD_Selection() = default;

void DD_Selection::SetFrameRange(int first, int count)
{
    d->firstFrame = first;
    d->frameCount = count;
}

bool DD_Selection::hasNodes() const
{
    return !d->nodes.empty();
}

const std::vector<MO_Node*>& DD_Selection::Nodes() const
{
    return d->nodes;
}

DD_Selection::NodeIterator DD_Selection::NodeBegin() const
{
    return d->nodes.data();
}

DD_Selection::NodeIterator DD_Selection::NodeEnd() const
{
    return d->nodes.data() + d->nodes.size();
}

void DD_Selection::GetFilteredNodes(std::set<MO_Node*>& nodes) const
{
    nodes.clear();
    for (const brindle::engine::Node* node : brindle::engine::topsOf(d->nodes))
        nodes.insert(&node->host());
}

void DD_SelectionUtil::BuildSelection(TUScene*, const SL_Selection& selection, DD_Selection& dragged,
                                      const CompositionOptions&)
{
    dragged.data().nodes = SL_SelectionUtil::getNodes(selection);
    dragged.data().lost.clear();
}

DD_DragObject DD_System::CreateDragObject(SC_SceneCommon* scene, const DD_Selection& dragged, DD_DragMode)
{
    const DD_Selection::Private& data = dragged.data();
    if (data.nodes.empty() || data.frameCount < 1)
        return DD_DragObject();
    for (MO_Node* host : data.nodes) {
        const brindle::engine::Node* node = brindle::engine::nodeIn(scene, host);
        if (!node || !node->parent())
            return DD_DragObject();
    }
    auto object = std::make_shared<DD_DragObject::Private>();
    brindle::engine::Dragger(*object).drag(brindle::engine::topsOf(data.nodes));
    return DD_DragObject(std::move(object));
}

bool DD_System::DropDragObjectNewLayer(SC_SessionContext* session, SC_SceneCommon* scene, TUGroup* host,
                                       const DD_DragObject& dragObject, const DD_DropMode& mode, DD_Selection& dropped)
{
    brindle::engine::Group* group = brindle::engine::groupIn(scene, host);
    if (!session || !group || !dragObject.isValid() || dragObject.data().scene || !mode.makesNodes())
        return false;
    CO_CommandManager& manager = *scene->commandManager();
    CO_CommandAccumScope scope(&manager, QStringLiteral("Drop Nodes"), nullptr, CO_CommandAccumScope::kDefault);
    dropped.data() = {};
    if (brindle::engine::Dropper(manager, *group, dropped.data()).drop(dragObject.data()))
        return true;
    dropped.data() = {};
    scope.cancel();
    return false;
}

bool DD_System::FindOrCreateComposite(SC_SceneCommon* scene, const DD_DropMode&, TUGroup* host, MO_Node*,
                                      MO_Node*& composite)
{
    composite = nullptr;
    const brindle::engine::Group* group = brindle::engine::groupIn(scene, host);
    if (!group)
        return false;
    const brindle::engine::Node* exit = group->multiPortOut();
    for (std::size_t place = 0; exit && !composite && place < exit->portCount(PortSide::In); ++place) {
        const brindle::engine::Port* source = exit->port(PortSide::In, place)->source();
        if (source && brindle::engine::isComposite(*source->owner()))
            composite = source->node();
    }
    return true;
}

bool DD_System::LinkToComposite(SC_SceneCommon* scene, const DD_DropMode&, const DD_Selection& dropped, MO_Node* host)
{
    brindle::engine::Node* composite = brindle::engine::nodeIn(scene, host);
    if (!composite)
        return host == nullptr;
    CO_CommandManager& manager = *scene->commandManager();
    CO_CommandAccumScope scope(&manager, QStringLiteral("Link to Composite"), nullptr, CO_CommandAccumScope::kDefault);
    for (const brindle::engine::LostLink& lost : dropped.data().lost) {
        brindle::engine::Port* out = lost.side == PortSide::Out && lost.kind == PortKind::Image
                                         ? lost.node->port(lost.side, lost.place)
                                         : nullptr;
        if (!out || out->isLinked() || brindle::engine::closesCircle(*lost.node, *composite))
            continue;
        brindle::engine::Port* in = brindle::engine::freeInPort(*composite, manager);
        if (!in || !manager.execute(new brindle::engine::LinkPorts(*out, *in), QString())) {
            scope.cancel();
            return false;
        }
    }
    return true;
}

bool DD_System::ReparentNode(SC_SceneCommon* scene, const DD_Selection& dropped, MO_Node* host)
{
    const brindle::engine::Node* multiPort = brindle::engine::nodeIn(scene, host);
    brindle::engine::Port* parent = multiPort ? brindle::engine::firstOutPort(*multiPort, PortKind::Peg) : nullptr;
    if (!parent)
        return true;
    CO_CommandManager& manager = *scene->commandManager();
    CO_CommandAccumScope scope(&manager, QStringLiteral("Reparent"), nullptr, CO_CommandAccumScope::kDefault);
    for (const brindle::engine::LostLink& lost : dropped.data().lost) {
        brindle::engine::Port* in =
            lost.side == PortSide::In && lost.kind == PortKind::Peg ? lost.node->port(lost.side, lost.place) : nullptr;
        if (in && !in->source() && !manager.execute(new brindle::engine::LinkPorts(*parent, *in), QString())) {
            scope.cancel();
            return false;
        }
    }
    return true;
}

bool DD_System::UnlinkParentFromComposite(SC_SceneCommon* scene, const DD_DropMode&, const DD_Selection&, MO_Node*,
                                          MO_Node*)
{
    return brindle::engine::engineScene(scene) != nullptr;
}

bool DD_System::SetDefaultCamera(SC_SceneCommon* scene, const DD_DropMode& mode, const DD_Selection& dropped)
{
    if (!brindle::engine::engineScene(scene))
        return false;
    MO_Node* camera = dropped.data().camera;
    if (!mode.takesDefaultCamera() || !camera)
        return true;
    return scene->commandManager()->execute(
        new SC_SceneCmds::SetDefaultCameraCmd(scene, brindle::engine::asCamera(camera)),
        QStringLiteral("Set Default Camera"));
}
