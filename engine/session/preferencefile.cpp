#include "engine/session/preferencefile.h"

#include "core/host/msg_scope.h"
#include "engine/folder/folder.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

#include <array>
#include <cmath>
#include <limits>

namespace brindle::engine {

namespace {

constexpr char preferenceFormat[] = "brindle-preferences";
constexpr int preferenceVersion = 3;

constexpr std::array notFinite = {"inf", "-inf", "nan"};
constexpr std::array notFiniteValues = {std::numeric_limits<double>::infinity(),
                                        -std::numeric_limits<double>::infinity(),
                                        std::numeric_limits<double>::quiet_NaN()};

/// Qt writes alpha ahead of the others.
QColor colourIn(const JsonPlace& place)
{
    static const QRegularExpression form(QStringLiteral("^#([0-9a-f]{6})([0-9a-f]{2})$"));
    const QRegularExpressionMatch match = form.match(place.text());
    if (!match.hasMatch())
        place.fail(QStringLiteral("is not a colour, as \"#ff8000ff\""));
    return QColor(u'#' + match.captured(2) + match.captured(1));
}

QString textOf(const QColor& colour)
{
    const QString text = colour.name(QColor::HexArgb);
    return u'#' + text.mid(3) + text.mid(1, 2);
}

QVariant valueIn(const JsonPlace& place)
{
    if (place.isFlag())
        return place.flag();
    if (place.isText())
        return place.text();
    if (place.fields().size() == 1) {
        if (const auto whole = place.ifField("int"))
            return whole->integer();
        if (const auto number = place.ifField("double"))
            return number->isText() ? notFiniteValues[static_cast<std::size_t>(number->oneOf(notFinite))]
                                    : number->number();
        if (const auto colour = place.ifField("colour"))
            return colourIn(*colour);
    }
    place.fail(QStringLiteral("is not a value of a known kind"));
}

/// Why a file is not read, though it isn't damaged.
struct ForeignFile {
    QString reason;
};

PreferenceFile::Values valuesIn(const QString& path)
{
    bool missing = false;
    QByteArray content;
    try {
        content = folder_io::read(path, &missing);
    } catch (const FolderFailure& failure) {
        throw ForeignFile{failure.reason};
    }
    PreferenceFile::Values values;
    if (missing)
        return values;
    const JsonFile file(path, content);
    const JsonPlace root = file.root();
    if (root.requireFormat(preferenceFormat, std::numeric_limits<int>::max()) > preferenceVersion)
        throw ForeignFile{quoted(path) + " is that of a newer version of the application"};
    root.requireOnly({"format", "version", "values"});
    for (const JsonPlace& value : root.field("values").fields())
        values.insert(value.key(), valueIn(value));
    return values;
}

void writeValue(JsonWriter& json, const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool) {
        json.flag(value.toBool());
        return;
    }
    if (value.typeId() == QMetaType::QString) {
        json.text(value.toString());
        return;
    }
    json.beginObject();
    if (value.typeId() == QMetaType::Int)
        json.key("int").integer(value.toInt());
    else if (value.typeId() == QMetaType::QColor)
        json.key("colour").text(textOf(value.value<QColor>()));
    else if (const double number = value.toDouble(); std::isfinite(number))
        json.key("double").number(number);
    else
        json.key("double").text(notFinite[std::isnan(number) ? 2 : number < 0 ? 1 : 0]);
    json.endObject();
}

QByteArray textOf(const PreferenceFile::Values& values)
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(preferenceFormat);
    json.key("version").integer(preferenceVersion);
    json.key("values").beginObject();
    for (auto value = values.begin(); value != values.end(); ++value)
        writeValue(json.key(value.key()), value.value());
    json.endObject();
    json.endObject();
    return json.result();
}

void setAside(const QString& path)
{
    QString kept = path + QStringLiteral(".damaged");
    for (int number = 2; QFileInfo::exists(kept); ++number)
        kept = path + QStringLiteral(".damaged-%1").arg(number);
    folder_io::rename(path, kept);
    MSG_Scope(QStringLiteral("The damaged preferences are kept in %1.").arg(quoted(kept)), MSG_Scope::kLog);
}

void write(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit()) // commit() replaces the file also where its own flush fails.
        throw FolderFailure{quoted(path) + " cannot be written: " + file.errorString()};
}

void logFailure(const QString& what, const QString& reason)
{
    MSG_Scope(what + QStringLiteral(": ") + reason + u'.', MSG_Scope::kError);
}

} // namespace

QString PreferenceFile::pathOfUser()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder.isEmpty() ? QString() : folder + QStringLiteral("/brindle/preferences.json");
}

PreferenceFile::Values PreferenceFile::read() const
{
    const QString failing = QStringLiteral("Cannot read the preferences");
    try {
        return m_path.isEmpty() ? Values() : valuesIn(m_path);
    } catch (const FolderFailure& failure) {
        logFailure(failing, failure.reason);
    } catch (const ForeignFile& file) {
        logFailure(failing, file.reason);
    }
    return {};
}

std::optional<PreferenceFile::Values> PreferenceFile::update(const Values& values, const QStringList& removed) const
{
    if (m_path.isEmpty())
        return values;
    const QString failing = QStringLiteral("Cannot save the preferences");
    try {
        const QString folder = QFileInfo(m_path).absolutePath();
        if (!QDir().mkpath(folder))
            throw FolderFailure{quoted(folder) + " cannot be made"};
        const FolderLock lock(Folder(folder), FolderLock::Writing);
        Values all;
        try {
            all = valuesIn(m_path);
        } catch (const FolderFailure&) {
            setAside(m_path);
        }
        const Values before = all;
        all.insert(values);
        for (const QString& name : removed)
            all.remove(name);
        if (all != before)
            write(m_path, textOf(all));
        return all;
    } catch (const FolderFailure& failure) {
        logFailure(failing, failure.reason);
    } catch (const ForeignFile& file) {
        logFailure(failing, file.reason);
    }
    return std::nullopt;
}

} // namespace brindle::engine
