#pragma once

#include "core/drawings/drawinglayerimplshared.h"

#include <QVariant>

#include <vector>

namespace OMC {

class DrawingLayer;
class DrawingVectorStroke;

/// The arguments of edits: what of the open session's drawing they name. Each throws its sentence.
namespace sessiontarget {

/// Whether a layer belongs to the session's drawing, and the session has not erased it.
bool isOfSession(const DrawingLayerImplShared& record);

/// "No drawing is currently being modified." without a session.
void requireSession();

/// The layer that an argument is, or the layer of the stroke that it is: "Invalid target layer or stroke specified.".
DrawingLayerImplShared::Pointer layerOrStroke(const QVariant& value);
/// The same for a layer that strokes are put into; refuses layers of texts and pictures too.
DrawingLayerImplShared::Pointer layerForStrokes(const QVariant& value);
/// The layers in an argument that edits may take as sources: "Invalid target layer specified.".
std::vector<const DrawingLayer*> sourceLayers(const QVariant& value);
/// Layers of the session's drawing, lowest first: "Invalid target layer specified.".
std::vector<const DrawingLayer*> ownLayers(const QVariant& value);
/// The strokes in an argument that are there: "Invalid stroke specified.".
std::vector<DrawingVectorStroke> sourceStrokes(const QVariant& value);
/// Strokes of the session's drawing: "Invalid stroke specified.".
std::vector<DrawingVectorStroke> ownStrokes(const QVariant& value);

} // namespace sessiontarget

} // namespace OMC
