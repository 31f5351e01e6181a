#include "engine/palettes/palettelistfile.h"

#include "engine/folder/folderio.h"
#include "engine/palettes/palettefolders.h"

#include <gtest/gtest.h>

#include <random>

using namespace brindle::engine;

namespace {

const QString place = QStringLiteral("/p/palette-library/palette-list.json");

PaletteListRecord readList(const QByteArray& content)
{
    return readPaletteListFile(place, content);
}

QString listFailure(const QByteArray& content)
{
    try {
        readList(content);
        return {};
    } catch (const FolderFailure& failure) {
        return failure.reason;
    }
}

QByteArray textOfList(const PaletteListRecord& list)
{
    return paletteListText(list, QStringLiteral("/p/palette-library"), QStringLiteral("/p"));
}

PaletteListRecord exampleList()
{
    return {UT_Id(0xa),
            {{UT_Id(0x1), QStringLiteral("/p/palette-library/Skin.plt")},
             {UT_Id(0x2), QStringLiteral("/p/elements/Arm/palette-library/Arm.plt")},
             {UT_Id(0x3), palette_folders::shared(CM_Job) + QStringLiteral("/props/Wood.plt")},
             {UT_Id(0x4), palette_folders::shared(CM_Environment) + QStringLiteral("/Sky.plt")},
             {UT_Id(0x5), QStringLiteral("/elsewhere/Loose.plt")}}};
}

} // namespace

TEST(PaletteListFileTest, EachPaletteHasALineAndAPathThatMovesWithItsPlace)
{
    const QByteArray text = textOfList(exampleList());
    EXPECT_EQ(text, R"({
  "format": "brindle-palette-list",
  "version": 1,
  "id": "000000000000000a",
  "palettes": [
    ["0000000000000001", "Skin.plt"],
    ["0000000000000002", "../elements/Arm/palette-library/Arm.plt"],
    ["0000000000000003", "props/Wood.plt", "JOB"],
    ["0000000000000004", "Sky.plt", "ENVIRONMENT"],
    ["0000000000000005", "/elsewhere/Loose.plt"]
  ]
}
)");
    const PaletteListRecord read = readList(text);
    EXPECT_EQ(read.id, UT_Id(0xa));
    ASSERT_EQ(read.palettes.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(read.palettes[i].id, exampleList().palettes[i].id);
        EXPECT_EQ(read.palettes[i].file, exampleList().palettes[i].file);
    }
}

TEST(PaletteListFileTest, DamageIsASentenceThatNamesThePlace)
{
    const auto with = [](const QByteArray& palettes) {
        return R"({"format": "brindle-palette-list", "version": 1, "id": "000000000000000a", "palettes": [)" +
               palettes + "]}";
    };
    const QByteArray first = R"(["0000000000000001", "Skin.plt"])";
    const struct {
        QByteArray content;
        const char* ending;
    } rows[] = {
        {"", "is empty"},
        {R"({"format": "brindle-palette-list", "version": 2})",
         "has format version 2, and this version of the application reads version 1"},
        {with(R"(["0000000000000000", "Skin.plt"])"), "is no identity of sixteen hexadecimal digits"},
        {with(R"(["0000000000000001", "Skin"])"), "is no file of a palette"},
        {with(R"(["0000000000000001", "Skin.plt", "HOME"])"), "is not \"ENVIRONMENT\" or \"JOB\""},
        {with(first + ", " + first), "palettes[1] is on the list already"},
        {with(first + R"(, ["0000000000000002", "../palette-library/Skin.plt"])"),
         "palettes[1] is on the list already"},
    };
    for (const auto& row : rows) {
        const QString failure = listFailure(row.content);
        EXPECT_TRUE(failure.startsWith(u'"' + place + u'"')) << failure.toStdString();
        EXPECT_TRUE(failure.endsWith(row.ending)) << failure.toStdString();
    }
}

TEST(PaletteListFileTest, EveryFileWithOtherBytesIsAListThatCanBeWrittenOrASentence)
{
    const QByteArray text = textOfList(exampleList());
    for (qsizetype size = 0; size + 2 < text.size(); ++size)
        EXPECT_FALSE(listFailure(text.left(size)).isEmpty()) << size;
    std::mt19937 random(8);
    int lists = 0;
    for (int round = 0; round < 5000; ++round) {
        QByteArray content = text;
        content[static_cast<qsizetype>(random() % static_cast<std::size_t>(text.size()))] =
            static_cast<char>(random() % 256);
        if (!listFailure(content).isEmpty())
            continue;
        ++lists;
        const QByteArray written = textOfList(readList(content));
        ASSERT_EQ(textOfList(readList(written)), written) << content.constData();
    }
    EXPECT_GT(lists, 100);
}
