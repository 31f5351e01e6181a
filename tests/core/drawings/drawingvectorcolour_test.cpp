#include "core/drawings/drawingvectorcolour.h"

#include "core/drawings/drawingvectorlinestyle.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/properties.h"

#include <gtest/gtest.h>

namespace {

using OMC::DrawingVectorColour;
using OMC::DrawingVectorLineStyle;
using OMC::toVariant;

constexpr char first[] = "Invalid argument at index 0.";
constexpr CM_ColorId_t skin{0x0123456789abcdefULL};

TEST(DrawingVectorColour, ItsPropertiesAreWordForWord)
{
    expectProperties(DrawingVectorColour::staticMetaObject, OMC::BaseObject::staticMetaObject,
                     {{"colour_matrix", "QVariant", true},
                      {"colour_id", "QString", true},
                      {"id", "QString", true},
                      {"texture_matrix", "QVariant", true},
                      {"texture_id", "QVariant", true}});
    expectProperties(DrawingVectorLineStyle::staticMetaObject, OMC::BaseObject::staticMetaObject,
                     {{"colour", "QVariant", true},
                      {"colour_id", "QString", true},
                      {"type", "QString", true},
                      {"thickness", "double", true},
                      {"line", "bool", false},
                      {"visible", "bool", false},
                      {"texture_scaling", "QVariant", true},
                      {"texture_offset", "QVariant", true},
                      {"texture_tiled", "bool", true},
                      {"opacity_colour_id", "QString", true},
                      {"opacity_texture_scaling", "QVariant", true},
                      {"opacity_texture_offset", "QVariant", true},
                      {"opacity_texture_tiled", "bool", true},
                      {"texture_wrap_at_tip", "bool", true},
                      {"opacity_textured", "bool", false},
                      {"textured", "bool", false}});
}

TEST(DrawingVectorColour, AColourIsMadeOfTheEnginesByCopyOrShared)
{
    const GR_ColorPtr colour = GR_Color::CreateWith(skin);
    EXPECT_EQ(DrawingVectorColour(colour).colour(), colour);
    EXPECT_NE(DrawingVectorColour(*colour).colour(), colour);
    EXPECT_EQ(*DrawingVectorColour(colour.get()).colour(), *colour);
    EXPECT_EQ(DrawingVectorColour(static_cast<const GR_Color*>(nullptr)), DrawingVectorColour());
    EXPECT_EQ(DrawingVectorColour(GR_ColorPtr()), DrawingVectorColour());
    const DrawingVectorColour copy = DrawingVectorColour(colour);
    EXPECT_EQ(copy.colour(), colour);
    EXPECT_EQ(copy.__str__(), "DrawingVectorColour()");
}

TEST(DrawingVectorColour, AWriteGivesTheObjectAColourOfItsOwn)
{
    const GR_ColorPtr shared = GR_Color::CreateWith(skin);
    DrawingVectorColour colour(shared);
    colour.setColourId(QStringLiteral("fedcba9876543210"));
    EXPECT_EQ(shared->GetColorID(), skin);
    EXPECT_EQ(failureOf([&] { colour.setColourId(QStringLiteral("abc")); }), first);
}

TEST(DrawingVectorColour, TheKeptColoursAreOnesOfTheProcess)
{
    EXPECT_EQ(DrawingVectorColour::autoColour(), DrawingVectorColour::autoColour());
    EXPECT_EQ(DrawingVectorColour::fromQVariant(QStringLiteral("eRaSeR")), DrawingVectorColour::eraserColour());
    EXPECT_EQ(DrawingVectorColour::fromQVariant(QStringLiteral("AUTO")), DrawingVectorColour::autoColour());
    const DrawingVectorColour* made = DrawingVectorColour::fromQVariant(QStringLiteral("0123456789abcdef"));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->colour()->GetColorID(), skin);
    EXPECT_FALSE(DrawingVectorColour::fromQVariant(QStringLiteral("0123456789abcde")));
    EXPECT_FALSE(DrawingVectorColour::fromQVariant(7));
    DrawingVectorColour given;
    EXPECT_EQ(DrawingVectorColour::fromQVariant(QVariant::fromValue<OMC::BaseObject*>(&given)), &given);
    EXPECT_FALSE(DrawingVectorColour::colourFrom(QVariant()));
}

TEST(DrawingVectorLineStyle, ATypeThatTheEngineAloneKnowsIsUnknown)
{
    DrawingVectorLineStyle style(GR_LineStyle(static_cast<GR_LineStyle::Type>(77)));
    EXPECT_EQ(style.getType(), "Unknown");
    EXPECT_EQ(failureOf([&] { style.setType(QStringLiteral("Unknown")); }), first);
    EXPECT_EQ(style.lineStyle().GetType(), 77);
}

} // namespace
