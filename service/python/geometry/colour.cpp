#include "core/geometry/colour.h"

#include "service/python/family.h"
#include "service/python/statereader.h"
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

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Colour>()
            .alias("ColourLike", "Colour | Node | Sequence[float] | str | float",
                   "A colour: another one, a node's, or red, green, blue and alpha.")
            .constructors<Construct<&newOf<Colour, QVariant>, "value: ColourLike">,
                          Construct<&newColour, "r=0, g=0, b=0, a=255">>()
            .value<&channelsOf, &colourOf, &textOf>()
            .staticMethod<"from_hsl", StaticForm<&Colour::fromHSL, "h, s, l, a -> Colour">>()
            .staticMethod<"qvariant_to_rgba_int",
                          StaticForm<&readChannels, "value: ColourLike, r=0, g=0, b=0, a=0 -> list[int]">>(),
    };
});

} // namespace

} // namespace brindle::python
