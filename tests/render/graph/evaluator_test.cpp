#include "render/graph/evaluator.h"
#include "render/operations/blend.h"
#include "render/operations/shade.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

using namespace brindle::render;
using pictures::at;
using pictures::Pixel;
using pictures::size;

namespace {

OperationPtr card(Operations& all, quint16 red, quint16 alpha = 65535)
{
    Operation operation{.kind = Operation::Card};
    operation.colour = QRgba64::fromRgba64(red, 0, 0, alpha);
    return all.one(std::move(operation));
}

OperationPtr over(Operations& all, const OperationPtr& below, const OperationPtr& above)
{
    return all.one({.kind = Operation::Blend, .inputs = {below, above}});
}

/// A plan of steps in which each stands behind its inputs.
Plan planOf(const std::vector<OperationPtr>& steps, bool isKept = false)
{
    Plan plan{.size = size, .steps = {}, .remarks = {}};
    for (const OperationPtr& step : steps) {
        std::vector<std::size_t> inputs;
        for (const OperationPtr& input : step->inputs)
            inputs.push_back(std::size_t(std::find(steps.begin(), steps.end(), input) - steps.begin()));
        plan.steps.push_back({step, inputs, isKept});
    }
    return plan;
}

} // namespace

TEST(EvaluatorTest, EqualStepsAreOneObject)
{
    Operations all;
    const OperationPtr red = card(all, 65535);
    EXPECT_EQ(red, card(all, 65535));
    EXPECT_NE(red, card(all, 65534));
    EXPECT_EQ(over(all, red, red), over(all, red, card(all, 65535)));
}

TEST(EvaluatorTest, AStepThatSeveralNeedIsNotChangedByOneOfThem)
{
    Operations all;
    const OperationPtr red = card(all, 40000, 32768);
    const OperationPtr twice = over(all, red, red);
    const OperationPtr thrice = over(all, twice, red);
    const std::vector<OperationPtr> steps{red, twice, thrice};
    Picture expected = colourCard(size, red->colour);
    const Picture one = expected;
    blend(expected, one);
    blend(expected, one);
    for (const int threads : {1, 2, 9})
        EXPECT_EQ(at(Evaluator(std::make_shared<Memory>(0)).picture(planOf(steps), threads), 3, 3), at(expected, 3, 3))
            << threads;
}

TEST(EvaluatorTest, WhatIsKeptIsRememberedWithinTheLimit)
{
    Operations all;
    const qint64 bytes = 8 * size.width() * size.height();
    const auto memory = std::make_shared<Memory>(2 * bytes);
    Evaluator evaluator(memory);
    const OperationPtr first = card(all, 1);
    EXPECT_TRUE(evaluator.picture(planOf({first})).size().isValid());
    EXPECT_EQ(memory->bytes(), 0) << "nothing told to keep it";
    for (quint16 red = 1; red < 6; ++red)
        evaluator.picture(planOf({card(all, red)}, true));
    EXPECT_EQ(memory->bytes(), 2 * bytes);
    EXPECT_EQ(at(evaluator.picture(planOf({card(all, 5)}, true)), 0, 0), (Pixel{5, 0, 0, 65535}));
}

TEST(EvaluatorTest, APictureLargerThanTheLimitIsDrawnAndForgotten)
{
    Operations all;
    const auto memory = std::make_shared<Memory>(10);
    Evaluator evaluator(memory);
    EXPECT_EQ(at(evaluator.picture(planOf({card(all, 7)}, true)), 1, 1), (Pixel{7, 0, 0, 65535}));
    EXPECT_EQ(memory->bytes(), 0);
}

TEST(EvaluatorTest, AChainLongerThanTheCallStackGoes)
{
    Operations all;
    OperationPtr last = card(all, 1);
    for (int step = 0; step < 500000; ++step)
        last = all.one({.kind = Operation::Fade, .inputs = {last}, .opacity = 0.5});
    last.reset();
    all.tidy();
    EXPECT_NE(card(all, 1), nullptr);
}
