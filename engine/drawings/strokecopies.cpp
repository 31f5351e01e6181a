#include "engine/drawings/strokecopies.h"

#include "engine/drawings/livedrawing.h"

#include <cmath>

namespace brindle::engine {

namespace {

GR_Bezier2d mirrored(const GR_Bezier2d& tip)
{
    GR_Bezier2d curve = tip;
    curve *= Math::Matrix2x3().Scale({1, -1});
    curve.Reverse();
    return curve;
}

} // namespace

StrokeCopies::StrokeCopies(const Math::Matrix2x3& matrix)
    : m_matrix(matrix),
      m_isIdentity(matrix == Math::Matrix2x3()),
      m_isMirror(matrix.determinant() < 0),
      m_widening(std::sqrt(std::fabs(matrix.determinant())))
{}

GR_StrokeData StrokeCopies::of(const GR_StrokeData& stroke)
{
    GR_StrokeData copy = stroke;
    GR_ThicknessBinder binder = stroke.GetThicknessBinder();
    if (binder.thicknessPath()) {
        binder.setThicknessPath(of(binder.thicknessPath()));
        copy.CopyThicknessBinder(binder);
    }
    if (m_isIdentity)
        return copy;
    GR_BezierPath2d path = stroke.GetPath();
    path *= m_matrix;
    copy.SetPath(path);
    for (const int side : {0, 1})
        copy.SetColor(of(stroke.GetColor(m_isMirror ? 1 - side : side)), side);
    GR_LineStyle style = stroke.GetLineStyle();
    style.SetThickness(style.GetThickness() * m_widening);
    copy.SetLineStyle(style);
    if (m_isMirror) {
        std::swap(binder.startTangentLeft, binder.startTangentRight);
        std::swap(binder.stopTangentLeft, binder.stopTangentRight);
        copy.CopyThicknessBinder(binder);
    }
    return copy;
}

GR_ThicknessPathPtr StrokeCopies::of(const GR_ThicknessPathPtr& path)
{
    GR_ThicknessPathPtr& copy = m_paths[path];
    if (copy)
        return copy;
    if (m_isIdentity) {
        copy = std::make_shared<const GR_ThicknessPath>(*path);
        return copy;
    }
    std::vector<GR_ThicknessPath::ThicknessKey> keys = path->thicknessKeys();
    for (GR_ThicknessPath::ThicknessKey& key : keys) {
        for (GR_ThicknessPath::Side* side : {&key.left, &key.right}) {
            side->thickness *= m_widening;
            side->fromControl *= m_widening;
            side->toControl *= m_widening;
        }
        if (m_isMirror)
            std::swap(key.left, key.right);
    }
    auto made = GR_ThicknessPath::CreateWith(keys);
    made->setClosed(path->isClosed());
    made->setTipFromBezier(m_isMirror ? mirrored(path->tipFromBezier()) : path->tipFromBezier());
    made->setTipToBezier(m_isMirror ? mirrored(path->tipToBezier()) : path->tipToBezier());
    copy = std::move(made);
    return copy;
}

GR_ColorPtr StrokeCopies::of(const GR_ColorPtr& colour) const
{
    if (!colour)
        return colour;
    const GR_ColorPtr moved = colour->CopyWithDifferentGradientMatrix(m_matrix * colour->GetMatrix());
    return colour->HasTexture() ? moved->CopyWithDifferentTextureMatrix(m_matrix * colour->GetTextureMatrix()) : moved;
}

LayerPointer StrokeCopies::of(const LayerValue& layer, LiveDrawing& target)
{
    auto copy = std::make_shared<LayerValue>();
    copy->id = target.newLayerId();
    copy->type = layer.type;
    layer.strokes.forEach([&](const StrokePointer& stroke) {
        copy->strokes.append(std::make_shared<StrokeRecord>(StrokeRecord{target.newStrokeId(), of(stroke->data)}));
    });
    copy->text = layer.text;
    copy->bitmap = layer.bitmap;
    if (m_isIdentity)
        return copy;
    if (layer.text) {
        GR_TextLayer::Data text = *layer.text;
        text.matrix = m_matrix * text.matrix;
        copy->text = std::make_shared<const GR_TextLayer::Data>(std::move(text));
    }
    if (layer.bitmap) {
        GR_BitmapLayer::Data bitmap = *layer.bitmap;
        bitmap.matrix = m_matrix * bitmap.matrix;
        copy->bitmap = std::make_shared<const GR_BitmapLayer::Data>(std::move(bitmap));
    }
    return copy;
}

} // namespace brindle::engine
