#include "engine/folder/folderio.h"

#include "engine/engine.h"
#include "engine/folder/filelocation.h"

#include <QFile>

#include <cstring>

namespace brindle::engine {

QString shown(const QString& text)
{
    constexpr qsizetype longest = 5000; // Longer than any path.
    if (text.size() > longest)
        return shown(text.left(longest / 2)) + QStringLiteral(" ... ") + shown(text.right(longest / 2));
    QString line;
    line.reserve(text.size());
    for (const QChar character : text) {
        const bool breaks = character.category() == QChar::Other_Control ||
                            character.category() == QChar::Separator_Line ||
                            character.category() == QChar::Separator_Paragraph;
        if (character == u'\n')
            line += QStringLiteral("\\n");
        else if (breaks)
            line += QStringLiteral("\\u%1").arg(int(character.unicode()), 4, 16, QChar(u'0'));
        else
            line += character;
    }
    return line;
}

QString quoted(const QString& path)
{
    return u'"' + shown(path) + u'"';
}

FolderFailure FolderFailure::ofSystem(const QString& path, const char* what, int error)
{
    QString text = QString::fromLocal8Bit(std::strerror(error));
    if (text.size() > 1 && text.at(1).isLower())
        text[0] = text.at(0).toLower();
    return {quoted(path) + u' ' + QLatin1String(what) + ": " + text};
}

FolderFailure FolderFailure::ofNewerVersion(const QString& path, int found, int newest)
{
    const QString known = newest == 1 ? QStringLiteral("version 1") : QStringLiteral("versions up to %1").arg(newest);
    return {quoted(path) + " has format version " + QString::number(found) +
            ", and this version of the application reads " + known};
}

namespace folder_io {

FileKind kindOf(const QString& path)
{
    return FileLocation::at(path).kind();
}

QByteArray read(const QString& path, bool* missing)
{
    return FileLocation::at(path).read(missing);
}

void rename(const QString& from, const QString& to)
{
    FileLocation::at(from).moveTo(FileLocation::at(to));
}

void makeFolder(const QString& path)
{
    FileLocation::at(path).makeFolder();
}

void tryRemoveFolder(const QString& path) noexcept
{
    ::rmdir(QFile::encodeName(path).constData());
}

void sync(const QString& folder)
{
    FileLocation::at(folder).syncFolder();
}

} // namespace folder_io

} // namespace brindle::engine
