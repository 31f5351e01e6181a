#include "engine/exposure/exposurecolumn.h"

#include "core/host/pr_preference.h"
#include "engine/folder/jsonwriter.h"
#include "tests/engine/elements/elementtest.h"
#include "tests/engine/support/columndump.h"

#include <limits>

namespace {

using brindle::engine::Column;
using brindle::engine::DrawingColumn;
using brindle::engine::Exposure;
using brindle::engine::TimingColumn;
using DR_DrawingCommands::FrameRanges;

class ExposureColumnTest : public ElementTest {
public:
    template <typename Kind>
    Kind& add(const QString& name)
    {
        auto* column = new Kind(name);
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        return *column;
    }

    bool expose(TUSeqTimedValue& column, double frame, const QStringList& names)
    {
        auto commands = std::make_unique<CO_AndCommand>();
        column.createSetValueCmd(nullptr, frame, names, 0, *commands);
        return run(commands.release());
    }

    bool link(TUElementTimedValue& column, int to)
    {
        return run(new tu_timedvalue::element::SetElementIdCmd(&column, to));
    }

    static std::string shown(const Column& column)
    {
        brindle::engine::JsonWriter json;
        json.beginObject();
        column.write(json);
        json.endObject();
        return json.result().simplified().toStdString();
    }

    /// Everything that the project saves of the scene, of elements and of the undo list's labels.
    QString all()
    {
        return dump() + columnsDump(scene()) + QString::fromStdString(shown(drawings)) + names().join(u',');
    }
    QStringList names() { return info(element).getAllDrawingNames(); }

    /// A change is one entry that is undone and redone exactly.
    void changes(const std::function<bool()>& call)
    {
        const int entries = manager().executedHistorySize();
        const QString before = all();
        ASSERT_TRUE(call());
        ASSERT_EQ(manager().executedHistorySize(), entries + 1);
        const QString after = all();
        EXPECT_NE(after, before);
        undo();
        EXPECT_EQ(all(), before);
        redo();
        EXPECT_EQ(all(), after);
    }

    void refuses(const std::function<bool()>& call)
    {
        const int entries = manager().executedHistorySize();
        const QString before = all();
        EXPECT_FALSE(call());
        EXPECT_EQ(manager().executedHistorySize(), entries);
        EXPECT_EQ(all(), before);
    }

    FrameRanges range(int first, int end) { return {{&drawings, first, end}}; }
    SC_ProjectCommon* common() { return project().projectCommon(); }

    int element = create("Arm");
    DrawingColumn& drawings = add<DrawingColumn>("Arm");
};

} // namespace

TEST_F(ExposureColumnTest, ACellShowsTheDrawingThatIsExposedThere)
{
    ASSERT_TRUE(expose(drawings, 3, {"a", "b", "", "c"}));
    QString text;
    bool isKey = false;
    bool isHeld = false;
    bool isBlank = false;
    bool isLocked = false;
    const auto cell = [&](double frame) {
        drawings.getValueForXsheet(frame, 1, &text, isKey, isHeld, isBlank, isLocked);
        return text + (isKey ? "K" : "") + (isHeld ? "H" : "") + (isBlank ? "B" : "");
    };
    EXPECT_EQ(cell(1), "B");
    EXPECT_TRUE(text.isNull());
    EXPECT_EQ(cell(3), "aK");
    EXPECT_EQ(cell(3.7), "aK");
    EXPECT_EQ(cell(5), "B");
    EXPECT_EQ(cell(60), "cH");
    for (const double frame : {0.9, -1.0, 2e6, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(cell(frame), "B") << frame;
    EXPECT_EQ(drawings.nFrames(), 60);
    EXPECT_EQ(drawings.seqAt(5), nullptr);
    EXPECT_EQ(dynamic_cast<const TUDrawingSequence&>(*drawings.seqAt(7)).name(), "c");
    EXPECT_EQ(drawings.projectCommon(), common());
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [3, "a"], [4, "b"], [5], [6, "c"] ] })");
}

