#include "engine/clipboard/copying.h"

#include "engine/clipboard/extrafiles.h"
#include "engine/clipboard/palettetransfer.h"
#include "engine/clipboard/transfer.h"

namespace brindle::engine {

namespace {

/// The frames that are copied; none stands for the whole scene, first and end of a range beyond it for no copy at all.
std::optional<FrameSpan> spanOf(const Scene& scene, const CopyTerms& terms)
{
    const int length = scene.getNumberOfFrames();
    const int first = terms.startFrame == 0 ? scene.getStartFrame() : terms.startFrame;
    const int count = terms.frameCount == 0 ? length : terms.frameCount;
    if (first < 1 || first > length || count < 1)
        return std::nullopt;
    if (first == 1 && count >= length)
        return FrameSpan();
    return FrameSpan{first, count > length - first ? length + 1 : first + count};
}

} // namespace

std::shared_ptr<DragScene> copyContent(Scene& scene, const std::vector<Node*>& nodes, const CopyTerms& terms)
{
    const std::optional<FrameSpan> span = spanOf(scene, terms);
    ProjectCommon* project = engineProjectCommon(scene.projectCommon());
    if (!span || !project)
        return nullptr;
    const int count = span->end > span->first ? span->end - span->first : scene.getNumberOfFrames();
    auto drag = std::make_shared<DragScene>(project->settings(),
                                            SceneRecord{scene.name(), count, 1, count, scene.frameRate().fps()});
    Transfer transfer(scene, drag->scene(), {.frames = *span});
    transfer.addNodes(topNodes(nodes));
    const std::unique_ptr<AddContent> content = transfer.take(&drag->scene().graph().root());
    if (content->nodes().empty() || content->execute() == CO_Command::kFail)
        return nullptr;

    const std::map<int, int>& ids = transfer.elements().ids();
    drag->source = project->id();
    for (const auto& [source, id] : ids)
        drag->origins.emplace(id, source);
    if (!ids.empty())
        copyPalettes(project->palettes(), project->elements(), ids, *drag);
    copyExtraFiles(project->elements(), ids, terms.modellingFolder, terms.scanFiles, *drag);
    return drag;
}

} // namespace brindle::engine
