#pragma once

#include "core/host/ca_celkey.h"
#include "engine/drawings/livedrawing.h"

namespace brindle::engine {

class ElementManager;

/// The value of a content, which is read where nobody holds it. A null content is a blank drawing. Throws
/// `FolderFailure` where it can't be read.
DrawingPointer drawingValueOf(const ContentPointer& content);

/// The vector drawing that a key names, in the version that is shown: a live one, which the element's drawing keeps.
/// Null where the key names no drawing, or the drawing has no file or is no vector drawing. Throws `FolderFailure`
/// where it can't be read.
LiveDrawing* vectorDrawing(ElementManager& elements, const CA_CelKey& key);

/// The same, where there is none an empty one, which has a file from now on. Null for an element of pictures. No undo
/// takes it away.
LiveDrawing* createVectorDrawing(ElementManager& elements, const CA_CelKey& key);

} // namespace brindle::engine
