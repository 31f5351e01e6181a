#include "engine/drawings/strokechecks.h"

#include <cmath>
#include <initializer_list>
#include <stdexcept>

namespace brindle::engine {

namespace {

/// Coordinates and lengths beyond this can't be measured against one another any more.
constexpr double farthest = 1e12;

void require(bool isGood, const char* sentence)
{
    if (!isGood)
        throw std::invalid_argument(sentence);
}

bool areUsable(std::initializer_list<double> numbers)
{
    for (const double number : numbers) {
        if (!(std::fabs(number) <= farthest))
            return false;
    }
    return true;
}

bool areUsable(const Math::Vector2d& vector)
{
    return areUsable({vector.x, vector.y});
}

} // namespace

void requirePath(const GR_BezierPath2d& path)
{
    const unsigned int count = path.GetNumPoints();
    require(count > 0, "A stroke needs a path with points.");
    require(count == 3 * path.GetNumBezier() + 1, "The path of a stroke is made of cubic curves.");
    for (unsigned int index = 0; index < count; ++index)
        require(areUsable({path.GetPoint(index).x, path.GetPoint(index).y}),
                "A point of a stroke's path is not finite, or too far away.");
}

void requireColour(const GR_ColorPtr& colour)
{
    if (!colour)
        return;
    requireMatrix(colour->GetMatrix());
    requireMatrix(colour->GetTextureMatrix());
}

void requireLineStyle(const GR_LineStyle& style)
{
    require(GR_LineStyle::IsType(style.GetType()), "There is no such type of lines.");
    require(areUsable({style.GetThickness()}) && style.GetThickness() >= 0,
            "The thickness of a line is a finite number, and not negative.");
    require(areUsable(style.getTextureScaling()) && areUsable(style.getTextureOffset()) &&
                areUsable(style.getOpacityTextureScaling()) && areUsable(style.getOpacityTextureOffset()),
            "The scaling and the offset of a texture are finite numbers.");
}

void requireThickness(const GR_ThicknessBinder& thickness)
{
    require(areUsable({thickness.startPosition, thickness.stopPosition, thickness.startTangentLeft,
                       thickness.startTangentRight, thickness.stopTangentLeft, thickness.stopTangentRight}),
            "The part and the tangents of a thickness are finite numbers.");
    if (!thickness.thicknessPath())
        return;
    for (const GR_ThicknessPath::ThicknessKey& key : thickness.thicknessPath()->thicknessKeys())
        require(areUsable({key.position, key.left.thickness, key.right.thickness}),
                "A key of a thickness path is not finite, or too far away.");
}

void requireStroke(const GR_StrokeData& stroke)
{
    requirePath(stroke.GetPath());
    requireColour(stroke.GetColor(0));
    requireColour(stroke.GetColor(1));
    requireLineStyle(stroke.GetLineStyle());
    requireThickness(stroke.GetThicknessBinder());
}

void requireMatrix(const Math::Matrix2x3& matrix)
{
    require(areUsable(matrix.xAxis()) && areUsable(matrix.yAxis()) && areUsable({matrix.origin().x, matrix.origin().y}),
            "A matrix is made of finite numbers.");
}

void requireLayerType(int type)
{
    const bool isType = (type >= GR_Layer::kUndefined && type <= GR_Layer::kCenterlineExtractor) ||
                        (type >= GR_Layer::kFlash && type <= GR_Layer::kText);
    require(isType, "There is no such type of layers.");
}

void requireText(const GR_TextLayer::Data& text)
{
    requireColour(text.colour);
    requireMatrix(text.matrix);
    require(areUsable({text.size}) && text.size > 0, "The size of a text is a finite number above 0.");
    require(areUsable({text.width, text.fixedWidth}) && text.width >= 0 && text.fixedWidth >= 0,
            "The widths of a text are finite numbers, and not negative.");
    require(text.alignment >= GR_TextLayer::kLeft && text.alignment <= GR_TextLayer::kJustify,
            "There is no such alignment of texts.");
    require(0 <= text.selectionFrom && text.selectionFrom <= text.selectionTo && text.selectionTo <= text.text.size(),
            "The selected characters of a text lie in it, in their order.");
}

void requireBitmap(const GR_BitmapLayer::Data& bitmap)
{
    requireMatrix(bitmap.matrix);
    require(bitmap.width >= 0 && bitmap.width <= largestBitmapSide && bitmap.height >= 0 &&
                bitmap.height <= largestBitmapSide,
            "A picture has up to 16384 pixels on each side.");
    require(bitmap.pixels.size() == qsizetype(4) * bitmap.width * bitmap.height, "A picture has four bytes a pixel.");
}

} // namespace brindle::engine
