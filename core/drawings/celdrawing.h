#pragma once

#include "core/host/ca_celref.h"
#include "core/host/gr_drawing.h"

#include <QExplicitlySharedDataPointer>

/// The way from the key of a drawing to the drawing.
namespace OMC::celdrawing {

using Pointer = QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj>;

/// The vector drawing of a cel; null for a cel without one, and for none.
Pointer of(const CA_CelPtr& cel);
/// The vector drawing of a key that the cache of cels has; null where it has none.
Pointer find(const CA_CelKey& key);
/// The cel of a key, read from its file where nobody asked for it before; none where the key names no drawing of the
/// project. Throws where its file can't be read.
CA_CelPtr open(const CA_CelKey& key);
/// The vector drawing of a key, found or opened.
Pointer findOrOpen(const CA_CelKey& key);
/// Gives a drawing without a file, of an element of vector drawings, an empty one.
void create(const CA_CelKey& key);

} // namespace OMC::celdrawing
