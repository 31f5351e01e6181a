#include "engine/folder/scenefilenames.h"

#include "engine/folder/safenames.h"

namespace brindle::engine {

namespace {

constexpr QLatin1String folder("scenes/");
constexpr QLatin1String ending(".json");

} // namespace

QStringList sceneFileNames(const QStringList& sceneNames)
{
    QStringList files;
    QSet<QString> taken;
    for (const QString& name : sceneNames) {
        const QString file = safe_names::unique(safe_names::made(name), taken);
        taken.insert(safe_names::folded(file));
        files.append(folder + file + ending);
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
