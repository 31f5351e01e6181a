#include "engine/clipboard/newnodes.h"

#include "engine/clipboard/extrafiles.h"
#include "engine/clipboard/palettetransfer.h"
#include "engine/session/projectcommon.h"
#include "engine/session/scenecommands.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// The camera of a name among all nodes below one, the node itself included; null for none.
Node* cameraNamed(const QString& name, Node& top)
{
    Node* camera = nullptr;
    forEachFrom(top, [&](Node& node) {
        if (!camera && node.type().nodeClass == NodeClass::Camera && node.name() == name)
            camera = &node;
    });
    return camera;
}

} // namespace

std::optional<FrameSpan> pastedFrames(const DragScene& content, const DD_DropMode& mode, int most)
{
    const int first = mode.startFrameSrc();
    if (first < 1 || first > content.frameCount() || most < 1)
        return std::nullopt;
    const int there = content.frameCount() - first + 1;
    const int wanted = mode.numFramesSrc() > 0 ? std::min(mode.numFramesSrc(), there) : there;
    return FrameSpan{first, first + std::min(wanted, most)};
}

FrameSpan cutFrames(const DragScene& content, const FrameSpan& frames)
{
    return frames.first == 1 && frames.end == content.frameCount() + 1 ? FrameSpan() : frames;
}

ElementTransfer::Terms elementTerms(const DragScene& content, const ProjectCommon& project, const DD_DropMode& mode)
{
    ElementTransfer::Terms terms{mode.drawingMode(), mode.fullTransfer, {}};
    if (content.source == project.id())
        terms.origins = content.origins;
    return terms;
}

std::vector<Node*> pasteNewNodes(Scene& scene, Group& group, const DragScene& content, const DD_DropMode& mode, int at)
{
    const std::optional<FrameSpan> frames = pastedFrames(content, mode, SceneTiming::maxCount);
    ProjectCommon* project = engineProjectCommon(scene.projectCommon());
    if (!frames || !project || at < 1 || (at > scene.getNumberOfFrames() && !mode.extendScene))
        return {};
    Transfer transfer(content.scene(), scene,
                      {.frames = cutFrames(content, *frames),
                       .at = at,
                       .keepsColumnNames = mode.tvPreserveName,
                       .elementMode = mode.elementMode(),
                       .elements = elementTerms(content, *project, mode)});
    std::vector<Node*> copied;
    const SubNodes& nodes = content.scene().graph().root().subNodes();
    for (std::size_t place = 0; place < nodes.size(); ++place)
        copied.push_back(&nodes.at(place));
    transfer.addNodes(copied);

    CO_CommandManager& manager = *scene.commandManager();
    CO_CommandAccumScope scope(&manager, QStringLiteral("Paste Nodes"), nullptr, CO_CommandAccumScope::kDefault);
    std::unique_ptr<AddContent> command = transfer.take(&group);
    std::vector<Node*> pasted = command->nodes();
    Node* camera = content.camera.isEmpty() ? nullptr : cameraNamed(content.camera, content.scene().graph().root());
    const auto copy = transfer.copies().find(camera);
    if (pasted.empty() || !manager.execute(command.release(), QString()) ||
        !finishPaste(scene, content, mode, transfer.elements().ids(),
                     copy == transfer.copies().end() ? nullptr : copy->second, at + frames->end - frames->first - 1)) {
        scope.cancel();
        return {};
    }
    return pasted;
}

bool finishPaste(Scene& scene, const DragScene& content, const DD_DropMode& mode, const std::map<int, int>& elements,
                 Node* camera, int lastFrame)
{
    CO_CommandManager& manager = *scene.commandManager();
    const auto run = [&manager](std::unique_ptr<CO_Command> command) {
        return !command || manager.execute(command.release(), QString());
    };
    ProjectCommon& project = *engineProjectCommon(scene.projectCommon());
    if (!run(newExtraFilesCommand(content, project.elements(), elements)) ||
        !run(newPalettesCommand(content, project, elements, mode.paletteMode())))
        return false;
    if (mode.cameraNameTransfer && !content.camera.isEmpty()) {
        Node* named = camera ? camera : cameraNamed(content.camera, scene.graph().root());
        auto* module = named ? dynamic_cast<TUCameraModule*>(&named->host()) : nullptr;
        if (module && !run(std::make_unique<SC_SceneCmds::SetDefaultCameraCmd>(&scene, module)))
            return false;
    }
    // What lies behind the end stays at its frames: it is what has just been pasted.
    const int length = scene.getNumberOfFrames();
    return !mode.extendScene || lastFrame <= length ||
           run(newTimingCommand(scene, scene.timing().shifted({length, lastFrame - length})));
}

} // namespace brindle::engine
