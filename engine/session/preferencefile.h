#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace brindle::engine {

/// The file in which a user's preferences are kept: JSON with these fields.
///
///     format, version  "brindle-preferences", 3
///     values           the preferences that were set and have another value than their default, by name: true, false
///     or a
///                      text; anything else as an object with one field, {"int": 5}, {"double": 2.5} or
///                      {"colour": "#rrggbbaa"}. A double that isn't finite is {"double": "inf"}, "-inf" or "nan".
///
/// Version 1 has true and false alone, version 2 has texts as well.
///
/// A write replaces the file in one step, and leaves what other processes wrote meanwhile. A damaged file is moved to
/// the same name with ".damaged" behind it (and a number where that is taken) before another one takes its place; one
/// that a newer version of the application wrote, or that can't be read, is left alone. Each of this is a line in the
/// log.
class PreferenceFile {
public:
    using Values = QMap<QString, QVariant>; ///< Each a bool, an int, a double, a QString or a QColor.

    /// An empty path is no file: nothing is read, and nothing is written.
    explicit PreferenceFile(const QString& path) : m_path(path) {}

    /// The user's file, in the folder that XDG_CONFIG_HOME names ("~/.config" by default); empty when there is none.
    static QString pathOfUser();

    /// None when there is no file, or it can't be read.
    Values read() const;
    /// Writes these values over those in the file, and takes out those of the other names. Gives what the file holds
    /// then, or nothing: the log says why.
    std::optional<Values> update(const Values& values, const QStringList& removed = {}) const;

private:
    QString m_path;
};

} // namespace brindle::engine
