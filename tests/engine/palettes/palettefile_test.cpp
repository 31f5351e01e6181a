#include "engine/palettes/palettefile.h"

#include "engine/folder/folderio.h"

#include <gtest/gtest.h>

#include <random>

using namespace brindle::engine;

namespace {

const QByteArray example = "brindle-palette 1\n"
                           "palette 5d1a6b0c33e0f2a7 colour \"Hero\"\n"
                           "0c8e4f6fb1a90d22 solid \"Skin\" ffd9b8ff\n"
                           "51f2b0a4c99d1e03 linear \"Sky\" 0 87ceebff 1 ffffff00\n"
                           "e0d7330a1b2c4f58 radial \"Cheek\" 0 ff8080ff 0.25 ff808080 1 ff808000\n"
                           "9b3de2f7045c6a81 texture \"Wood\" tile \"9b3de2f7045c6a81.png\"\n";

PaletteRecord read(const QByteArray& content)
{
    return readPaletteFile("/p/Hero.plt", content, [](const QString&) { return nullptr; });
}

QString failure(const QByteArray& content)
{
    try {
        read(content);
    } catch (const FolderFailure& failure) {
        return failure.reason;
    }
    return {};
}

QByteArray withLine(const QByteArray& line)
{
    return "brindle-palette 1\npalette 5d1a6b0c33e0f2a7 colour \"Hero\"\n" + line + '\n';
}

} // namespace

TEST(PaletteFileTest, WhatIsReadIsWrittenByteForByte)
{
    EXPECT_EQ(paletteFileText(read(example)), example);
}

TEST(PaletteFileTest, AFileGivesThePaletteAndItsEntries)
{
    const PaletteRecord palette = read(example);
    EXPECT_EQ(palette.name, "Hero");
    EXPECT_EQ(palette.id.AsString(), "5d1a6b0c33e0f2a7");
    EXPECT_EQ(palette.type, CM_Palette::kColour);
    ASSERT_EQ(palette.entries.size(), 4u);
    const auto sky = CM_CastToColor(palette.entries[1]);
    EXPECT_EQ(sky->GetColorType(), CM_Color::kLinearGradient);
    EXPECT_EQ(sky->GetColorMarker(0).rgba, CM_Rgba(0x87, 0xce, 0xeb, 255));
    const auto wood = CM_CastToTexture(palette.entries[3]);
    EXPECT_TRUE(wood->IsTile());
    EXPECT_EQ(wood->GetBitmap(), nullptr);
}

TEST(PaletteFileTest, ATexturesPictureIsAskedForByTheNameOfItsFile)
{
    QStringList asked;
    readPaletteFile("/p/Hero.plt", example, [&](const QString& file) {
        asked.append(file);
        return nullptr;
    });
    EXPECT_EQ(asked, QStringList("9b3de2f7045c6a81.png"));
}

TEST(PaletteFileTest, NamesOfAnyCharactersComeBack)
{
    const QString names[] = {"",
                             " two  blanks ",
                             "\"quoted\" \\ /",
                             "line\nend\ttab",
                             QString(QChar(0)),
                             QStringLiteral("Grün 緑 😀"),
                             QString(QChar(0xd800))};
    for (const QString& name : names) {
        PaletteRecord palette = read(example);
        palette.name = name;
        palette.entries[0]->Rename(name);
        const PaletteRecord again = read(paletteFileText(palette));
        EXPECT_EQ(again.name, name);
        EXPECT_EQ(again.entries[0]->GetColorName(), name);
    }
}

