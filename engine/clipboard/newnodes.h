#pragma once

#include "core/host/dd_dropmode.h"
#include "engine/clipboard/dragscene.h"
#include "engine/clipboard/transfer.h"

#include <optional>
#include <vector>

namespace brindle::engine {

/// The frames of a drag scene that a mode pastes, at most so many; none where there are no such frames.
std::optional<FrameSpan> pastedFrames(const DragScene& content, const DD_DropMode& mode, int most);
/// The same as a transfer takes them: none for all.
FrameSpan cutFrames(const DragScene& content, const FrameSpan& frames);

/// What a mode makes of elements that were copied from a project, or another one.
ElementTransfer::Terms elementTerms(const DragScene& content, const ProjectCommon& project, const DD_DropMode& mode);

/// Pastes all of a drag scene as new nodes of a group, from a frame on: one entry of the undo list, and the nodes in
/// their order. None where it fails; nothing has changed then.
std::vector<Node*> pasteNewNodes(Scene& scene, Group& group, const DragScene& content, const DD_DropMode& mode, int at);

/// The last steps of every paste. False where one fails.
bool finishPaste(Scene& scene, const DragScene& content, const DD_DropMode& mode, const std::map<int, int>& elements,
                 Node* camera, int lastFrame);

} // namespace brindle::engine
