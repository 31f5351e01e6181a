#include "core/scene/scene.h"

#include "core/clipboard/clipboard.h"
#include "core/columns/columnlist.h"
#include "core/elements/metadatahandler.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/dd_deletesequence.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_scene.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/nodelist.h"
#include "core/scene/frameoptions.h"
#include "core/scene/scenemetrics.h"
#include "core/scene/sceneunitconverter.h"

#include <memory>

namespace OMC {

namespace {

const QString extendExposure = QStringLiteral("EXTEND_DRAWING_EXPOSURE");

/// Whether the markers move along with the frames: by the options, without them by preference.
bool ripplesMarkers(const FrameOptions* options)
{
    return options ? options->rippleMarkers : tuPref()->getBoolValue(QStringLiteral("RIPPLE_SCENE_MARKERS"), true);
}

} // namespace

Scene::Scene(TUScene* scene) : EngineView(scene) {}

std::string Scene::__str__() const
{
    return QStringLiteral("Scene(%1)").arg(getName()).toStdString();
}

Obj Scene::getAspect() const
{
    validate();
    return Obj(new SceneAspect(scene()));
}

Obj Scene::getUnits() const
{
    validate();
    return Obj(new SceneUnits(scene()));
}

Obj Scene::getCenter() const
{
    validate();
    return Obj(new SceneCenter(scene()));
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
    requireFinite(framesPerSecond, 0);
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
    scene()->setNumberOfFrames(current, count - current, ripplesMarkers(nullptr), true);
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

Obj Scene::getUnitConverter() const
{
    validate();
    return Obj(new SceneUnitConverter(scene()));
}

Obj Scene::getMetadata() const
{
    return Obj(newMetadata());
}

MetaDataHandler* Scene::newMetadata() const
{
    return new MetaDataHandler(&target());
}

// Fails unchecked, so a scene that is gone says this too: required as it is.
std::vector<Obj> Scene::getSounds() const
{
    throw Exception(tr("Sounds are not yet supported in the Python DOM."));
}

Obj Scene::getTop() const
{
    return Obj(newTop());
}

GroupNode* Scene::newTop() const
{
    return new GroupNode(target().getRootGroup());
}

Obj Scene::getNodes() const
{
    return Obj(newNodes());
}

NodeList* Scene::newNodes() const
{
    return new NodeList(&target(), false);
}

Obj Scene::getColumns() const
{
    return Obj(newColumns());
}

ColumnList* Scene::newColumns() const
{
    validate();
    return new ColumnList(scene());
}

Obj Scene::getClipboard() const
{
    return Obj(newClipboard());
}

Clipboard* Scene::newClipboard() const
{
    return new Clipboard(&target());
}

Obj Scene::getCompositions() const
{
    validate();
    throw Exception(tr("Compositions are not currently supported in Python."));
}

bool Scene::frameInsert(int at, int count)
{
    return frameInsert(at, count, nullptr);
}

bool Scene::frameInsert(int at, int count, const FrameOptions* options)
{
    validate();
    if (count <= 0)
        return count == 0;
    PR_Preference* preferences = tuPref();
    const bool ripple = ripplesMarkers(options);
    const bool kept = preferences->getBoolValue(extendExposure, false);
    // The engine asks the preference and nothing else. It comes back in any case but an exception: required.
    if (options)
        preferences->setBoolValue(extendExposure, options->extendExposure);
    scene()->setNumberOfFrames(at, count, ripple, true);
    preferences->setBoolValue(extendExposure, kept);
    return true;
}

bool Scene::frameRemove(int at, int count)
{
    return frameRemove(at, count, nullptr);
}

// Whether the scene is there is asked only when there are frames to remove, and no thread is: required as it is.
bool Scene::frameRemove(int at, int count, const FrameOptions* options)
{
    if (count <= 0)
        return count == 0;
    TUScene* scene = this->scene();
    CO_CommandManager* manager = scene && scene->projectCommon() ? scene->commandManager() : nullptr;
    if (!manager)
        throwInvalid();
    DD_DropMode mode(true);
    mode.SetStartDeleteFrame(at);
    mode.SetNumFramesSrc(count);
    DD_DeleteSequenceVisitor deletion(mode);
    deletion.visit(*scene);
    const undo::Scope scope(*manager, tr("Remove Frames"));
    if (std::unique_ptr<CO_Command> command = deletion.takeCommand())
        manager->execute(command.release(), QString());
    scene->setNumberOfFrames(at, -count, ripplesMarkers(options), true);
    return true;
}

TUScene* Scene::scene() const
{
    return findTarget();
}

bool Scene::operator==(const Scene* other) const
{
    return other && hasTargetOf(*other);
}

void Scene::validate() const
{
    validateThreadLock();
    if (isGone())
        throwInvalid();
}

SC_SceneCommon& Scene::sceneCommon() const
{
    return found(scene()->sceneCommon());
}

SC_ProjectCommon& Scene::projectCommon() const
{
    return found(scene()->projectCommon());
}

CO_CommandManager& Scene::commandManager() const
{
    return found(scene()->commandManager());
}

} // namespace OMC
