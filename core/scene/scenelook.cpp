#include "core/frame/finite.h"
#include "core/frame/undo.h"
#include "core/host/cel_colorspace.h"
#include "core/host/mo_node.h"
#include "core/host/mo_unconnecteddisplay.h"
#include "core/host/sc_advancedflags.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_sceneutil.h"
#include "core/nodes/cameranode.h"
#include "core/nodes/displaynode.h"
#include "core/nodes/nodelist.h"
#include "core/scene/scene.h"

#include <optional>
#include <vector>

// How a scene looks: the settings of colours and textures, the camera that it is seen through, and its display.

namespace OMC {

namespace {

/// One of the two texture factors of a project, as its flags keep it.
struct TextureFactor {
    double (SC_AdvancedFlags::*get)() const;
    void (SC_AdvancedFlags::*set)(double);
};

constexpr TextureFactor vectorTextures = {&SC_AdvancedFlags::pixelPerModelUnitForVectorLayers,
                                          &SC_AdvancedFlags::setPixelPerModelUnitForVectorLayers};
constexpr TextureFactor bitmapTextures = {&SC_AdvancedFlags::pixelPerModelUnitForBitmapLayers,
                                          &SC_AdvancedFlags::setPixelPerModelUnitForBitmapLayers};

/// The pixels for a model unit that a factor of the project's resolution comes to.
double density(const SC_ProjectCommon& project, double factor)
{
    return TUSceneUtil::convertBitmapResolutionFactorToPixelPerModelUnit(
        SC_Resolution::projectResolution(&project), project.metrics(), project.defaultFov(), factor);
}

double densityOf(const SC_ProjectCommon& project, const TextureFactor& texture)
{
    return density(project, (project.advancedFlags().*texture.get)());
}

/// The project's flags with a density in pixels for a model unit; none when they have exactly that one.
std::optional<SC_AdvancedFlags> withDensity(const SC_ProjectCommon& project, const TextureFactor& texture,
                                            double pixels)
{
    requireFinite(pixels, 0);
    SC_AdvancedFlags flags = project.advancedFlags();
    const double factor = pixels / density(project, 1.0);
    if (factor == (flags.*texture.get)())
        return std::nullopt;
    (flags.*texture.set)(factor);
    return flags;
}

/// Whether a value for a camera or display stands for none.
bool isUnset(const QVariant& value)
{
    return value.canConvert<bool>() ? !value.toBool() : value.isNull();
}

/// The first node of a kind among those that a value tells; throws a sentence when it tells no node, and when it tells
/// none of the kind.
template <typename Module>
Module* firstIn(TUScene* scene, const QVariant& value, const QString& noNode, const QString& otherNode)
{
    // In the order of the value; a set of pointers would order them differently from run to run.
    std::vector<MO_Node*> nodes;
    NodeList(scene, false).nodesFromQVariant(value, nodes);
    if (nodes.empty())
        throw Exception(noNode);
    for (MO_Node* node : nodes) {
        if (auto* module = dynamic_cast<Module*>(node))
            return module;
    }
    throw Exception(otherNode);
}

class DisplayCollector : public MO_ModuleVisitor {
public:
    using MO_ModuleVisitor::visit;
    void visit(TUDisplayModule& node) override { displays.push_back(&node); }

