#include "engine/palettes/palettelistfile.h"

#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/palettes/palettefile.h"
#include "engine/palettes/palettefolders.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace brindle::engine {

namespace {

constexpr char listFormat[] = "brindle-palette-list";
constexpr int newestListVersion = 1;

struct SharedLocation {
    const char* name;
    CM_LocationType kind;
};
constexpr SharedLocation sharedLocations[] = {{"ENVIRONMENT", CM_Environment}, {"JOB", CM_Job}};

void writeFile(JsonWriter& json, const QString& file, const QString& library, const QString& project)
{
    if (palette_folders::isBelow(file, project)) {
        json.text(QDir(library).relativeFilePath(file));
        return;
    }
    for (const SharedLocation& location : sharedLocations) {
        const QString folder = palette_folders::shared(location.kind);
        if (palette_folders::isBelow(file, folder)) {
            json.text(QDir(folder).relativeFilePath(file));
            json.text(location.name);
            return;
        }
    }
    json.text(file);
}

UT_Id readIdentity(const JsonPlace& place)
{
    const UT_Id id = UT_Id::FromString(place.text());
    if (!id.IsValid())
        place.fail(QStringLiteral("is no identity of sixteen hexadecimal digits"));
    return id;
}

PaletteListRecord::Palette readPalette(const JsonPlace& place, const QString& library)
{
    const JsonPlace file = place.item(1);
    QString folder = library;
    if (place.size() > 2) {
        const int location = place.item(2).oneOf({sharedLocations[0].name, sharedLocations[1].name});
        folder = palette_folders::shared(sharedLocations[location].kind);
        place.requireSize(3);
    }
    if (!file.text().endsWith(paletteEnding) || file.text().contains(QChar(0)) || !file.text().isValidUtf16())
        file.fail(QStringLiteral("is no file of a palette"));
    return {readIdentity(place.item(0)), QDir::cleanPath(QDir(folder).absoluteFilePath(file.text()))};
}

} // namespace

QByteArray paletteListText(const PaletteListRecord& list, const QString& library, const QString& project)
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(listFormat);
    json.key("version").integer(newestListVersion);
    json.key("id").text(list.id.AsString());
    json.key("palettes").beginArray();
    for (const PaletteListRecord::Palette& palette : list.palettes) {
        json.beginArray(JsonWriter::Inline);
        json.text(palette.id.AsString());
        writeFile(json, palette.file, library, project);
        json.endArray();
    }
    json.endArray();
    json.endObject();
    return json.result();
}

PaletteListRecord readPaletteListFile(const QString& path, const QByteArray& content)
{
    const JsonFile file(path, content);
    const JsonPlace root = file.root();
    root.requireFormat(listFormat, newestListVersion);
    root.requireOnly({"format", "version", "id", "palettes"});
    PaletteListRecord list;
    list.id = readIdentity(root.field("id"));
    const JsonPlace palettes = root.field("palettes");
    const QString library = QFileInfo(path).path();
    QSet<quint64> ids;
    QSet<QString> files;
    for (int index = 0; index < palettes.size(); ++index) {
        const JsonPlace place = palettes.item(index);
        const PaletteListRecord::Palette palette = readPalette(place, library);
        if (ids.contains(palette.id.value()) || files.contains(palette.file))
            place.fail(QStringLiteral("is on the list already"));
        ids.insert(palette.id.value());
        files.insert(palette.file);
        list.palettes.push_back(palette);
    }
    return list;
}

} // namespace brindle::engine