TEST_F(ExposureColumnTest, ADrawingThatTheElementLacksIsMadeInTheSameEntry)
{
    changes([&] { return link(drawings, element); });
    draw(element, "a");
    changes([&] { return expose(drawings, 1, {"a", "b", "b", "c", "b", ""}); });
    EXPECT_EQ(names(), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(shown(drawings), R"({ "element": 1, "exposures": [ [1, "a"], [2, "b"], [4, "c"], [5, "b"], [6] ] })");
    refuses([&] { return expose(drawings, 1, {"d", "x\ny"}); });
    refuses([&] { return expose(drawings, 1, {QString(300, u'x')}); });
    refuses([&] { return expose(drawings, 0, {"d"}); });
    refuses([&] { return expose(drawings, 1e6, {"d", "e"}); });
    refuses([&] { return expose(drawings, std::numeric_limits<double>::infinity(), {"d"}); });
}

TEST_F(ExposureColumnTest, CellsAreTypedIntoTheExposureSheet)
{
    changes([&] { return drawings.setValuesFromXsheet(4, 3, "a", 1) == 0; });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [4, "a"] ] })");
    changes([&] { return drawings.setValuesFromXsheet(6, 1, "", 1) == 0; });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [4, "a"], [6] ] })");
    EXPECT_EQ(labels().mid(labels().size() - 2), (QStringList{"Set Cells", "Clear Cells"}));
    for (const int count : {0, -1, 1'000'001, std::numeric_limits<int>::max()})
        refuses([&] { return drawings.setValuesFromXsheet(1, count, "a", 1) == 0; });
    refuses([&] { return drawings.setValuesFromXsheet(0, 1, "a", 1) == 0; });
}

TEST_F(ExposureColumnTest, AnElementIsLinkedByItsId)
{
    refuses([&] { return link(drawings, 99); });
    refuses([&] { return run(new tu_timedvalue::element::SetElementIdCmd(nullptr, element)); });
    changes([&] { return link(drawings, element); });
    EXPECT_TRUE(elements().elementIsLinkedToTimedValue(element));
    changes([&] { return link(drawings, -5); });
    EXPECT_EQ(drawings.elementId(), -1);
}

TEST_F(ExposureColumnTest, RenamingADrawingRenamesItsExposures)
{
    link(drawings, element);
    expose(drawings, 1, {"a", "b", "a"});
    const EM_DrawingId a = elements().getDrawingId(element, "a", false);
    changes([&] { return run(new RenameDrawingCmd(&elements(), element, a, "x")); });
    EXPECT_EQ(drawings.getTiming(3), "x");
    EXPECT_TRUE(info(element).isDrawingUsed(a));
    EXPECT_TRUE(drawings.showsDrawing("b"));
    EXPECT_FALSE(drawings.showsDrawing("a"));
}

TEST_F(ExposureColumnTest, DrawingsAreDeletedFromTheElementAndFromAllColumnsThatShowThem)
{
    auto& other = add<DrawingColumn>("Other");
    link(drawings, element);
    link(other, element);
    expose(drawings, 1, {"a", "b", "c"});
    expose(other, 10, {"b", "c"});
    changes([&] { return DR_DrawingCommands::deleteDrawings(common(), range(1, 3)); });
    EXPECT_EQ(labels().last(), "Delete Drawings");
    EXPECT_EQ(names(), QStringList("c"));
    EXPECT_EQ(shown(drawings), R"({ "element": 1, "exposures": [ [3, "c"] ] })");
    EXPECT_EQ(shown(other), R"({ "element": 1, "exposures": [ [11, "c"] ] })");
    refuses([&] { return DR_DrawingCommands::deleteDrawings(common(), range(1, 3)); });
    refuses([&] { return DR_DrawingCommands::deleteDrawings(common(), {}); });
    refuses([&] { return DR_DrawingCommands::deleteDrawings(nullptr, range(3, 4)); });
    refuses([&] { return DR_DrawingCommands::deleteDrawings(common(), {{nullptr, 3, 4}}); });

    auto& timing = add<TimingColumn>("Timing");
    expose(timing, 1, {"a", "b", "a"});
    EXPECT_TRUE(DR_DrawingCommands::deleteDrawings(common(), {{&timing, 3, 4}}));
    EXPECT_EQ(shown(timing), R"({ "exposures": [ [2, "b"], [3] ] })");
}

