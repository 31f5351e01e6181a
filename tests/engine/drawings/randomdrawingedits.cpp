#include "tests/engine/drawings/randomdrawingedits.h"

using namespace brindle::engine;

Math::Point2d RandomDrawingEdits::place()
{
    return {number() / 4, number() / 4};
}

GR_ColorPtr RandomDrawingEdits::colour()
{
    switch (pick(6)) {
    case 0:
        return nullptr;
    case 1:
        return GR_Color::CreateWith(pick(2) ? GR_Color::autoId() : GR_Color::eraserId());
    case 2:
        return GR_Color(CM_ColorId_t(1 + pick(4)), matrix()).CopyWithTexture(CM_ColorId_t(9), matrix());
    default:
        return colourOf(1 + pick(4));
    }
}

GR_LineStyle RandomDrawingEdits::style()
{
    constexpr GR_LineStyle::Type types[] = {GR_LineStyle::kNone, GR_LineStyle::kHair, GR_LineStyle::kThick,
                                            GR_LineStyle::kThicknessCutter};
    GR_LineStyle style(types[pick(4)], CM_ColorId_t(pick(3)), pick(5));
    style.setTextureTiled(pick(2));
    style.setTextureWrapAtTip(pick(2));
    style.setTextureOffset({number(), number()});
    return style;
}

GR_ThicknessPathPtr RandomDrawingEdits::widths()
{
    std::vector<GR_ThicknessPath::ThicknessKey> keys;
    for (unsigned int count = pick(4); count > 0; --count)
        keys.emplace_back(number() / 20, pick(5), pick(5));
    auto path = GR_ThicknessPath::CreateWith(keys);
    path->setClosed(pick(2));
    if (pick(3) == 0) {
        GR_Bezier2d tip(2, Math::Constants::Closed, Math::Constants::Closed);
        tip.SetPoint(1, {1, 1});
        path->setTipToBezier(tip);
    }
    return path;
}

Math::Matrix2x3 RandomDrawingEdits::matrix()
{
    return Math::Matrix2x3({1 + number() / 50, number() / 50}, {number() / 50, 1}, place());
}

GR_StrokeData RandomDrawingEdits::stroke()
{
    GR_BezierPath2d path;
    path.Append(place(), true);
    for (unsigned int curves = 1 + pick(3); curves > 0; --curves) {
        path.Append(place(), false);
        path.Append(place(), false);
        path.Append(place(), true);
    }
    GR_StrokeData data(path);
    data.SetColor(colour(), 0);
    data.SetColor(colour(), 1);
    data.SetLineStyle(style());
    data.setTipType(GR_StrokeEnd::From, static_cast<GR_TipType>(pick(3)));
    data.setCut(GR_StrokeEnd::To, pick(2));
    if (pick(2)) {
        GR_ThicknessBinder binder(widths());
        binder.stopPosition = pick(2) ? 1 : 0.5;
        binder.startTangentLeft = pick(2) ? 0 : number();
        data.CopyThicknessBinder(binder);
    }
    return data;
}

GR_TextLayer::Data RandomDrawingEdits::text()
{
    GR_TextLayer::Data data;
    data.text = QString(static_cast<qsizetype>(pick(5)), QChar(0x3b1)) + QString::fromUtf8("\U0001F600 x");
    data.colour = colour();
    data.matrix = matrix();
    data.alignment = static_cast<GR_TextLayer::Alignment>(pick(4));
    data.indent = static_cast<int>(number());
    data.selectionTo = static_cast<int>(pick(3));
    return data;
}

GR_BitmapLayer::Data RandomDrawingEdits::bitmap()
{
    GR_BitmapLayer::Data data{static_cast<int>(pick(4)), static_cast<int>(pick(4)), {}, matrix()};
    for (int byte = 0; byte < 4 * data.width * data.height; ++byte)
        data.pixels.append(static_cast<char>(pick(256)));
    return data;
}

