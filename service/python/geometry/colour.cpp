#include "core/geometry/colour.h"

#include "service/python/statereader.h"
#include "service/python/tables.h"
#include "service/python/valueprotocol.h"

#include <array>

namespace brindle::python {

namespace {

OMC::Colour* newColour(double r, double g, double b, double a)
{
    return new OMC::Colour(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), static_cast<float>(a));
}

QVariantList channelsOf(const OMC::Colour& colour)
{
    return {int(colour.getR()), int(colour.getG()), int(colour.getB()), int(colour.getA())};
}

OMC::Colour* colourOf(const QVariantList& state)
{
    StateReader reader(state);
    std::array<float, 4> channels;
    for (float& channel : channels) {
        const int number = reader.take<int>();
        if (number < 0 || number > 255)
            StateReader::refuse();
        channel = static_cast<float>(number);
    }
    reader.finish();
    return new OMC::Colour(channels[0], channels[1], channels[2], channels[3]);
}

QList<QVariant> readChannels(const QVariant& value, int r, int g, int b, int a)
{
    OMC::Colour::QVariantToRGBAInt(value, r, g, b, a);
    return {r, g, b, a};
}

std::string textOf(const OMC::Colour& colour, const std::string& type)
{
    std::string text;
    for (const QVariant& channel : channelsOf(colour))
        text += (text.empty() ? "" : ", ") + channel.toString().toStdString();
    return shortName(type) + "(" + text + ")";
}

} // namespace

std::vector<ClassTable> colourTables()
{
    using namespace OMC;
    return {
        Class<Colour>("Colour",
                      "A colour of four bytes. A value is another colour, a node, or a list of red, green, blue "
                      "and alpha; any text gives 0, 0, 0, 0 and a single number opaque black.")
            .constructors<Construct<&newOf<Colour, QVariant>, "value">, Construct<&newColour, "r=0, g=0, b=0, a=255">>()
            .value<&channelsOf, &colourOf, &textOf>()
            .property("r", "Red, 0 to 255; beyond that the low 8 bits count.")
            .property("g", "Green, 0 to 255; beyond that the low 8 bits count.")
            .property("b", "Blue, 0 to 255; beyond that the low 8 bits count.")
            .property("a", "Alpha, 0 to 255; beyond that the low 8 bits count. 255 is opaque.")
            .property("h", "The hue in degrees, from 0; it takes any number of turns.")
            .property("l", "The lightness, held in 0 to 100.")
            .property("s", "The saturation, held in 0 to 100.")
            .property("hex", "\"#\" and eight digits, alpha first; it takes any name and form that Qt knows.")
            .staticMethod<"from_hsl", StaticForm<&Colour::fromHSL, "h, s, l, a">>(
                "A new colour of a hue in degrees, and of saturation, lightness and alpha from 0 to 100.")
            .staticMethod<"qvariant_to_rgba_int", StaticForm<&readChannels, "value, r=0, g=0, b=0, a=0">>(
                "[red, green, blue, alpha] of what Colour(value) takes; what a list doesn't tell is as given."),
    };
}

} // namespace brindle::python
