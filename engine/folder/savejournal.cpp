#include "engine/folder/savejournal.h"

#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <limits>

namespace brindle::engine {

namespace save_stage {

QString part(std::size_t number)
{
    return folder + u'/' + QString::number(number);
}

QString kept(std::size_t number)
{
    return part(number) + QLatin1String(".old");
}

} // namespace save_stage

namespace {

constexpr char journalFormat[] = "brindle-journal";
constexpr int journalVersion = 2;

/// A journal may lead to files of the folder only, whoever wrote it.
QString filePath(const JsonPlace& place, int deepest = std::numeric_limits<int>::max())
{
    const QString path = place.text();
    const QStringList parts = path.split(u'/');
    const bool inside = parts.size() <= deepest && !parts.contains(QString()) && !parts.contains(QStringLiteral(".")) &&
                        !parts.contains(QStringLiteral("..")) && parts.first() != save_stage::folder &&
                        !path.contains(QChar(0)) && path.isValidUtf16();
    if (!inside)
        place.fail(QStringLiteral("is no file of the project"));
    return path;
}

std::optional<Checksum> readChecksum(const JsonPlace& file, const char* name)
{
    const auto place = file.ifField(name);
    if (!place)
        return std::nullopt;
    place->requireSize(2);
    const double size = place->item(0).number();
    const double crc = place->item(1).number();
    constexpr double largest = 1LL << 53;
    if (!(size >= 0 && size <= largest && crc >= 0 && crc <= std::numeric_limits<std::uint32_t>::max()))
        place->fail(QStringLiteral("is no size and checksum"));
    return Checksum{qint64(size), std::uint32_t(crc)};
}

void writeChecksum(JsonWriter& json, const char* name, const std::optional<Checksum>& sum)
{
    if (!sum)
        return;
    json.key(name).beginArray(JsonWriter::Inline);
    json.integer(sum->size);
    json.integer(sum->crc);
    json.endArray();
}

SaveJournal::File readFile(const JsonPlace& place)
{
    place.requireOnly({"path", "before", "after"});
    return {filePath(place.field("path")), readChecksum(place, "before"), readChecksum(place, "after")};
}

std::vector<SaveJournal::File> readFirstVersion(const JsonPlace& root)
{
    constexpr int deepest = 2; // A file of the project, or of a folder in it.
    root.requireOnly({"format", "version", "replace", "remove"});
    std::vector<SaveJournal::File> files;
    const JsonPlace replaced = root.field("replace");
    for (int i = 0; i < replaced.size(); ++i)
        files.push_back({filePath(replaced.item(i), deepest), std::nullopt, Checksum()});
    const JsonPlace removed = root.field("remove");
    for (int i = 0; i < removed.size(); ++i)
        files.push_back({filePath(removed.item(i), deepest), std::nullopt, std::nullopt});
    return files;
}

} // namespace

SaveJournal SaveJournal::read(const QString& path, const QByteArray& text)
{
    const JsonFile file(path, text);
    const JsonPlace root = file.root();
    const int version = root.requireFormat(journalFormat, std::numeric_limits<int>::max());
    if (version > journalVersion)
        throw NewerFormat{FolderFailure::ofNewerVersion(file.path(), version, journalVersion)};
    SaveJournal journal;
    journal.keepsOld = version > 1;
    if (version == 1) {
        journal.files = readFirstVersion(root);
    } else {
        root.requireOnly({"format", "version", "files"});
        const JsonPlace files = root.field("files");
        for (int i = 0; i < files.size(); ++i)
            journal.files.push_back(readFile(files.item(i)));
    }
    return journal;
}

QByteArray SaveJournal::text() const
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(QLatin1String(journalFormat));
    json.key("version").integer(journalVersion);
    json.key("files").beginArray();
    for (const File& file : files) {
        json.beginObject();
        json.key("path").text(file.path);
        writeChecksum(json, "before", file.before);
        writeChecksum(json, "after", file.after);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.result();
}

} // namespace brindle::engine
