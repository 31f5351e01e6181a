#include "engine/folder/jsonplace.h"

#include "engine/engine.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// "/p/x.json" is damaged at line 3, column 4: illegal value. Both count from 1, the column in characters.
[[noreturn]] void failAt(const QString& path, const QByteArray& text, qsizetype offset, bool withColumn,
                         const QString& reason)
{
    const qsizetype lineStart = offset > 0 ? text.lastIndexOf('\n', offset - 1) + 1 : 0;
    const auto begin = text.cbegin();
    QString sentence =
        quoted(path) + " is damaged at line " + QString::number(std::count(begin, begin + lineStart, '\n') + 1);
    if (withColumn) {
        const auto startsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; };
        const auto column = std::count_if(begin + lineStart, begin + offset, startsCharacter) + 1;
        sentence += ", column " + QString::number(column);
    }
    throw FolderFailure{sentence + ": " + shown(reason)};
}

} // namespace

JsonTree JsonFile::parsed(const QString& path, const QByteArray& content)
{
    if (content.isEmpty())
        throw FolderFailure{quoted(path) + " is empty"};
    try {
        return JsonTree(content);
    } catch (const JsonTree::Fault& fault) {
        failAt(path, content, fault.offset, true, fault.reason);
    }
}

JsonFile::JsonFile(const QString& path, const QByteArray& content) : m_path(path), m_tree(parsed(path, content))
{
    if (!m_tree.isObject(m_tree.root()))
        failAt(path, content, 0, true, QStringLiteral("it is not an object"));
    if (const JsonTree::Value* name = m_tree.repeatedName())
        failAt(path, content, name->begin, true,
               QStringLiteral("the field \"%1\" is there twice").arg(m_tree.text(*name)));
}

JsonPlace JsonFile::root() const
{
    return JsonPlace(*this, m_tree.root());
}

QString JsonPlace::pathText() const
{
    QString path;
    const Value* at = &tree().root();
    while (at != m_value) {
        // The value is in the last one that begins ahead of it or is it.
        const std::span<const Value> content = tree().content(*at);
        const auto behind =
            std::upper_bound(content.begin(), content.end(), m_value->begin,
                             [](std::uint32_t begin, const Value& value) { return begin < value.begin; });
        const auto index = behind - content.begin() - 1;
        if (tree().isList(*at)) {
            path += u'[' + QString::number(index) + u']';
        } else {
            const QString name = tree().text(content[static_cast<std::size_t>(index) - 1]);
            if (name.contains(u'.'))
                path += "[\"" + name + "\"]";
            else
                path += (path.isEmpty() ? QString() : QStringLiteral(".")) + name;
        }
        at = &content[static_cast<std::size_t>(index)];
    }
    return path;
}

void JsonPlace::fail(const QString& reason) const
{
    const QString path = pathText();
    failAt(m_file->m_path, tree().bytes(), m_value->begin, false,
           path.isEmpty() ? QStringLiteral("the file ") + reason : path + u' ' + reason);
}

std::span<const JsonPlace::Value> JsonPlace::objectContent() const
{
    if (!tree().isObject(*m_value))
        fail(QStringLiteral("is not an object"));
    return tree().content(*m_value);
}

const JsonPlace::Value* JsonPlace::find(std::string_view name) const
{
    const std::span<const Value> content = objectContent();
    for (std::size_t at = 0; at < content.size(); at += 2) {
        if (tree().isSame(content[at], name))
            return &content[at + 1];
    }
    return nullptr;
}

JsonPlace JsonPlace::field(std::string_view name) const
{
    const Value* value = find(name);
    if (!value)
        fail(QStringLiteral("has no field \"%1\"").arg(QLatin1String(name.data(), qsizetype(name.size()))));
    return JsonPlace(*m_file, *value);
}

std::optional<JsonPlace> JsonPlace::ifField(std::string_view name) const
{
    const Value* value = find(name);
    return value ? std::optional(JsonPlace(*m_file, *value)) : std::nullopt;
}

void JsonPlace::requireOnly(std::initializer_list<std::string_view> names, std::span<const char* const> more) const
{
    const std::span<const Value> content = objectContent();
    const Value* unknown = nullptr;
    for (std::size_t at = 0; at < content.size(); at += 2) {
        const Value& name = content[at];
        const auto isIt = [&](std::string_view known) { return tree().isSame(name, known); };
        if (std::any_of(names.begin(), names.end(), isIt) || std::any_of(more.begin(), more.end(), isIt))
            continue;
        if (!unknown || tree().text(name) < tree().text(*unknown))
            unknown = &name;
    }
    if (unknown)
        JsonPlace(*m_file, *(unknown + 1)).fail(QStringLiteral("is an unknown field"));
}

std::vector<JsonPlace> JsonPlace::fields() const
{
    const std::span<const Value> content = objectContent();
    std::vector<JsonPlace> fields;
    fields.reserve(content.size() / 2);
    for (std::size_t at = 1; at < content.size(); at += 2)
        fields.push_back(JsonPlace(*m_file, content[at]));
    return fields;
}

QString JsonPlace::key() const
{
    return tree().text(*(m_value - 1));
}

int JsonPlace::size() const
{
    if (!tree().isList(*m_value))
        fail(QStringLiteral("is not a list"));
    return static_cast<int>(m_value->size);
}

JsonPlace JsonPlace::item(int index) const
{
    if (index >= size())
        fail(QStringLiteral("has no item [%1]").arg(index));
    return JsonPlace(*m_file, tree().content(*m_value)[static_cast<std::size_t>(index)]);
}

void JsonPlace::requireSize(int wanted) const
{
    if (size() != wanted)
        fail(QStringLiteral("has %1 items, not %2").arg(size()).arg(wanted));
}

QString JsonPlace::text() const
{
    if (!tree().isText(*m_value))
        fail(QStringLiteral("is not a text"));
    return tree().text(*m_value);
}

bool JsonPlace::is(std::string_view text) const
{
    return tree().isText(*m_value, text);
}

bool JsonPlace::flag() const
{
    if (!tree().isFlag(*m_value))
        fail(QStringLiteral("is not true or false"));
    return tree().flag(*m_value);
}

bool JsonPlace::isFlag() const
{
    return tree().isFlag(*m_value);
}

bool JsonPlace::isText() const
{
    return tree().isText(*m_value);
}

int JsonPlace::integer(int lowest, int highest) const
{
    const double value = tree().isNumber(*m_value) ? m_value->number : std::nan("");
    if (!(value >= lowest && value <= highest && value == std::floor(value)))
        fail(QStringLiteral("is not a whole number from %1 to %2").arg(lowest).arg(highest));
    return static_cast<int>(value);
}

double JsonPlace::number() const
{
    if (!tree().isNumber(*m_value))
        fail(QStringLiteral("is not a number"));
    return m_value->number;
}

int JsonPlace::oneOf(std::span<const char* const> texts) const
{
    if (!tree().isText(*m_value))
        fail(QStringLiteral("is not a text"));
    for (std::size_t at = 0; at < texts.size(); ++at) {
        if (is(texts[at]))
            return static_cast<int>(at);
    }
    QStringList names;
    for (const char* text : texts)
        names.append(quoted(QLatin1String(text)));
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
