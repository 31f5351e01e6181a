#include "engine/folder/scenefile.h"

#include "engine/curves/columnlist.h"
#include "engine/folder/backdroptext.h"
#include "engine/folder/colourtext.h"
#include "engine/folder/columntext.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/projectfolder.h"
#include "engine/graph/links.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/scene.h"

namespace brindle::engine {

namespace {

constexpr int highestPortId = 1 << 30;

class SceneReader {
public:
    SceneReader(const JsonPlace& root, TUScene& scene)
        : m_root(root),
          m_scene(*engineScene(scene.sceneCommon())),
          m_graph(*SceneGraph::of(scene.sceneCommon())),
          m_columns(*ColumnList::of(scene.sceneCommon())),
          m_attributes(*scene.sceneCommon())
    {}

    void read()
    {
        const JsonPlace columns = m_root.field("columns");
        for (int i = 0; i < columns.size(); ++i)
            readColumn(columns.item(i), m_columns);
        const JsonPlace nodes = m_root.field("nodes");
        for (int i = 0; i < nodes.size(); ++i)
            readNode(nodes.item(i));
        if (m_nodes.empty())
            nodes.fail(QStringLiteral("has no root group"));
        // A link may lead to a node further down.
        for (int i = 0; i < nodes.size(); ++i)
            readLinks(nodes.item(i), *m_nodes[static_cast<std::size_t>(i)]);
        for (int i = 0; i < columns.size(); ++i)
            linkColumn(columns.item(i), *m_columns.begin()[i], m_attributes.driven());
        readMarkers();
        if (const auto metadata = m_root.ifField("metadata"))
            m_scene.metadataList().read(*metadata);
        if (const auto camera = m_root.ifField("camera"))
            m_scene.setDefaultCamera(nodeAt<TUCameraModule>(*camera, "a camera"));
        if (const auto display = m_root.ifField("display"))
            m_scene.setDefaultDisplay(nodeAt<TUDisplayModule>(*display, "a display"));
    }

    /// Sets what a scene of version 1 had, when it could not be chosen.
    void chooseFirstDisplay()
    {
        for (Node* node : m_nodes) {
            if (auto* display = dynamic_cast<TUDisplayModule*>(&node->host())) {
                m_scene.setDefaultDisplay(display);
                return;
            }
        }
    }

private:
    template <typename Module>
    Module* nodeAt(const JsonPlace& place, const char* what)
    {
        MO_Node* node = node_util::getNodeFromQualifiedName_optimized(&m_scene, place.text());
        auto* module = dynamic_cast<Module*>(node);
        if (!module || node->qualifiedName() != place.text())
            place.fail(QStringLiteral("is not the path of ") + QLatin1String(what));
        return module;
    }

    void readMarkers()
    {
        const auto list = m_root.ifField("markers");
        if (!list)
            return;
        SceneMarkers markers;
        for (int i = 0; i < list->size(); ++i)
            markers.push_back(readMarker(list->item(i)));
        if (!m_scene.restoreMarkers(std::move(markers)))
            list->fail(QStringLiteral("are not in the order of their frames, or not within the scene"));
    }

    static SC_SceneMarker readMarker(const JsonPlace& place)
    {
        place.requireOnly({"name", "frame", "length", "colour", "note"});
        SC_SceneMarker marker;
        marker.name = place.field("name").text();
        marker.frame = place.field("frame").integer(1, SceneTiming::maxCount);
        marker.length = place.field("length").integer(1, SceneTiming::maxCount);
        marker.colour = readColour(place.field("colour"));
        if (const auto note = place.ifField("note"))
            marker.note = note->text();
        return marker;
    }

    static void readMarks(const JsonPlace& place, Node& node)
    {
        NodeMarks marks;
        if (const auto colour = place.ifField("colour"))
            marks.colour = QColor::fromRgba(readColour(*colour));
        const auto isSet = [&](const char* name) {
            const auto mark = place.ifField(name);
            return mark && mark->flag();
        };
        marks.cache.enabled = isSet("cached");
        if (marks.cache.enabled && !node.isCacheable())
            place.field("cached").fail(QStringLiteral("can't be told of a node of this type"));
        marks.locked = isSet("locked");
        if (marks.locked && !node.canLock())
            place.field("locked").fail(QStringLiteral("can't be told of the root group"));
        marks.thumbnails = isSet("thumbnails");
        node.setMarks(marks);
    }

