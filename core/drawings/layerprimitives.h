#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/drawings/objectsin.h"
#include "core/host/gr_bezierpath.h"

#include <QList>
#include <QVariant>

#include <set>
#include <utility>
#include <vector>

/// What strokes, contours and joints of a layer have in common.
namespace OMC::layerprimitives {

/// New wrappers for strokes and contours of a layer, in their order.
QList<QVariant> strokes(DrawingLayerImplShared& layer, const std::vector<const GR_VectorStroke*>& strokes);
QList<QVariant> contours(DrawingLayerImplShared& layer, const std::vector<const GR_Contour*>& contours);

/// The path that an argument tells, with degree 3. An argument that tells none, or one without a point, is refused by
/// its place.
GR_BezierPath2d pathArgument(const QVariant& value, unsigned int argument);

/// What tells primitives apart: the engine's object, and a number where that isn't enough.
using Key = std::pair<const void*, int>;

/// Adds the primitives in an argument to those that are there: the one that it is, those of a list of a layer, or those
/// in a list. Each once; the first one stays. Throws for one whose layer is gone.
template <typename Primitive, typename List>
void collect(const QVariant& value, std::vector<Primitive>& primitives)
{
    std::set<Key> known;
    for (const Primitive& primitive : primitives)
        known.insert(primitive.key());
    const auto add = [&](const Primitive& primitive) {
        if (known.insert(primitive.key()).second)
            primitives.push_back(primitive);
    };
    forEachObject(value, [&add](const QObject* object) {
        if (const auto* primitive = dynamic_cast<const Primitive*>(object))
            add(*primitive);
        else if (const auto* list = dynamic_cast<const List*>(object))
            list->forEach(add);
    });
}

} // namespace OMC::layerprimitives
