#include "core/columns/column.h"

#include "core/attributes/attribute.h"
#include "core/columns/columnvalue.h"
#include "core/nodes/node.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"
#include "tests/core/support/standincolumn.h"
#include "tests/core/support/standins.h"

using namespace OMC;

class ColumnTest : public AnimationTest {
protected:
    TUBezierTimedValue* curve = animate("position.x", {{1, 0.5}, {3, 2}});
    Obj handle{Column::getWrapped(curve)};
    Column& column = *objectIn<Column>(handle);
    StandInColumn cells{sceneCommon()};
    Column cellColumn{&cells};
};

TEST_F(ColumnTest, AWrapperIsMadeForTheColumnsKind)
{
    EXPECT_TRUE(objectIn<BezierColumn>(handle));
    EXPECT_TRUE(objectIn<BezierColumn>(Obj(column.copy())));
    const Obj plain(Column::getWrapped(&cells));
    ASSERT_TRUE(objectIn<Column>(plain));
    EXPECT_FALSE(objectIn<KeyframeableColumn>(plain));
    EXPECT_EQ(Column::getWrapped(nullptr), nullptr);
    EXPECT_EQ(column.getTimedValue(), curve);
}

TEST_F(ColumnTest, TheKindIsToldByItsWord)
{
    const char* const words[] = {"DRAWING", "SOUND",     "3D_PATH",         "BEZIER",     "EASE",        "EXPR",
                                 "TIMING",  "VELOBASED", "QUATERNION_PATH", "ANNOTATION", "FILE_LIBRARY"};
    for (int kind = 0; kind < 11; ++kind) {
        cells.kind = static_cast<TUTimedValue::timedValueType>(kind);
        EXPECT_EQ(cellColumn.getType(), words[kind]);
    }
    cells.kind = static_cast<TUTimedValue::timedValueType>(11);
    EXPECT_EQ(cellColumn.getType(), "Undefined Column type");
    EXPECT_EQ(column.getType(), "BEZIER");
}

TEST_F(ColumnTest, AColumnSaysWhatItIs)
{
    EXPECT_EQ(cellColumn.__str__(), "Column(Cells)");
    EXPECT_EQ(column.getName(), curve->getName());
    EXPECT_EQ(column.getDisplayName(), curve->getDisplayName());
    bool native = false;
    bool filter = false;
    const std::vector<std::string> names{"objectName", "name",         "display_name",     "type",
                                         "anonymous",  "linked_nodes", "linked_attributes"};
    EXPECT_EQ(cellColumn.getDir(native, filter), names);
    for (const auto& [name, shown] : std::initializer_list<std::pair<const char*, bool>>{
             {"set_entry", true}, {"get_entry", true}, {"set_name", false}, {"get_name", false}, {"name", true}}) {
        std::string text = name;
        EXPECT_EQ(cellColumn.filterDir(text), shown) << name;
    }
}