    void readNode(const JsonPlace& place)
    {
        place.requireOnly({"name", "type", "depth", "place", "enabled", "colour", "cached", "locked", "thumbnails",
                           "inPorts", "outPorts", "added", "values", "columns", "links", "backdrops"});
        Node& node = m_nodes.empty() ? readRoot(place) : readSubNode(place);
        m_nodes.push_back(&node);
        if (Group* group = node.asGroup()) {
            m_groups.push_back(group);
            readBackdrops(place, *group);
        } else if (const auto backdrops = place.ifField("backdrops")) {
            backdrops->fail(QStringLiteral("can't be told of a node of this type"));
        }
        if (const auto enabled = place.ifField("enabled"))
            node.setEnabled(enabled->flag());
        readMarks(place, node);
        m_attributes.read(place, node);
    }

    Node& readRoot(const JsonPlace& place)
    {
        Node& root = m_graph.root();
        if (place.field("type").text() != root.host().typeName() || place.field("name").text() != root.name() ||
            place.field("depth").integer() != 0)
            place.fail(QStringLiteral("is not the root group \"%1\"").arg(root.name()));
        readPosition(place.field("place"), root);
        readPorts(place, root, PortSide::In, "inPorts");
        readPorts(place, root, PortSide::Out, "outPorts");
        return root;
    }

    Node& readSubNode(const JsonPlace& place)
    {
        const JsonPlace depth = place.field("depth");
        const int level = depth.integer(1);
        if (level > static_cast<int>(m_groups.size()))
            depth.fail(QStringLiteral("is not that of a node in a group ahead of it"));
        m_groups.resize(static_cast<std::size_t>(level));
        Group& group = *m_groups.back();

        std::unique_ptr<MO_Node> host = newNode(place.field("type"), group);
        Node& node = *engineNode(host.get());
        const JsonPlace name = place.field("name");
        if (!node.setName(name.text()))
            name.fail(QStringLiteral("is not a name that a node can have"));
        if (group.subNodes().find(node.name()))
            name.fail(QStringLiteral("is the name of another node of the group"));
        readPosition(place.field("place"), node);
        readPorts(place, node, PortSide::In, "inPorts");
        readPorts(place, node, PortSide::Out, "outPorts");
        m_graph.append(group, std::move(host), node);
        requireFacingPorts(place, node);
        return node;
    }

    static std::unique_ptr<MO_Node> newNode(const JsonPlace& place, const Group& group)
    {
        const NodeType* type = findNodeType(place.text());
        if (!type)
            place.fail(QStringLiteral("is no type of node"));
        if ((type->nodeClass == NodeClass::MultiPortIn && group.multiPortIn()) ||
            (type->nodeClass == NodeClass::MultiPortOut && group.multiPortOut()))
            place.fail(QStringLiteral("is that of another node of the group, which has one at most"));
        if (type->nodeClass == NodeClass::Group)
            return std::unique_ptr<MO_Node>(TUGroup::create());
        bool flag = true;
        return std::unique_ptr<MO_Node>(TUGroup::createNode(sharedText(type->name), 0, 0, 0, flag, nullptr));
    }

    static void readPosition(const JsonPlace& place, Node& node)
    {
        node.setPosition({place.item(0).integer(), place.item(1).integer(), place.item(2).integer()});
        place.requireSize(3);
    }

    static void readPorts(const JsonPlace& place, Node& node, PortSide side, const char* name)
    {
        if (!node.takesPorts(side)) {
            if (const auto ports = place.ifField(name))
                ports->fail(QStringLiteral("can't be told of a node of this type"));
            return;
        }
        while (node.portCount(side) > 0)
            node.takePort(side, node.portCount(side) - 1);
        const JsonPlace ports = place.field(name);
        for (int i = 0; i < ports.size(); ++i) {
            const JsonPlace entry = ports.item(i);
            const JsonPlace id = entry.item(0);
            PortSpec spec;
            spec.kind = entry.item(1).oneOf({"IMAGE", "PEG"}) == 0 ? PortKind::Image : PortKind::Peg;
            spec.matte = entry.size() > 2 && entry.item(2).oneOf({"MATTE"}) == 0;
            entry.requireSize(spec.matte ? 3 : 2);
            auto port = std::make_unique<Port>(spec);
            port->setId(static_cast<unsigned int>(id.integer(0, highestPortId)));
            if (!node.takesPort(side, *port))
                entry.fail(QStringLiteral("is no port that the node can have"));
            if (node.portFromId(side, port->id()))
                id.fail(QStringLiteral("is the id of another port"));
            node.insertPort(side, node.portCount(side), std::move(port));
        }
    }