void RandomDrawingEdits::edit(GR_DrawingAccess& access)
{
    auto* composite = access.GetDrawing()->GetComposite();
    auto* art = dynamic_cast<GR_VectorDrawingObj*>(composite->GetArt(static_cast<int>(pick(4))));
    access.SetDrawing(art);
    const std::vector<UT_Node*> leaves = leavesOf(*art);
    if (leaves.empty() || pick(4) == 0) {
        editLayers(access, leaves);
        return;
    }
    UT_Node* leaf = leaves[pick(static_cast<unsigned int>(leaves.size()))];
    if (dynamic_cast<GR_TextNode*>(leaf))
        access.SetText(leaf, text());
    else if (dynamic_cast<GR_BitmapNode*>(leaf))
        access.SetBitmap(leaf, bitmap());
    else
        editStrokes(access, leaf, leaves);
}

void RandomDrawingEdits::editLayers(GR_DrawingAccess& access, const std::vector<UT_Node*>& leaves)
{
    constexpr GR_Layer::LayerType types[] = {GR_Layer::kPen, GR_Layer::kBrush, GR_Layer::kText, GR_Layer::kBitmap};
    UT_Node* one = leaves.empty() ? nullptr : leaves[pick(static_cast<unsigned int>(leaves.size()))];
    UT_Node* other = leaves.empty() || pick(4) == 0 ? nullptr : leaves[pick(static_cast<unsigned int>(leaves.size()))];
    try {
        switch (leaves.size() > 6 ? 7 : pick(one ? 10 : 2)) {
        case 0:
            access.CreateLayerAbove(types[pick(4)], other);
            break;
        case 1:
            access.CreateLayerUnder(types[pick(2)], other);
            break;
        case 2:
        case 3:
            access.Move(one, other);
            break;
        case 4:
            access.PasteNodeAt(one, pick(2));
            break;
        case 5:
            access.Copy(one, other);
            break;
        case 6:
            access.Merge({one, other});
            break;
        case 7:
            if (pick(3))
                access.Erase(one);
            else
                access.Clear();
            break;
        default:
            if (pick(4) == 0)
                access.Paste(*access.GetDrawing(), matrix());
        }
    } catch (const std::invalid_argument&) { // Of another kind, or of none: nothing has changed.
    }
}

void RandomDrawingEdits::editStrokes(GR_DrawingAccess& access, UT_Node* leaf, const std::vector<UT_Node*>& leaves)
{
    GR_Layer& layer = strokesOf(leaf);
    const auto count = static_cast<unsigned int>(layer.GetStrokeEnd() - layer.GetStrokeBegin());
    if (count < 3) {
        access.Insert(stroke(), leaf);
        return;
    }
    GR_VectorStroke* one = strokeAt(leaf, pick(count));
    GR_VectorStroke* other = strokeAt(leaf, pick(count));
    UT_Node* target = leaves[pick(static_cast<unsigned int>(leaves.size()))];
    const auto end = static_cast<GR_StrokeEnd>(pick(2));
    try {
        switch (pick(16)) {
        case 0:
            access.Insert(std::vector{stroke(), stroke(), stroke()}, leaf);
            break;
        case 1:
        case 2:
            access.Erase(one);
            break;
        case 3:
            access.Copy(one, target);
            break;
        case 4:
            access.Move(one, target);
            break;
        case 5:
            access.Replace(one, stroke());
            break;
        case 6:
            access.SetColor(one, colour(), static_cast<int>(pick(2)));
            break;
        case 7:
            if (const GR_Contour* contour = one->GetContour(static_cast<GR_StrokeSide>(pick(2))))
                access.SetColor(contour, colour(), pick(2));
            break;
        case 8:
            access.SetColor(one->Tail(), colour(), pick(2));
            break;
        case 9:
            access.SetLineStyle(one, style());
            break;
        case 10:
            access.SetBezierPath(one, stroke().GetPath());
            break;
        case 11:
            access.setTipType(one, end, static_cast<GR_TipType>(pick(3)));
            break;
        case 12:
            access.setTipTangent(one, static_cast<GR_StrokeSide>(pick(2)), end, number());
            break;
        case 13:
            access.Cut(leaf);
            break;
        case 14:
            if (one != other)
                access.setSharedThicknessPath({one, other}, widths());
            break;
        default:
            access.SetThicknessBinder(one, GR_ThicknessBinder(widths()));
        }
    } catch (const std::invalid_argument&) { // A layer without strokes.
    }
}