TEST_F(ColumnTest, AnEntryIsTheTextOfTheExposureSheet)
{
    cells.cells = {{3, "A"}, {3.5, "B"}};
    EXPECT_EQ(cellColumn.getEntry(3), "A");
    EXPECT_EQ(cellColumn.getEntry(3.5), "B");
    EXPECT_EQ(cellColumn.getEntry(3.5).typeId(), QMetaType::QString);
    EXPECT_EQ(cellColumn.get(3), "A");
    EXPECT_EQ(cellColumn.get(QString("3")), "A");
    cellColumn.getEntry(1, 4);
    EXPECT_EQ(cells.subColumnsRead, std::vector<int>({1, 1, 1, 1, 1, 4}));
    for (const char* index : {"x", "", "3.5", "99999999999"}) {
        EXPECT_EQ(failureOf([&] { cellColumn.get(QString(index)); }), "Invalid index provided.") << index;
        EXPECT_EQ(failureOf([&] { cellColumn.set(QString(index), 1); }), "Invalid index provided.") << index;
    }
    for (const double frame : {qQNaN(), qInf(), -qInf()}) {
        EXPECT_EQ(failureOf([&] { cellColumn.getEntry(frame); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { cellColumn.setEntry(frame, 1); }), "Invalid argument at index 0.");
    }
}

TEST_F(ColumnTest, TheListHasAnInvalidValueForEachFrameAndOneMoreAhead)
{
    scene()->setNumberOfFrames(2, -58, true, true);
    ASSERT_EQ(cellColumn.nFrames(), 2u);
    cells.cells = {{1, "A"}, {2, "B"}};
    const QList<QVariant> values = cellColumn.list();
    ASSERT_EQ(values.size(), 5);
    for (int index = 0; index < 3; ++index)
        EXPECT_FALSE(values[index].isValid());
    EXPECT_EQ(values[3], "A");
    EXPECT_EQ(values[4], "B");
    EXPECT_EQ(cellColumn.size(), 2u);
}

TEST_F(ColumnTest, IterationWalksTheFrames)
{
    scene()->setNumberOfFrames(3, -57, true, true);
    cells.cells = {{1, "A"}, {2, "B"}, {3, "C"}};
    const Obj iterator = cellColumn.__iter__();
    auto& walking = *objectIn<Column>(iterator);
    QString texts;
    for (; !walking.__atend__(); ++walking) {
        EXPECT_EQ(walking.__iterItem__(), walking.__iterItem__());
        texts += walking.__iterItem__().toString();
    }
    EXPECT_EQ(texts, "ABC");
    EXPECT_EQ(cellColumn.getCurrentIndex(), 1u);
    --walking;
    EXPECT_FALSE(walking.__atend__());
    EXPECT_EQ(walking.getCurrentIndex(), 2u);
    --walking;
    --walking;
    --walking;
    EXPECT_EQ(walking.getCurrentIndex(), 1u);
    ++walking;
    const Obj copy(walking.copy());
    EXPECT_EQ(objectIn<Column>(copy)->getCurrentIndex(), 2u);
    walking.resetIterator();
    EXPECT_EQ(walking.getCurrentIndex(), 1u);
}

namespace {

/// A scene of no engine without frames and columns.
class EmptyScene : public StandInSceneCommon {
public:
    SC_TimedValueListInterface* timedValues() const override { return columns; }
    SC_TimedValueListInterface* columns = nullptr;
};

/// Columns that are no scene's.
class LooseColumns : public SC_TimedValueListInterface {
public:
    Iterator timedValuesBegin() const override { return nullptr; }
    Iterator timedValuesEnd() const override { return nullptr; }
    TUTimedValue* findTimedValue(const QString&, int) const override { return nullptr; }
};

} // namespace

TEST_F(ColumnTest, AColumnOfASceneWithoutFramesIsAtItsEndAtOnce)
{
    struct NoFrames : StandInScene {
        using StandInScene::StandInScene;
        int getNumberOfFrames() const override { return frames; }
        int frames = 0;
    } none(1, "None");
    EmptyScene common;
    common.columns = &none;
    cells.scene = &common;
    EXPECT_TRUE(objectIn<Column>(cellColumn.__iter__())->__atend__());
    EXPECT_EQ(cellColumn.list().size(), 1);
    none.frames = -5;
    EXPECT_EQ(cellColumn.size(), 0u);
}

TEST_F(ColumnTest, WithoutASceneWhatNeedsItSaysSo)
{
    LooseColumns loose;
    RefusingManager refusing;
    EmptyScene common;
    const std::string unexpected = "An unexpected error occurred.";
    const auto expectAll = [&](const std::string& entry) {
        EXPECT_EQ(failureOf([&] { cellColumn.setEntry(1, "A"); }), entry);
        EXPECT_EQ(failureOf([&] { cellColumn.setName("New"); }), unexpected);
        EXPECT_EQ(failureOf([&] { cellColumn.setAnonymous(true); }), unexpected);
        EXPECT_EQ(failureOf([&] { cellColumn.scale(2, 1); }), unexpected);
        EXPECT_EQ(failureOf([&] { cellColumn.nFrames(); }), unexpected);
        EXPECT_EQ(failureOf([&] { cellColumn.setName("Cells"); }), "no exception");
        EXPECT_EQ(failureOf([&] { cellColumn.setAnonymous(false); }), "no exception");
        EXPECT_TRUE(cells.writes.empty());
    };
    cells.scene = nullptr;
    expectAll("An unexpected error occurred [1].");
    cells.scene = &common;
    expectAll("An unexpected error occurred [2].");
    common.commands = &refusing;
    expectAll("An unexpected error occurred [3].");
    common.columns = &loose;
    expectAll("An unexpected error occurred [3].");
}

TEST_F(ColumnTest, ANameIsSetOnceInTheScene)
{
    const QString old = column.getName();
    TUBezierTimedValue* other = animate("position.y", {{1, 1}});
    const QByteArray before = saved();
    column.setName(old);
    EXPECT_TRUE(labels().isEmpty());
    column.setName("Walk");
    EXPECT_EQ(curve->getName(), "Walk");
    EXPECT_EQ(labels(), QStringList("Rename " + old + " to Walk"));
    expectUndoable(before);
    expectRefused([&] { column.setName(other->getName()); },
                  "A column named " + other->getName().toStdString() + " already exists.");
    expectRefused([&] { column.setName(""); }, "Failed to rename the column.");
}

TEST_F(ColumnTest, TheAnonymousStateIsSet)
{
    ASSERT_TRUE(column.getAnonymous());
    QByteArray before = saved();
    column.setAnonymous(true);
    EXPECT_TRUE(labels().isEmpty());
    column.setAnonymous(false);
    EXPECT_FALSE(column.getAnonymous());
    EXPECT_EQ(labels(), QStringList("Setting column as not anonymous."));
    expectUndoable(before);
    manager().clearHistory();
    before = saved();
    column.setAnonymous(true);
    EXPECT_EQ(labels(), QStringList("Setting column anonymous."));
    expectUndoable(before);
    EXPECT_EQ(failureOf([&] { cellColumn.setAnonymous(true); }), "Failed to set the anonymous state of the column.");
}

TEST_F(ColumnTest, ScalingIsTheColumnsOwn)
{
    EXPECT_EQ(failureOf([&] { cellColumn.scale(2, 3); }), "Failed to scale the column.");
    EXPECT_EQ(failureOf([&] { cellColumn.scale(qQNaN(), 3); }), "Invalid argument at index 0.");
    EXPECT_TRUE(labels().isEmpty());
    cells.scales = true;
    cellColumn.scale(2.5, 3);
    EXPECT_EQ(cells.scaled, (std::vector<std::pair<double, int>>{{2.5, 3}}));
    EXPECT_EQ(labels(), QStringList(QString()));
    manager().clearHistory();

    const QByteArray before = saved();
    column.scale(2, 1);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 1}, {3, 4}}));
    expectUndoable(before);
}

