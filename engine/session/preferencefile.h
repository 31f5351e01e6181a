#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

namespace brindle::engine {

/// The file in which a user's preferences are kept: JSON with these fields.
///
///     format, version  "brindle-preferences", 2
///     values           the preferences that were ever set, by name: true, false or a text
///
/// Version 1 has no texts.
///
/// A write replaces the file in one step, and leaves what other processes wrote meanwhile. A damaged file is moved to
/// the same name with ".damaged" behind it (and a number where that is taken) before another one takes its place; one
/// that a newer version of the application wrote, or that can't be read, is left alone. Each of this is a line in the
/// log.
class PreferenceFile {
public:
    using Values = QMap<QString, QVariant>; ///< Each a bool or a QString.

    /// An empty path is no file: nothing is read, and nothing is written.
    explicit PreferenceFile(const QString& path) : m_path(path) {}

    /// The user's file, in the folder that XDG_CONFIG_HOME names ("~/.config" by default); empty when there is none.
    static QString pathOfUser();

    /// None when there is no file, or it can't be read.
    Values read() const;
    /// Writes these values over those in the file. False: the log says why.
    bool update(const Values& values) const;

private:
    QString m_path;
};

} // namespace brindle::engine
