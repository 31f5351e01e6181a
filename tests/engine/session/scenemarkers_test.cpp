#include "engine/session/scenemarkers.h"

#include "tests/engine/support/memoryproject.h"

#include <limits>

namespace {

using brindle::engine::SceneMarkers;

SC_SceneMarker marker(const char* name, int frame, int length = 1)
{
    SC_SceneMarker marker;
    marker.name = name;
    marker.frame = frame;
    marker.length = length;
    return marker;
}

/// "Name first-last" for each marker.
QStringList described(const SceneMarkers& markers)
{
    QStringList texts;
    for (const SC_SceneMarker& marker : markers)
        texts.append(QStringLiteral("%1 %2-%3").arg(marker.name).arg(marker.frame).arg(marker.lastFrame()));
    return texts;
}

class SceneMarkersTest : public GraphTest {
protected:
    const SceneMarkers& markers() { return scene().sceneMarkers(); }
    QStringList shown() { return described(markers()); }
    bool addMarker(const SC_SceneMarker& marker)
    {
        return run(new SC_SceneCmds::AddSceneMarkerCmd(scene().sceneCommon(), marker), "Add");
    }
    bool removeMarker(int place)
    {
        return run(new SC_SceneCmds::RemoveSceneMarkerCmd(scene().sceneCommon(), place), "Remove");
    }
    bool setMarker(int place, const SC_SceneMarker& marker)
    {
        return run(new SC_SceneCmds::SetSceneMarkerCmd(scene().sceneCommon(), place, marker), "Set");
    }
    void fill()
    {
        ASSERT_TRUE(addMarker(marker("A", 10, 5)));
        ASSERT_TRUE(addMarker(marker("B", 30)));
        ASSERT_TRUE(addMarker(marker("C", 55, 6)));
        manager().clearHistory();
    }
};

} // namespace

TEST_F(SceneMarkersTest, MarkersStandInTheOrderOfTheirFrames)
{
    EXPECT_TRUE(markers().empty());
    ASSERT_TRUE(addMarker(marker("B", 30)));
    ASSERT_TRUE(addMarker(marker("A", 10, 51)));
    ASSERT_TRUE(addMarker(marker("B2", 30, 3)));
    ASSERT_TRUE(addMarker(marker("C", 31)));
    const QStringList all{"A 10-60", "B 30-30", "B2 30-32", "C 31-31"};
    EXPECT_EQ(shown(), all);
    EXPECT_EQ(labels(), QStringList({"Add", "Add", "Add", "Add"}));
    undo(3);
    EXPECT_EQ(shown(), QStringList("B 30-30"));
    redo(3);
    EXPECT_EQ(shown(), all);
}

TEST_F(SceneMarkersTest, AMarkerKeepsAllThatItIsGiven)
{
    SC_SceneMarker given = marker("Hit", 12, 3);
    given.colour = 0x80FF0010;
    given.note = QString::fromUtf8("Sch\xC3\xB6n");
    ASSERT_TRUE(addMarker(given));
    EXPECT_EQ(markers().front(), given);
    undo();
    redo();
    EXPECT_EQ(markers().front(), given);
}

TEST_F(SceneMarkersTest, MarkersAreRemovedAndComeBackToTheirPlaces)
{
    fill();
    const QStringList all = shown();
    for (int place = 0; place < 3; ++place) {
        QStringList left = all;
        left.removeAt(place);
        ASSERT_TRUE(removeMarker(place));
        EXPECT_EQ(shown(), left);
        undo();
        EXPECT_EQ(shown(), all);
        redo();
        EXPECT_EQ(shown(), left);
        undo();
    }
    EXPECT_EQ(labels().size(), 0);
}

TEST_F(SceneMarkersTest, AMarkerMayMoveInTheList)
{
    fill();
    const QStringList all = shown();
    struct {
        int place;
        SC_SceneMarker marker;
        QStringList after;
    } const sets[] = {
        {0, marker("A2", 10, 7), {"A2 10-16", "B 30-30", "C 55-60"}},
        {0, marker("A2", 40), {"B 30-30", "A2 40-40", "C 55-60"}},
        {0, marker("A2", 55), {"B 30-30", "C 55-60", "A2 55-55"}},
        {2, marker("C2", 1), {"C2 1-1", "A 10-14", "B 30-30"}},
        {1, marker("B", 30), all},
    };
    for (const auto& [place, given, after] : sets) {
        ASSERT_TRUE(setMarker(place, given));
        EXPECT_EQ(shown(), after);
        undo();
        EXPECT_EQ(shown(), all);
        redo();
        EXPECT_EQ(shown(), after);
        undo();
    }
}