TEST_F(ExposureColumnTest, KeyExposuresAreOneEntryForAllRanges)
{
    expose(drawings, 1, {"a"});
    expose(drawings, 20, {""});
    using namespace DR_DrawingCommands;
    changes([&] { return addKeyExposures(common(), {{&drawings, 2, 4}, {&drawings, 7, 8}}); });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"], [2, "a"], [3, "a"], [7, "a"], [20] ] })");
    EXPECT_EQ(drawings.nextKeyExposure(3), 7);
    EXPECT_EQ(drawings.nextKeyExposure(7), 0);
    changes([&] { return removeKeyExposures(common(), range(3, 100), true); });
    changes([&] { return removeKeyExposures(common(), range(1, 2), false); });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [2, "a"], [20] ] })");
    changes([&] { return fillWithHeldFrames(common(), range(25, 31)); });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [2, "a"], [20], [25, "a"], [31] ] })");
    EXPECT_EQ(labels().mid(labels().size() - 4), (QStringList{"Add Key Exposures", "Remove Duplicate Key Exposures",
                                                              "Remove Key Exposures", "Fill Empty Cells"}));
    for (const FrameRanges& none : {FrameRanges{}, FrameRanges{{nullptr, 1, 2}}}) {
        refuses([&] { return addKeyExposures(common(), none); });
        refuses([&] { return removeKeyExposures(common(), none, true); });
        refuses([&] { return fillWithHeldFrames(common(), none); });
    }
}

TEST_F(ExposureColumnTest, TheNextKeyExposureMayBeOfAMark)
{
    link(drawings, element);
    expose(drawings, 1, {"a", "b", "c", "b"});
    info(element).setDrawingType(elements().getDrawingId(element, "b", false), kMarkBreakdown);
    EXPECT_EQ(drawings.nextKeyExposure(0, {kMarkBreakdown}), 2);
    EXPECT_EQ(drawings.nextKeyExposure(2, {kMarkBreakdown, kMarkKey}), 4);
    EXPECT_EQ(drawings.nextKeyExposure(0, {kMarkKey}), 0);
    EXPECT_EQ(drawings.nextKeyExposure(0, {kMarkNone}), 1);
}

TEST_F(ExposureColumnTest, CellsAreClearedOrCutOut)
{
    expose(drawings, 1, {"a"});
    expose(drawings, 20, {"b"});
    CO_Command* command = nullptr;
    drawings.clear(5, 3, false, &command);
    changes([&] { return run(command); });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"], [5], [8, "a"], [20, "b"] ] })");
    drawings.clear(5, 3, true, &command);
    changes([&] { return run(command); });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"], [5, "a"], [17, "b"] ] })");
    for (const auto& [start, count] : {std::pair(0.0, 2), {1.0, 0}, {5.0, -3}, {1e6, 2}, {-1e300, 2}}) {
        drawings.clear(start, count, false, &command);
        EXPECT_EQ(command, nullptr) << start << ' ' << count;
    }
}

TEST_F(ExposureColumnTest, ADrawingIsDuplicatedUnderTheNextFreeNumber)
{
    link(drawings, element);
    expose(drawings, 1, {"1", "1", "7", ""});
    changes([&] { return run(DuplicateDrawingCmd::Create(&drawings, 0, 2, 1)); });
    EXPECT_EQ(names(), (QStringList{"1", "7", "8"}));
    EXPECT_EQ(shown(drawings), R"({ "element": 1, "exposures": [ [1, "1"], [2, "8"], [3, "7"], [4] ] })");
    EXPECT_EQ(DuplicateDrawingCmd::Create(&drawings, 0, 5, 1), nullptr);
    EXPECT_EQ(DuplicateDrawingCmd::Create(&drawings, 0, -5, 1), nullptr);
    EXPECT_EQ(DuplicateDrawingCmd::Create(nullptr, 0, 1, 1), nullptr);
}

