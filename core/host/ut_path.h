#pragma once

#include "core/host/export.h"

#include <QByteArray>
#include <QString>

/// A path in the file system, as the engine hands it out.
class BRINDLE_HOST_EXPORT VFS_Path {
public:
    VFS_Path() = default;
    explicit VFS_Path(const QString& path) : m_path(path) {}

    QString ToString() const { return m_path; }
    QString filepath() const { return m_path; }

private:
    QString m_path;
};

/// A path that is taken apart and put together. "/p/palette-library/Skin.plt" has the extension "plt" and the base name
/// "Skin"; one level up is "/p/palette-library".
class BRINDLE_HOST_EXPORT UT_Path {
public:
    explicit UT_Path(const QString& path) : m_path(path) {}

    QString ToString() const { return m_path; }
    bool Exists() const;
    QString GetExtension() const; ///< Without its dot; empty where the name has none.
    QString GetBaseName() const;  ///< The last part without its extension.
    QString GetFileName() const;  ///< The last part.
    QString GetPath() const;      ///< All ahead of the last part: "/p/palette-library".
    /// Makes the folder, with those above it. True also where it stands there already.
    bool CreateFolder() const;
    void Up();
    void AddName(const QString& name); ///< One level down.
    void AddExtension(const QString& extension);

private:
    QString m_path;
};

/// A path in bytes of Latin-1, where the engine asks for one: other characters can't be told, and are "?".
class BRINDLE_HOST_EXPORT UT_RelPath {
public:
    explicit UT_RelPath(const QByteArray& latin1) : m_path(QString::fromLatin1(latin1)) {}

    const QString& ToString() const { return m_path; }

private:
    QString m_path;
};

/// Files and folders on disk.
namespace tufile {

BRINDLE_HOST_EXPORT bool fileExists(const QString& path);
/// Moves a file or folder within its file system, and makes the folder that it goes into. False, and nothing changed,
/// when it can't, also when something stands there already.
BRINDLE_HOST_EXPORT bool MoveDir(const QString& from, const QString& to);

} // namespace tufile

/// Paths of a project as this machine has them.
class BRINDLE_HOST_EXPORT oswRemapPath {
public:
    /// The path with its separators and its home folder ("~") as this system has them.
    static QString RemapPath2(const QString& path);
};
