#pragma once

#include "core/host/gr_stroke.h"
#include "engine/drawings/drawingvalue.h"

#include <unordered_map>

namespace brindle::engine {

class LiveDrawing;

/// Copies of strokes, layers and colours that one command makes. Strokes that share a thickness path get copies that
/// share one as well: another one, so that the widths of the copies are changed by themselves.
class StrokeCopies {
public:
    StrokeCopies() = default;
    /// Copies are taken through a matrix, which moves gradients and textures along and makes lines as much wider as
    /// lengths grow: by the root of its determinant. One that mirrors exchanges left and right.
    explicit StrokeCopies(const Math::Matrix2x3& matrix);

    GR_StrokeData of(const GR_StrokeData& stroke);
    /// A layer as a new one of a drawing, with new ids.
    LayerPointer of(const LayerValue& layer, LiveDrawing& target);
    void clear() { m_paths.clear(); }

private:
    GR_ThicknessPathPtr of(const GR_ThicknessPathPtr& path);
    GR_ColorPtr of(const GR_ColorPtr& colour) const;

    Math::Matrix2x3 m_matrix;
    bool m_isIdentity = true;
    bool m_isMirror = false;
    double m_widening = 1;
    std::unordered_map<GR_ThicknessPathPtr, GR_ThicknessPathPtr> m_paths;
};

} // namespace brindle::engine
