#include "core/palettes/palette.h"

#include "core/palettes/colourtext.h"
#include "core/palettes/palettecolour.h"
#include "core/palettes/palettegradientposition.h"
#include "core/palettes/palettelist.h"
#include "core/palettes/palettelistlist.h"
#include "core/palettes/palettetexture.h"
#include "service/python/family.h"
#include "service/python/statereader.h"
#include "service/python/valueprotocol.h"

#include <array>

namespace brindle::python {

namespace {

using OMC::PaletteGradientPosition;

PaletteGradientPosition* newPosition(double position, const QVariant& colour, int)
{
    return new PaletteGradientPosition(position, colour);
}

OMC::Obj createLinear(OMC::Palette& palette, const QString& name, const QVariant& colour1, double pos1,
                      const QVariant& colour2, double pos2, int index)
{
    return palette.createLinearGradientColour(name, colour1, static_cast<float>(pos1), colour2,
                                              static_cast<float>(pos2), index);
}

OMC::Obj createRadial(OMC::Palette& palette, const QString& name, const QVariant& colour1, double pos1,
                      const QVariant& colour2, double pos2, int index)
{
    return palette.createRadialGradientColour(name, colour1, static_cast<float>(pos1), colour2,
                                              static_cast<float>(pos2), index);
}

OMC::Obj interpolated(const OMC::PaletteColour& colour, double position)
{
    return colour.interpolate(static_cast<float>(position));
}

/// A name in quotes, and what it is the name of.
QString named(const QString& name, const QString& what)
{
    return u'"' + name + QStringLiteral("\", ") + what;
}

QString shownColour(const OMC::PaletteColour& colour)
{
    return named(colour.getName(), OMC::colourtext::of(*colour.colorData()));
}

QString shownTexture(const OMC::PaletteTexture& texture)
{
    return named(texture.getName(), OMC::colourtext::of(*texture.textureData()));
}

QString shownPalette(const OMC::Palette& palette)
{
    const QString name = palette.getName(); // Reads the palette's file, where nobody has done that yet.
    return named(name, OMC::colourtext::contentOf(*palette.palette()));
}

QVariantList stateOf(const PaletteGradientPosition& position)
{
    const CM_Rgba rgba = position.rgba();
    return {position.position, int(rgba.red()), int(rgba.green()), int(rgba.blue()), int(rgba.alpha())};
}

PaletteGradientPosition* positionOf(const QVariantList& state)
{
    StateReader reader(state);
    const double place = reader.take<double>();
    std::array<int, 4> channels;
    for (int& channel : channels) {
        channel = reader.take<int>();
        if (channel < 0 || channel > 255)
            StateReader::refuse();
    }
    reader.finish();
    auto* position =
        new PaletteGradientPosition(CM_GradientData{0, CM_Rgba(channels[0], channels[1], channels[2], channels[3])});
    position->position = place;
    return position;
}

std::string textOf(const PaletteGradientPosition& position, const std::string& type)
{
    const CM_Rgba rgba = position.rgba();
    std::string channels;
    for (const int channel : {rgba.red(), rgba.green(), rgba.blue(), rgba.alpha()})
        channels += (channels.empty() ? "" : ", ") + std::to_string(channel);
    return shortName(type) + "(" + numberText(position.position) + ", [" + channels + "])";
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<PaletteBaseColour>()
            .alwaysTrue()
            .items("PaletteGradientPosition")
            .alias("AnyPaletteBaseColour", "PaletteBaseColour", "A colour or a texture.")
            .method<"palette", Form<&PaletteBaseColour::palette, "-> Palette">>()
            .method<"palette_list", Form<&PaletteBaseColour::palette_list, "-> PaletteList">>(),
        Class<PaletteColour>()
            .shownAs<&shownColour>()
            .property("colour", "Colour", "ColourLike")
            .staticMethod<"get_colour_type_from_string", StaticForm<&PaletteColour::getColourTypeFromString, "text">>()
            .staticMethod<"get_string_from_colour_type", StaticForm<&PaletteColour::getStringFromColourType, "type">>()
            .method<"contains", Form<&PaletteColour::contains, "colour">>()
            .method<"add", Form<&PaletteColour::add,
                                "colour: ColourLike, position: float | None=None -> PaletteGradientPosition">>()
            .method<"pop", Form<&PaletteColour::pop, "index=-1 -> PaletteGradientPosition">>()
            .method<"remove", Form<&PaletteColour::remove, "colour: ColourLike">>()
            .method<"clear", Form<&PaletteColour::clear>>()
            .method<"interpolate", Form<&interpolated, "position -> PaletteGradientPosition">>(),
        Class<PaletteTexture>()
            .shownAs<&shownTexture>()
            .method<"change_texture", Form<&PaletteTexture::changeTexture, "path">>(),
        Class<PaletteGradientPosition>()
            .constructors<Construct<&newPosition, "position, colour: ColourLike, unused=0">,
                          Construct<&newOf<PaletteGradientPosition, QVariant, int>, "value: ColourLike, unused=0">>()
            .value<&stateOf, &positionOf, &textOf>()
            .member<&PaletteGradientPosition::position>("position")
            .property("colour", "Colour", "ColourLike"),
        Class<Palette>()
            .shownAs<&shownPalette>()
            .items("AnyPaletteBaseColour")
            .keys<&Palette::colourNames>()
            .staticMethod<"get_string_from_type", StaticForm<&Palette::getStringFromType, "type">>()
            .staticMethod<"get_type_from_string", StaticForm<&Palette::getTypeFromString, "text">>()
            .method<"lock", Form<&Palette::lock>>()
            .method<"release", Form<&Palette::release>>()
            .method<"colour_names", Form<&Palette::colourNames>>()
            .method<"contains", Form<&Palette::contains, "colour: BaseObject | None">>()
            .method<"element", Form<&Palette::element, "-> Element | None">>()
            .method<"palette_list", Form<&Palette::paletteList, "-> PaletteList">>()
            .method<"create_solid_colour", Form<&Palette::createSolidColour,
                                                "name, colour: ColourLike | None=None, index=-1 -> PaletteColour">>()
            .method<"create_linear_gradient_colour",
                    Form<&createLinear,
                         "name, colour1: ColourLike, pos1, colour2: ColourLike, pos2, index=-1 -> PaletteColour">>()
            .method<"create_radial_gradient_colour",
                    Form<&createRadial,
                         "name, colour1: ColourLike, pos1, colour2: ColourLike, pos2, index=-1 -> PaletteColour">>()
            .method<"create_texture",
                    Form<&Palette::createTexture, "name, path, index=-1, tiled=False -> PaletteTexture">>()
            .method<"append",
                    Form<&Palette::append, "colour: PaletteBaseColour, duplicate=False -> AnyPaletteBaseColour">>()
            .method<"insert", Form<&Palette::insert,
                                   "colour: PaletteBaseColour, index, duplicate=False -> AnyPaletteBaseColour">>()
            .method<"acquire", Form<&Palette::acquire, "colour: PaletteBaseColour">>()
            .method<"pop", Form<&Palette::pop, "index=-1 -> AnyPaletteBaseColour">>()
            .method<"remove", Form<&Palette::remove, "colour: PaletteBaseColour">>()
            .method<"reorder", Form<&Palette::reorder, "colour: PaletteBaseColour, index=-1">>()
            .method<"clear", Form<&Palette::clear>>(),
        Class<PaletteList>()
            .items("Palette")
            .keys<&PaletteList::paletteNames>()
            .method<"lock", Form<&PaletteList::lock>>()
            .method<"release", Form<&PaletteList::release>>()
            .method<"palette_names", Form<&PaletteList::paletteNames>>()
            .method<"find", Form<&PaletteList::find, "name, by_path=False -> Palette | None">>()
            .method<"contains", Form<&PaletteList::contains, "palette: BaseObject | None">>()
            .method<"element", Form<&PaletteList::element, "-> Element | None">>()
            .method<"palette_containing_colour",
                    Form<&PaletteList::paletteContainingColour, "colour: object -> Palette | None">>()
            .method<"create",
                    Form<&PaletteList::create, "type, name, overwrite=False, index=4294967295, path='' -> Palette">>()
            .method<"clone", Form<&PaletteList::clone, "palette: Palette, name='' -> Palette">>()
            .method<"duplicate", Form<&PaletteList::duplicate, "palette: Palette, name='' -> Palette">>()
            .method<"remove", Form<&PaletteList::remove, "palette: Palette | int | str">>()
            .method<"reorder", Form<&PaletteList::reorder, "palette: Palette | int | str, index">>()
            .method<"move_palette_up", Form<&PaletteList::movePaletteUp, "palette: Palette">>()
            .method<"move_palette_down", Form<&PaletteList::movePaletteDown, "palette: Palette">>()
            .method<"clear", Form<&PaletteList::clear>>(),
        Class<PaletteListList>()
            .items("PaletteList")
            .staticMethod<"get_location_type_from_string",
                          StaticForm<&PaletteListList::getLocationTypeFromString, "text">>()
            .staticMethod<"get_string_from_location_type",
                          StaticForm<&PaletteListList::getStringFromLocationType, "type">>()
            .method<"contains", Form<&PaletteListList::contains, "palettes: BaseObject | None">>()
            .method<"project_palettes", Form<&PaletteListList::projectPalettes, "-> PaletteList">>()
            .method<"element_palette_list",
                    Form<&PaletteListList::elementPaletteList, "element: object -> PaletteList | None">>()
            .method<"find_folder", Form<&PaletteListList::findFolder, "place: object">>()
            .method<"find_palette", Form<&PaletteListList::findPalette, "place: object, name -> Palette | None">>()
            .method<"find_texture", Form<&PaletteListList::findTexture, "place: object, name -> Palette | None">>()
            .method<"list_palettes", Form<&PaletteListList::listPalettes, "place: object -> list[Palette]">>(),
    };
});

} // namespace

} // namespace brindle::python
