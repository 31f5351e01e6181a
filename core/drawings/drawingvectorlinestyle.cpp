#include "core/drawings/drawingvectorlinestyle.h"

#include "core/drawings/drawingvectorcolour.h"
#include "core/frame/finite.h"
#include "core/geometry/vectors.h"

namespace OMC {

namespace {

/// The types of lines by their texts, which are read in any case of letters.
constexpr struct {
    GR_LineStyle::Type type;
    QLatin1String text;
} types[] = {
    {GR_LineStyle::kNone, QLatin1String("No_Linestyle")},
    {GR_LineStyle::kCutter, QLatin1String("Cutter_Linestyle")},
    // Required: the capital S, which is unlike the other texts.
    {GR_LineStyle::kStroke, QLatin1String("Stroke_LineStyle")},
    {GR_LineStyle::kHair, QLatin1String("Hair_Linestyle")},
    {GR_LineStyle::kThick, QLatin1String("Thick_Linestyle")},
    {GR_LineStyle::kThicknessCutter, QLatin1String("Thickness_Cutter_Linestyle")},
};

QVariant vectorVariant(const Math::Vector2d& vector)
{
    return QVariant::fromValue(Vector2d(vector));
}

Math::Vector2d vectorFrom(const QVariant& value)
{
    const Vector2d vector(value);
    requireFinite(vector.x, 0);
    requireFinite(vector.y, 0);
    return {vector.x, vector.y};
}

} // namespace

DrawingVectorLineStyle::DrawingVectorLineStyle() = default;

DrawingVectorLineStyle::DrawingVectorLineStyle(const GR_LineStyle& style) : m_style(style) {}

DrawingVectorLineStyle::DrawingVectorLineStyle(const DrawingVectorLineStyle& other)
    : BaseObject(other),
      m_style(other.m_style)
{}

DrawingVectorLineStyle& DrawingVectorLineStyle::operator=(const DrawingVectorLineStyle& other)
{
    m_style = other.m_style;
    return *this;
}

std::string DrawingVectorLineStyle::__str__() const
{
    return "DrawingVectorLineStyle()";
}

QVariant DrawingVectorLineStyle::getColour() const
{
    return toVariant(new DrawingVectorColour(GR_Color::CreateWith(m_style.GetColorID())));
}

void DrawingVectorLineStyle::setColour(const QVariant& colour)
{
    if (colour.typeId() == QMetaType::QString) {
        setColourId(colour.toString());
        return;
    }
    const auto* given = objectFrom<DrawingVectorColour>(colour);
    if (!given)
        throwInvalidArgument(0);
    m_style.SetColorID(given->colour()->GetColorID());
}

QString DrawingVectorLineStyle::getColourId() const
{
    return m_style.GetColorID().AsString();
}

void DrawingVectorLineStyle::setColourId(const QString& id)
{
    m_style.SetColorID(DrawingVectorColour::idFrom(id));
}

QString DrawingVectorLineStyle::getType() const
{
    for (const auto& entry : types) {
        if (entry.type == m_style.GetType())
            return entry.text;
    }
    return QStringLiteral("Unknown");
}

void DrawingVectorLineStyle::setType(const QString& type)
{
    for (const auto& entry : types) {
        if (type.compare(entry.text, Qt::CaseInsensitive) == 0) {
            m_style.SetType(entry.type);
            return;
        }
    }
    throwInvalidArgument(0);
}

double DrawingVectorLineStyle::getThickness() const
{
    return m_style.GetThickness();
}

void DrawingVectorLineStyle::setThickness(double thickness)
{
    requireFinite(thickness, 0);
    if (thickness < 0)
        throwInvalidArgument(0);
    m_style.SetThickness(thickness);
}

bool DrawingVectorLineStyle::getLine() const
{
    return m_style.IsLine();
}

bool DrawingVectorLineStyle::getVisible() const
{
    return m_style.IsVisible();
}

QVariant DrawingVectorLineStyle::getTextureScaling() const
{
    return vectorVariant(m_style.getTextureScaling());
}

void DrawingVectorLineStyle::setTextureScaling(const QVariant& scaling)
{
    m_style.setTextureScaling(vectorFrom(scaling));
}

QVariant DrawingVectorLineStyle::getTextureOffset() const
{
    return vectorVariant(m_style.getTextureOffset());
}

void DrawingVectorLineStyle::setTextureOffset(const QVariant& offset)
{
    m_style.setTextureOffset(vectorFrom(offset));
}

bool DrawingVectorLineStyle::getTextureTiled() const
{
    return m_style.isTextureTiled();
}

void DrawingVectorLineStyle::setTextureTiled(bool tiled)
{
    m_style.setTextureTiled(tiled);
}

QString DrawingVectorLineStyle::getOpacityColourId() const
{
    return m_style.GetOpacityColorID().AsString();
}

void DrawingVectorLineStyle::setOpacityColourId(const QString& id)
{
    m_style.SetOpacityColorID(DrawingVectorColour::idFrom(id));
}

QVariant DrawingVectorLineStyle::getOpacityTextureScaling() const
{
    return vectorVariant(m_style.getOpacityTextureScaling());
}

void DrawingVectorLineStyle::setOpacityTextureScaling(const QVariant& scaling)
{
    m_style.setOpacityTextureScaling(vectorFrom(scaling));
}

QVariant DrawingVectorLineStyle::getOpacityTextureOffset() const
{
    return vectorVariant(m_style.getOpacityTextureOffset());
}

void DrawingVectorLineStyle::setOpacityTextureOffset(const QVariant& offset)
{
    m_style.setOpacityTextureOffset(vectorFrom(offset));
}

bool DrawingVectorLineStyle::getOpacityTextureTiled() const
{
    return m_style.isOpacityTextureTiled();
}

void DrawingVectorLineStyle::setOpacityTextureTiled(bool tiled)
{
    m_style.setOpacityTextureTiled(tiled);
}

bool DrawingVectorLineStyle::getTextureWrapAtTip() const
{
    return m_style.isTextureWrapAtTip();
}

void DrawingVectorLineStyle::setTextureWrapAtTip(bool wrap)
{
    m_style.setTextureWrapAtTip(wrap);
}

bool DrawingVectorLineStyle::getOpacityTextured() const
{
    return m_style.isOpacityTextured();
}

bool DrawingVectorLineStyle::getTextured() const
{
    return m_style.isTextured();
}

} // namespace OMC
