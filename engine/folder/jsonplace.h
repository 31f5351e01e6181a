#pragma once

#include "engine/folder/folderio.h"
#include "engine/folder/jsontree.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <initializer_list>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace brindle::engine {

class JsonPlace;

/// A file of JSON that is being read. It outlives the places in it.
class JsonFile {
public:
    /// Throws `FolderFailure` with line and column when the content is no JSON object, or when an object in it has a
    /// field twice: JSON would silently drop one of the values.
    JsonFile(const QString& path, const QByteArray& content);

    JsonPlace root() const;
    QString path() const { return m_path; }

private:
    friend class JsonPlace;

    static JsonTree parsed(const QString& path, const QByteArray& content);

    QString m_path;
    JsonTree m_tree;
};

/// A value in a file, which knows where it stands: each function throws a `FolderFailure` that names the file, the line
/// and the path ("nodes[3].type") when the value is not what is asked for.
class JsonPlace {
public:
    JsonPlace field(std::string_view name) const;
    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// A field that may be missing.
    std::optional<JsonPlace> ifField(std::string_view name) const;
    /// An object without other fields than these. Of several, the first by name is told.
    void requireOnly(std::initializer_list<std::string_view> names, std::span<const char* const> more = {}) const;
    std::vector<JsonPlace> fields() const; ///< The values of all fields of an object, in the order of the file.
    QString key() const;                   ///< The name of a field, of which this is the value.

    bool isList() const { return tree().isList(*m_value); }
    int size() const; ///< The number of items of an array.
    JsonPlace item(int index) const;
    void requireSize(int size) const; ///< A list of this many items.

    QString text() const;
    bool is(std::string_view text) const; ///< Whether it is that text.
    bool flag() const;
    bool isFlag() const; ///< Whether it is true or false.
    bool isText() const;
    int integer(int lowest = std::numeric_limits<int>::min(), int highest = std::numeric_limits<int>::max()) const;
    double number() const;                               ///< Finite.
    int oneOf(std::span<const char* const> texts) const; ///< Which of the texts it is.
    int oneOf(std::initializer_list<const char*> texts) const { return oneOf(std::span(texts.begin(), texts.size())); }

    /// The head that each file of a project begins with; gives the version. A newer one than `newest` is refused.
    int requireFormat(const char* format, int newest) const;

    /// Throws; `reason` follows the path: "is not a text".
    [[noreturn]] void fail(const QString& reason) const;

private:
    friend class JsonFile;
    using Value = JsonTree::Value;

    JsonPlace(const JsonFile& file, const Value& value) : m_file(&file), m_value(&value) {}

    const JsonTree& tree() const { return m_file->m_tree; }
    std::span<const Value> objectContent() const;
    const Value* find(std::string_view name) const;
    QString pathText() const;

    const JsonFile* m_file;
    const Value* m_value;
};

} // namespace brindle::engine