    /// A multi-port node has a port of the same kind for each port of its group.
    static void requireFacingPorts(const JsonPlace& place, const Node& node)
    {
        const bool isIn = node.type().nodeClass == NodeClass::MultiPortIn;
        if (!isIn && node.type().nodeClass != NodeClass::MultiPortOut)
            return;
        const PortSide inside = isIn ? PortSide::Out : PortSide::In;
        const PortSide outside = Node::facingSide(inside);
        const Node& group = *node.parent();
        bool same = node.portCount(inside) == group.portCount(outside);
        for (std::size_t at = 0; same && at < node.portCount(inside); ++at)
            same = node.port(inside, at)->kind() == group.port(outside, at)->kind();
        if (!same)
            place.fail(QStringLiteral("has other ports than its group"));
    }

    static void readLinks(const JsonPlace& place, const Node& node)
    {
        const auto links = place.ifField("links");
        for (int i = 0; links && i < links->size(); ++i) {
            const JsonPlace link = links->item(i);
            Port* out = portAt(link.item(0), node, PortSide::Out);
            const JsonPlace name = link.item(1);
            const Node* target = node.parent() ? node.parent()->subNodes().find(name.text()) : nullptr;
            if (!target)
                name.fail(QStringLiteral("is not the name of a node of the group"));
            Port* in = portAt(link.item(2), *target, PortSide::In);
            link.requireSize(3);
            if (in->source())
                link.fail(QStringLiteral("leads to a port that is linked already"));
            if (!isLinkAllowed(*out, *in))
                link.fail(QStringLiteral("joins ports that can't be linked"));
            Port::link(*out, *in, out->destinationCount());
        }
    }

    static Port* portAt(const JsonPlace& place, const Node& node, PortSide side)
    {
        Port* port = node.portFromId(side, static_cast<unsigned int>(place.integer(0, highestPortId)));
        if (!port)
            place.fail(QStringLiteral("is not the id of a port of \"%1\"").arg(node.name()));
        return port;
    }

    const JsonPlace& m_root;
    Scene& m_scene;
    SceneGraph& m_graph;
    ColumnList& m_columns;
    NodeAttributeReader m_attributes;
    std::vector<Node*> m_nodes;   ///< In the order of the file.
    std::vector<Group*> m_groups; ///< From the root to the group that the next node may be in.
};

SceneRecord readRecord(const JsonPlace& root, int version)
{
    if (version == 1)
        root.requireOnly({"format", "version", "name", "frames", "start", "stop", "frameRate", "nodes", "columns"});
    else
        root.requireOnly({"format", "version", "name", "frames", "start", "stop", "frameRate", "camera", "display",
                          "markers", "metadata", "nodes", "columns"});
    SceneRecord record;
    record.name = root.field("name").text();
    record.frameCount = root.field("frames").integer(1, SceneTiming::maxCount);
    record.startFrame = root.field("start").integer(1, record.frameCount);
    record.stopFrame = root.field("stop").integer(record.startFrame, record.frameCount);
    const JsonPlace rate = root.field("frameRate");
    record.frameRate = rate.number();
    if (!(record.frameRate > 0))
        rate.fail(QStringLiteral("is not above 0"));
    return record;
}

} // namespace

void readScene(const JsonFile& file, QSet<QString>& names, ProjectMaker& maker)
{
    const JsonPlace root = file.root();
    const int version = root.requireFormat(sceneFormat, sceneVersion);
    const SceneRecord record = readRecord(root, version);
    const JsonPlace name = root.field("name");
    if (record.name.isEmpty())
        name.fail(QStringLiteral("is empty"));
    if (names.contains(record.name))
        name.fail(QStringLiteral("is the name of another scene"));
    names.insert(record.name);
    TUScene* scene = maker.addScene(record);
    if (!scene)
        root.fail(QStringLiteral("has a timing that a scene can't have"));
    SceneReader reader(root, *scene);
    reader.read();
    if (version == 1)
        reader.chooseFirstDisplay();
}

} // namespace brindle::engine
