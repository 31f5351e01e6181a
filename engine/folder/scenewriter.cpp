#include "engine/folder/scenefile.h"

#include "core/host/sc_scene.h"
#include "core/host/sc_scenemarker.h"
#include "engine/folder/backdroptext.h"
#include "engine/folder/colourtext.h"
#include "engine/folder/columntext.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/nodeattributes.h"
#include "engine/graph/group.h"
#include "engine/session/scenemetadata.h"

namespace brindle::engine {

namespace {

class SceneWriter {
public:
    explicit SceneWriter(const TUScene& scene) : m_scene(scene) {}

    QByteArray text()
    {
        m_json.beginObject();
        m_json.key("format").text(sceneFormat);
        m_json.key("version").integer(sceneVersion);
        m_json.key("name").text(m_scene.name());
        m_json.key("frames").integer(m_scene.getNumberOfFrames());
        m_json.key("start").integer(m_scene.sceneCommon()->getStartFrame());
        m_json.key("stop").integer(m_scene.sceneCommon()->getStopFrame());
        m_json.key("frameRate").number(m_scene.frameRate().fps());
        writeViews(*m_scene.sceneCommon());
        writeMarkers(m_scene.sceneCommon()->sceneMarkers());
        if (const auto* metadata = dynamic_cast<const MetadataList*>(m_scene.metadatas()))
            metadata->write(m_json);
        m_json.key("nodes").beginArray();
        if (Group* root = engineGroup(m_scene.getRootGroup()))
            forEachFrom(*root, [this](const Node& node) { writeNode(node); });
        m_json.endArray();
        m_json.key("columns").beginArray();
        for (auto column = m_scene.timedValuesBegin(); column != m_scene.timedValuesEnd(); ++column)
            writeColumn(m_json, **column, m_attributes.driven());
        m_json.endArray();
        m_json.endObject();
        return m_json.result();
    }

private:
    void writeViews(const SC_SceneCommon& scene)
    {
        if (const MO_Node* camera = scene.camera(false))
            m_json.key("camera").text(camera->qualifiedName());
        if (const MO_Node* display = scene.defaultDisplay())
            m_json.key("display").text(display->qualifiedName());
    }

    void writeMarkers(const std::vector<SC_SceneMarker>& markers)
    {
        if (markers.empty())
            return;
        m_json.key("markers").beginArray();
        for (const SC_SceneMarker& marker : markers) {
            m_json.beginObject();
            m_json.key("name").text(marker.name);
            m_json.key("frame").integer(marker.frame);
            m_json.key("length").integer(marker.length);
            m_json.key("colour").text(colourText(marker.colour));
            if (!marker.note.isEmpty())
                m_json.key("note").text(marker.note);
            m_json.endObject();
        }
        m_json.endArray();
    }

    void writeMarks(const NodeMarks& marks)
    {
        if (marks.colour.isValid())
            m_json.key("colour").text(colourText(marks.colour.rgba()));
        if (marks.cache.enabled)
            m_json.key("cached").flag(true);
        if (marks.locked)
            m_json.key("locked").flag(true);
        if (marks.thumbnails)
            m_json.key("thumbnails").flag(true);
    }

    void writeNode(const Node& node)
    {
        m_json.beginObject();
        m_json.key("name").text(node.name());
        m_json.key("type").text(sharedText(node.type().name));
        m_json.key("depth").integer(depthOf(node));
        m_json.key("place").beginArray(JsonWriter::Inline);
        m_json.integer(node.position().x);
        m_json.integer(node.position().y);
        m_json.integer(node.position().z);
        m_json.endArray();
        if (!node.isEnabled())
            m_json.key("enabled").flag(false);
        writeMarks(node.marks());
        writePorts(node, PortSide::In, "inPorts");
        writePorts(node, PortSide::Out, "outPorts");
        m_attributes.write(m_json, node);
        writeLinks(node);
        if (const Group* group = node.asGroup())
            writeBackdrops(m_json, *group);
        m_json.endObject();
    }

    /// The groups that the node is in lead to it: each is as deep as there are groups ahead of it.
    int depthOf(const Node& node)
    {
        while (!m_groups.empty() && m_groups.back() != node.parent())
            m_groups.pop_back();
        const int depth = static_cast<int>(m_groups.size());
        if (const Group* group = node.asGroup())
            m_groups.push_back(group);
        return depth;
    }

    void writePorts(const Node& node, PortSide side, const char* name)
    {
        if (!node.takesPorts(side))
            return;
        m_json.key(name).beginArray();
        for (std::size_t place = 0; place < node.portCount(side); ++place) {
            const Port& port = *node.port(side, place);
            m_json.beginArray(JsonWriter::Inline);
            m_json.integer(port.id());
            m_json.text(sharedText(portKindName(port.kind())));
            if (port.isMattePort())
                m_json.text("MATTE");
            m_json.endArray();
        }
        m_json.endArray();
    }

    void writeLinks(const Node& node)
    {
        bool open = false;
        for (std::size_t place = 0; place < node.portCount(PortSide::Out); ++place) {
            const Port& out = *node.port(PortSide::Out, place);
            for (std::size_t i = 0; i < out.destinationCount(); ++i) {
                const Port& in = *out.destination(i);
                if (!std::exchange(open, true))
                    m_json.key("links").beginArray();
                m_json.beginArray(JsonWriter::Inline);
                m_json.integer(out.id());
                m_json.text(in.owner()->name());
                m_json.integer(in.id());
                m_json.endArray();
            }
        }
        if (open)
            m_json.endArray();
    }

    const TUScene& m_scene;
    JsonWriter m_json;
    NodeAttributeWriter m_attributes;
    std::vector<const Group*> m_groups; ///< From the root to the group that is being written.
};

} // namespace

QByteArray sceneText(const TUScene& scene)
{
    return SceneWriter(scene).text();
}

} // namespace brindle::engine
