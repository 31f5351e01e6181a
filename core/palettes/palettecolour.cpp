#include "core/palettes/palettecolour.h"

#include "core/nodes/node.h"
#include "core/palettes/palettecolourcommand.h"
#include "core/palettes/paletteedit.h"
#include "core/palettes/palettegradientposition.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace OMC {

namespace {

constexpr double wholeWay = PaletteGradientPosition::wholeWay;
constexpr double samePlace = std::numeric_limits<double>::epsilon();
constexpr int mostMarkers = 8;

/// The value of a place that nothing has set.
constexpr double noPlace = -1.0;

struct TypeName {
    const char* written;
    const char* alsoRead;
};

/// By CM_Color::Type.
constexpr TypeName colourTypes[] = {
    {"solid_colour", "solid"}, {"linear_gradient", "linear"}, {"radial_gradient", "radial"}};

Obj gradientPosition(const CM_GradientData& marker)
{
    return Obj(new PaletteGradientPosition(marker));
}

bool isAt(const CM_GradientData& marker, double position)
{
    return std::abs(marker.position - position) < samePlace;
}

/// The bytes of a solid colour; one without markers is drawn in opaque black.
CM_Rgba rgbaOf(const CM_Color& colour)
{
    return colour.Size() > 0 ? colour.GetColorMarker(0).rgba : CM_Rgba(0, 0, 0, 255);
}

CM_Rgba rgbaOf(const Colour& colour)
{
    return CM_Rgba(static_cast<int>(colour.getR()), static_cast<int>(colour.getG()), static_cast<int>(colour.getB()),
                   static_cast<int>(colour.getA()));
}

/// The place in percent that an argument tells, or none. A text that is no number is 0.
double placeIn(const QVariant& position)
{
    if (position.isNull() || !position.canConvert<double>())
        return noPlace;
    const double place = static_cast<double>(position.toFloat());
    if (std::isnan(place))
        BaseObject::throwInvalidArgument(1);
    return std::clamp(place, 0.0, wholeWay);
}

} // namespace

PaletteColour::PaletteColour(std::shared_ptr<CM_BaseColorObj> colour, const UT_Id& palette, SC_ProjectCommon* project)
    : CountedList(std::move(colour), palette, project)
{}

std::string PaletteColour::__str__() const
{
    const auto colour = colorData();
    return tr("PaletteColour(%1) [%2]")
        .arg(getStringFromColourType(colour->GetColorType()), QString::number(colour->Size()))
        .toStdString();
}

void PaletteColour::setName(const QString& name)
{
    validate();
    const QString used = name.isEmpty() ? QStringLiteral("Default") : name;
    edit(tr("Set Colour Name"), [&](CM_Color& colour) { colour.Rename(used); });
}

// --- The single colour ----------------------------------------------------------------------------------------------

float PaletteColour::getR() const
{
    return single().getR();
}

void PaletteColour::setR(float r)
{
    setChannel(&Colour::setR, r);
}

float PaletteColour::getG() const
{
    return single().getG();
}

void PaletteColour::setG(float g)
{
    setChannel(&Colour::setG, g);
}

float PaletteColour::getB() const
{
    return single().getB();
}

void PaletteColour::setB(float b)
{
    setChannel(&Colour::setB, b);
}

float PaletteColour::getA() const
{
    return single().getA();
}

void PaletteColour::setA(float a)
{
    setChannel(&Colour::setA, a);
}

double PaletteColour::getH() const
{
    return single().getH();
}

void PaletteColour::setH(double h)
{
    setChannel(&Colour::setH, h);
}

double PaletteColour::getL() const
{
    return single().getL();
}

void PaletteColour::setL(double l)
{
    setChannel(&Colour::setL, l);
}

double PaletteColour::getS() const
{
    return single().getS();
}

void PaletteColour::setS(double s)
{
    setChannel(&Colour::setS, s);
}

QString PaletteColour::getHex() const
{
    return single().getHex();
}

void PaletteColour::setHex(const QString& hex)
{
    setChannel<const QString&>(&Colour::setHex, hex);
}

