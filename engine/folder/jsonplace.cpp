#include "engine/folder/jsonplace.h"

#include "engine/engine.h"
#include "engine/folder/jsonscan.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace brindle::engine {

JsonFile::JsonFile(const QString& path, const QByteArray& content) : m_path(path), m_content(content)
{
    QJsonParseError error;
    m_document = QJsonDocument::fromJson(content, &error);
    if (content.isEmpty())
        throw FolderFailure{quoted(path) + " is empty"};
    if (error.error != QJsonParseError::NoError)
        fail(error.offset, true, error.errorString());
    if (!m_document.isObject())
        fail(0, true, QStringLiteral("it is not an object"));
}

void JsonFile::fail(qsizetype offset, bool withColumn, const QString& reason) const
{
    const json_scan::Position position = json_scan::positionOf(m_content, offset);
    QString text = quoted(m_path) + " is damaged at line " + QString::number(position.line);
    if (withColumn)
        text += ", column " + QString::number(position.column);
    throw FolderFailure{text + ": " + shown(reason)};
}

JsonPlace JsonFile::root() const
{
    return JsonPlace(*this, nullptr, nullptr, {}, -1, m_document.object());
}

void JsonFile::requireNoFieldTwice() const
{
    if (m_fieldsSeen == json_scan::fieldCount(m_content))
        return;
    QString name;
    const qsizetype offset = json_scan::offsetOfRepeatedField(m_content, name);
    if (offset >= 0)
        fail(offset, true, QStringLiteral("the field \"%1\" is there twice").arg(name));
}

JsonPlace::JsonPlace(const JsonFile& file, const JsonPlace* parent, const char* field, QString key, int index,
                     const QJsonValue& value)
    : m_file(&file),
      m_parent(parent),
      m_field(field),
      m_key(std::move(key)),
      m_index(index),
      m_value(value)
{
    if (m_value.isArray())
        m_array = m_value.toArray();
    else if (m_value.isObject())
        m_object = m_value.toObject();
}

void JsonPlace::fail(const QString& reason) const
{
    std::vector<json_scan::Step> steps;
    for (const JsonPlace* place = this; place->m_parent; place = place->m_parent)
        steps.push_back({place->name(), place->m_index});
    std::reverse(steps.begin(), steps.end());
    QString path;
    for (const json_scan::Step& step : steps) {
        if (step.index >= 0)
            path += u'[' + QString::number(step.index) + u']';
        else if (step.name.contains(u'.'))
            path += "[\"" + step.name + "\"]";
        else
            path += (path.isEmpty() ? QString() : QStringLiteral(".")) + step.name;
    }
    m_file->fail(json_scan::offsetOf(m_file->m_content, steps), false,
                 path.isEmpty() ? QStringLiteral("the file ") + reason : path + u' ' + reason);
}

QString JsonPlace::name() const
{
    return m_field ? QString::fromLatin1(m_field) : m_key;
}

const QJsonObject& JsonPlace::object() const
{
    if (!m_value.isObject())
        fail(QStringLiteral("is not an object"));
    return m_object;
}

JsonPlace JsonPlace::field(const char* name) const
{
    const QJsonValue value = object().value(QLatin1String(name));
    if (value.isUndefined())
        fail(QStringLiteral("has no field \"%1\"").arg(QLatin1String(name)));
    return JsonPlace(*m_file, this, name, {}, -1, value);
}

JsonPlace JsonPlace::field(const QString& name) const
{
    return JsonPlace(*m_file, this, nullptr, name, -1, object().value(name));
}

bool JsonPlace::has(const char* name) const
{
    return object().contains(QLatin1String(name));
}

void JsonPlace::requireOnly(std::initializer_list<const char*> names, std::span<const char* const> more) const
{
    const auto known = [names, more](const QString& field) {
        const auto isField = [&](const char* name) { return field == QLatin1String(name); };
        return std::any_of(names.begin(), names.end(), isField) || std::any_of(more.begin(), more.end(), isField);
    };
    for (auto field = object().constBegin(); field != m_object.constEnd(); ++field) {
        if (!known(field.key()))
            this->field(field.key()).fail(QStringLiteral("is an unknown field"));
    }
    m_file->m_fieldsSeen += m_object.size();
}

QStringList JsonPlace::keys() const
{
    const QStringList keys = object().keys();
    m_file->m_fieldsSeen += keys.size();
    return keys;
}

int JsonPlace::size() const
{
    if (!m_value.isArray())
        fail(QStringLiteral("is not a list"));
    return static_cast<int>(m_array.size());
}

JsonPlace JsonPlace::item(int index) const
{
    if (index >= size())
        fail(QStringLiteral("has no item [%1]").arg(index));
    return JsonPlace(*m_file, this, nullptr, {}, index, m_array.at(index));
}

void JsonPlace::requireSize(int wanted) const
{
    if (size() != wanted)
        fail(QStringLiteral("has %1 items, not %2").arg(size()).arg(wanted));
}

QString JsonPlace::text() const
{
    if (!m_value.isString())
        fail(QStringLiteral("is not a text"));
    return m_value.toString();
}

bool JsonPlace::flag() const
{
    if (!m_value.isBool())
        fail(QStringLiteral("is not true or false"));
    return m_value.toBool();
}

int JsonPlace::integer(int lowest, int highest) const
{
    const double value = m_value.toDouble(std::nan(""));
    if (!(value >= lowest && value <= highest && value == std::floor(value)))
        fail(QStringLiteral("is not a whole number from %1 to %2").arg(lowest).arg(highest));
    return static_cast<int>(value);
}

double JsonPlace::number() const
{
    if (!m_value.isDouble() || !std::isfinite(m_value.toDouble()))
        fail(QStringLiteral("is not a number"));
    return m_value.toDouble();
}

int JsonPlace::oneOf(std::span<const char* const> texts) const
{
    const QString value = text();
    QStringList names;
    for (const char* text : texts) {
        if (value == QLatin1String(text))
            return static_cast<int>(names.size());
        names.append(quoted(QLatin1String(text)));
    }
    fail(QStringLiteral("is not ") + names.join(QStringLiteral(" or ")));
}

int JsonPlace::requireFormat(const char* format, int newest) const
{
    const JsonPlace name = field("format");
    if (name.text() != QLatin1String(format))
        name.fail(QStringLiteral("is not \"%1\"").arg(QLatin1String(format)));
    const int found = field("version").integer(1);
    if (found > newest)
        throw FolderFailure::ofNewerVersion(m_file->path(), found, newest);
    return found;
}

} // namespace brindle::engine
