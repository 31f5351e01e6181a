#pragma once

#include "core/host/gr_drawingaccess.h"

namespace brindle::engine {

/// What a drawing can hold. All throw std::invalid_argument with one sentence for anything else: numbers that are not
/// finite, or outside of what their headers say.
void requirePath(const GR_BezierPath2d& path); ///< Cubic curves, or one point.
void requireColour(const GR_ColorPtr& colour); ///< Null is good.
void requireLineStyle(const GR_LineStyle& style);
void requireThickness(const GR_ThicknessBinder& thickness);
void requireStroke(const GR_StrokeData& stroke);
void requireMatrix(const Math::Matrix2x3& matrix);
void requireLayerType(int type);
void requireText(const GR_TextLayer::Data& text);
void requireBitmap(const GR_BitmapLayer::Data& bitmap);

/// The longest side of a picture, in pixels.
inline constexpr int largestBitmapSide = 16'384;

} // namespace brindle::engine
