#include "engine/drawings/strokebounds.h"

#include "engine/drawings/linecuts.h"
#include "engine/drawings/outline.h"

namespace brindle::engine {

double visibleThickness(const GR_StrokeData& stroke)
{
    const GR_LineStyle& style = stroke.GetLineStyle();
    if (style.GetType() == GR_LineStyle::kHair)
        return 0;
    const GR_ThicknessBinder& binder = stroke.GetThicknessBinder();
    return binder.thicknessPath() ? 2 * binder.maxThickness() : style.GetThickness();
}

Math::Box2d visibleBox(const GR_StrokeData& stroke)
{
    if (stroke.GetLineStyle().GetType() == GR_LineStyle::kHair)
        return stroke.GetPath().GetBox();
    return outlineBox(LineForm::of(stroke));
}

} // namespace brindle::engine

GR_OutlinePieces GR_StrokeData::GetOutline(double tolerance) const
{
    using namespace brindle::engine;
    const Outline outline = outlineOf(LineForm::of(*this), tolerance);
    GR_OutlinePieces pieces;
    for (std::size_t i = 0; i < outline.pieceCount(); ++i) {
        const std::span<const Math::Point2d> piece = outline.piece(i);
        pieces.points.insert(pieces.points.end(), piece.begin(), piece.end());
        pieces.ends.push_back(static_cast<int>(pieces.points.size()));
    }
    return pieces;
}

GR_LineCuts GR_StrokeData::GetCuts(double tolerance) const
{
    return brindle::engine::lineCuts(brindle::engine::LineForm::of(*this), tolerance);
}