TEST_F(ColumnTest, WhatTheColumnDrivesIsListedOnceEach)
{
    attribute<Attribute>("angle").setColumnName(curve->getName());
    attribute<Attribute>("position.y").setColumnName(curve->getName());
    const QVariantList nodes = column.getLinkedNodes();
    ASSERT_EQ(nodes.size(), 1);
    EXPECT_EQ(readAs<Node>(nodes[0])->getNode(), peg);
    std::set<QString> paths;
    for (const QVariant& linked : column.getLinkedAttributes())
        paths.insert(readAs<Attribute>(linked)->getFullKeyword());
    EXPECT_EQ(paths, std::set<QString>({"angle", "position.x", "position.y"}));

    AT_Attr* angle = engineAttribute("angle");
    cells.links = {angle, nullptr, angle};
    cells.nodes = {peg};
    for (int kind = 0; kind < 12; ++kind) {
        cells.kind = static_cast<TUTimedValue::timedValueType>(kind);
        const bool drives = std::set<int>{0, 2, 3, 4, 7, 8}.contains(kind);
        EXPECT_EQ(cellColumn.getLinkedAttributes().size(), drives ? 1 : 0) << kind;
        EXPECT_EQ(cellColumn.getLinkedNodes().size(), drives ? 1 : 0) << kind;
    }
}

TEST_F(ColumnTest, AColumnThatIsGoneSaysSo)
{
    undo(10);
    curve->expireWeakPointers();
    const std::string invalid = "Object is no longer valid.";
    EXPECT_EQ(column.getTimedValue(), nullptr);
    for (const auto& call : std::initializer_list<std::function<void()>>{[&] { column.getName(); },
                                                                         [&] { column.setName("A"); },
                                                                         [&] { column.getType(); },
                                                                         [&] { column.getEntry(1); },
                                                                         [&] { column.setEntry(1, 2); },
                                                                         [&] { column.size(); },
                                                                         [&] { column.nFrames(); },
                                                                         [&] { column.get(1); },
                                                                         [&] { column.set(1, 2); },
                                                                         [&] { column.list(); },
                                                                         [&] { column.get(QString("x")); },
                                                                         [&] { column.__iter__(); },
                                                                         [&] { column.__iterItem__(); },
                                                                         [&] { ++column; },
                                                                         [&] { --column; },
                                                                         [&] { column.__atend__(); },
                                                                         [&] { column.scale(1, 1); },
                                                                         [&] { column.getAnonymous(); },
                                                                         [&] { column.setAnonymous(true); },
                                                                         [&] { column.getLinkedNodes(); },
                                                                         [&] { column.getLinkedAttributes(); },
                                                                         [&] { column.__str__(); }})
        EXPECT_EQ(failureOf(call), invalid);
    EXPECT_EQ(failureOf([] { Column(nullptr).getName(); }), invalid);
}

TEST_F(ColumnTest, ThePlainValueObjectHasNoOperations)
{
    ColumnValue value;
    const std::string unexpected = "An unexpected error has occurred.";
    EXPECT_EQ(value.__str__(), "ColumnValue()");
    EXPECT_EQ(failureOf([&] { value.getFrame(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.getValue(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.setValue(1); }), unexpected);
}
