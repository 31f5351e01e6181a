#include "engine/palettes/palettefile.h"

#include "engine/folder/folderio.h"
#include "engine/folder/jsonwriter.h"
#include "engine/palettes/linescanner.h"

#include <QFile>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <unordered_set>

namespace brindle::engine {

namespace {

constexpr int newestVersion = 1;
constexpr const char* format = "brindle-palette";
constexpr const char* colourTypes[] = {"solid", "linear", "radial"}; ///< By CM_Color::Type.
struct PaletteType {
    CM_Palette::Type type;
    const char* word;
};
constexpr PaletteType paletteTypes[] = {
    {CM_Palette::kColour, "colour"},
    {CM_Palette::kPencilTexture, "pencil_texture"},
    {CM_Palette::kHidden, "hidden"},
};
constexpr const char* textureWord = "texture";
constexpr const char* tilings[] = {"single", "tile"};

constexpr char hexadecimal[] = "0123456789abcdef";

void appendId(std::string& out, const UT_Id& id)
{
    for (int shift = 60; shift >= 0; shift -= 4)
        out += hexadecimal[(id.value() >> shift) & 15];
}

void appendText(std::string& out, const QString& text)
{
    out += " \"";
    JsonWriter::appendEscaped(out, text);
    out += '"';
}

void appendWord(std::string& out, const char* word)
{
    out += ' ';
    out += word;
}

void appendNumber(std::string& out, double number)
{
    char buffer[32];
    out += ' ';
    out.append(buffer, std::to_chars(buffer, std::end(buffer), number).ptr);
}

void appendRgba(std::string& out, const CM_Rgba& rgba)
{
    out += ' ';
    for (const int channel : {rgba.red(), rgba.green(), rgba.blue(), rgba.alpha()}) {
        out += hexadecimal[channel >> 4];
        out += hexadecimal[channel & 15];
    }
}

void appendColour(std::string& out, const CM_Color& colour)
{
    appendWord(out, colourTypes[colour.GetColorType()]);
    appendText(out, colour.GetColorName());
    for (const CM_GradientData& marker : colour.gradientDataCol()) {
        if (colour.GetColorType() != CM_Color::kSolid)
            appendNumber(out, marker.position);
        appendRgba(out, marker.rgba);
    }
}

void appendTexture(std::string& out, const CM_Texture& texture)
{
    appendWord(out, textureWord);
    appendText(out, texture.GetColorName());
    appendWord(out, tilings[texture.IsTile()]);
    appendText(out, textureFileName(texture.GetID()));
}

UT_Id readId(LineScanner& line)
{
    const UT_Id id = UT_Id::FromString(line.word());
    if (!id.IsValid())
        line.fail(QStringLiteral("it does not begin with an identity of sixteen hexadecimal digits"));
    return id;
}

CM_Rgba readRgba(LineScanner& line)
{
    const QString word = line.word();
    bool isNumber = false;
    const uint value = word.toUInt(&isNumber, 16);
    if (!isNumber || word.size() != 8)
        line.fail(QStringLiteral("\"%1\" is no colour of eight hexadecimal digits").arg(word));
    return {int(value >> 24), int(value >> 16), int(value >> 8), int(value)};
}

double readPosition(LineScanner& line, double least)
{
    const double position = line.number();
    if (!(position >= least && position <= 1))
        line.fail(QStringLiteral("a position is not between the one before it and 1"));
    return position;
}

CM_Palette::Entry readEntry(LineScanner& line, const TextureSource& textures)
{
    const UT_Id id = readId(line);
    const int kind = line.oneOf({colourTypes[0], colourTypes[1], colourTypes[2], textureWord});
    const QString name = line.text();
    if (kind == std::ssize(colourTypes)) {
        const bool tile = line.oneOf({tilings[0], tilings[1]});
        const QString file = line.text();
        if (file.isEmpty() || file.contains(u'/') || file.contains(QChar(0)))
            line.fail(QStringLiteral("the name of the texture's file is none of a file"));
        return std::make_shared<CM_Texture>(name, id, textures(file), tile);
    }
    const auto type = static_cast<CM_Color::Type>(kind);
    auto colour = std::make_shared<CM_Color>(type, name, id);
    CM_GradientDataCol markers;
    if (type == CM_Color::kSolid && !line.atEnd())
        markers.push_back({0, readRgba(line)});
    double position = 0;
    while (type != CM_Color::kSolid && !line.atEnd()) {
        position = readPosition(line, position);
        markers.push_back({position, readRgba(line)});
    }
    colour->setGradientDataCol(markers);
    return colour;
}

void readHead(LineScanner& line, PaletteRecord& palette)
{
    line.oneOf({format});
    line.requireVersion(newestVersion);
    line.next();
    line.oneOf({"palette"});
    palette.id = readId(line);
    palette.type = paletteTypes[line.oneOf({paletteTypes[0].word, paletteTypes[1].word, paletteTypes[2].word})].type;
    palette.name = line.text();
}

} // namespace

QString textureFileName(const UT_Id& id)
{
    return id.AsString() + ".png";
}

QByteArray paletteFileText(const PaletteRecord& palette)
{
    std::string out = format;
    appendWord(out, std::to_string(newestVersion).c_str());
    out += "\npalette ";
    appendId(out, palette.id);
    const auto type = std::find_if(std::begin(paletteTypes), std::end(paletteTypes),
                                   [&](const PaletteType& row) { return row.type == palette.type; });
    appendWord(out, type->word);
    appendText(out, palette.name);
    out += '\n';
    for (const CM_Palette::Entry& entry : palette.entries) {
        appendId(out, entry->GetID());
        if (entry->GetKind() == CM_BaseColorObj::kColour)
            appendColour(out, static_cast<const CM_Color&>(*entry));
        else
            appendTexture(out, static_cast<const CM_Texture&>(*entry));
        out += '\n';
    }
    return QByteArray(out.data(), static_cast<qsizetype>(out.size()));
}

PaletteRecord readPaletteFile(const QString& path, const QByteArray& content, const TextureSource& textures)
{
    LineScanner line(path, content);
    PaletteRecord palette;
    readHead(line, palette);
    std::unordered_set<UT_Id> known;
    while (line.next()) {
        palette.entries.push_back(readEntry(line, textures));
        if (!known.insert(palette.entries.back()->GetID()).second)
            line.fail(QStringLiteral("an entry above has the same identity"));
    }
    return palette;
}

UT_Id identityInPaletteFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return UT_Id();
    constexpr qint64 longestLine = 64;
    if (!file.readLine(longestLine).startsWith(format))
        return UT_Id();
    return UT_Id::FromString(QString::fromLatin1(file.readLine(longestLine)).section(u' ', 1, 1));
}

} // namespace brindle::engine
