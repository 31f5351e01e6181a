#include "engine/session/colourfiles.h"

#include "engine/elements/contentstore.h"
#include "engine/folder/foldertransaction.h"

namespace brindle::engine {

namespace {

const QString colourFolder = QStringLiteral("colour");

/// Adds the files in a folder of the project, at the same places; links count as what they lead to.
void addCopies(FolderTransaction& save, const Folder& from, const QString& name, int depth)
{
    constexpr int deepest = 32; // A link may lead back to where it stands.
    if (depth > deepest)
        throw FolderFailure{quoted(from.pathOf(colourFolder)) +
                            QStringLiteral(" has more than %1 folders in one another").arg(deepest)};
    for (const QString& entry : from.entries(name)) {
        const QString path = name + u'/' + entry;
        const FileKind kind = from.kindOf(path);
        if (kind == FileKind::Folder)
            addCopies(save, from, path, depth + 1);
        else if (kind == FileKind::File)
            save.copy(from, path, path);
    }
}

} // namespace

void ColourFiles::addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere)
{
    m_source.reset();
    const Folder* own = m_contents.folder();
    if (!isElsewhere || !own || own->kindOf(QLatin1String(configurationName)) != FileKind::File)
        return;
    if (folder.kindOf(colourFolder) != FileKind::Nothing)
        throw FolderFailure{quoted(folder.pathOf(colourFolder)) + " is in the way: it is not the project's"};
    m_source.emplace(*own);
    addCopies(save, *m_source, colourFolder, 1);
}

} // namespace brindle::engine
