#include "core/drawings/drawingvectorcolour.h"

#include "core/drawings/drawingvectorlinestyle.h"
#include "service/python/drawings/copied.h"
#include "service/python/family.h"
#include "service/python/statereader.h"
#include "service/python/valueprotocol.h"

namespace brindle::python {

namespace {

OMC::DrawingVectorColour* newColour(const QVariant& colour)
{
    if (!colour.isValid())
        return new OMC::DrawingVectorColour;
    GR_ColorPtr read = OMC::DrawingVectorColour::colourFrom(colour);
    if (!read)
        OMC::BaseObject::throwInvalidArgument(0);
    return new OMC::DrawingVectorColour(std::move(read));
}

OMC::Obj wrapped(GR_ColorPtr colour)
{
    return OMC::Obj(colour ? new OMC::DrawingVectorColour(std::move(colour)) : nullptr);
}

OMC::Obj colourFromVariant(const QVariant& value)
{
    return wrapped(OMC::DrawingVectorColour::colourFrom(value));
}

OMC::Obj autoColour()
{
    return wrapped(GR_Color::CreateWith(GR_Color::autoId()));
}

OMC::Obj eraserColour()
{
    return wrapped(GR_Color::CreateWith(GR_Color::eraserId()));
}

void append(QVariantList& state, const Math::Matrix2x3& matrix)
{
    state << matrix.xAxis().x << matrix.xAxis().y << matrix.yAxis().x << matrix.yAxis().y << matrix.origin().x
          << matrix.origin().y;
}

Math::Matrix2x3 takeMatrix(StateReader& reader)
{
    const auto cells = reader.takeNumbers<6>();
    return {{cells[0], cells[1]}, {cells[2], cells[3]}, {cells[4], cells[5]}};
}

QVariantList colourState(const OMC::DrawingVectorColour& colour)
{
    const GR_Color& record = *colour.colour();
    QVariantList state = {record.GetColorID().AsString()};
    append(state, record.GetMatrix());
    state << record.GetTextureID().AsString();
    append(state, record.GetTextureMatrix());
    return state;
}

OMC::DrawingVectorColour* colourOfState(const QVariantList& state)
{
    StateReader reader(state);
    const auto id = CM_ColorId_t::FromString(reader.take<QString>());
    const GR_ColorPtr colour = GR_Color::CreateWith(id, takeMatrix(reader));
    const auto texture = CM_ColorId_t::FromString(reader.take<QString>());
    const Math::Matrix2x3 textureMatrix = takeMatrix(reader);
    reader.finish();
    return new OMC::DrawingVectorColour(colour->CopyWithTexture(texture, textureMatrix));
}

std::string colourText(const OMC::DrawingVectorColour& colour, const std::string& type)
{
    const GR_Color& record = *colour.colour();
    QString text = record.GetColorID().AsString();
    if (record.GetColorID() == GR_Color::autoId())
        text = QStringLiteral("auto");
    else if (record.GetColorID() == GR_Color::eraserId())
        text = QStringLiteral("eraser");
    else if (!record.GetColorID().IsValid())
        text = QStringLiteral("no colour");
    if (record.HasTexture())
        text += QStringLiteral(", texture ") + record.GetTextureID().AsString();
    return "<" + type + ": " + text.toStdString() + ">";
}

QVariantList styleState(const OMC::DrawingVectorLineStyle& lineStyle)
{
    const GR_LineStyle& style = lineStyle.lineStyle();
    return {int(style.GetType()),
            style.GetColorID().AsString(),
            style.GetThickness(),
            style.getTextureScaling().x,
            style.getTextureScaling().y,
            style.getTextureOffset().x,
            style.getTextureOffset().y,
            style.isTextureTiled(),
            style.GetOpacityColorID().AsString(),
            style.getOpacityTextureScaling().x,
            style.getOpacityTextureScaling().y,
            style.getOpacityTextureOffset().x,
            style.getOpacityTextureOffset().y,
            style.isOpacityTextureTiled(),
            style.isTextureWrapAtTip()};
}

OMC::DrawingVectorLineStyle* styleOfState(const QVariantList& state)
{
    StateReader reader(state);
    const auto takeVector = [&reader]() -> Math::Vector2d {
        const double x = reader.take<double>();
        return {x, reader.take<double>()};
    };
    GR_LineStyle style(static_cast<GR_LineStyle::Type>(reader.take<int>()));
    style.SetColorID(CM_ColorId_t::FromString(reader.take<QString>()));
    const double thickness = reader.take<double>();
    if (!(thickness >= 0))
        StateReader::refuse();
    style.SetThickness(thickness);
    style.setTextureScaling(takeVector());
    style.setTextureOffset(takeVector());
    style.setTextureTiled(reader.take<bool>());
    style.SetOpacityColorID(CM_ColorId_t::FromString(reader.take<QString>()));
    style.setOpacityTextureScaling(takeVector());
    style.setOpacityTextureOffset(takeVector());
    style.setOpacityTextureTiled(reader.take<bool>());
    style.setTextureWrapAtTip(reader.take<bool>());
    reader.finish();
    return new OMC::DrawingVectorLineStyle(style);
}

std::string styleText(const OMC::DrawingVectorLineStyle& style, const std::string& type)
{
    return "<" + type + ": " + style.getType().toStdString() + ", " + numberText(style.getThickness()) + ", " +
           style.getColourId().toStdString() + ">";
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<DrawingVectorColour>()
            .alias("VectorColourLike", "DrawingVectorColour | str",
                   "A colour of a drawing: a vector colour, the id of a palette's colour, \"AUTO\" or \"ERASER\".")
            .constructor<&newColour, "colour: VectorColourLike | None=None">()
            .value<&colourState, &colourOfState, &colourText>()
            .property("colour_matrix", "Matrix", "MatrixLike")
            .property("texture_matrix", "Matrix", "MatrixLike")
            .property("texture_id", "str | bool", "str | bool | None")
            .staticMethod<"auto_colour", StaticForm<&autoColour, "-> DrawingVectorColour">>()
            .staticMethod<"eraser_colour", StaticForm<&eraserColour, "-> DrawingVectorColour">>()
            .staticMethod<"from_qvariant",
                          StaticForm<&colourFromVariant, "value: object -> DrawingVectorColour | None">>(),
        Class<DrawingVectorLineStyle>()
            .constructor<&newOrCopied<DrawingVectorLineStyle>, "other: DrawingVectorLineStyle | None=None">()
            .value<&styleState, &styleOfState, &styleText>()
            .property("colour", "DrawingVectorColour", "DrawingVectorColour | str")
            .property("texture_scaling", "Vector2d", "PointLike")
            .property("texture_offset", "Vector2d", "PointLike")
            .property("opacity_texture_scaling", "Vector2d", "PointLike")
            .property("opacity_texture_offset", "Vector2d", "PointLike"),
    };
});

} // namespace

} // namespace brindle::python
