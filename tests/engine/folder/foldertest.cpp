#include "tests/engine/folder/foldertest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <sys/wait.h>
#include <unistd.h>

void FolderTest::save(const QString& path, brindle::engine::Project& project)
{
    EXPECT_EQ(writeError(path, project), QString());
}

std::unique_ptr<brindle::engine::Project> FolderTest::open(const QString& path)
{
    auto project = std::make_unique<brindle::engine::Project>(path);
    QString error;
    EXPECT_TRUE(brindle::engine::ProjectFolder(path).read(*project, project->lock(), error)) << error.toStdString();
    return project;
}

FolderTest::Files FolderTest::saved(const QString& name)
{
    EXPECT_EQ(createError(path(name), project()), QString());
    return filesOf(path(name));
}

QString FolderTest::openError(const QString& path)
{
    brindle::engine::Project project(path);
    QString error;
    const bool opened = brindle::engine::ProjectFolder(path).read(project, project.lock(), error);
    EXPECT_EQ(opened, error.isEmpty());
    return error;
}

QString FolderTest::readOnlyError(const QString& path)
{
    brindle::engine::Project project(path);
    QString error;
    const bool opened = brindle::engine::ProjectFolder(path).readOnly(project, error);
    EXPECT_EQ(opened, error.isEmpty());
    EXPECT_FALSE(project.lock().isHeld());
    return error;
}

QString FolderTest::writeError(const QString& path, brindle::engine::Project& project)
{
    QString error;
    brindle::engine::ProjectLock ownForTheSave;
    brindle::engine::ProjectLock& lock = project.lock().isHeld() ? project.lock() : ownForTheSave;
    const bool written =
        brindle::engine::ProjectFolder(path).write(project.record(), project.scenes(), lock, error, project.files());
    EXPECT_EQ(written, error.isEmpty());
    return error;
}

QString FolderTest::createError(const QString& path, brindle::engine::Project& project)
{
    QString error;
    brindle::engine::ProjectLock lock;
    const bool created =
        brindle::engine::ProjectFolder(path).create(project.record(), project.scenes(), lock, error, project.files());
    EXPECT_EQ(created, error.isEmpty());
    return error;
}

FolderTest::Files FolderTest::filesOf(const QString& folder)
{
    Files files;
    const QDir top(folder);
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString entry = entries.next();
        if (entries.fileName() == QLatin1String(".brindle-lock"))
            continue;
        if (entries.fileInfo().isDir())
            files.insert(top.relativeFilePath(entry) + u'/', {});
        else
            files.insert(top.relativeFilePath(entry), get(entry));
    }
    return files;
}

void FolderTest::put(const QString& file, const QByteArray& content)
{
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << file.toStdString();
    ASSERT_EQ(out.write(content), content.size());
}

QByteArray FolderTest::get(const QString& file)
{
    QFile in(file);
    EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << file.toStdString();
    return in.readAll();
}

int inChild(const std::function<int()>& function)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(function());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}
