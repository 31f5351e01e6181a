#pragma once

namespace brindle::engine {

class Folder;
class FolderTransaction;

/// A family of files that a project has in its folder beside its scenes, and that is saved in one step with them.
class ProjectFiles {
public:
    virtual ~ProjectFiles() = default;

    /// Adds what has changed to a save. `folder` is that of the open project, or another one, empty of it, that gets
    /// all files because the project goes on there (`isElsewhere`). Throws `FolderFailure`, which refuses the save.
    virtual void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere) = 0;
    /// The save has happened. It is called while the folder is still locked against other processes.
    virtual void saved(const Folder& folder) = 0;
};

} // namespace brindle::engine
