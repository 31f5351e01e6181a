#include "core/geometry/colour.h"

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

/// The number plus a half without its fraction, held within 0 to 255.
int roundedByte(double number)
{
    return static_cast<int>(std::clamp(std::trunc(number + 0.5), 0.0, 255.0));
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
    // Required: a script sees opaque black for every number. No colour has a name of digits without a prefix.
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
    channels.a = roundedByte(captured.value(3).toDouble() / 100.0 * 255.0);
}

struct TextStage {
    QRegExp* pattern;
    void (*read)(const QStringList& captured, const Channels& channels);
};

/// Reads a text in stages: the first whose pattern does not match at the start takes it, with what that match captured.
///
/// Each pattern begins with "^", so the test tells 0 for a match and -1 for none, and a stage is entered on -1 with
/// nothing captured. A text that isn't four numbers ends at the first stage; four numbers would go on to the third.
///
/// Required: a script sees 0, 0, 0, 0 for every text. The second stage tests the first one's pattern, and QRegExp
/// doesn't know the lazy "+?", so none of the four matches.
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

} // namespace OMC
