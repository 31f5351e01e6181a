#pragma once

#include "core/host/export.h"

#include <QString>

/// A file on disk, by its path.
class BRINDLE_HOST_EXPORT PL_FileSpec {
public:
    explicit PL_FileSpec(const QString& path = {}) : m_path(path) {}

    const QString& GetFilePath() const { return m_path; }
    /// Gives the file a second name: a hard link, or a copy where the file system has no links or the other name lies
    /// in another one. False, and nothing changed, where that can't be; also for a name that is taken, unless
    /// `overwrite` is set.
    bool HardLink(const PL_FileSpec& target, bool overwrite) const;

private:
    QString m_path;
};

/// A folder for files that go with the process. It is made at the first name, and removed with all that is in it when
/// the object goes.
class BRINDLE_HOST_EXPORT PL_TemporaryDir {
public:
    PL_TemporaryDir();
    PL_TemporaryDir(const PL_TemporaryDir&) = delete;
    PL_TemporaryDir& operator=(const PL_TemporaryDir&) = delete;
    ~PL_TemporaryDir();

    /// The absolute path of a file that isn't there, with a name that this object gives once. Empty where no folder
    /// can be made.
    QString generateTemporaryName(const QString& suffix);

private:
    QString m_folder;
    int m_process = 0; ///< The one that made the folder.
    unsigned int m_last = 0;
};