TEST_F(ExposureColumnTest, NamesAreGeneratedByNumberOrByFrame)
{
    auto& timing = add<TimingColumn>("Timing");
    expose(timing, 1, {"a", "3", "5"});
    QStringList generated;
    timing.generateValues(5, false, generated);
    timing.generateValues(5, true, generated);
    timing.generateValues(9.5, true, generated);
    timing.generateValues(0, true, generated);
    EXPECT_EQ(generated, (QStringList{"6", "5-1", "9"}));
}

TEST_F(ExposureColumnTest, ALineTestGetsADrawingAFrame)
{
    auto& timing = add<TimingColumn>("Timing");
    expose(timing, 1, {"x", "LT2", ""});
    expose(timing, 9, {"z"});
    ASSERT_TRUE(run(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 1, 5, "LT", true)));
    EXPECT_EQ(shown(timing),
              R"({ "exposures": [ [1, "x"], [2, "LT2"], [3, "LT1"], [4, "LT3"], [5, "LT4"], [6], [9, "z"] ] })");
    undo();
    ASSERT_TRUE(run(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 8, 9, "LT", false)));
    EXPECT_EQ(shown(timing), R"({ "exposures": [ [1, "x"], [2, "LT2"], [3], [8, "LT1"], [9, "LT3"], [10, "z"] ] })");
    EXPECT_EQ(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 1, 2, "LT", true), nullptr);
    EXPECT_EQ(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 5, 4, "LT", false), nullptr);
    EXPECT_EQ(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 0, 4, "LT", false), nullptr);
    EXPECT_EQ(DuplicateDrawingCmd::CreateWithFillDuplicate(nullptr, 0, 1, 4, "LT", false), nullptr);
    EXPECT_FALSE(run(DuplicateDrawingCmd::CreateWithFillDuplicate(&timing, 0, 1, 4, QString(300, u'x'), false)));
}

TEST_F(ExposureColumnTest, TheScenesFramesComeInEmptyUnlessThePreferenceExtends)
{
    expose(drawings, 1, {"a"});
    changes([&] {
        scene().setNumberOfFrames(5, 3, true, true);
        return true;
    });
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"], [6], [9, "a"] ] })");
    undo();
    const QString preference = QStringLiteral("EXTEND_DRAWING_EXPOSURE");
    tuPref()->setBoolValue(preference, true);
    scene().setNumberOfFrames(5, 3, true, true);
    tuPref()->setBoolValue(preference, false);
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"] ] })");
    EXPECT_EQ(drawings.nFrames(), 63);
}

TEST_F(ExposureColumnTest, WhatACellMayChangeIsRememberedAndSplicedAsAKey)
{
    expose(drawings, 1, {"a", "b"});
    const std::string before = shown(drawings);
    const auto memo = drawings.remember(2);
    expose(drawings, 2, {"c", "d"});
    memo->restore();
    EXPECT_EQ(shown(drawings), before);
    EXPECT_EQ(drawings.spliceCommand(2, false), nullptr);
    ASSERT_TRUE(run(drawings.spliceCommand(5, false)));
    EXPECT_EQ(shown(drawings), R"({ "exposures": [ [1, "a"], [2, "b"], [5, "b"] ] })");
    const auto copy = drawings.copy("Copy", true);
    EXPECT_EQ(shown(*copy), shown(drawings));
    CO_Command* scaled = nullptr;
    drawings.scale(2, 1, &scaled);
    EXPECT_EQ(scaled, nullptr);
}
