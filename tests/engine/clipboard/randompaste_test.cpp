#include "engine/clipboard/dragscene.h"
#include "engine/graph/dragdrop.h"
#include "tests/engine/clipboard/clipboardtest.h"
#include "tests/engine/folder/foldertest.h"
#include "tests/engine/folder/randomproject.h"

#include <random>

using namespace brindle::engine;

namespace {

/// Copies and pastes at random, in a random project and into another one.
class RandomPaste {
public:
    RandomPaste(ClipboardProject& from, ClipboardProject& to, unsigned int seed)
        : m_from(from),
          m_to(to),
          m_random(seed)
    {}

    DD_DragObject copy()
    {
        const int start = below(2) ? 1 : 1 + below(m_from.scene().getNumberOfFrames());
        return m_from.copy(some(m_from), start, below(2) ? 0 : 1 + below(40));
    }

    /// One entry, undone and redone exactly, or nothing at all.
    void paste(const DD_DragObject& object)
    {
        const std::string before = m_to.saved();
        const int entries = m_to.manager().executedHistorySize();
        const bool isNew = below(2);
        const DD_DropMode mode = randomMode();
        const bool done = isNew ? !m_to.pasteNew(object, mode).empty()
                                : m_to.pasteOver(object, some(m_to), mode, 1 + below(80), below(100));
        if (!done) {
            ASSERT_EQ(m_to.saved(), before);
            ASSERT_EQ(m_to.manager().executedHistorySize(), entries);
            return;
        }
        ++m_pasted;
        ASSERT_LE(m_to.manager().executedHistorySize(), entries + 1);
        const std::string after = m_to.saved();
        const auto steps = static_cast<unsigned int>(m_to.manager().executedHistorySize() - entries);
        for (int round = 0; round < 2; ++round) {
            m_to.undo(steps);
            ASSERT_EQ(m_to.saved(), before);
            m_to.redo(steps);
            ASSERT_EQ(m_to.saved(), after);
        }
        if (below(3) == 0)
            m_to.undo(steps);
    }

    int pasted() const { return m_pasted; }

private:
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    bool flag() { return below(2); }

    ClipboardProject::Nodes some(ClipboardProject& project)
    {
        ClipboardProject::Nodes all;
        project.top()->getRecursiveSubNodeList(all);
        ClipboardProject::Nodes chosen;
        for (MO_Node* node : all) {
            if (below(3) == 0)
                chosen.push_back(node);
        }
        std::shuffle(chosen.begin(), chosen.end(), m_random);
        return chosen;
    }

    DD_DropMode randomMode()
    {
        DD_DropMode mode;
        mode.setDrawingMode(static_cast<DD_DropMode::DrawingMode>(below(8)));
        mode.setElementMode(static_cast<DD_DropMode::ElementMode>(1 + below(3)));
        mode.setPaletteMode(DD_DropMode::kNoPalettes);
        mode.writeMode = static_cast<DD_DropMode::WriteMode>(1 + below(3));
        mode.deleteMode = static_cast<DD_DropMode::DeleteMode>(below(3));
        mode.setExposureMode(flag(), flag());
        mode.setMatchNodeName(flag());
        for (bool DD_DropMode::*field :
             {&DD_DropMode::fullTransfer, &DD_DropMode::forceBeginningEndKeyframe, &DD_DropMode::extendScene,
              &DD_DropMode::createNewColumn, &DD_DropMode::offsetKeyframes, &DD_DropMode::replaceExpressionColumns,
              &DD_DropMode::tvPreserveName, &DD_DropMode::addRemoveMotionKeyframe, &DD_DropMode::exposureAdd})
            mode.*field = flag();
        mode.SetStartFrameSrc(1 + below(3));
        mode.SetNumFramesSrc(below(10));
        return mode;
    }

    ClipboardProject& m_from;
    ClipboardProject& m_to;
    std::mt19937 m_random;
    int m_pasted = 0;
};

/// A random project, with some nodes that show drawings.
void fill(ClipboardProject& project, unsigned int seed)
{
    RandomProject(project, seed).change(150);
    project.addRead("Hand" + QString::number(seed % 3), {"1", "2", "3"});
    project.addRead("Foot", {"1", "a"});
}

} // namespace

TEST(RandomPasteTest, EveryPasteIsUndoneAndRedoneExactly)
{
    constexpr int programs = 15;
    int pasted = 0;
    for (int seed = 1; seed <= programs && !testing::Test::HasFatalFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const auto number = static_cast<unsigned int>(seed);
        ClipboardProject from;
        ClipboardProject to;
        fill(from, number);
        fill(to, number + 100);
        RandomPaste across(from, to, number);
        RandomPaste within(to, to, number);
        for (int step = 0; step < 6 && !testing::Test::HasFatalFailure(); ++step) {
            across.paste(across.copy());
            within.paste(within.copy());
        }
        pasted += across.pasted() + within.pasted();
        const std::string last = to.saved();
        const auto entries = static_cast<unsigned int>(to.manager().executedHistorySize());
        to.undo(entries);
        to.redo(entries);
        ASSERT_EQ(to.saved(), last);
    }
    EXPECT_GT(pasted, 4 * programs);
}

TEST(RandomPasteTest, ATemplateGivesBackWhatWasCopied)
{
    const QTemporaryDir dir;
    for (unsigned int seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        ClipboardProject from;
        fill(from, seed);
        const DD_DragObject object =
            from.copy(ClipboardProject::Nodes(from.top()->subNodesBegin(), from.top()->subNodesEnd()));
        ASSERT_TRUE(object.isValid());
        UT_Path saved(dir.filePath("Copy"));
        ASSERT_TRUE(DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, DD_DragSceneOld(object, {}), saved));
        const DD_DragObject loaded =
            DD_SystemExternalAPI::CreateDragObjectFromTemplate(nullptr, saved.ToString(), 0, 0, false, false);
        ASSERT_TRUE(loaded.isValid());
        const auto text = [](const DD_DragObject& dragged) {
            return (sceneText(dragged.data().scene->scene()) + elementFileText(dragged.data().scene->elements()))
                .toStdString();
        };
        EXPECT_EQ(text(loaded), text(object));
    }
}
