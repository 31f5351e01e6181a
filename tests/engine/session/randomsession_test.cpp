#include "core/host/dd_deletesequence.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_scenemarker.h"
#include "engine/curves/columnkinds.h"
#include "engine/folder/projectfile.h"
#include "engine/folder/scenefile.h"
#include "tests/engine/support/columnedits.h"
#include "tests/engine/support/columnproject.h"

#include <algorithm>
#include <limits>
#include <random>

// Random sessions of a person who changes settings, scenes, frames, markers, cameras and displays, in brackets and
// out, undoing and redoing: what is saved is the same wherever the undo list stands at the same place.

namespace {

using namespace SC_ProjectCmds;
using namespace SC_SceneCmds;

class RandomSession {
public:
    explicit RandomSession(unsigned int seed) : m_random(seed) { m_states = {saved()}; }

    void step()
    {
        switch (below(12)) {
        case 0:
            undo(below(4));
            break;
        case 1:
            redo(below(4));
            break;
        case 2:
            bracket();
            break;
        default:
            record(change());
            break;
        }
        check();
    }

    std::size_t changes() const { return m_changes; }

    void undoAll()
    {
        undo(std::numeric_limits<unsigned int>::max());
        check();
    }
    void redoAll()
    {
        redo(std::numeric_limits<unsigned int>::max());
        check();
    }

private:
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }
    int number() { return static_cast<int>(below(90)) - 10; }
    double real() { return number() / 7.0; }
    CO_CommandManager& manager() { return m_project.manager(); }
    SC_ProjectCommon* common() { return m_project.project().projectCommon(); }

    std::string saved()
    {
        QStringList names;
        QByteArray text;
        for (TUScene* scene : m_project.project().scenes()) {
            names.append(scene->name());
            text += brindle::engine::sceneText(*scene);
        }
        return (brindle::engine::projectFileText(m_project.project().record(), names) + text).toStdString();
    }

    brindle::engine::Scene& anyScene()
    {
        const auto scenes = m_project.project().scenes();
        return static_cast<brindle::engine::Scene&>(*scenes[below(static_cast<unsigned int>(scenes.size()))]);
    }

    bool run(CO_Command* command) { return manager().execute(command, QStringLiteral("Change %1").arg(++m_label)); }

    bool changeSetting()
    {
        const QStringList names{"PAL", "UHD_4K", "HD_1080", "pal", ""};
        const QStringList spaces{"sRGB", "ACEScg", "Rec.709", "none"};
        SC_AdvancedFlags flags;
        switch (below(7)) {
        case 0:
            return run(new SetProjectResolutionByNameCmd(common(), names[static_cast<int>(below(5))]));
        case 1:
            return run(new SetProjectResolutionByValueCmd(common(), below(2000), below(2000),
                                                          static_cast<TUDbResolution::FovFit>(below(3)), real(),
                                                          static_cast<TUDbResolution::Projection>(below(3))));
        case 2:
            return run(new SetProjectColorSpaceCmd(common(), spaces[static_cast<int>(below(4))]));
        case 3:
            flags.setPixelPerModelUnitForBitmapLayers(real());
            flags.setPixelPerModelUnitForVectorLayers(real());
            return run(new SetAdvancedFlagsCmd(common(), flags));
        case 4:
            return run(new SetDesignAspectRatioCmd(common(), number(), number()));
        case 5:
            return run(new SetDesignFieldChartCmd(common(), real(), real(), real()));
        default:
            return run(new SetCoordinatesAtCenterCmd(common(), number(), number()));
        }
    }

    bool changeFrames()
    {
        brindle::engine::Scene& scene = anyScene();
        const int before = manager().executedHistorySize();
        const std::string state = saved();
        switch (below(5)) {
        case 0:
            return scene.setStartFrame(number());
        case 1:
            return scene.setStopFrame(number());
        case 2:
            return run(new SetFrameRateCmd(scene.sceneCommon(), UT_FrameRate(real())));
        case 3: {
            DD_DropMode mode(1);
            mode.SetStartDeleteFrame(number());
            mode.SetNumFramesSrc(number());
            DD_DeleteSequenceVisitor visitor(mode);
            visitor.visit(scene);
            CO_CommandAccumScope scope(&manager(), "Remove Frames", nullptr, CO_CommandAccumScope::kDefault);
            if (auto command = visitor.takeCommand())
                manager().execute(command.release(), QString());
            scene.setNumberOfFrames(mode.startDeleteFrame(), -mode.numFramesSrc(), below(2) == 0, true);
            break;
        }
        default:
            scene.setNumberOfFrames(number(), number() / 4, below(2) == 0, true);
            break;
        }
        return manager().executedHistorySize() > before || saved() != state;
    }

    bool changeMarkers()
    {
        brindle::engine::Scene& scene = anyScene();
        SC_SceneMarker marker;
        marker.name = QString::number(below(1000));
        marker.frame = number();
        marker.length = number() / 8;
        switch (below(3)) {
        case 0:
            return run(new RemoveSceneMarkerCmd(scene.sceneCommon(), number() / 8));
        case 1:
            return run(new SetSceneMarkerCmd(scene.sceneCommon(), number() / 16, marker));
        default:
            return run(new AddSceneMarkerCmd(scene.sceneCommon(), marker));
        }
    }

