#pragma once

#include "engine/clipboard/dragscene.h"

#include <memory>
#include <vector>

namespace brindle::engine {

struct CopyTerms {
    int startFrame = 1; ///< 0 stands for the scene's.
    int frameCount = 0; ///< 0 stands for all.
    bool modellingFolder = false;
    bool scanFiles = false;
};

/// Copies nodes of a scene, in their order, with all that belongs to them. Null without a node that can be copied, and
/// for frames beyond the end of the scene. Throws `FolderFailure` where a file can't be read.
std::shared_ptr<DragScene> copyContent(Scene& scene, const std::vector<Node*>& nodes, const CopyTerms& terms);

} // namespace brindle::engine
