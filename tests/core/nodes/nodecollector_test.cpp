#include "core/nodes/node.h"
#include "core/nodes/nodelist.h"
#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QStringList>
#include <QVariantMap>

#include <vector>

namespace {

using OMC::NodeList;

/// Through NodeList::find: the collector itself is the library's own.
/// Top: Display, Composite, Body (Arm (Hand), Leg), Peg.
class NodeCollectorTest : public GraphTest {
protected:
    static QString found(const NodeList& list, const QVariant& filter)
    {
        QStringList paths;
        for (const OMC::Obj& object : list.find(filter))
            paths.append(OMC::objectIn<OMC::Node>(object)->getPath());
        return paths.join(QLatin1Char(' '));
    }

    static QVariantMap map(const char* key, const QVariant& value) { return {{QString::fromLatin1(key), value}}; }
    static QRegularExpression anyCase(const char* pattern)
    {
        return QRegularExpression(QString::fromLatin1(pattern), QRegularExpression::CaseInsensitiveOption);
    }

    TUGroup* body = addGroup(QStringLiteral("Body"));
    TUGroup* arm = addGroup(QStringLiteral("Arm"), body);
    MO_Node* hand = add(QStringLiteral("READ"), QStringLiteral("Hand"), arm);
    MO_Node* leg = add(QStringLiteral("PEG"), QStringLiteral("Leg"), body);
    MO_Node* peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    NodeList all{scene(), false};

    const QString every = QStringLiteral("Top/Display Top/Composite Top/Body/Arm/Hand Top/Body/Leg Top/Peg");
};

TEST_F(NodeCollectorTest, PatternsChooseTheModules)
{
    const QString none;
    QVariantMap nameAndType = map("name", QStringLiteral("e"));
    nameAndType.insert(QStringLiteral("type"), QStringLiteral("^PEG$"));
    QVariantMap twoSpellings = map("name", QStringLiteral("^Leg$"));
    twoSpellings.insert(QStringLiteral("NAME"), QStringLiteral("^Peg$"));
    const struct {
        const char* name;
        QVariant filter;
        QString paths;
    } rows[] = {
        {"a text in the name", QStringLiteral("eg"), QStringLiteral("Top/Body/Leg Top/Peg")},
        {"a text in the type", QStringLiteral("READ"), QStringLiteral("Top/Body/Arm/Hand")},
        {"a text in the path", QStringLiteral("Top/Body"), QStringLiteral("Top/Body/Arm/Hand Top/Body/Leg")},
        {"a text is a regular expression", QStringLiteral("^(Hand|Peg)$"), QStringLiteral("Top/Body/Arm/Hand Top/Peg")},
        {"letters count", QStringLiteral("hand"), none},
        {"a regular expression with options", anyCase("hand"), QStringLiteral("Top/Body/Arm/Hand")},
        {"one of several texts", QStringList{QStringLiteral("Hand"), QStringLiteral("Leg")},
         QStringLiteral("Top/Body/Arm/Hand Top/Body/Leg")},
        {"texts and expressions", QVariantList{anyCase("^hand$"), QStringLiteral("^Leg$")},
         QStringLiteral("Top/Body/Arm/Hand Top/Body/Leg")},
        {"the empty text", QString(), every},
        {"nothing is the empty text", QVariant(), every},
        {"a number is its text", 5, none},
        {"no pattern at all", QVariantList(), every},
        {"an empty map", QVariantMap(), every},

        {"by name", map("name", QStringLiteral("^Peg$")), QStringLiteral("Top/Peg")},
        {"a name is no path", map("name", QStringLiteral("Body")), none},
        {"by type", map("type", QStringLiteral("^PEG$")), QStringLiteral("Top/Body/Leg Top/Peg")},
        {"by path", map("path", QStringLiteral("^Top/[^/]*$")), QStringLiteral("Top/Display Top/Composite Top/Peg")},
        {"a key in other letters", map("TyPe", QStringLiteral("^READ$")), QStringLiteral("Top/Body/Arm/Hand")},
        {"both keys have to match", nameAndType, QStringLiteral("Top/Body/Leg Top/Peg")},
        {"one of a key's patterns", map("name", QVariantList{QStringLiteral("^Hand$"), anyCase("^PEG$")}),
         QStringLiteral("Top/Body/Arm/Hand Top/Peg")},
        {"two spellings of a key", twoSpellings, QStringLiteral("Top/Body/Leg Top/Peg")},
        {"a key without patterns", map("name", QVariantList()), every},
        {"unknown keys only", map("colour", QStringLiteral("red")), every},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(found(all, row.filter), row.paths);
    }
}

TEST_F(NodeCollectorTest, GroupsAreNotFoundThemselves)
{
    EXPECT_EQ(found(all, map("type", QStringLiteral("GROUP"))), QString());
    EXPECT_EQ(found(all, QStringLiteral("^Body$")), QString());
}

TEST_F(NodeCollectorTest, EachKindOfListFindsBelowItsMembers)
{
    EXPECT_EQ(found(NodeList(scene(), true), QString()), every);
    EXPECT_EQ(found(NodeList(body), QString()), QStringLiteral("Top/Body/Arm/Hand Top/Body/Leg"));
    NodeList filled;
    filled.addNode(peg);
    filled.addNode(leg);
    filled.addNode(arm);
    EXPECT_EQ(found(filled, QString()), QStringLiteral("Top/Peg Top/Body/Leg Top/Body/Arm/Hand"));
    removeNode(leg);
    EXPECT_EQ(found(filled, QString()), QStringLiteral("Top/Peg Top/Body/Arm/Hand"));
}

TEST_F(NodeCollectorTest, AnInvalidPatternMatchesNothingAndIsSilent)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(found(all, QStringLiteral("[")), QString());
    EXPECT_EQ(found(all, QRegularExpression(QStringLiteral("(?<n"))), QString());
    EXPECT_EQ(found(all, map("name", QStringLiteral("*"))), QString());
    EXPECT_EQ(found(all, QStringList{QStringLiteral("["), QStringLiteral("^Leg$")}), QStringLiteral("Top/Body/Leg"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(NodeCollectorTest, APatternThatNeverEndsIsGivenUp)
{
    MO_Node* longName = add(QStringLiteral("BLUR"), QString(60, QLatin1Char('a')) + QLatin1Char('b'));
    NodeList list;
    list.addNode(longName);
    EXPECT_EQ(found(list, map("name", QStringLiteral("^(a+)+$"))), QString());
}

TEST_F(NodeCollectorTest, GroupsInsideGroupsMayBeOfAnyDepth)
{
    constexpr int depth = 10000;
    TUGroup* group = body;
    for (int level = 0; level < depth; ++level)
        group = addGroup(QStringLiteral("G"), group);
    add(QStringLiteral("BLUR"), QStringLiteral("Deep"), group);
    EXPECT_EQ(all.find(map("type", QStringLiteral("^BLUR$"))).size(), 1u);
}

} // namespace
