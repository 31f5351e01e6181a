#include "core/geometry/colour.h"

#include "core/frame/finite.h"
#include "core/frame/valuetypes.h"
#include "core/host/celalgo.h"
#include "core/host/cm_rgba.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace OMC {

namespace {

[[maybe_unused]] const bool colourRegistered = registerValueTypes<Colour>();

constexpr double fullByte = 255.0;
constexpr double fullPercent = 100.0;

/// The low 8 bits of a finite number without its fraction, which may be larger than any integer type.
int lowByte(double number)
{
    return static_cast<int>(std::fmod(std::trunc(number), 256.0)) & 0xff;
}

/// The byte that a channel's argument tells, by its place. Throws for one that isn't finite.
int channelByte(float channel, unsigned int argument)
{
    requireFinite(channel, argument);
    return lowByte(channel);
}

/// Refuses what is no number, by the argument's place. An infinite one is held in its range like any other.
void requireNumber(double value, unsigned int argument)
{
    if (std::isnan(value))
        BaseObject::throwInvalidArgument(argument);
}

double fromPercent(double percent)
{
    return std::clamp(percent, 0.0, fullPercent) / fullPercent;
}

} // namespace

/// Hue in degrees, saturation and lightness on the scale 0 to 1.
struct Colour::Hsl {
    double h = 0.0;
    double s = 0.0;
    double l = 0.0;
};

Colour::Colour(float r, float g, float b, float a)
    // Braces evaluate from left to right, so the error names the first argument that doesn't fit.
    : m_rgba(std::make_unique<CM_Rgba>(
          CM_Rgba{channelByte(r, 0), channelByte(g, 1), channelByte(b, 2), channelByte(a, 3)}))
{}

Colour::Colour(const QVariant& value) : m_rgba(std::make_unique<CM_Rgba>(0, 0, 0, 0))
{
    int r = 0;
    int g = 0;
    int b = 0;
    int a = 0;
    QVariantToRGBAInt(value, r, g, b, a);
    *m_rgba = CM_Rgba(r, g, b, a);
}

Colour::Colour(const Colour& other) : BaseObject(other), m_rgba(std::make_unique<CM_Rgba>(*other.getRgba())) {}

Colour::~Colour() = default;

Colour& Colour::operator=(const Colour& other)
{
    *getRgba() = *other.getRgba();
    return *this;
}

std::string Colour::__str__() const
{
    const CM_Rgba& rgba = *getRgba();
    return tr("Colour(%1,%2,%3,%4)")
        .arg(QString::number(rgba.red()), QString::number(rgba.green()), QString::number(rgba.blue()),
             QString::number(rgba.alpha()))
        .toStdString();
}

bool Colour::operator==(const Colour& other) const
{
    return *getRgba() == *other.getRgba();
}

Obj Colour::fromHSL(double h, double s, double l, double a)
{
    requireFinite(h, 0);
    requireNumber(s, 1);
    requireNumber(l, 2);
    requireFinite(a, 3);
    double r = 0.0;
    double g = 0.0;
    double b = 0.0;
    CelAlgo::hslToRgb(std::fmod(h, 360.0), fromPercent(s), fromPercent(l), r, g, b);
    const auto byte = [](double channel) { return static_cast<float>(channel * fullByte); };
    return Obj(new Colour(byte(r), byte(g), byte(b), byte(a / fullPercent)));
}

float Colour::getR() const
{
    return getRgba()->red();
}

void Colour::setR(float r)
{
    getRgba()->setRed(channelByte(r, 0));
}

float Colour::getG() const
{
    return getRgba()->green();
}

void Colour::setG(float g)
{
    getRgba()->setGreen(channelByte(g, 0));
}

float Colour::getB() const
{
    return getRgba()->blue();
}

void Colour::setB(float b)
{
    getRgba()->setBlue(channelByte(b, 0));
}

float Colour::getA() const
{
    return getRgba()->alpha();
}

void Colour::setA(float a)
{
    getRgba()->setAlpha(channelByte(a, 0));
}

double Colour::getH() const
{
    return hsl().h;
}

void Colour::setH(double h)
{
    requireFinite(h, 0);
    Hsl hsl = this->hsl();
    hsl.h = std::fmod(h, 360.0);
    setHsl(hsl);
}

double Colour::getL() const
{
    return hsl().l * fullPercent;
}

void Colour::setL(double l)
{
    requireNumber(l, 0);
    Hsl hsl = this->hsl();
    hsl.l = fromPercent(l);
    setHsl(hsl);
}

double Colour::getS() const
{
    return hsl().s * fullPercent;
}

void Colour::setS(double s)
{
    requireNumber(s, 0);
    Hsl hsl = this->hsl();
    hsl.s = fromPercent(s);
    setHsl(hsl);
}

QString Colour::getHex() const
{
    const CM_Rgba& rgba = *getRgba();
    return QColor(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha()).name(QColor::HexArgb);
}

void Colour::setHex(const QString& hex)
{
    const QColor colour(hex);
    if (!colour.isValid())
        throw Exception(tr("Unable to convert from hexadecimal colour value"));
    *getRgba() = CM_Rgba(colour.red(), colour.green(), colour.blue(), colour.alpha());
}

CM_Rgba* Colour::getRgba() const
{
    if (!m_rgba)
        throw Exception(tr("Unable to get colour rgba."));
    return m_rgba.get();
}

Colour::Hsl Colour::hsl() const
{
    const CM_Rgba& rgba = *getRgba();
    Hsl hsl;
    CelAlgo::rgbToHsl(rgba.red() / fullByte, rgba.green() / fullByte, rgba.blue() / fullByte, hsl.h, hsl.s, hsl.l);
    return hsl;
}

void Colour::setHsl(const Hsl& hsl)
{
    double r = 0.0;
    double g = 0.0;
    double b = 0.0;
    CelAlgo::hslToRgb(hsl.h, hsl.s, hsl.l, r, g, b);
    CM_Rgba& rgba = *getRgba();
    rgba = CM_Rgba(lowByte(r * fullByte), lowByte(g * fullByte), lowByte(b * fullByte), rgba.alpha());
}

} // namespace OMC