TEST_F(SceneMarkersTest, AMarkerOutsideTheSceneLeavesNoTrace)
{
    fill();
    const QStringList all = shown();
    constexpr int most = std::numeric_limits<int>::max();
    const SC_SceneMarker outside[] = {marker("X", 0),          marker("X", -5),      marker("X", 61),
                                      marker("X", 60, 2),      marker("X", 10, 0),   marker("X", 10, -1),
                                      marker("X", most),       marker("X", 2, most), marker("X", most, most),
                                      marker("X", -most, most)};
    for (const SC_SceneMarker& marker : outside) {
        EXPECT_FALSE(addMarker(marker)) << marker.frame << ' ' << marker.length;
        EXPECT_FALSE(setMarker(0, marker)) << marker.frame << ' ' << marker.length;
    }
    for (const int place : {-1, 3, most}) {
        EXPECT_FALSE(removeMarker(place));
        EXPECT_FALSE(setMarker(place, marker("X", 1)));
    }
    EXPECT_FALSE(run(new SC_SceneCmds::AddSceneMarkerCmd(nullptr, marker("X", 1))));
    EXPECT_FALSE(run(new SC_SceneCmds::RemoveSceneMarkerCmd(nullptr, 0)));
    EXPECT_FALSE(run(new SC_SceneCmds::SetSceneMarkerCmd(nullptr, 0, marker("X", 1))));
    EXPECT_EQ(shown(), all);
    EXPECT_EQ(manager().historySize(), 0);
}

TEST_F(SceneMarkersTest, MarkersRippleWithTheFramesOrStay)
{
    fill();
    const QStringList all = shown();
    struct {
        const char* what;
        int at, delta;
        QStringList rippled, still;
    } const moves[] = {
        {"ahead of all", 0, 5, {"A 15-19", "B 35-35", "C 60-65"}, all},
        {"into a marker", 12, 5, {"A 10-19", "B 35-35", "C 60-65"}, all},
        {"right behind a marker", 14, 5, {"A 10-14", "B 35-35", "C 60-65"}, all},
        {"at the end", 60, 5, {"A 10-14", "B 30-30", "C 55-60"}, all},
        {"frames ahead go", 0, -5, {"A 5-9", "B 25-25", "C 50-55"}, {"A 10-14", "B 30-30", "C 55-55"}},
        {"a marker goes", 29, -1, {"A 10-14", "C 54-59"}, {"A 10-14", "B 30-30", "C 55-59"}},
        {"a marker is cut", 12, -10, {"A 10-12", "B 20-20", "C 45-50"}, {"A 10-14", "B 30-30"}},
        {"the end goes", 60, -5, {"A 10-14", "B 30-30", "C 55-55"}, {"A 10-14", "B 30-30", "C 55-55"}},
        {"almost all goes", 0, -59, {"C 1-1"}, {}},
    };
    for (const auto& [what, at, delta, rippled, still] : moves) {
        for (const bool ripple : {true, false}) {
            scene().setNumberOfFrames(at, delta, ripple, true);
            EXPECT_EQ(shown(), ripple ? rippled : still) << what;
            EXPECT_TRUE(brindle::engine::isMarkerList(markers(), scene().getNumberOfFrames())) << what;
            EXPECT_EQ(labels(), QStringList("Set Number of Frames"));
            undo();
            EXPECT_EQ(shown(), all) << what;
            redo();
            EXPECT_EQ(shown(), ripple ? rippled : still) << what;
            undo();
        }
    }
}

TEST_F(SceneMarkersTest, AListThatIsReadIsChecked)
{
    const SceneMarkers good{marker("A", 1, 60), marker("B", 1), marker("C", 60)};
    EXPECT_TRUE(scene().restoreMarkers(good));
    EXPECT_EQ(markers(), good);
    const SceneMarkers wrong[] = {{marker("A", 2), marker("B", 1)}, {marker("A", 0)}, {marker("A", 60, 2)}};
    for (const SceneMarkers& list : wrong)
        EXPECT_FALSE(scene().restoreMarkers(list));
    EXPECT_EQ(markers(), good);
    EXPECT_EQ(manager().historySize(), 0);
    EXPECT_TRUE(scene().restoreMarkers({}));
    EXPECT_TRUE(markers().empty());
}

TEST_F(SceneMarkersTest, ChangesAreAnnounced)
{
    const auto before = scene().changes().revision();
    ASSERT_TRUE(addMarker(marker("A", 1)));
    EXPECT_GT(scene().changes().revision(), before);
}
