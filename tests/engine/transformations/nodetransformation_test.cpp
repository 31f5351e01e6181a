#include "engine/transformations/nodetransformation.h"

#include "core/host/sc_projectcmds.h"
#include "engine/graph/group.h"
#include "tests/engine/folder/randomproject.h"
#include "tests/engine/support/columnproject.h"

#include <chrono>

namespace {

using brindle::engine::engineNode;
using brindle::engine::transformationAt;

class NodeTransformationTest : public ColumnTest {
protected:
    /// Pegs, each below the one before.
    std::vector<MO_Node*> chain(int count, const QString& name)
    {
        std::vector<MO_Node*> pegs;
        for (int index = 0; index < count; ++index) {
            pegs.push_back(add("PEG", name + QString::number(index)));
            if (index > 0)
                link(pegs[pegs.size() - 2], pegs.back());
        }
        return pegs;
    }

    static const MO_PortTransform* at(MO_Node* node, double frame = 1)
    {
        return node->module()->getPortTransformation(MO_BaseContext(MO_FrameKey(frame), 0));
    }
    static bool remembers(MO_Node* node) { return engineNode(node)->transformationMemory() != nullptr; }

    void turn(MO_Node* peg, double degrees)
    {
        run(attribute(peg, "angle")->setTextCommand(1, QString::number(degrees)));
    }
};

/// What every module of a scene gives at some frames; it is asked of what is remembered, and once more of nothing.
QString transformations(brindle::engine::Scene& scene, bool anew)
{
    QString text;
    brindle::engine::Group& root = scene.graph().root();
    if (anew)
        brindle::engine::forEachFrom(root, [](brindle::engine::Node& node) { node.transformationMemory().reset(); });
    brindle::engine::forEachFrom(root, [&](brindle::engine::Node& node) {
        for (const double frame : {1.0, 7.0, 24.5}) {
            const MO_Module* module = node.host().module();
            const MO_PortTransform* transform = module ? transformationAt(node, frame) : nullptr;
            if (!transform)
                continue;
            text += node.path() + ' ' + QString::number(transform->isTransformationSet());
            const Math::Matrix4x4 matrix = transform->transformation().matrix(false);
            for (const double cell : matrix.cells())
                text += ' ' + QString::number(cell, 'g', 17);
            text += '\n';
        }
    });
    return text;
}

} // namespace

TEST_F(NodeTransformationTest, AnAnswerIsRememberedUntilSomethingAboveChanges)
{
    const auto left = chain(3, "Left");
    const auto right = chain(3, "Right");
    const MO_PortTransform* ofLeft = at(left[2]);
    const MO_PortTransform* ofRight = at(right[2]);
    EXPECT_EQ(at(left[2]), ofLeft) << "the same object, not only the same matrix";
    turn(left[1], 30);
    EXPECT_EQ(at(right[2]), ofRight) << "another branch";
    EXPECT_TRUE(remembers(left[0])) << "above the change";
    EXPECT_FALSE(remembers(left[1]) || remembers(left[2]));
    EXPECT_NEAR(at(left[2])->transformation().matrix(false).cells()[0], std::cos(M_PI / 6), 1e-15);
}

TEST_F(NodeTransformationTest, AnswersForManyFramesAreKeptWithinBounds)
{
    const auto pegs = chain(2, "Peg");
    for (int round = 0; round < 2; ++round) {
        for (int frame = 1; frame <= 2000; ++frame)
            ASSERT_EQ(at(pegs[1], frame)->key().frame(), frame);
    }
}

TEST_F(NodeTransformationTest, ANodeInNoSceneHasNone)
{
    MO_Node* peg = add("PEG");
    ASSERT_TRUE(at(peg));
    remove({peg});
    EXPECT_EQ(at(peg), nullptr);
    undo();
    EXPECT_TRUE(at(peg));
}

TEST_F(NodeTransformationTest, PicturesKeepTheirTransformationThroughEffectsAndLoseItInACompositeOfMany)
{
    MO_Node* peg = add("PEG");
    MO_Node* read = add("READ");
    MO_Node* cutter = add("CUTTER");
    MO_Node* blur = add("BLUR");
    MO_Node* composite = add("COMPOSITE");
    MO_Node* card = add("COLOR_CARD");
    link(peg, read);
    link(card, cutter, 0, 0);
    link(read, cutter, 0, 1);
    link(cutter, blur);
    link(blur, composite);
    turn(peg, 90);
    EXPECT_EQ(at(blur)->transformation().matrix(false), at(peg)->transformation().matrix(false));
    EXPECT_TRUE(at(blur)->isTransformationSet());
    EXPECT_FALSE(at(card)->isTransformationSet() || at(composite)->isTransformationSet());
    EXPECT_TRUE(at(composite)->transformation().matrix(false).isIdentity());
}

TEST_F(NodeTransformationTest, AChainAsLongAsNoCallStackIsAnswered)
{
    const auto pegs = chain(100'000, "P");
    turn(pegs.front(), 90);
    EXPECT_EQ(at(pegs.back())->transformation().matrix(false).cells()[1], 1);
    turn(pegs.front(), 0);
    EXPECT_TRUE(at(pegs.back())->transformation().matrix(false).isIdentity());
}

class RandomTransformationsTest : public testing::TestWithParam<unsigned int>, public MemoryProject {};

TEST_P(RandomTransformationsTest, WhatIsRememberedIsWhatWouldBeComputedAnew)
{
    RandomProject program(*this, GetParam());
    for (int step = 0; step < 150; ++step) {
        program.change(3);
        const QString remembered = transformations(scene(), false);
        ASSERT_EQ(remembered, transformations(scene(), true)) << "at step " << step;
    }
    while (manager().executedHistorySize() > 0) {
        undo(4);
        ASSERT_EQ(transformations(scene(), false), transformations(scene(), true));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTransformationsTest, testing::Range(1u, 9u));
