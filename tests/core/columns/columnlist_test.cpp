#include "core/columns/columnlist.h"

#include "core/columns/beziercolumn.h"
#include "core/columns/columnkinds.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standincolumn.h"
#include "tests/core/support/standins.h"

using namespace OMC;

namespace {

class ColumnListTest : public AnimationTest {
protected:
    ColumnListTest()
    {
        for (const char* name : {"a", "b", "c"})
            columns.create("BEZIER", name, QVariant());
        manager().clearHistory();
    }
    std::vector<TUTimedValue*> selected(const QVariant& selector, const QStringList& wanted = {})
    {
        std::vector<TUTimedValue*> found;
        QStringList errors;
        ColumnList::QVariantToTimedValueList(selector, *scene(), found, errors);
        EXPECT_EQ(errors, wanted);
        return found;
    }
    static QStringList namesOf(const std::vector<TUTimedValue*>& found)
    {
        QStringList names;
        for (const TUTimedValue* column : found)
            names.append(column->getName());
        return names;
    }

    ColumnList columns{scene()};
};

/// A scene with columns of no engine, whatever they are.
class SceneOfColumns : public StandInScene {
public:
    Iterator timedValuesBegin() const override { return columns.data(); }
    Iterator timedValuesEnd() const override { return columns.data() + columns.size(); }

    std::vector<TUTimedValue*> columns;
};

} // namespace

TEST_F(ColumnListTest, ASelectorIsReadInEachOfItsForms)
{
    const BezierColumn b = *objectIn<BezierColumn>(columns.get("b"));
    EXPECT_EQ(namesOf(selected(asArgument(b))), QStringList("b"));
    EXPECT_EQ(namesOf(selected(2)), QStringList("c"));
    EXPECT_EQ(namesOf(selected("a")), QStringList("a"));
    EXPECT_EQ(namesOf(selected(QStringList({"c", "a", "c"}))), QStringList({"a", "c"})) << "in the scene's order";
    EXPECT_EQ(namesOf(selected(QStringList({"x", "b", "y"}),
                               {"Failed to find column by name: x", "Failed to find column by name: y"})),
              QStringList("b"));
    selected(3, {"Column index is out of range."});
    selected(-1, {"Column index is out of range."});
    for (const QVariant& nothing : {QVariant(), QVariant(2.5), QVariant(true), QVariant(QVariantList{"a"}),
                                    QVariant(QVariantMap()), asArgument(columns)})
        EXPECT_TRUE(selected(nothing).empty());
    b.getTimedValue()->expireWeakPointers();
    selected(asArgument(b), {"Unable to identify the column."});
}

TEST_F(ColumnListTest, EveryKindIsMadeUnderItsText)
{
    for (const ColumnKind& kind : columnKinds) {
        const QString text = QString::fromLatin1(kind.text);
        const Obj made = columns.create(text.toLower(), text, QVariant());
        ASSERT_NE(made.get(), nullptr) << kind.text;
        EXPECT_EQ(objectIn<Column>(made)->getType(), text);
        EXPECT_EQ(objectIn<Column>(made)->getTimedValue()->type(), kind.type);
    }
}

TEST_F(ColumnListTest, ColumnsAreRemovedByTheRulesOfTheirKinds)
{
    SceneOfColumns other;
    StandInColumn cells(sceneCommon());
    cells.kind = static_cast<TUTimedValue::timedValueType>(77);
    cells.nodes = {peg, peg};
    other.columns = {&cells};
    other.commands = &manager();
    ColumnList list(&other);
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "Unsupported column : Cells");
    cells.kind = TUTimedValue::kBezier;
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "Column is still linked : Cells [2 nodes]");
    cells.nodes.clear();
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "Failed to remove column: Cells");
    cells.kind = TUTimedValue::kSound;
    cells.nodes = {peg};
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "Failed to remove sound column: Cells");
    EXPECT_TRUE(labels().isEmpty());
    other.commands = nullptr;
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "An unexpected error occurred.");
}

TEST_F(ColumnListTest, WithoutAnElementManagerThereIsNoDrawingColumn)
{
    StandInScene other;
    EXPECT_EQ(failureOf([&] { ColumnList(&other).create("DRAWING", "x", QVariant()); }),
              "An unexpected error has occurred.");
    EXPECT_EQ(ColumnList(&other).create("BEZIER", "x", QVariant()).get(), nullptr) << "an engine without any columns";
}

TEST_F(ColumnListTest, ALoopStandsAtItsEndBehindTheLastColumn)
{
    const Obj handle = columns.__iter__();
    auto& loop = *objectIn<ColumnList>(handle);
    QStringList names;
    for (; !loop.__atend__(); ++loop)
        names.append(objectIn<Column>(loop.__iterItem__())->getName());
    EXPECT_EQ(names, QStringList({"a", "b", "c"}));
    --loop;
    EXPECT_FALSE(loop.__atend__());
    EXPECT_EQ(objectIn<Column>(loop.__iterItem__())->getName(), "b");
    columns.remove(QStringList({"a", "b", "c"}));
    EXPECT_EQ(failureOf([&] { columns.__iterItem__(); }), "Column List is empty.");
}

TEST_F(ColumnListTest, AListOfASceneThatIsGoneSaysSo)
{
    ColumnList list(scene());
    close();
    const std::initializer_list<std::function<void()>> calls{[&] { list.size(); },
                                                             [&] { list.get(0); },
                                                             [&] { list.get("a"); },
                                                             [&] { list.list(); },
                                                             [&] { list.find("*"); },
                                                             [&] { list.create("BEZIER", "x", QVariant()); },
                                                             [&] { list.remove("a"); },
                                                             [&] { list.contains("a"); },
                                                             [&] { list.linkedNodes("a"); },
                                                             [&] { list.__iterItem__(); },
                                                             [&] { list.linkedAttributes("a"); },
                                                             [&] { list.__str__(); }};
    for (const auto& call : calls)
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}
