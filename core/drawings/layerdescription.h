#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/host/gr_drawingaccess.h"

#include <QVariant>
#include <QVariantMap>

#include <optional>
#include <variant>
#include <vector>

namespace OMC {

class DrawingVectorStroke;

/// What scripts write to describe strokes and layers, as maps. All of a description is read before anything is changed.
namespace layerdescription {

/// A stroke: "path", "line_style", "colour_left", "colour_right"; "type" is left to `layerType`. `defaults` tells what
/// the map leaves out. Throws the sentence of what can't be read, and for a key that is unknown.
GR_StrokeData strokeData(const QVariantMap& stroke, const GR_StrokeData& defaults = {});
/// The "type" of the new layer that a stroke asks for; nothing where the map has none. Throws for a type that is
/// unknown or can't have strokes.
std::optional<GR_Layer::LayerType> layerType(const QVariantMap& stroke);

/// A new stroke, or a copy of one.
using Item = std::variant<GR_StrokeData, DrawingVectorStroke>;

/// A layer that is to be made, with what goes into it.
struct Layer {
    GR_Layer::LayerType type = GR_Layer::kUndefined;
    bool under = false;                        ///< It goes under the reference, or under the layer before it.
    bool first = false;                        ///< It is the first one at its reference.
    DrawingLayerImplShared::Pointer reference; ///< Of the first one; null for the top or bottom of the art layer.
    std::vector<Item> items;
};

/// The layers that a map, or a list of maps, describes: "under", "reference_layer", "strokes", "masks".
std::vector<Layer> layers(const QVariant& description);

/// Makes the layers. Gives their leaves.
std::vector<UT_Node*> make(GR_DrawingAccess& access, const std::vector<Layer>& layers);

} // namespace layerdescription

} // namespace OMC
