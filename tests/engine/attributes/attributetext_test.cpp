#include "engine/attributes/attributetext.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

namespace {

using namespace brindle::engine;

TEST(AttributeText, NumbersComeBackToEveryBitInAnyLocale)
{
    QLocale::setDefault(QLocale(QLocale::German));
    for (const double value : {0.1, 1.0 / 3, -2.5e-300, 1e21, std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::denorm_min(), 123456789.123}) {
        double read = 0;
        EXPECT_TRUE(attribute_text::read(attribute_text::write(value), read));
        EXPECT_EQ(read, value);
    }
    EXPECT_EQ(attribute_text::write(0.1), "0.1");
    EXPECT_EQ(attribute_text::write(-1234567), "-1234567");
    EXPECT_EQ(attribute_text::write(true), "true");
    QLocale::setDefault(QLocale::system());
}

TEST(AttributeText, ATextThatCannotBeReadLeavesTheValueAlone)
{
    double number = 7;
    int whole = 7;
    bool flag = true;
    for (const char* text : {"", " ", "x", "1,5", "nan", "-inf", "1e999"}) {
        EXPECT_FALSE(attribute_text::read(text, number)) << text;
        EXPECT_FALSE(attribute_text::read(text, whole)) << text;
        EXPECT_FALSE(attribute_text::read(text, flag)) << text;
    }
    EXPECT_FALSE(attribute_text::read("2147483648", whole));
    EXPECT_EQ(number, 7);
    EXPECT_EQ(whole, 7);
    EXPECT_TRUE(flag);
}

TEST(AttributeText, SwitchesAreReadInAnyCase)
{
    for (const auto& [text, expected] : {std::pair("true", true), std::pair(" False ", false), std::pair("1", true),
                                         std::pair("0", false), std::pair("TRUE", true)}) {
        bool read = !expected;
        EXPECT_TRUE(attribute_text::read(text, read)) << text;
        EXPECT_EQ(read, expected) << text;
    }
}

} // namespace
