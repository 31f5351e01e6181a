#include "core/geometry/colour.h"

#include "core/geometry/point2d.h"
#include "core/host/cm_rgba.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/standinnode.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QColor>
#include <QStringList>
#include <QVariantMap>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using OMC::Colour;
using OMC::Obj;

constexpr float floatNan = std::numeric_limits<float>::quiet_NaN();
constexpr float floatInfinity = std::numeric_limits<float>::infinity();
const std::string unsupportedColour = "Unsupported colour type.";

std::string textOf(const QVariant& value)
{
    return Colour(value).__str__();
}

std::string textOf(const Obj& handle)
{
    return handle.get()->__str__();
}

// --- The value ------------------------------------------------------------------------------------------------------

TEST(ColourTest, ItIsOpaqueBlackUnlessItIsTold)
{
    EXPECT_EQ(Colour().__str__(), "Colour(0,0,0,255)");
    EXPECT_EQ(Colour(1.0F, 2.0F, 3.0F).__str__(), "Colour(1,2,3,255)");
    EXPECT_EQ(Colour(1.9F, 2.9F, 3.9F, 4.9F).__str__(), "Colour(1,2,3,4)");
}

TEST(ColourTest, ColoursAreEqualWhenAllFourBytesAre)
{
    EXPECT_TRUE(Colour(1, 2, 3, 4) == Colour(1, 2, 3, 4));
    EXPECT_FALSE(Colour(1, 2, 3, 4) == Colour(9, 2, 3, 4));
    EXPECT_FALSE(Colour(1, 2, 3, 4) == Colour(1, 9, 3, 4));
    EXPECT_FALSE(Colour(1, 2, 3, 4) == Colour(1, 2, 9, 4));
    EXPECT_FALSE(Colour(1, 2, 3, 4) == Colour(1, 2, 3, 9));
}

TEST(ColourTest, ACopyIsAColourOfItsOwn)
{
    Colour colour(1, 2, 3, 4);
    const std::unique_ptr<OMC::BaseObject> copy(colour.copy());
    Colour assigned;
    assigned = colour;
    colour.setR(9);
    EXPECT_EQ(copy->__str__(), "Colour(1,2,3,4)");
    EXPECT_EQ(assigned.__str__(), "Colour(1,2,3,4)");
}

TEST(ColourTest, ItTravelsInsideAVariantByValue)
{
    const QVariant value = QVariant::fromValue(Colour(1, 2, 3, 4));
    ASSERT_NE(OMC::objectFrom<Colour>(value), nullptr);
    EXPECT_EQ(*OMC::objectFrom<Colour>(value), Colour(1, 2, 3, 4));
}

TEST(ColourTest, ItsPropertiesComeInTheirOrder)
{
    bool native = false;
    bool filter = false;
    const std::vector<std::string> expected = {"objectName", "r", "g", "b", "a", "h", "l", "s", "hex"};
    EXPECT_EQ(Colour().getDir(native, filter), expected);
}

class ReachableColour : public Colour {
public:
    using Colour::Colour;
    using Colour::getRgba;
};

TEST(ColourTest, DerivedClassesReachTheBytes)
{
    const ReachableColour colour(1, 2, 3, 4);
    EXPECT_EQ(*colour.getRgba(), CM_Rgba(1, 2, 3, 4));
}

// --- Channels -------------------------------------------------------------------------------------------------------

TEST(ColourChannelTest, AChannelIsTheLowByteOfTheNumberWithoutItsFraction)
{
    const struct {
        float written;
        float read;
    } rows[] = {
        {0.0F, 0.0F},    {255.0F, 255.0F}, {254.9F, 254.0F}, {256.0F, 0.0F},  {300.0F, 44.0F},
        {-1.0F, 255.0F}, {-0.9F, 0.0F},    {-255.0F, 1.0F},  {-256.0F, 0.0F}, {65537.0F, 1.0F},
        {3e9F, 0.0F},    {1e30F, 0.0F},    {-3e38F, 0.0F},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.written);
        Colour colour(1, 2, 3, 4);
        colour.setR(row.written);
        EXPECT_EQ(colour.getR(), row.read);
        colour.setG(row.written);
        EXPECT_EQ(colour.getG(), row.read);
        colour.setB(row.written);
        EXPECT_EQ(colour.getB(), row.read);
        colour.setA(row.written);
        EXPECT_EQ(colour.getA(), row.read);
        EXPECT_EQ(Colour(row.written, row.written, row.written, row.written), colour);
    }
}

