#include "core/attributes/attributebuilder.h"

#include "core/host/pr_preference.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

#include <random>

using namespace OMC;

class AttributeBuilderTest : public AnimationTest {};

TEST(FrameRangeTest, ARangeKnowsItsEdgesAndTheFramesBesideThem)
{
    const struct {
        MO_FrameRange range;
        bool infinite;
        std::vector<int> passive, edges;
        int inside, outside;
    } rows[] = {
        {MO_FrameRange(10, 0, 10), false, {9, 21}, {10, 20}, 15, 21},
        {MO_FrameRange(10, 3, 0), false, {6, 11}, {7, 10}, 7, 6},
        {MO_FrameRange(10), false, {9, 11}, {10}, 10, 11},
        {MO_FrameRange(1), false, {2}, {1}, 1, 2},
        {MO_FrameRange(-5, 0, 8), false, {4}, {1, 3}, 3, 4},
        {MO_FrameRange(0), true, {}, {}, 7, 0},
        {MO_FrameRange(-5, 0, 2), false, {}, {}, -4, 1},
        {MO_FrameRange(5, 0, std::numeric_limits<int>::max()), false, {4}, {5, std::numeric_limits<int>::max()}, 6, 4},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.range.isInfinite(), row.infinite);
        EXPECT_EQ(row.range.passiveFrames(), row.passive);
        EXPECT_EQ(row.range.edgeFrames(), row.edges);
        EXPECT_TRUE(row.range.isFrameEnabled(row.inside)) << row.inside;
        EXPECT_EQ(row.range.isFrameEnabled(row.outside), row.infinite) << row.outside;
    }
}

TEST_F(AttributeBuilderTest, AValueThatIsThereAlreadyMakesNoColumnUnlessForced)
{
    auto& x = dynamic_cast<AT_DoubleAttr&>(*engineAttribute("position.x"));
    for (const bool force : {false, true}) {
        EXPECT_TRUE(manager().execute(tu_attr::setValueCommand(x, 5, 0, {.force = force}).release(), "set"));
        EXPECT_EQ(curveOf("position.x") != nullptr, force);
        undo();
        EXPECT_FALSE(curveOf("position.x"));
    }
}

TEST_F(AttributeBuilderTest, AValueThatIsThereAlreadyMakesNoKeyUnlessForced)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 4}});
    auto& x = dynamic_cast<AT_DoubleAttr&>(*engineAttribute("position.x"));
    EXPECT_TRUE(manager().execute(tu_attr::setValueCommand(x, 5, 4, {}).release(), "set"));
    EXPECT_EQ(keysOf(*curve), Keys({{1, 4}}));
}

TEST_F(AttributeBuilderTest, ANewColumnCanBeginWithTheOldValue)
{
    number("position.x").setLocalvalue(2);
    auto& x = dynamic_cast<AT_DoubleAttr&>(*engineAttribute("position.x"));
    const QByteArray before = saved();
    EXPECT_TRUE(
        manager().execute(tu_attr::setValueCommand(x, 5, 9, {.force = true, .holdFirstFrame = true}).release(), "set"));
    EXPECT_EQ(keysOf(*curveOf("position.x")), Keys({{1, 2}, {5, 9}}));
    expectUndoable(before);
}

TEST_F(AttributeBuilderTest, ALinkThatIsRefusedLeavesNoColumn)
{
    // The attribute is not the engine's, so the engine makes its column and refuses to link it.
    struct Animated : StandInValue<AT_IntAttr> {
        using StandInValue::StandInValue;
        int minValue() const override { return 0; }
        int maxValue() const override { return 0; }
        int step() const override { return 0; }
        TUTimedValue* createTimedValue() const override { return source->createTimedValue(); }
        const AT_DoubleAttr* source = nullptr;
    };
    AttributedNode node(sceneCommon());
    Animated number(node, "number");
    number.linkable = true;
    number.source = dynamic_cast<AT_DoubleAttr*>(engineAttribute("position.x"));
    const QByteArray before = saved();
    for (const bool offset : {false, true}) {
        CO_Command* commands = nullptr;
        if (offset)
            commands = new tu_attr::OffsetValueAllFramesCmd<AT_IntAttr>(number, 5, MO_FrameRange(10));
        else
            commands = tu_attr::setValueCommand<AT_IntAttr>(number, 10, 5, {.force = true}).release();
        EXPECT_FALSE(manager().execute(commands, "set"));
        EXPECT_EQ(scene()->timedValueCount(), 0);
        EXPECT_EQ(number.held, 0);
        EXPECT_EQ(saved(), before);
        EXPECT_TRUE(labels().isEmpty());
    }
}

TEST_F(AttributeBuilderTest, AValueCommandAloneMakesAKeyAndTakesItBack)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 0.1}, {20, 0.7}, {40, -3}});
    auto& x = dynamic_cast<AT_DoubleAttr&>(*engineAttribute("position.x"));
    const QByteArray before = saved();
    const QByteArray content = savedContent();
    EXPECT_TRUE(manager().execute(new tu_attr::SetValueCmd<AT_DoubleAttr>(x, 10, 0.3, false, true), "set"));
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0.1}, {10, 0.3}, {20, 0.7}, {40, -3}}));
    expectUndoable(before);
    undo();
    EXPECT_TRUE(manager().execute(new tu_attr::SetValueCmd<AT_DoubleAttr>(x, 20, 0.7, false, false), "set"));
    EXPECT_EQ(savedContent(), content);
    undo();
    EXPECT_EQ(saved(), before);
}

TEST_F(AttributeBuilderTest, RandomEditsComeBackExactlyInBothDirections)
{
    for (unsigned int seed = 1; seed <= 5; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); };
        manager().clearHistory();
        std::vector<std::string> states{saved().toStdString()};
        for (int step = 0; step < 25; ++step) {
            const QString path = QStringList({"position.x", "scale.y", "angle", "pivot.x"})[below(4)];
            DoubleAttribute attribute = number(path);
            const int frame = 1 + below(30);
            const double value = (below(20001) - 10000) / 777.0;
            tuPref()->setBoolValue(QStringLiteral("SP_CONSTANT_SEGMENT"), below(4) == 0);
            switch (below(7)) {
            case 0:
                attribute.offsetValue(QVariantList{frame, 1 + below(30)}, value);
                break;
            case 1:
                attribute.offsetValue(below(2) ? QVariant(frame) : QVariant(), value);
                break;
            case 2:
                attribute.setLocalvalue(value);
                break;
            case 3:
                attribute.setTextValue(frame, QString::number(value, 'g', 17));
                break;
            default:
                attribute.setValue(frame, value, below(3) == 0);
                break;
            }
            states.push_back(saved().toStdString());
        }
        tuPref()->setBoolValue(QStringLiteral("SP_CONSTANT_SEGMENT"), false);
        ASSERT_EQ(static_cast<std::size_t>(manager().executedHistorySize()), states.size() - 1);
        std::size_t at = states.size() - 1;
        for (int move = 0; move < 60; ++move) {
            const bool back = at > 0 && (at == states.size() - 1 || below(2));
            back ? undo() : redo();
            at = back ? at - 1 : at + 1;
            ASSERT_EQ(saved().toStdString(), states[at]) << "seed " << seed << ", move " << move;
        }
        for (; at > 0; --at)
            undo();
        ASSERT_EQ(saved().toStdString(), states[0]);
    }
}
