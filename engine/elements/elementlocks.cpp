#include "engine/elements/elementlocks.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace brindle::engine {

ElementLocks::~ElementLocks()
{
    while (!m_locks.empty())
        release(m_locks.begin()->first);
}

void ElementLocks::requireFree(int element, const QString& path) const
{
    if (!isHeld(element) && folder_io::kindOf(path) == FileKind::Folder)
        ProjectLock().requireFree(Folder(path));
}

void ElementLocks::require(int element, const QString& path)
{
    if (!QDir().mkpath(path))
        throw FolderFailure::ofSystem(path, "cannot be written", errno);
    const Folder folder(path);
    const FolderLock looking(folder, FolderLock::Writing);
    ProjectLock lock;
    if (const auto held = m_locks.find(element); held != m_locks.end())
        return held->second.require(folder);
    lock.require(folder);
    m_locks.emplace(element, std::move(lock));
}

bool ElementLocks::isHeld(int element) const
{
    const auto held = m_locks.find(element);
    return held != m_locks.end() && held->second.isHeld();
}

bool ElementLocks::release(int element)
{
    const auto held = m_locks.find(element);
    if (held == m_locks.end())
        return false;
    const QString place = held->second.isHeld() ? held->second.folder()->place() : QString();
    m_locks.erase(held);
    if (!place.isEmpty()) { // Folders that were made for the lock alone go with it.
        folder_io::tryRemoveFolder(place);
        folder_io::tryRemoveFolder(QFileInfo(place).path());
    }
    return true;
}

} // namespace brindle::engine
