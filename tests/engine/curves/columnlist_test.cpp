#include "engine/curves/columnlist.h"

#include "engine/curves/beziercolumn.h"
#include "tests/engine/support/memoryproject.h"

namespace {

using brindle::engine::BezierColumn;
using brindle::engine::Column;
using brindle::engine::ColumnList;

class ColumnListTest : public testing::Test, public MemoryProject {
protected:
    TUTimedValue* add(const QString& name, int position = -1)
    {
        std::unique_ptr<TUTimedValue> column = std::make_unique<BezierColumn>(name);
        TUTimedValue* made = column.get();
        return list.insert(column, position) ? made : nullptr;
    }

    QStringList names() const
    {
        QStringList names;
        for (TUTimedValue* column : list)
            names.append(column->getName());
        return names;
    }

    ColumnList list{*scene().sceneCommon()};
};

TEST_F(ColumnListTest, KeepsTheOrderAndFindsByName)
{
    TUTimedValue* b = add("b");
    add("c");
    add("a", 0);
    EXPECT_EQ(names(), QStringList({"a", "b", "c"}));
    EXPECT_EQ(list.find("b"), b);
    EXPECT_EQ(list.find("B"), nullptr);
    EXPECT_EQ(b->sceneCommon(), scene().sceneCommon());
}

TEST_F(ColumnListTest, ARefusedColumnStaysItsOwners)
{
    add("a");
    const struct {
        const char* name;
        int position;
    } rows[] = {{"a", -1}, {"", -1}, {"b", 2}, {"b", -2}};
    for (const auto& row : rows) {
        std::unique_ptr<TUTimedValue> column = std::make_unique<BezierColumn>(row.name);
        EXPECT_FALSE(list.insert(column, row.position)) << row.name << row.position;
        ASSERT_TRUE(column);
        EXPECT_EQ(column->sceneCommon(), nullptr);
    }
    EXPECT_EQ(names(), QStringList("a"));
}

TEST_F(ColumnListTest, ATakenColumnIsGoneForScriptsAndComesBackToItsPlace)
{
    add("a");
    TUTimedValue* b = add("b");
    add("c");
    UT_SharedWeakPtrBase handle;
    handle.assign(b);

    int position = -1;
    std::unique_ptr<TUTimedValue> taken = list.take(b, position);
    EXPECT_EQ(taken.get(), b);
    EXPECT_EQ(position, 1);
    EXPECT_EQ(names(), QStringList({"a", "c"}));
    EXPECT_EQ(list.find("b"), nullptr);
    EXPECT_EQ(b->sceneCommon(), nullptr);
    EXPECT_EQ(handle.get(), nullptr);

    EXPECT_TRUE(list.insert(taken, position));
    EXPECT_EQ(names(), QStringList({"a", "b", "c"}));
    EXPECT_EQ(handle.get(), nullptr) << "what a script held stays gone";
}

TEST_F(ColumnListTest, OnlyColumnsOfTheListAreTakenAndRenamed)
{
    BezierColumn stranger("x");
    int position = 0;
    EXPECT_EQ(list.take(&stranger, position), nullptr);
    EXPECT_EQ(list.take(nullptr, position), nullptr);
    EXPECT_FALSE(list.rename(&stranger, "y"));
    EXPECT_FALSE(list.rename(nullptr, "y"));
}

TEST_F(ColumnListTest, RenamesWhatNoOtherColumnIsNamed)
{
    TUTimedValue* a = add("a");
    add("b");
    EXPECT_FALSE(list.rename(a, "b"));
    EXPECT_FALSE(list.rename(a, ""));
    EXPECT_TRUE(list.rename(a, "a"));
    EXPECT_TRUE(list.rename(a, "z"));
    EXPECT_EQ(names(), QStringList({"z", "b"}));
    EXPECT_EQ(list.find("z"), a);
    EXPECT_EQ(list.find("a"), nullptr);
}

TEST_F(ColumnListTest, FreeNamesCountUpAndAreGivenOnce)
{
    add("ATV-0002");
    EXPECT_EQ(list.freeName("ATV"), "ATV-0001");
    EXPECT_EQ(list.freeName("ATV"), "ATV-0003");
    EXPECT_EQ(list.freeName("%1"), "%1-0001");
}

TEST_F(ColumnListTest, AnonymousNamesComeFromTheScene)
{
    EXPECT_EQ(TUTimedValue::generateAnonymousName(scene().sceneCommon(), ""), "ATV-0001");
    EXPECT_EQ(TUTimedValue::generateAnonymousName(scene().sceneCommon(), "Path"), "Path-0001");
    EXPECT_EQ(TUTimedValue::generateAnonymousName(scene().sceneCommon(), ""), "ATV-0002");
    EXPECT_EQ(TUTimedValue::generateAnonymousName(nullptr, ""), "ATV-0001");
}

TEST_F(ColumnListTest, TenThousandColumnsAreTakenFromEitherEndAndPutBackInOrder)
{
    std::vector<TUTimedValue*> columns;
    for (int i = 0; i < 10000; ++i)
        columns.push_back(add(list.freeName("c")));
    const QStringList before = names();
    std::vector<std::pair<std::unique_ptr<TUTimedValue>, int>> taken;
    for (int i = 0; i < 10000; ++i) {
        TUTimedValue* column = i % 2 ? columns[i / 2] : columns[9999 - i / 2];
        int position = -1;
        auto own = list.take(column, position);
        ASSERT_TRUE(own);
        taken.emplace_back(std::move(own), position);
    }
    EXPECT_EQ(list.begin(), list.end());
    while (!taken.empty()) {
        ASSERT_TRUE(list.insert(taken.back().first, taken.back().second));
        taken.pop_back();
    }
    EXPECT_EQ(names(), before);
}

TEST_F(ColumnListTest, IsFoundThroughTheEnginesScenesOnly)
{
    EXPECT_EQ(ColumnList::of(scene().sceneCommon()), &scene().columnList());
    EXPECT_EQ(ColumnList::of(nullptr), nullptr);
}

} // namespace