TEST(ColourChannelTest, AChannelRefusesWhatIsNotFiniteAndChangesNothing)
{
    for (const float bad : {floatNan, floatInfinity, -floatInfinity}) {
        SCOPED_TRACE(bad);
        Colour colour(1, 2, 3, 4);
        for (const auto set : {&Colour::setR, &Colour::setG, &Colour::setB, &Colour::setA})
            EXPECT_EQ(failureOf([&] { (colour.*set)(bad); }), "Invalid argument at index 0.");
        EXPECT_EQ(colour, Colour(1, 2, 3, 4));
        EXPECT_EQ(failureOf([&] { Colour(bad, 2, 3, 4); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { Colour(bad, bad, bad, bad); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { Colour(1, bad, 3, 4); }), "Invalid argument at index 1.");
        EXPECT_EQ(failureOf([&] { Colour(1, 2, bad, 4); }), "Invalid argument at index 2.");
        EXPECT_EQ(failureOf([&] { Colour(1, 2, 3, bad); }), "Invalid argument at index 3.");
    }
}

TEST(ColourChannelTest, AChannelChangesNoOther)
{
    Colour colour(1, 2, 3, 4);
    colour.setR(5);
    EXPECT_EQ(colour, Colour(5, 2, 3, 4));
    colour.setG(6);
    EXPECT_EQ(colour, Colour(5, 6, 3, 4));
    colour.setB(7);
    EXPECT_EQ(colour, Colour(5, 6, 7, 4));
    colour.setA(8);
    EXPECT_EQ(colour, Colour(5, 6, 7, 8));
}

// --- Reading an argument --------------------------------------------------------------------------------------------

TEST(ColourReaderTest, ReadsWhatTellsAColour)
{
    const struct {
        const char* name;
        QVariant value;
        const char* expected;
    } rows[] = {
        {"a colour", QVariant::fromValue(Colour(1, 2, 3, 4)), "Colour(1,2,3,4)"},
        {"a colour in a handle", OMC::toVariant(Obj(new Colour(1, 2, 3, 4))), "Colour(1,2,3,4)"},
        {"a QColor", QColor(1, 2, 3, 4), "Colour(1,2,3,4)"},
        {"a QColor told by its hue", QColor::fromHsl(0, 255, 128), "Colour(255,1,1,255)"},
        {"an invalid QColor", QColor(), "Colour(0,0,0,255)"},
        {"three numbers", QVariantList{255, 128, 0}, "Colour(255,128,0,0)"},
        {"four numbers", QVariantList{1, 2, 3, 4}, "Colour(1,2,3,4)"},
        {"five items", QVariantList{1, 2, 3, 4, QStringLiteral("a")}, "Colour(1,2,3,4)"},
        {"two numbers", QVariantList{1, 2}, "Colour(0,0,0,0)"},
        {"an empty list", QVariantList(), "Colour(0,0,0,0)"},
        {"numbers beyond a byte", QVariantList{256, -1, 511}, "Colour(0,255,255,0)"},
        {"fractions, which are rounded", QVariantList{1.4, 1.6, -0.4}, "Colour(1,2,0,0)"},
        {"texts that are numbers", QVariantList{QStringLiteral("7"), 8, 9}, "Colour(7,8,9,0)"},
        {"what is no number", QVariantList{QStringLiteral("a"), QVariant(), QVariantList{1}, QVariantMap()},
         "Colour(0,0,0,0)"},
        {"numbers beyond all integers", QVariantList{1e300, nan, infinity, -1e19}, "Colour(0,0,0,0)"},
        {"bytes", QByteArray("\x01\x02\x03"), "Colour(1,2,3,0)"},
        {"four bytes", QByteArray("\x01\x02\x03\x04"), "Colour(1,2,3,4)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textOf(row.value), row.expected);
    }
}

using ColourOfNodeTest = ProjectTest;

TEST_F(ColourOfNodeTest, ANodeTellsTheColourThatTheNodeViewShowsItIn)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    const QVariant wrapper = OMC::toVariant(Obj(OMC::Node::getWrapped(node)));
    const QColor shown = node->getNodeColor();
    EXPECT_TRUE(shown.isValid());
    EXPECT_EQ(Colour(wrapper), Colour(QVariant(shown)));
    close();
    EXPECT_EQ(failureOf([&] { Colour(QVariant(wrapper)); }), unsupportedColour);
}

TEST_F(ColourOfNodeTest, AllFourChannelsAreTaken)
{
    StandInNode node;
    node.colour = QColor(1, 2, 3, 4);
    const Obj wrapper(OMC::Node::getWrapped(&node));
    EXPECT_EQ(Colour(QVariant::fromValue<QObject*>(wrapper.get())), Colour(1, 2, 3, 4));
}

TEST(ColourReaderTest, WhatAListDoesNotTellKeepsWhatTheCallerPutThere)
{
    int r = -1;
    int g = -2;
    int b = -3;
    int a = -4;
    Colour::QVariantToRGBAInt(QVariantList{1, 2}, r, g, b, a);
    EXPECT_EQ((QList<int>{r, g, b, a}), (QList<int>{-1, -2, -3, -4}));
    Colour::QVariantToRGBAInt(QVariantList{1, 2, 300}, r, g, b, a);
    EXPECT_EQ((QList<int>{r, g, b, a}), (QList<int>{1, 2, 300, -4}));
}

TEST(ColourReaderTest, EveryTextIsTransparentBlack)
{
    const char* texts[] = {
        "HSL(1,2,3)", "HSLA(1,2,3,4)",       "#ff0000", "red", "1,2,3",   "12,34,56,78", "",           "nonsense",
        "hsl(0,0,0)", "HSLA(120,50,50,100)", "5",       ",,,", "0,0,0,0", "٣,٣,٣,٣",     "transparent"};
    for (const char* text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(textOf(QVariant(QString::fromUtf8(text))), "Colour(0,0,0,0)");
    }
}

TEST(ColourReaderTest, EverySingleNumberIsOpaqueBlack)
{
    const QVariant numbers[] = {5, 0, -5, 0xff0000, true, 2.5, QVariant(qlonglong(1) << 40), 0xbada55, 0xface};
    for (const QVariant& number : numbers)
        EXPECT_EQ(textOf(number), "Colour(0,0,0,255)") << number.typeName();
}

TEST(ColourReaderTest, RefusesEverythingElse)
{
    const QVariant rows[] = {QVariant(),
                             QVariantMap(),
                             QStringList{QStringLiteral("a")},
                             nan,
                             infinity,
                             1e300,
                             QVariant::fromValue(OMC::Point2d(1.0, 2.0)),
                             OMC::toVariant(Obj(new OMC::BaseObject)),
                             OMC::toVariant(Obj())};
    for (const QVariant& row : rows)
        EXPECT_EQ(failureOf([&] { Colour(QVariant(row)); }), unsupportedColour) << row.typeName();
}

// --- Hue, saturation, lightness -------------------------------------------------------------------------------------

TEST(ColourHslTest, TellsHueSaturationAndLightness)
{
    const struct {
        Colour colour;
        double h, s, l;
    } rows[] = {
        {Colour(255, 0, 0), 0.0, 100.0, 50.0},   {Colour(0, 255, 0), 120.0, 100.0, 50.0},
        {Colour(0, 0, 255), 240.0, 100.0, 50.0}, {Colour(255, 255, 255), 0.0, 0.0, 100.0},
        {Colour(0, 0, 0), 0.0, 0.0, 0.0},        {Colour(255, 0, 255, 0), 300.0, 100.0, 50.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.colour.__str__());
        EXPECT_DOUBLE_EQ(row.colour.getH(), row.h);
        EXPECT_DOUBLE_EQ(row.colour.getS(), row.s);
        EXPECT_DOUBLE_EQ(row.colour.getL(), row.l);
    }
}

TEST(ColourHslTest, IsMadeOfHueSaturationAndLightness)
{
    EXPECT_EQ(textOf(Colour::fromHSL(0, 100, 50, 100)), "Colour(255,0,0,255)");
    EXPECT_EQ(textOf(Colour::fromHSL(120, 100, 50, 50)), "Colour(0,255,0,127)") << "cut off, not rounded";
    EXPECT_EQ(textOf(Colour::fromHSL(480, 100, 50, 0)), "Colour(0,255,0,0)");
    EXPECT_EQ(textOf(Colour::fromHSL(-120, 100, 50, 100)), "Colour(0,0,255,255)");
    EXPECT_EQ(textOf(Colour::fromHSL(0, 500, 50, 100)), "Colour(255,0,0,255)");
    EXPECT_EQ(textOf(Colour::fromHSL(0, infinity, 50, 100)), "Colour(255,0,0,255)");
    EXPECT_EQ(textOf(Colour::fromHSL(77, -1, 1000, 100)), "Colour(255,255,255,255)");
    EXPECT_EQ(textOf(Colour::fromHSL(0, 0, 0, 200)), "Colour(0,0,0,254)") << "alpha isn't held";
    EXPECT_EQ(textOf(Colour::fromHSL(0, 0, 0, -100)), "Colour(0,0,0,1)");
}

TEST(ColourHslTest, IsNotMadeOfWhatIsNoNumber)
{
    EXPECT_EQ(failureOf([] { Colour::fromHSL(nan, 0, 0, 0); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([] { Colour::fromHSL(infinity, 0, 0, 0); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([] { Colour::fromHSL(0, nan, 0, 0); }), "Invalid argument at index 1.");
    EXPECT_EQ(failureOf([] { Colour::fromHSL(0, 0, nan, 0); }), "Invalid argument at index 2.");
    EXPECT_EQ(failureOf([] { Colour::fromHSL(0, 0, 0, infinity); }), "Invalid argument at index 3.");
    EXPECT_EQ(failureOf([] { Colour::fromHSL(0, 0, 0, 1e300); }), "Invalid argument at index 3.");
}

TEST(ColourHslTest, AHueGoesRoundTheCircle)
{
    Colour colour(255, 0, 0, 7);
    colour.setH(240);
    EXPECT_EQ(colour, Colour(0, 0, 255, 7));
    colour.setH(720);
    EXPECT_EQ(colour, Colour(255, 0, 0, 7));
    colour.setH(-240);
    EXPECT_EQ(colour, Colour(0, 255, 0, 7));
}

TEST(ColourHslTest, SaturationAndLightnessAreHeldInTheirRange)
{
    for (const double s : {100.0, 150.0, infinity}) {
        Colour colour(192, 64, 64, 7);
        colour.setS(s);
        EXPECT_EQ(colour.getS(), 100.0);
        EXPECT_EQ(colour.getA(), 7.0F);
    }
    Colour colour(192, 64, 64, 7);
    colour.setS(-5);
    EXPECT_EQ(colour.getS(), 0.0);
    EXPECT_EQ(colour.getR(), colour.getG());
    colour.setL(200);
    EXPECT_EQ(colour, Colour(255, 255, 255, 7));
    colour.setL(-200);
    EXPECT_EQ(colour, Colour(0, 0, 0, 7));
}

TEST(ColourHslTest, WhatIsNoNumberIsRefusedAndChangesNothing)
{
    Colour colour(192, 64, 64, 7);
    EXPECT_EQ(failureOf([&] { colour.setH(nan); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([&] { colour.setH(-infinity); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([&] { colour.setS(nan); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([&] { colour.setL(nan); }), "Invalid argument at index 0.");
    EXPECT_EQ(colour, Colour(192, 64, 64, 7));
}

TEST(ColourHslTest, WhatIsReadIsNearWhatWasWritten)
{
    for (int hue = 0; hue < 360; hue += 7) {
        Colour colour(255, 0, 0);
        colour.setH(hue);
        EXPECT_NEAR(colour.getH(), hue, 0.5);
        colour.setL(40);
        EXPECT_NEAR(colour.getL(), 40.0, 0.5);
        colour.setS(60);
        EXPECT_NEAR(colour.getS(), 60.0, 1.5);
        EXPECT_NEAR(colour.getH(), hue, 2.0);
    }
}

// --- Hexadecimal ----------------------------------------------------------------------------------------------------

TEST(ColourHexTest, TellsAlphaFirst)
{
    EXPECT_EQ(Colour(255, 0, 10, 128).getHex(), "#80ff000a");
    Colour colour;
    colour.setHex(QStringLiteral("#80ff0000"));
    EXPECT_EQ(colour, Colour(255, 0, 0, 128));
    EXPECT_EQ(colour.getHex(), "#80ff0000");
}

TEST(ColourHexTest, TakesWhatAQColorTakes)
{
    const struct {
        const char* text;
        Colour expected;
    } rows[] = {
        {"#f00", Colour(255, 0, 0)},
        {"#FF8000", Colour(255, 128, 0)},
        {"#12ff8000", Colour(255, 128, 0, 18)},
        {"#ffff80000000", Colour(255, 128, 0)},
        {"red", Colour(255, 0, 0)},
        {"SteelBlue", Colour(70, 130, 180)},
        {"transparent", Colour(0, 0, 0, 0)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Colour colour(9, 9, 9, 9);
        colour.setHex(QString::fromUtf8(row.text));
        EXPECT_EQ(colour, row.expected);
    }
}

TEST(ColourHexTest, RefusesOtherTextsAndChangesNothing)
{
    Colour colour(1, 2, 3, 4);
    for (const char* text : {"nonsense", "", "#", "#12", "#12345", "ff0000", "#gggggg", "12,34,56"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(failureOf([&] { colour.setHex(QString::fromUtf8(text)); }),
                  "Unable to convert from hexadecimal colour value");
        EXPECT_EQ(colour, Colour(1, 2, 3, 4));
    }
}

} // namespace