QVariant PaletteColour::getColour() const
{
    return toVariant(new Colour(single()));
}

void PaletteColour::setColour(const QVariant& value)
{
    validateSingleColour();
    if (!value.isValid() || (QVariantToPointer(value) && !objectFrom<Colour>(value) && !objectFrom<Node>(value)))
        throw Exception(tr("Invalid argument type."));
    setSingle(PaletteGradientPosition(value).rgba(), tr("Set Colour Property"));
}

Colour PaletteColour::single() const
{
    validateSingleColour();
    const CM_Rgba rgba = rgbaOf(*colorData());
    return Colour(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
}

template <typename Value>
void PaletteColour::setChannel(void (Colour::*set)(Value), Value value)
{
    Colour colour = single();
    (colour.*set)(value);
    setSingle(rgbaOf(colour), tr("Set Colour Value"));
}

void PaletteColour::setSingle(const CM_Rgba& rgba, const QString& label)
{
    edit(label, [&rgba](CM_Color& colour) {
        CM_GradientDataCol markers = colour.gradientDataCol();
        if (markers.empty())
            markers.emplace_back();
        markers.front().rgba = rgba;
        colour.setGradientDataCol(markers);
    });
}

void PaletteColour::validateSingleColour() const
{
    if (colorData()->GetColorType() != CM_Color::kSolid)
        throw Exception(tr("Unable to get/set this property on an object which is not a solid color."));
}

// --- The type -------------------------------------------------------------------------------------------------------

QString PaletteColour::getType() const
{
    return getStringFromColourType(colorData()->GetColorType());
}

void PaletteColour::setType(const QString& type)
{
    validate();
    const int number = getColourTypeFromString(type);
    if (number < 0)
        throw Exception(tr("Unknown type given."));
    edit(tr("Set Colour Value"),
         [number](CM_Color& colour) { colour.ChangeColorType(static_cast<CM_Color::Type>(number)); });
}

int PaletteColour::getColourTypeFromString(const QString& text)
{
    for (int type = 0; type < static_cast<int>(std::size(colourTypes)); ++type) {
        if (text.compare(QLatin1String(colourTypes[type].written), Qt::CaseInsensitive) == 0 ||
            text.compare(QLatin1String(colourTypes[type].alsoRead), Qt::CaseInsensitive) == 0)
            return type;
    }
    return -1;
}

QString PaletteColour::getStringFromColourType(int type)
{
    const bool isKnown = type >= 0 && type < static_cast<int>(std::size(colourTypes));
    return isKnown ? QString::fromLatin1(colourTypes[type].written) : QString();
}

// --- The gradient ---------------------------------------------------------------------------------------------------

std::size_t PaletteColour::size() const
{
    return static_cast<std::size_t>(colorData()->Size());
}

Obj PaletteColour::get(int index) const
{
    const auto colour = colorData();
    return gradientPosition(colour->gradientDataCol()[markerIndex(*colour, index)]);
}

Obj PaletteColour::get(const QString& index) const
{
    validate();
    bool isNumber = false;
    const int number = index.toInt(&isNumber, 10);
    return isNumber ? get(number) : Obj();
}

std::vector<Obj> PaletteColour::list() const
{
    const auto colour = colorData();
    std::vector<Obj> colours;
    colours.reserve(static_cast<std::size_t>(colour->Size()));
    for (const CM_GradientData& marker : colour->gradientDataCol())
        colours.push_back(gradientPosition(marker));
    return colours;
}

void PaletteColour::set(int index, const Obj& object)
{
    const std::size_t place = markerIndex(*colorData(), index);
    const auto* given = objectIn<PaletteGradientPosition>(object);
    if (!given)
        throw Exception(tr("Invalid argument type."));
    const CM_GradientData marker = given->marker();
    edit(tr("Set Colour"), [&](CM_Color& colour) {
        CM_GradientDataCol markers = colour.gradientDataCol();
        markers[place] = marker;
        colour.setGradientDataCol(markers);
    });
}

bool PaletteColour::contains(const QVariant& value) const
{
    const auto colour = colorData();
    if (value.isNull() || (QVariantToPointer(value) && !objectFrom<PaletteGradientPosition>(value)))
        return false;
    const CM_GradientData wanted = PaletteGradientPosition(value).marker();
    const CM_GradientDataCol& markers = colour->gradientDataCol();
    return std::any_of(markers.begin(), markers.end(), [&wanted](const CM_GradientData& marker) {
        return isAt(marker, wanted.position) && marker.rgba == wanted.rgba;
    });
}

Obj PaletteColour::add(const QVariant& value, const QVariant& position)
{
    const auto colour = colorData();
    if (colour->GetColorType() == CM_Color::kSolid)
        throw Exception(tr("Unable to add colours to a solid color type."));
    double place = placeIn(position);
    const PaletteGradientPosition given(value);
    if (place < 0)
        place = given.percent();
    const CM_GradientData added{place / wholeWay, given.rgba()};
    if (colour->Size() >= mostMarkers)
        throw Exception(tr("Unable to create colour, object is at maximum capacity"));
    const CM_GradientDataCol& markers = colour->gradientDataCol();
    if (std::any_of(markers.begin(), markers.end(),
                    [&added](const CM_GradientData& marker) { return isAt(marker, added.position); }))
        throw Exception(tr("A color already exists at the given percentage."));
    int index = 0;
    edit(tr("Add Colour"), [&](CM_Color& changed) { index = changed.AddColorMarker(added); });
    return gradientPosition(colorData()->GetColorMarker(index));
}

Obj PaletteColour::pop(int index)
{
    const auto colour = colorData();
    const auto place = static_cast<int>(markerIndex(*colour, index));
    const CM_GradientData removed = colour->GetColorMarker(place);
    edit(tr("Pop Colour"), [place](CM_Color& changed) { changed.RemoveColorMarker(place); });
    return gradientPosition(removed);
}

void PaletteColour::remove(const QVariant& value)
{
    const auto colour = colorData();
    const bool withPlace = objectFrom<PaletteGradientPosition>(value);
    const CM_GradientData wanted = PaletteGradientPosition(value).marker();
    const CM_GradientDataCol& markers = colour->gradientDataCol();
    const auto found = std::find_if(markers.begin(), markers.end(), [&](const CM_GradientData& marker) {
        return marker.rgba == wanted.rgba && (!withPlace || isAt(marker, wanted.position));
    });
    if (found == markers.end())
        throw Exception(tr("Unable to find colour to remove."));
    const auto place = static_cast<int>(found - markers.begin());
    edit(tr("Remove Colour"), [place](CM_Color& changed) { changed.RemoveColorMarker(place); });
}

void PaletteColour::clear()
{
    validate();
    edit(tr("Clear Colours"), [](CM_Color& colour) { colour.setGradientDataCol({}); });
}

Obj PaletteColour::interpolate(float position) const
{
    const auto colour = colorData();
    if (std::isnan(position))
        throwInvalidArgument(0);
    const double place = std::clamp(static_cast<double>(position) / wholeWay, 0.0, 1.0);
    return gradientPosition({place, colour->GetGradientColor(place)});
}

std::size_t PaletteColour::markerIndex(const CM_Color& colour, int index) const
{
    const int count = colour.Size();
    const int place = index < 0 ? index + count : index;
    if (place < 0 || place >= count)
        throwIndexOutOfRange();
    return static_cast<std::size_t>(place);
}

/// Changes a clone, whose state the command then gives to the colour.
template <typename Change>
void PaletteColour::edit(const QString& label, const Change& change)
{
    const auto colour = colorData();
    const auto palette = parentPalette();
    paletteedit::requireFree(palette);
    const ColourPlace place{palette->GetID(), colour->GetID()};
    auto before = CM_CastToColor(colour->Clone(false));
    auto after = CM_CastToColor(colour->Clone(false));
    change(*after);
    run(std::make_unique<OMC_PaletteColour_EditColorCommand>(place, std::move(before), std::move(after)), label);
}

} // namespace OMC
