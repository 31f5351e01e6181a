#include "engine/curves/expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using brindle::engine::Expression;

namespace {

/// Has 100 and the source's place for its value, and the frame for thousandths.
struct SampleReader final : Expression::Reader {
    double read(std::size_t source, double frame) override { return 100 + double(source) + frame / 1000; }
};

double valueOf(const QString& text, double frame)
{
    SampleReader reader;
    return Expression(text).evaluate(frame, reader);
}

std::string faultOf(const QString& text)
{
    try {
        const Expression expression(text);
        return {};
    } catch (const Expression::Fault& fault) {
        return std::to_string(fault.place) + ": " + fault.reason.toStdString();
    }
}

} // namespace

TEST(ExpressionTest, FormulasHaveTheirValues)
{
    const std::pair<const char*, double> cases[] = {
        {"", 0},
        {"  \n", 0},
        {"1", 1},
        {".5 + 1.", 1.5},
        {"2e3 + 1E-1", 2000.1},
        {"frame * 2", 20},
        {"1+2*3^2", 19},
        {"-2^2", -4},
        {"2^3^2", 512},
        {"3--2", 5},
        {"3 - - 2", 5},
        {"(1 + 2) * -3", -9},
        {"7 / 2", 3.5},
        {"frame>9&&frame<=10", 1},
        {"0 || 3", 1},
        {"frame == 10 ? 5 : 6", 5},
        {"frame != 10 ? 5 : frame < 3 ? 7 : 8", 8},
        {"pi", M_PI},
        {"e", M_E},
        {"abs(-3) + sign(-2) + sqrt(16)", 6},
        {"floor(-1.5) * 100 + ceil(1.2) * 10 + round(2.5)", -177},
        {"max(1, frame, 3) + min(4, 2) + max(1)", 13},
        {"clamp(frame, 0, 4) + lerp(10, 20, 0.25)", 16.5},
        {"mod(-1, 3) * 10 + mod(7, -4)", 19},
        {"pow(2, 10) + hypot(3, 4)", 1029},
        {"degrees(pi) + radians(180) - pi", 180},
        {"sin(0) + cos(0) + tan(0) + asin(0) + acos(1) + atan(0) + atan2(0, 1)", 1},
        {"sinh(0) + cosh(0) + tanh(0) + exp(0) + log(e) + log10(100) + log2(8)", 8},
        {"value(\"A\")", 100.01},
        {"value ( \"A\" , frame - 4 ) + value(\"B\")", 201.016},
        {"value(\"B\", value(\"A\", 3) - 100.003)", 100.001},
        {"value(\"A\", 1) - value(\"A\", 2)", -0.001},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_NEAR(valueOf(QString::fromUtf8(text), 10), expected, 1e-12) << text;
    EXPECT_TRUE(std::isinf(valueOf("1 / 0", 1)));
    EXPECT_TRUE(std::isnan(valueOf("sqrt(-1)", 1)));
}

TEST(ExpressionTest, FaultsAreToldWithTheirPlace)
{
    const std::pair<const char*, const char*> cases[] = {
        {"1 +", "3: something is missing at the end"},
        {"(1 + 2", "6: a \")\" is missing"},
        {"1 + 2)", "5: \")\" is unexpected"},
        {"*3", "0: \"*\" is unexpected"},
        {"1 2", "2: \"2\" is unexpected"},
        {"2frame", "1: \"frame\" is unexpected"},
        {"frame sin(2)", "6: \"sin\" is unexpected"},
        {"1 ? 2", "5: a \":\" is missing"},
        {"1 : 2", "2: \":\" is unexpected"},
        {"sin()", "4: a function has too few arguments"},
        {"sin(1, 2)", "8: a function has too many arguments"},
        {"max()", "4: a function has too few arguments"},
        {"sin 3", "0: \"sin\" is unexpected"},
        {"1, 2", "1: \",\" is unexpected"},
        {"(1, 2)", "2: \",\" is unexpected"},
        {"frame = 3", "6: \"=\" is unexpected"},
        {"!1", "0: \"!\" is unexpected"},
        {"1 % 2", "2: \"%\" is unexpected"},
        {"腕", "0: \"腕\" is unexpected"},
        {"\"A\"", "0: \"\"\" is unexpected"},
        {"1 + sinus(2)", "4: \"sinus\" is no name that an expression knows"},
        {"_now(0)", "0: \"_now\" is no name that an expression knows"},
        {"system(\"ls\")", "0: \"system\" is no name that an expression knows"},
        {"1e999", "0: \"1e999\" is no number"},
        {"value", "0: \"value\" needs the name of a column, in brackets and in quotes"},
        {"1 + value(2)", "4: \"value\" needs the name of a column, in brackets and in quotes"},
        {"value \"A\"", "0: \"value\" needs the name of a column, in brackets and in quotes"},
        {"value(\"A", "6: a name has no end"},
        {"value(\"A\\", "6: a name has no end"},
        {"value(\"A\" + 1)", "10: the name of a column is followed by \",\" or \")\""},
        {"value(\"A\"", "9: the name of a column is followed by \",\" or \")\""},
        {"value(\"A\", 1, 2)", "15: a function has too many arguments"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(faultOf(QString::fromUtf8(text)), expected) << text;
    EXPECT_EQ(faultOf(QString(10001, '1')), "10000: it is longer than 10000 characters");
}

TEST(ExpressionTest, SourcesAreNamedOnceInTheirOrder)
{
    const Expression expression("value(\"B\") + value(\"a \\\"b\\\" \\\\\") * value(\"B\", 3)");
    ASSERT_EQ(expression.sources().size(), 2u);
    EXPECT_EQ(expression.sources()[0].column, "B");
    EXPECT_EQ(expression.sources()[0].place, 6);
    EXPECT_EQ(expression.sources()[1].column, "a \"b\" \\");
    EXPECT_EQ(expression.sources()[1].place, 19);
    EXPECT_EQ(Expression::sourcesOf("value(\"x\") +").size(), 1u);
    EXPECT_TRUE(Expression::sourcesOf("value(\"x\") + $").empty());
}

TEST(ExpressionTest, DeepAndLongTextsAreReadOrRefused)
{
    for (const char* part : {"(", "-", "sin(", "1+", "1?", "1^", "value(\"A\",", "frame "}) {
        const QString many = QString(part).repeated(900);
        EXPECT_NE(faultOf(many), "") << part;
        faultOf(many + '1' + QString(900, ')'));
    }
    EXPECT_EQ(valueOf(QString(4000, '(') + '7' + QString(4000, ')'), 1), 7);
}

TEST(ExpressionTest, NoTextDoesHarm)
{
    constexpr const char* parts[] = {
        "frame", "value(\"A\")", "value(\"A\",", "1",  "2.5",  "+",    "-",  "*", "/",  "^", "(", ")", ",", "?", ":",
        "<",     ">=",           "&&",           "||", "sin(", "max(", "pi", " ", "\"", "=", "!"};
    std::mt19937 random(3);
    int sound = 0;
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (unsigned left = random() % 9; left > 0; --left)
            text += parts[random() % std::size(parts)];
        const std::string fault = faultOf(text);
        if (fault.empty())
            valueOf(text, 3);
        sound += fault.empty();
        EXPECT_LE(std::atoi(fault.c_str()), text.size()) << text.toStdString();
    }
    EXPECT_GT(sound, 1000);
}
