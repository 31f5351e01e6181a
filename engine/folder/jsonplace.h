#pragma once

#include "engine/folder/folderio.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <limits>
#include <span>

namespace brindle::engine {

class JsonPlace;

/// A file of JSON that is being read. It outlives the places in it.
class JsonFile {
public:
    /// Throws `FolderFailure` with line and column when the content is no JSON object.
    JsonFile(const QString& path, const QByteArray& content);

    JsonPlace root() const;
    QString path() const { return m_path; }

    /// Throws when an object of the file has a field twice: JSON would silently drop one of the values. To be called
    /// when every object has been asked for its fields (`requireOnly`, `keys`).
    void requireNoFieldTwice() const;

private:
    friend class JsonPlace;

    [[noreturn]] void fail(qsizetype offset, bool withColumn, const QString& reason) const;

    QString m_path;
    QByteArray m_content;
    QJsonDocument m_document;
    mutable qsizetype m_fieldsSeen = 0;
};

/// A value in a file, which knows where it stands: each function throws a `FolderFailure` that names the file, the line
/// and the path ("nodes[3].type") when the value is not what is asked for.
///
/// It points at the place that it was got from, which must outlive it.
class JsonPlace {
public:
    JsonPlace field(const char* name) const;
    bool has(const char* name) const;
    /// An object without other fields than these.
    void requireOnly(std::initializer_list<const char*> names, std::span<const char* const> more = {}) const;
    QStringList keys() const;
    JsonPlace field(const QString& name) const; ///< One of `keys`.

    int size() const; ///< The number of items of an array.
    JsonPlace item(int index) const;
    void requireSize(int size) const; ///< A list of this many items.

    QString text() const;
    bool flag() const;
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

    JsonPlace(const JsonFile& file, const JsonPlace* parent, const char* field, QString key, int index,
              const QJsonValue& value);

    QString name() const;
    const QJsonObject& object() const;

    const JsonFile* m_file;
    const JsonPlace* m_parent;
    const char* m_field; ///< Null where `m_key` or `m_index` says where it is.
    QString m_key;
    int m_index;
    QJsonValue m_value;
    QJsonArray m_array; ///< The value in its form, made once for the many questions to it.
    QJsonObject m_object;
};

} // namespace brindle::engine
