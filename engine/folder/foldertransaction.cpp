#include "engine/folder/foldertransaction.h"

#include "engine/folder/folderrecovery.h"

namespace brindle::engine {

namespace {

/// To wait for a file takes the disk some milliseconds, and for all that are to be written not much longer.
constexpr std::size_t mostFilesOneByOne = 8;

/// Folders that a change needs, made before it and removed again when it fails.
class MadeFolders {
public:
    explicit MadeFolders(const Folder& folder) : m_folder(folder) {}
    MadeFolders(const MadeFolders&) = delete;
    MadeFolders& operator=(const MadeFolders&) = delete;
    ~MadeFolders()
    {
        for (const QString& name : m_made) {
            try {
                m_folder.removeFolder(name);
            } catch (const FolderFailure&) { // Somebody else has put something there meanwhile.
            }
        }
    }

    /// The folders on the way to a file.
    void requireFor(const QString& path)
    {
        for (qsizetype slash = path.indexOf(u'/'); slash >= 0; slash = path.indexOf(u'/', slash + 1)) {
            const QString name = path.left(slash);
            if (m_folder.kindOf(name) == FileKind::Folder)
                continue;
            m_folder.makeFolder(name);
            m_made.prepend(name);
        }
    }
    void sync() const
    {
        for (const QString& name : m_made)
            m_folder.sync(name.left(std::max<qsizetype>(name.lastIndexOf(u'/'), 0)));
    }
    void keep() { m_made.clear(); }

private:
    const Folder& m_folder;
    QStringList m_made; ///< The innermost first.
};

/// On the way out of a failure, which is what the caller gets to hear of.
template <typename Step>
void attempt(Step step)
{
    try {
        step();
    } catch (const FolderFailure&) {
    }
}

} // namespace

void FolderTransaction::set(const QString& path, Target target)
{
    const auto place = m_places.constFind(path);
    if (place != m_places.cend()) {
        m_targets[*place].second = std::move(target);
        return;
    }
    m_places.insert(path, m_targets.size());
    m_targets.emplace_back(path, std::move(target));
}

void FolderTransaction::write(const QString& path, const QByteArray& content)
{
    set(path, {content, {}, nullptr});
}

void FolderTransaction::remove(const QString& path)
{
    if (!m_places.contains(path))
        set(path, Target());
}

void FolderTransaction::move(const QString& from, const QString& to)
{
    if (from == to)
        return;
    remove(from);
    set(to, {std::nullopt, from, nullptr});
}

void FolderTransaction::copy(const Folder& from, const QString& name, const QString& to)
{
    set(to, {std::nullopt, name, &from});
}

void FolderTransaction::commit()
{
    if (folder_recovery::isInterrupted(m_folder))
        folder_recovery::recover(m_folder);
    const SaveJournal journal = plan();
    if (journal.files.empty())
        return;

    MadeFolders made(m_folder);
    for (const SaveJournal::File& file : journal.files) {
        made.requireFor(file.path);
        m_folder.requireReplaceable(file.path);
    }
    try {
        stage(journal);
        made.sync();
        m_folder.rename(save_stage::newJournal, save_stage::journal);
        m_folder.sync(save_stage::folder);
        folder_recovery::moveForward(m_folder, journal);
        m_folder.remove(save_stage::journal);
    } catch (const FolderFailure&) {
        attempt([&] { folder_recovery::takeBack(m_folder, journal); });
        throw;
    }
    made.keep();
    // The change has happened. What is left of the stage means nothing, and goes with the next change.
    attempt([this] { folder_recovery::removeStage(m_folder); });
}

/// The files that change, with what they are and what they will be.
SaveJournal FolderTransaction::plan() const
{
    SaveJournal journal;
    for (const auto& [path, target] : m_targets) {
        SaveJournal::File file{path, std::nullopt, std::nullopt};
        if (target.content && m_folder.kindOf(path) == FileKind::File) {
            const QByteArray old = m_folder.read(path);
            if (old == *target.content)
                continue;
            file.before = Checksum::of(old);
        } else {
            file.before = m_folder.checksum(path);
        }
        if (target.content)
            file.after = Checksum::of(*target.content);
        else if (!target.isRemoved())
            file.after = (target.copied ? *target.copied : m_folder).checksum(target.source);
        if (!file.after && !target.isRemoved())
            throw FolderFailure{quoted((target.copied ? *target.copied : m_folder).pathOf(target.source)) +
                                " is missing"};
        if (target.isRemoved() && m_folder.kindOf(path) == FileKind::Nothing)
            continue;
        journal.files.push_back(file);
    }
    return journal;
}

void FolderTransaction::stage(const SaveJournal& journal) const
{
    m_folder.makeFolder(save_stage::folder);
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        const SaveJournal::File& file = journal.files[number];
        const Target& target = targetOf(file.path);
        if (target.content)
            m_folder.writeNew(save_stage::part(number), *target.content, file.path, m_folder.modeOf(file.path));
        else if (target.copied)
            m_folder.writeNew(save_stage::part(number), target.copied->read(target.source), file.path,
                              target.copied->modeOf(target.source));
        else if (!target.isRemoved())
            m_folder.link(target.source, save_stage::part(number), file.path);
        if (file.before)
            m_folder.link(file.path, save_stage::kept(number), file.path);
    }
    m_folder.writeNew(save_stage::newJournal, journal.text(), save_stage::journal, 0666);
    syncStage(journal);
}

void FolderTransaction::syncStage(const SaveJournal& journal) const
{
    if (journal.files.size() > mostFilesOneByOne) {
        m_folder.syncDisk();
        return;
    }
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        if (journal.files[number].after)
            m_folder.syncFile(save_stage::part(number), journal.files[number].path);
    }
    m_folder.syncFile(save_stage::newJournal, save_stage::journal);
    m_folder.sync(save_stage::folder);
}

} // namespace brindle::engine
