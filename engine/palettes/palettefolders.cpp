#include "engine/palettes/palettefolders.h"

#include "core/host/msg_scope.h"
#include "core/host/pr_preference.h"
#include "engine/folder/folderio.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

namespace brindle::engine::palette_folders {

namespace {

struct SharedFolder {
    CM_LocationType kind;
    const char* preference;
    const char* name;
};

constexpr SharedFolder sharedFolders[] = {
    {CM_Environment, "PALETTE_ENVIRONMENT_FOLDER", "environment"},
    {CM_Job, "PALETTE_JOB_FOLDER", "job"},
};

/// Whether the person may write the folder, or make it.
bool isWritable(const QString& folder)
{
    QFileInfo there(folder);
    while (!there.exists() && !there.isRoot())
        there = QFileInfo(there.path());
    return there.isDir() && there.isWritable();
}

QString ownFolder(const SharedFolder& shared)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/brindle/palettes/") + QLatin1String(shared.name);
}

/// Told once for each folder that can't be used.
void tell(const SharedFolder& shared, const QString& folder, const QString& used)
{
    static QSet<QString> told;
    if (told.contains(folder))
        return;
    told.insert(folder);
    MSG_Scope(quoted(folder) +
                  QStringLiteral(", the setting \"%1\", cannot be written; palettes lie in ")
                      .arg(QLatin1String(shared.preference)) +
                  quoted(used) + u'.',
              MSG_Scope::kError);
}

} // namespace

QString shared(int kind)
{
    for (const SharedFolder& shared : sharedFolders) {
        if (shared.kind != kind)
            continue;
        const QString own = ownFolder(shared);
        const QString set = tuPref()->getStringValue(QLatin1String(shared.preference), QString());
        if (set.isEmpty())
            return own;
        if (QDir::isAbsolutePath(set) && isWritable(set))
            return QDir::cleanPath(set);
        tell(shared, set, own);
        return own;
    }
    return {};
}

bool isBelow(const QString& file, const QString& folder)
{
    return !folder.isEmpty() && file.startsWith(folder) && file.size() > folder.size() &&
           file.at(folder.size()) == u'/';
}

} // namespace brindle::engine::palette_folders