    bool changeScenes()
    {
        if (below(2) == 0)
            return run(new RemoveSceneCmd(common(), anyScene().id()));
        return run(new AddSceneCmd(common(), QStringLiteral("S%1").arg(below(6)), static_cast<int>(below(6)) - 2));
    }

    /// Nodes, columns and what the scene is seen through.
    bool changeNodes()
    {
        brindle::engine::Scene& scene = anyScene();
        TUGroup* top = scene.getRootGroup();
        MO_Node* node = top->nSubNodes() > 0 ? top->subNode(below(top->nSubNodes())) : nullptr;
        bool flag = true;
        switch (below(5)) {
        case 0:
            return node && SU_CleanUpCommands::removeNodes(&scene, {node}, below(2) == 0);
        case 1:
            return run(new SetDefaultCameraCmd(scene.sceneCommon(), dynamic_cast<TUCameraModule*>(node)));
        case 2:
            return run(new SetDefaultDisplayCmd(scene.sceneCommon(), dynamic_cast<TUDisplayModule*>(node)));
        case 3:
            return changeColumn(scene);
        default:
            node = TUGroup::createNode(below(2) == 0 ? "CAMERA" : "DISPLAY", 0, 0, 0, flag, nullptr);
            node->setScene(scene.sceneCommon());
            return run(new tu_node::AddSubNodeCmd(top, node));
        }
    }

    bool changeColumn(brindle::engine::Scene& scene)
    {
        const auto kinds = brindle::engine::columnKinds();
        if (scene.timedValueCount() < static_cast<int>(kinds.size())) {
            const auto place = static_cast<std::size_t>(scene.timedValueCount());
            auto made = kinds[place]->make(QStringLiteral("C%1").arg(place), false);
            return run(new AddTimedValueCmd(scene.sceneCommon(),
                                            brindle::engine::Column::asTimedValue(std::move(made)).release(), -1, -1));
        }
        TUTimedValue* column = scene.timedValuesBegin()[below(static_cast<unsigned int>(scene.timedValueCount()))];
        auto command = randomEdit(*column, m_random);
        return command && run(command.release());
    }

    bool change()
    {
        switch (below(5)) {
        case 0:
            return changeSetting();
        case 1:
            return changeFrames();
        case 2:
            return changeMarkers();
        case 3:
            return changeScenes();
        default:
            return changeNodes();
        }
    }

    void bracket()
    {
        CO_CommandAccumScope scope(&manager(), "Bracket", nullptr, CO_CommandAccumScope::kDefault);
        bool changed = false;
        for (unsigned int changes = below(5); changes > 0; --changes)
            changed = change() || changed;
        if (below(3) == 0)
            scope.cancel();
        else if (changed)
            m_bracketed = true;
    }

    /// Takes down the state that a change led to; a change that was refused must have left all as it was.
    void record(bool changed)
    {
        const auto done = static_cast<std::size_t>(manager().executedHistorySize());
        if (!changed) {
            EXPECT_EQ(done, m_done);
            return;
        }
        ASSERT_EQ(done, m_done + 1);
        m_states.resize(done);
        m_states.push_back(saved());
        m_done = done;
        ++m_changes;
    }

    void check()
    {
        if (std::exchange(m_bracketed, false) && static_cast<std::size_t>(manager().executedHistorySize()) > m_done)
            record(true);
        ASSERT_EQ(static_cast<std::size_t>(manager().executedHistorySize()), m_done);
        ASSERT_EQ(static_cast<std::size_t>(manager().historySize()) + 1, m_states.size());
        ASSERT_EQ(saved(), m_states[m_done]);
    }

    void undo(unsigned int count)
    {
        manager().unexecute(count);
        m_done -= std::min<std::size_t>(count, m_done);
    }
    void redo(unsigned int count)
    {
        manager().reexecute(count);
        m_done = std::min<std::size_t>(m_done + count, m_states.size() - 1);
    }

    std::mt19937 m_random;
    MemoryProject m_project;
    int m_label = 0;
    bool m_bracketed = false;
    std::vector<std::string> m_states; ///< The saved forms, by the number of entries that are done.
    std::size_t m_done = 0;
    std::size_t m_changes = 0; ///< The number of changes that succeeded.
};

class RandomSessionTest : public testing::TestWithParam<unsigned int> {};

} // namespace

TEST_P(RandomSessionTest, TheSavedFormFollowsTheUndoList)
{
    RandomSession session(GetParam());
    for (int step = 0; step < 250; ++step) {
        session.step();
        if (HasFatalFailure() || HasNonfatalFailure())
            FAIL() << "at step " << step;
    }
    EXPECT_GT(session.changes(), 60U);
    for (int round = 0; round < 2; ++round) {
        session.undoAll();
        session.redoAll();
    }
    session.undoAll();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSessionTest, testing::Range(0U, 40U));