TEST(PaletteFileTest, DamageIsASentenceThatNamesTheLine)
{
    const struct {
        QByteArray content;
        const char* sentence;
    } rows[] = {
        {"", "\"/p/Hero.plt\" is empty"},
        {"palette\n", "\"/p/Hero.plt\" is damaged at line 1: \"palette\" is not \"brindle-palette\""},
        {"brindle-palette 2\n", "\"/p/Hero.plt\" has format version 2, and this version of the application reads "
                                "version 1"},
        {"brindle-palette x\n", "\"/p/Hero.plt\" is damaged at line 1: \"x\" is no version"},
        {"brindle-palette 1\n", "\"/p/Hero.plt\" is damaged at line 1: the line ends too early"},
        {"brindle-palette 1\npalette", "\"/p/Hero.plt\" is damaged at line 2: the file ends in the middle of the line"},
        {"brindle-palette 1\xff\n", "\"/p/Hero.plt\" is damaged at line 1: it is no text in UTF-8"},
        {withLine("0c8e solid \"Skin\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: it does not begin with an identity of sixteen hexadecimal digits"},
        {withLine("0000000000000000 solid \"Skin\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: it does not begin with an identity of sixteen hexadecimal digits"},
        {withLine("0c8e4f6fb1a90d22 plaid \"Skin\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: \"plaid\" is not \"solid\" or \"linear\" or \"radial\" or \"texture\""},
        {withLine("0c8e4f6fb1a90d22 solid Skin ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: \"Skin\" is no text in double quotes"},
        {withLine("0c8e4f6fb1a90d22 solid \"Skin"), "\"/p/Hero.plt\" is damaged at line 3: a text has no end"},
        {withLine("0c8e4f6fb1a90d22 solid \"Sk\\x\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: a character is escaped in a way that JSON doesn't know"},
        {withLine("0c8e4f6fb1a90d22  solid \"Skin\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: words are not one space apart"},
        {withLine("0c8e4f6fb1a90d22 solid \"Skin\" ffd9b8"),
         "\"/p/Hero.plt\" is damaged at line 3: \"ffd9b8\" is no colour of eight hexadecimal digits"},
        {withLine("0c8e4f6fb1a90d22 solid \"Skin\" ffd9b8ff ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: \"ffd9b8ff\" is more than belongs there"},
        {withLine("0c8e4f6fb1a90d22 linear \"Sky\" 0.5 ffd9b8ff 0.25 ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: a position is not between the one before it and 1"},
        {withLine("0c8e4f6fb1a90d22 linear \"Sky\" nan ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 3: \"nan\" is no number"},
        {withLine("0c8e4f6fb1a90d22 texture \"A\" tile \"../a.png\""),
         "\"/p/Hero.plt\" is damaged at line 3: the name of the texture's file is none of a file"},
        {withLine("0c8e4f6fb1a90d22 solid \"A\" ffd9b8ff\n0c8e4f6fb1a90d22 solid \"B\" ffd9b8ff"),
         "\"/p/Hero.plt\" is damaged at line 4: an entry above has the same identity"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(failure(row.content), row.sentence) << row.content.constData();
}

TEST(PaletteFileTest, EveryFileThatIsCutShortIsAPaletteOrASentence)
{
    for (qsizetype size = 0; size < example.size(); ++size) {
        const bool isWhole = size > 0 && example[size - 1] == '\n' && example.left(size).count('\n') >= 2;
        EXPECT_EQ(failure(example.left(size)).isEmpty(), isWhole) << size;
    }
}

TEST(PaletteFileTest, EveryFileWithOtherBytesIsAPaletteThatCanBeWrittenOrASentence)
{
    std::mt19937 random(7);
    const auto below = [&](qsizetype count) {
        return static_cast<qsizetype>(random() % static_cast<std::size_t>(count));
    };
    int palettes = 0;
    constexpr int rounds = 20'000;
    for (int round = 0; round < rounds; ++round) {
        QByteArray content = example;
        for (qsizetype changes = 1 + below(3); changes > 0; --changes)
            content[below(content.size())] = static_cast<char>(below(2) == 0 ? below(256) : " \"\n\\0123fx"[below(10)]);
        if (!failure(content).isEmpty())
            continue;
        ++palettes;
        const QByteArray written = paletteFileText(read(content));
        ASSERT_EQ(paletteFileText(read(written)), written) << content.constData();
    }
    EXPECT_GT(palettes, rounds / 20);
    EXPECT_LT(palettes, rounds);
}
