#include "core/geometry/colour.h"

#include "core/frame/finite.h"
#include "core/frame/valuetypes.h"
#include "core/host/celalgo.h"
#include "core/host/cm_rgba.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"

#include <QColor>
#include <QRegExp>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace OMC {

namespace {

[[maybe_unused]] const bool registered = registerValueTypes<Colour>();

constexpr double fullByte = 255.0;
constexpr double fullPercent = 100.0;

struct Channels {
    int& r;
    int& g;
    int& b;
    int& a;
};

void take(const Channels& channels, const QColor& colour)
{
    channels.r = colour.red();
    channels.g = colour.green();
    channels.b = colour.blue();
    channels.a = colour.alpha();
}

/// The low 8 bits of a number without its fraction, which may be larger than any integer type; 0 for what has none.
int lowByte(double number)
{
    return std::isfinite(number) ? static_cast<int>(std::fmod(std::trunc(number), 256.0)) & 0xff : 0;
}

/// The number plus a half without its fraction, held within 0 to 255.
int roundedByte(double number)
{
    return static_cast<int>(std::clamp(std::trunc(number + 0.5), 0.0, fullByte));
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

/// QVariant::toInt, where a number beyond 64 bits is none.
int integerOf(const QVariant& value, bool* ok = nullptr)
{
    constexpr double limit = 9223372036854775808.0;
    const bool isReal = value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
    if (isReal && !(std::abs(value.toDouble()) < limit)) {
        if (ok)
            *ok = false;
        return 0;
    }
    return value.toInt(ok);
}

void readList(const QVariantList& list, const Channels& channels)
{
    if (list.size() < 3)
        return;
    channels.r = integerOf(list[0]);
    channels.g = integerOf(list[1]);
    channels.b = integerOf(list[2]);
    if (list.size() > 3)
        channels.a = integerOf(list[3]);
}

void readNumber(const QVariant& value, const Channels& channels)
{
    bool isNumber = false;
    const int number = integerOf(value, &isNumber);
    if (!isNumber)
        throw Exception(Colour::tr("Unsupported colour type."));
    // Digits without a prefix, which no colour is named by, so that every number is opaque black: required.
    std::ostringstream digits;
    digits << std::hex << number;
    QColor colour;
    colour.setNamedColor(QString::fromStdString(digits.str()));
    take(channels, colour);
}

// --- Texts ----------------------------------------------------------------------------------------------------------

void readRgba(const QStringList& captured, const Channels& channels)
{
    channels.r = captured.value(0).toInt();
    channels.g = captured.value(1).toInt();
    channels.b = captured.value(2).toInt();
    channels.a = captured.value(3).toInt();
}

void readRgb(const QStringList& captured, const Channels& channels)
{
    readRgba(captured.mid(0, 3), channels);
    channels.a = 255;
}

void readHsl(const QStringList& captured, const Channels& channels)
{
    double r = 0.0;
    double g = 0.0;
    double b = 0.0;
    CelAlgo::hslToRgb(captured.value(0).toInt(), captured.value(1).toInt(), captured.value(2).toInt(), r, g, b);
    channels.r = roundedByte(r);
    channels.g = roundedByte(g);
    channels.b = roundedByte(b);
    channels.a = 255;
}

void readHsla(const QStringList& captured, const Channels& channels)
{
    readHsl(captured, channels);
    channels.a = roundedByte(captured.value(3).toDouble() / fullPercent * fullByte);
}

struct TextStage {
    QRegExp* pattern;
    void (*read)(const QStringList& captured, const Channels& channels);
};

/// Reads a text in stages: the first whose pattern does not match at the start takes it, with what that match captured.
///
/// Each pattern begins with "^", so the test tells 0 for a match and -1 for none, and a stage is entered on -1 with
/// nothing captured. A text that isn't four numbers ends at the first stage; four numbers would go on to the third. So
/// every text is 0, 0, 0, 0. Required as it is, with the second stage testing the first one's pattern; QRegExp doesn't
/// know the lazy "+?" and matches none of the four.
void readText(const QString& text, const Channels& channels)
{
    static QRegExp rgba(QStringLiteral("^(\\d+?)\\,(\\d+?),(\\d+?),(\\d+?)$"), Qt::CaseInsensitive, QRegExp::RegExp);
    [[maybe_unused]] static QRegExp rgb(QStringLiteral("^(\\d+?),(\\d+?),(\\d+?)$"), Qt::CaseInsensitive,
                                        QRegExp::RegExp);
    static QRegExp hsla(QStringLiteral("^HSLA\\((\\d+?),(\\d+?),(\\d+?),(\\d+?)\\)$"), Qt::CaseInsensitive,
                        QRegExp::RegExp);
    static QRegExp hsl(QStringLiteral("^HSL\\((\\d+?),(\\d+?),(\\d+?)\\)$"), Qt::CaseInsensitive, QRegExp::RegExp);
    const TextStage stages[] = {{&rgba, &readRgba}, {&rgba, &readRgb}, {&hsla, &readHsla}, {&hsl, &readHsl}};
    for (const TextStage& stage : stages) {
        if (stage.pattern->indexIn(text) != 0) {
            stage.read(stage.pattern->capturedTexts(), channels);
            return;
        }
    }
    QColor named;
    named.setNamedColor(text);
    take(channels, named);
}

} // namespace

// --- Colour ---------------------------------------------------------------------------------------------------------

/// Hue in degrees, saturation and lightness on the scale 0 to 1.
struct Colour::Hsl {
    double h = 0.0;
    double s = 0.0;
    double l = 0.0;
};

Colour::Colour(float r, float g, float b, float a)
    : m_rgba(std::make_unique<CM_Rgba>(lowByte(r), lowByte(g), lowByte(b), lowByte(a)))
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

BaseObject* Colour::copy() const
{
    return new Colour(*this);
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

void Colour::QVariantToRGBAInt(const QVariant& value, int& r, int& g, int& b, int& a)
{
    const Channels channels = {r, g, b, a};
    if (const QObject* object = QVariantToPointer(value)) {
        if (const auto* colour = dynamic_cast<const Colour*>(object)) {
            const CM_Rgba& rgba = *colour->getRgba();
            r = rgba.red();
            g = rgba.green();
            b = rgba.blue();
            a = rgba.alpha();
            return;
        }
        if (const auto* wrapper = dynamic_cast<const Node*>(object)) {
            if (const MO_Node* node = wrapper->getNode()) {
                validateThreadLock();
                take(channels, node->getNodeColor());
                return;
            }
        }
        throw Exception(tr("Unsupported colour type."));
    }
    switch (value.typeId()) {
    case QMetaType::QVariantList:
    case QMetaType::QByteArray:
        readList(value.toList(), channels);
        break;
    case QMetaType::QString:
        readText(value.toString(), channels);
        break;
    case QMetaType::QColor:
        take(channels, value.value<QColor>());
        break;
    default:
        readNumber(value, channels);
        break;
    }
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
    getRgba()->setRed(lowByte(r));
}

float Colour::getG() const
{
    return getRgba()->green();
}

void Colour::setG(float g)
{
    getRgba()->setGreen(lowByte(g));
}

float Colour::getB() const
{
    return getRgba()->blue();
}

void Colour::setB(float b)
{
    getRgba()->setBlue(lowByte(b));
}

float Colour::getA() const
{
    return getRgba()->alpha();
}

void Colour::setA(float a)
{
    getRgba()->setAlpha(lowByte(a));
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
