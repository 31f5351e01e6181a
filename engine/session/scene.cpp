#include "engine/session/scene.h"

#include "core/host/mo_unconnecteddisplay.h"
#include "core/host/tu_node.h"
#include "engine/curves/column.h"
#include "engine/session/projectcommon.h"
#include "engine/session/scenecommands.h"

#include <utility>

namespace brindle::engine {

namespace {

constexpr NodeType unconnectedDisplayType{.name = u"UNCONNECTED_DISPLAY",
                                          .defaultName = u"Unconnected Display",
                                          .purpose =
                                              u"Stands for the display of a scene that shows none of those it has.",
                                          .nodeClass = NodeClass::Display};

MO_Node* addNode(Scene& scene, const QString& type, int x, int y)
{
    bool flag = true;
    MO_Node* node = TUGroup::createNode(type, x, y, 0, flag, nullptr);
    tu_node::AddSubNodeCmd(scene.getRootGroup(), node).execute();
    return node;
}

} // namespace

Scene::Scene(ProjectCommon& project, const SC_Id& id, const QString& name, const SceneTiming& timing)
    : m_project(project),
      m_id(id),
      m_name(name),
      m_timing(timing),
      m_unconnectedDisplay(std::make_unique<HostModule<MO_UnconnectedDisplayModule>>(unconnectedDisplayType)),
      m_columns(*this),
      m_graph(*this)
{
    m_unconnectedDisplay->setScene(this);
    m_unconnectedDisplay->setInstanceName(m_unconnectedDisplay->defaultInstanceName());
}

Scene::~Scene()
{
    expireWeakPointers();
}

void Scene::setTiming(const SceneTiming& timing)
{
    m_timing = timing;
    m_changes.notify();
}

void Scene::insertMarker(int place, const SC_SceneMarker& marker)
{
    m_markers.insert(m_markers.begin() + place, marker);
    m_changes.notify();
}

SC_SceneMarker Scene::takeMarker(int place)
{
    const auto there = m_markers.begin() + place;
    SC_SceneMarker taken = std::move(*there);
    m_markers.erase(there);
    m_changes.notify();
    return taken;
}

SceneMarkers Scene::setMarkers(SceneMarkers markers)
{
    m_markers.swap(markers);
    m_changes.notify();
    return markers;
}

bool Scene::restoreMarkers(SceneMarkers markers)
{
    if (!isMarkerList(markers, m_timing.count))
        return false;
    m_markers = std::move(markers);
    return true;
}

void Scene::setDefaultCamera(TUCameraModule* camera)
{
    m_camera = camera;
    m_changes.notify();
}

void Scene::setDefaultDisplay(TUDisplayModule* display)
{
    m_display = display;
    m_changes.notify();
}

void Scene::expireAll()
{
    expireWeakPointers();
    forEachFrom(m_graph.root(), [](Node& node) { node.host().expireWeakPointers(); });
    for (TUTimedValue* column : std::as_const(m_columns))
        Column::of(column)->expire();
    m_unconnectedDisplay->expireWeakPointers();
}

SC_ProjectCommon* Scene::projectCommon() const
{
    return &m_project;
}

TUElementMgr* Scene::elementManager() const
{
    return m_project.elementManager();
}

CO_CommandManager* Scene::commandManager() const
{
    return m_project.commandManager();
}

const SC_SceneMetrics* Scene::metrics() const
{
    return m_project.metrics();
}

TUDisplayModule* Scene::findDefaultDisplay() const
{
    if (m_display)
        return m_display;
    return m_graph.hasDisplays() ? m_unconnectedDisplay.get() : nullptr;
}

void Scene::setNumberOfFrames(int at, int delta, bool rippleMarkers, bool)
{
    if (delta != 0)
        commandManager()->execute(newFrameCountCommand(*this, at, delta, rippleMarkers).release(),
                                  QStringLiteral("Set Number of Frames"));
}

bool Scene::setStartFrame(int frame)
{
    SceneTiming timing = m_timing;
    timing.start = frame;
    return commandManager()->execute(newTimingCommand(*this, timing).release(), QStringLiteral("Set Start Frame"));
}

bool Scene::setStopFrame(int frame)
{
    SceneTiming timing = m_timing;
    timing.stop = frame;
    return commandManager()->execute(newTimingCommand(*this, timing).release(), QStringLiteral("Set Stop Frame"));
}

QString Scene::generateNodeName(const QString& base, const TUGroup* group) const
{
    const Group* own = engineGroup(group);
    const QString valid = TUModuleNameValidator::getValidName(base);
    return own && own->graph() == &m_graph ? m_graph.generateName(valid, *own) : valid;
}

std::unique_ptr<Scene> newScene(ProjectCommon& project, const QString& name, const SceneTiming& timing)
{
    return std::make_unique<Scene>(project, newId(), name, timing);
}

void fillNewScene(Scene& scene)
{
    MO_Node* display = addNode(scene, QStringLiteral("DISPLAY"), 0, 128);
    MO_Node* composite = addNode(scene, QStringLiteral("COMPOSITE"), 0, 32);
    tu_node::LinkCmd(display, 0, composite, 0).execute();
    scene.setDefaultDisplay(dynamic_cast<TUDisplayModule*>(display));
}

Scene* engineScene(SC_SceneCommon* scene)
{
    return dynamic_cast<Scene*>(scene);
}

} // namespace brindle::engine
