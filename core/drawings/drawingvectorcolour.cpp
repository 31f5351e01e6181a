#include "core/drawings/drawingvectorcolour.h"

#include "core/frame/finite.h"
#include "core/geometry/matrix.h"
#include "core/host/math_matrix4x4.h"

#include <array>
#include <memory>
#include <tuple>

namespace OMC {

namespace {

constexpr int idLength = 16;

QVariant matrixVariant(const Math::Matrix2x3& matrix)
{
    const Math::Vector2d& x = matrix.xAxis();
    const Math::Vector2d& y = matrix.yAxis();
    const Math::Point2d& origin = matrix.origin();
    const std::array<double, 16> cells = {x.x, x.y, 0, 0, y.x, y.y, 0, 0, 0, 0, 1, 0, origin.x, origin.y, 0, 1};
    return toVariant(new Matrix(Math::Matrix4x4(cells.data())));
}

/// The part of a matrix that acts in the plane.
Math::Matrix2x3 planeMatrix(const QVariant& value)
{
    const Math::Matrix2x3 matrix = Matrix::valueOf(value).getTransform2d();
    const auto& [x, y, origin] = std::tuple(matrix.xAxis(), matrix.yAxis(), matrix.origin());
    for (const double cell : {x.x, x.y, y.x, y.y, origin.x, origin.y})
        requireFinite(cell, 0);
    return matrix;
}

/// A colour that lives as long as the process.
const DrawingVectorColour* kept(const CM_ColorId_t& id)
{
    return new DrawingVectorColour(GR_Color::CreateWith(id));
}

const GR_ColorPtr& noColour()
{
    static const GR_ColorPtr none = GR_Color::CreateWith(CM_ColorId_t());
    return none;
}

} // namespace

DrawingVectorColour::DrawingVectorColour() : m_colour(noColour()) {}

DrawingVectorColour::DrawingVectorColour(const DrawingVectorColour& other) : BaseObject(other), m_colour(other.m_colour)
{}

DrawingVectorColour::DrawingVectorColour(const GR_Color& colour) : m_colour(std::make_shared<const GR_Color>(colour)) {}

DrawingVectorColour::DrawingVectorColour(const GR_Color* colour)
    : m_colour(colour ? std::make_shared<const GR_Color>(*colour) : noColour())
{}

DrawingVectorColour::DrawingVectorColour(GR_ColorPtr colour) : m_colour(colour ? std::move(colour) : noColour()) {}

DrawingVectorColour& DrawingVectorColour::operator=(const DrawingVectorColour& other)
{
    m_colour = other.m_colour;
    return *this;
}

std::string DrawingVectorColour::__str__() const
{
    return "DrawingVectorColour()";
}

const DrawingVectorColour* DrawingVectorColour::autoColour()
{
    static const DrawingVectorColour* const colour = kept(GR_Color::autoId());
    return colour;
}

const DrawingVectorColour* DrawingVectorColour::eraserColour()
{
    static const DrawingVectorColour* const colour = kept(GR_Color::eraserId());
    return colour;
}

const DrawingVectorColour* DrawingVectorColour::fromQVariant(const QVariant& value)
{
    if (const auto* given = objectFrom<DrawingVectorColour>(value))
        return given;
    const GR_ColorPtr colour = colourFrom(value);
    if (!colour)
        return nullptr;
    for (const DrawingVectorColour* special : {autoColour(), eraserColour()}) {
        if (special->m_colour->GetColorID() == colour->GetColorID())
            return special;
    }
    static auto* const made = new DrawingVectorColour;
    *made = DrawingVectorColour(colour);
    return made;
}

GR_ColorPtr DrawingVectorColour::colourFrom(const QVariant& value)
{
    if (const auto* given = objectFrom<DrawingVectorColour>(value))
        return given->m_colour;
    if (value.typeId() != QMetaType::QString)
        return nullptr;
    const QString text = value.toString();
    if (text.compare(QLatin1String("ERASER"), Qt::CaseInsensitive) == 0)
        return GR_Color::CreateWith(GR_Color::eraserId());
    if (text.compare(QLatin1String("AUTO"), Qt::CaseInsensitive) == 0)
        return GR_Color::CreateWith(GR_Color::autoId());
    return text.size() == idLength ? GR_Color::CreateWith(idFrom(text)) : nullptr;
}

CM_ColorId_t DrawingVectorColour::idFrom(const QString& text)
{
    if (text.size() != idLength)
        throwInvalidArgument(0);
    return CM_ColorId_t::FromString(text);
}

QVariant DrawingVectorColour::getColourMatrix() const
{
    return matrixVariant(m_colour->GetMatrix());
}

void DrawingVectorColour::setColourMatrix(const QVariant& matrix)
{
    m_colour = m_colour->CopyWithDifferentGradientMatrix(planeMatrix(matrix));
}

QString DrawingVectorColour::getColourId() const
{
    return m_colour->GetColorID().AsString();
}

void DrawingVectorColour::setColourId(const QString& id)
{
    m_colour = m_colour->CopyWithDifferentColorID(idFrom(id));
}

QVariant DrawingVectorColour::getTextureMatrix() const
{
    return matrixVariant(m_colour->GetTextureMatrix());
}

void DrawingVectorColour::setTextureMatrix(const QVariant& matrix)
{
    m_colour = m_colour->CopyWithDifferentTextureMatrix(planeMatrix(matrix));
}

QVariant DrawingVectorColour::getTextureId() const
{
    if (!m_colour->HasTexture())
        return false;
    return m_colour->GetTextureID().AsString();
}

void DrawingVectorColour::setTextureId(const QVariant& id)
{
    if (id.typeId() == QMetaType::QString)
        m_colour = m_colour->CopyWithTexture(idFrom(id.toString()), m_colour->GetTextureMatrix());
    else if (id.isNull() || (id.typeId() == QMetaType::Bool && !id.toBool()))
        m_colour = m_colour->CopyWithoutTexture();
    else
        throwInvalidArgument(0);
}

} // namespace OMC
