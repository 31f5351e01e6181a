#include "core/frame/listiteration.h"

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"
#include "core/frame/listqvar.h"
#include "core/frame/mapobj.h"

#include <gtest/gtest.h>

using namespace OMC;

namespace listed {

/// The items of the lists below: words that a test changes during a loop.
QStringList theWords;

class Words : public CountedList<ListQVar, IterableQVar> {
    BRINDLE_COPYABLE(Words)

public:
    std::size_t size() const override { return static_cast<std::size_t>(theWords.size()); }
    using ListQVar::get;
    QVariant get(int index) const override { return theWords.at(index); }
};

class WordMap : public CountedList<MapObj, IterableMap> {
    BRINDLE_COPYABLE(WordMap)

public:
    std::size_t size() const override { return static_cast<std::size_t>(theWords.size()); }
    QList<QString> list() const override { return theWords; }
};

class FlaggedWords : public FlaggedList<ListQVar, IterableQVar> {
    BRINDLE_COPYABLE(FlaggedWords)

public:
    std::size_t size() const override { return static_cast<std::size_t>(theWords.size()); }
    using ListQVar::get;
    QVariant get(int index) const override { return theWords.at(index); }
};

/// A list with each hook turned away from its default.
class OddWords : public FlaggedWords {
    BRINDLE_COPYABLE(OddWords)

protected:
    void startIteration() override
    {
        m_words.take({theWords.begin(), theWords.end()});
        setAtEnd(false);
    }
    quint64 firstPosition() const override { return 1; }
    std::size_t iterationSize() const override { return m_words.size() + 1; }
    QVariant itemAt(quint64 position) const override { return m_words[position - 1]; }
    void throwNoMoreItems() const override { throw Exception(std::string("No words.")); }
    bool stopsAtEnd() const override { return true; }
    bool staysAtEnd() const override { return true; }

private:
    Snapshot<QString> m_words;
};

} // namespace listed

namespace {

using namespace listed;

template <typename List>
QStringList loop(const List& list, int steps = 100)
{
    QStringList items;
    const Obj handle = list.__iter__();
    auto& iterator = *objectIn<List>(handle);
    for (; steps && !iterator.__atend__(); --steps, ++iterator)
        items.append(QVariant(iterator.__iterItem__()).toString());
    return items;
}

class ListIterationTest : public testing::Test {
protected:
    void SetUp() override { theWords = {"one", "two", "three"}; }
};

TEST_F(ListIterationTest, EachKindOfListGivesItsItemsInOrder)
{
    EXPECT_EQ(loop(Words()), theWords);
    EXPECT_EQ(loop(WordMap()), theWords);
    EXPECT_EQ(loop(FlaggedWords()), theWords);
    EXPECT_EQ(loop(OddWords()), theWords);
}

TEST_F(ListIterationTest, AnEmptyListIsAtItsEndAtOnce)
{
    theWords.clear();
    EXPECT_TRUE(loop(Words()).isEmpty());
    EXPECT_TRUE(loop(WordMap()).isEmpty());
    EXPECT_TRUE(loop(FlaggedWords()).isEmpty());
}

TEST_F(ListIterationTest, LoopsOverOneListAreIndependent)
{
    const Words words;
    const Obj first = words.__iter__();
    const Obj second = words.__iter__();
    ++*objectIn<Words>(first);
    EXPECT_EQ(objectIn<Words>(first)->__iterItem__(), QVariant("two"));
    EXPECT_EQ(objectIn<Words>(second)->__iterItem__(), QVariant("one"));
    EXPECT_EQ(words.__iterItem__(), QVariant("one"));
    EXPECT_EQ(loop(*objectIn<Words>(first)), theWords);
}

TEST_F(ListIterationTest, ACountedListStaysBetweenItsEnds)
{
    Words words;
    --words;
    EXPECT_EQ(words.__iterItem__(), QVariant("one"));
    for (int step = 0; step < 5; ++step)
        ++words;
    EXPECT_TRUE(words.__atend__());
    --words;
    EXPECT_EQ(words.__iterItem__(), QVariant("three"));
}

TEST_F(ListIterationTest, ACountedLoopSeesTheListAsItIs)
{
    Words words;
    ++words;
    theWords.removeLast();
    theWords.removeLast();
    EXPECT_TRUE(words.__atend__());
    theWords.append("more");
    EXPECT_EQ(words.__iterItem__(), QVariant("more"));
}

TEST_F(ListIterationTest, AFlaggedListIsAtItsEndOnceItHasGivenTheLastItem)
{
    const Obj handle = FlaggedWords().__iter__();
    auto& words = *objectIn<FlaggedWords>(handle);
    ++words;
    ++words;
    EXPECT_FALSE(words.__atend__());
    EXPECT_EQ(words.__iterItem__(), QVariant("three"));
    EXPECT_TRUE(words.__atend__());
    ++words;
    try {
        words.__iterItem__();
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_STREQ(exception.what(), "Iteration item is out of range.");
    }
    --words;
    EXPECT_FALSE(words.__atend__());
    --words;
    --words;
    --words;
    EXPECT_EQ(words.__iterItem__(), QVariant("one"));
}

TEST_F(ListIterationTest, TheHooksOfAFlaggedListAreAsked)
{
    const Obj handle = OddWords().__iter__();
    auto& words = *objectIn<OddWords>(handle);
    theWords.clear();
    ++words;
    ++words;
    EXPECT_EQ(words.__iterItem__(), QVariant("three"));
    ++words;
    EXPECT_EQ(words.__iterItem__(), QVariant("three"));
    --words;
    EXPECT_TRUE(words.__atend__());
    EXPECT_EQ(words.__iterItem__(), QVariant("two"));
}

TEST_F(ListIterationTest, ALoopThatNoCopyCanStartFails)
{
    class Uncopied : public CountedList<ListObj, IterableObj> {};
    EXPECT_THROW(Uncopied().__iter__(), Exception);
}

} // namespace
