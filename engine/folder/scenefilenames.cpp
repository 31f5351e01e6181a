#include "engine/folder/scenefilenames.h"

#include <QSet>

namespace brindle::engine {

namespace {

constexpr qsizetype longestName = 200; // bytes of UTF-8, of the 255 that file systems take
constexpr QLatin1String folder("scenes/");
constexpr QLatin1String ending(".json");

QString safeName(const QString& name)
{
    QString safe;
    qsizetype bytes = 0;
    for (const char32_t character : name.toUcs4()) {
        const bool kept = QChar::isLetterOrNumber(character) || character == U'-' || character == U'_' ||
                          character == U' ' || (character == U'.' && !safe.isEmpty());
        const QString text = kept ? QString::fromUcs4(&character, 1) : QStringLiteral("_");
        bytes += text.toUtf8().size();
        if (bytes > longestName)
            break;
        safe += text;
    }
    return safe.isEmpty() ? QStringLiteral("_") : safe;
}

} // namespace

QStringList sceneFileNames(const QStringList& sceneNames)
{
    QStringList files;
    QSet<QString> taken;
    for (const QString& name : sceneNames) {
        const QString safe = safeName(name);
        QString unique = safe;
        for (int number = 2; taken.contains(unique.toCaseFolded()); ++number)
            unique = safe + u'-' + QString::number(number);
        taken.insert(unique.toCaseFolded());
        files.append(folder + unique + ending);
    }
    return files;
}

bool isSceneFileName(const QString& path)
{
    const QString name = path.mid(folder.size());
    return path.startsWith(folder) && path.endsWith(ending) && name.size() > ending.size() && !name.contains(u'/') &&
           !name.contains(QChar(0)) && name.isValidUtf16();
}

} // namespace brindle::engine