    std::vector<TUDisplayModule*> displays;
};

/// The display nodes below the root group, in the order of the walk.
std::vector<TUDisplayModule*> displaysOf(const TUScene& scene)
{
    DisplayCollector collector;
    if (TUGroup* root = scene.getRootGroup())
        root->accept(collector);
    return collector.displays;
}

bool isPlaceholder(const TUDisplayModule* display)
{
    return dynamic_cast<const MO_UnconnectedDisplayModule*>(display) != nullptr;
}

} // namespace

void Scene::setVectorTexturePixelDensity(double pixels)
{
    validate();
    if (const auto flags = withDensity(projectCommon(), vectorTextures, pixels))
        setFlags(*flags, tr("Edit Default Vector Drawings Texture Pixel Density Scene Settings"));
}

double Scene::getVectorTexturePixelDensity() const
{
    validate();
    return densityOf(projectCommon(), vectorTextures);
}

void Scene::setBitmapTexturePixelDensity(double pixels)
{
    validate();
    if (const auto flags = withDensity(projectCommon(), bitmapTextures, pixels))
        setFlags(*flags, tr("Edit Default Bitmap Drawings Texture Pixel Density Scene Settings"));
}

double Scene::getBitmapTexturePixelDensity() const
{
    validate();
    return densityOf(projectCommon(), bitmapTextures);
}

/// Whether the project takes the flags is not asked.
void Scene::setFlags(const SC_AdvancedFlags& flags, const QString& label)
{
    commandManager().execute(new SC_ProjectCmds::SetAdvancedFlagsCmd(&projectCommon(), flags), label);
    announce();
}

void Scene::setColorspace(const QString& name)
{
    validate();
    SC_ProjectCommon& project = projectCommon();
    if (name == project.projectColorSpace())
        return;
    CO_CommandManager& manager = commandManager();
    undo::run(manager, new SC_ProjectCmds::SetProjectColorSpaceCmd(&project, name), tr("Set Working Colour Space"),
              tr("Failed to set the colour space."));
    announce();
}

QString Scene::getColorspace() const
{
    validate();
    return projectCommon().projectColorSpace();
}

QStringList Scene::getColorspaces() const
{
    validate();
    const CEL_ColorSpaceManager* spaces = projectCommon().colorSpaceManager();
    if (!spaces)
        throwInvalid();
    return spaces->colorSpaceNames(QString());
}

void Scene::setCamera(const QVariant& value)
{
    validate();
    SC_SceneCommon* common = scene()->sceneCommon();
    CO_CommandManager& manager = undo::manager(common, unexpected::ErrorHasOccurred);
    if (isUnset(value)) {
        if (!common->camera(false))
            return;
        manager.execute(new SC_SceneCmds::SetDefaultCameraCmd(common, nullptr), tr("Unsetting default camera."));
        if (common->camera(false))
            throw Exception(tr("Failed to unset default camera."));
        return;
    }
    auto* camera = firstIn<TUCameraModule>(scene(), value, tr("Unable to identyify specified camera node."),
                                           tr("No valid camera node specified."));
    if (camera == common->camera(false))
        return;
    undo::run(manager, new SC_SceneCmds::SetDefaultCameraCmd(common, camera),
              tr("Setting %1 as camera.").arg(camera->qualifiedName()), tr("Failed to set default camera."));
}

QVariant Scene::getCamera() const
{
    validate();
    if (TUCameraModule* camera = sceneCommon().camera(false))
        return QVariant::fromValue(new CameraNode(camera));
    return QVariant::fromValue(nullptr);
}

void Scene::setCameraPath(const QVariant& value)
{
    setCamera(value);
}

QVariant Scene::getCameraPath() const
{
    validate();
    const TUCameraModule* camera = sceneCommon().camera(false);
    return camera ? camera->qualifiedName() : tr("NONE");
}

QVariant Scene::getDisplay() const
{
    validate();
    if (TUDisplayModule* display = shownDisplay())
        return toVariant(new DisplayNode(display));
    return QVariant::fromValue(nullptr);
}

void Scene::setDisplay(const QVariant& value)
{
    validate();
    SC_SceneCommon* common = scene()->sceneCommon();
    CO_CommandManager& manager = undo::manager(common, unexpected::ErrorHasOccurred);
    if (isUnset(value)) {
        if (!shownDisplay())
            return;
        manager.execute(new SC_SceneCmds::SetDefaultDisplayCmd(common, nullptr), tr("Unsetting default display."));
        if (shownDisplay())
            throw Exception(tr("Failed to unset default display."));
        return;
    }
    // The second sentence is the camera's: required as it is.
    auto* display = firstIn<TUDisplayModule>(scene(), value, tr("Unable to identyify specified display node."),
                                             tr("No valid camera node specified."));
    if (display == common->defaultDisplay())
        return;
    undo::run(manager, new SC_SceneCmds::SetDefaultDisplayCmd(common, display),
              tr("Setting %1 as default display.").arg(display->qualifiedName()), tr("Failed to set default display."));
}

QVariant Scene::getDisplayName() const
{
    validate();
    const TUDisplayModule* display = scene()->findDefaultDisplay();
    if (isPlaceholder(display))
        return QVariant::fromValue(nullptr);
    return display ? display->instanceName() : QString();
}

void Scene::setDisplayName(const QVariant& value)
{
    setDisplay(value);
}

QVariantList Scene::getDisplays() const
{
    validate();
    QVariantList wrappers;
    for (TUDisplayModule* display : displaysOf(*scene()))
        wrappers.append(toVariant(Node::getWrapped(display)));
    return wrappers;
}

QStringList Scene::getDisplayNames() const
{
    validate();
    QStringList names;
    for (const TUDisplayModule* display : displaysOf(*scene()))
        names.append(display->instanceName());
    return names;
}

/// Tells who shows the scene that it looks different.
void Scene::announce() const
{
    if (TUSceneChangeManager* changes = scene()->changeManager())
        changes->notify();
}

/// The default display, or null while there is none but the placeholder.
TUDisplayModule* Scene::shownDisplay() const
{
    TUDisplayModule* display = scene()->findDefaultDisplay();
    return isPlaceholder(display) ? nullptr : display;
}

} // namespace OMC
