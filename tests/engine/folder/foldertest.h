#pragma once

#include "tests/engine/support/memoryproject.h"

#include <QMap>
#include <QTemporaryDir>

/// A folder of its own for a test, and a project to save in it.
class FolderTest : public testing::Test, public MemoryProject {
public:
    using Files = QMap<QString, QByteArray>;

    QString path(const QString& name = QStringLiteral("project")) const { return m_dir.filePath(name); }

    /// Saves, or opens, and expects it to work. What was opened holds the project's lock; a project that holds none has
    /// it for the save.
    static void save(const QString& path, brindle::engine::Project& project);
    static std::unique_ptr<brindle::engine::Project> open(const QString& path);
    /// Saves the project of this test in a new folder, and gives its files.
    Files saved(const QString& name = QStringLiteral("project"));

    /// The sentence of an opening, a save or the making of a project that fails; empty when it works.
    static QString openError(const QString& path);
    static QString readOnlyError(const QString& path);
    static QString writeError(const QString& path, brindle::engine::Project& project);
    static QString createError(const QString& path, brindle::engine::Project& project);

    /// All files below a folder with their content, by relative path; folders with a "/" behind their path. The lock
    /// of who has the project open is left out.
    static Files filesOf(const QString& folder);
    static void put(const QString& file, const QByteArray& content);
    static QByteArray get(const QString& file);

private:
    QTemporaryDir m_dir;
};

/// Runs a function in a process of its own, and gives its exit code. A process that dies of a signal gives 1000 + its
/// number.
int inChild(const std::function<int()>& function);
