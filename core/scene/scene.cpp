#include "core/scene/scene.h"

#include "core/frame/undo.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_scene.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/nodelist.h"

#include <cmath>

namespace OMC {

Scene::Scene(TUScene* scene) : m_scene(scene) {}

BaseObject* Scene::copy() const
{
    return new Scene(*this);
}

std::string Scene::__str__() const
{
    return QStringLiteral("Scene(%1)").arg(getName()).toStdString();
}

void Scene::setName(const QString&)
{
    validate();
    throw Exception(tr("Renaming Scenes is not supported at this time."));
}

QString Scene::getName() const
{
    validate();
    return scene()->name();
}

void Scene::setFramerate(double framesPerSecond)
{
    validate();
    CO_CommandManager* manager = scene()->commandManager();
    SC_SceneCommon* common = scene()->sceneCommon();
    if (!manager || !common)
        throwInvalid();
    if (!std::isfinite(framesPerSecond))
        throwInvalidArgument(0);
    undo::run(*manager, new SC_SceneCmds::SetFrameRateCmd(common, UT_FrameRate(framesPerSecond)), tr("Set Frame Rate"),
              tr("Failed to set the frame rate."));
}

double Scene::getFramerate() const
{
    validate();
    return scene()->frameRate().fps();
}

void Scene::setFrameCount(int count)
{
    validate();
    // A count of 1 is accepted, whatever the sentence says.
    if (count <= 0)
        throw Exception(tr("Framecount needs to be a positive value above one."));
    const int current = scene()->getNumberOfFrames();
    if (count == current)
        return;
    const bool rippleMarkers = tuPref()->getBoolValue(QStringLiteral("RIPPLE_SCENE_MARKERS"), true);
    scene()->setNumberOfFrames(current, count - current, rippleMarkers, true);
    if (scene()->getNumberOfFrames() != count)
        throw Exception(tr("Failed to set the scene's frame count."));
}

int Scene::getFrameCount() const
{
    validate();
    return scene()->getNumberOfFrames();
}

void Scene::setFrameStart(int frame)
{
    validate();
    if (!scene()->setStartFrame(frame))
        throw Exception(tr("Unable to set the start frame."));
}

int Scene::getFrameStart() const
{
    validate();
    return sceneCommon().getStartFrame();
}

void Scene::setFrameStop(int frame)
{
    validate();
    if (!scene()->setStopFrame(frame))
        throw Exception(tr("Unable to set the stop frame."));
}

int Scene::getFrameStop() const
{
    validate();
    return sceneCommon().getStopFrame();
}

// Fails unchecked, so a scene that is gone says this too: required as it is.
std::vector<Obj> Scene::getSounds() const
{
    throw Exception(tr("Sounds are not yet supported in the Python DOM."));
}

Obj Scene::getTop() const
{
    validate();
    return Obj(new GroupNode(scene()->getRootGroup()));
}

Obj Scene::getNodes() const
{
    validate();
    return Obj(new NodeList(scene(), false));
}

Obj Scene::getCompositions() const
{
    validate();
    throw Exception(tr("Compositions are not currently supported in Python."));
}

TUScene* Scene::scene() const
{
    return m_scene.get();
}

bool Scene::operator==(const Scene* other) const
{
    return other && m_scene.sameTarget(other->m_scene);
}

void Scene::validate() const
{
    validateThreadLock();
    if (!m_scene.get())
        throwInvalid();
}

SC_SceneCommon& Scene::sceneCommon() const
{
    SC_SceneCommon* common = scene()->sceneCommon();
    if (!common)
        throwInvalid();
    return *common;
}

} // namespace OMC
