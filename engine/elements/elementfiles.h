#pragma once

#include "engine/elements/contentstore.h"
#include "engine/folder/projectfiles.h"

#include <functional>
#include <vector>

namespace brindle::engine {

class ElementManager;

/// The files of a project's elements in its folder: "elements.json" and those of the drawings.
class ElementFiles final : public ProjectFiles {
public:
    explicit ElementFiles(ElementManager& elements) : m_elements(elements) {}

    /// The project was read from this folder, with an "elements.json" or without. `isOwn`: it can be saved there.
    void opened(const Folder& folder, bool isOwn, bool hasFile);

    void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere) override;
    void saved(const Folder& folder) override;

private:
    /// Gives whose content stands at the same place of the plan another one.
    using Owner = std::function<void(ContentPointer)>;

    ElementManager& m_elements;
    bool m_hasFile = false;    ///< The "elements.json" of the folder is the project's.
    ContentStore::Plan m_plan; ///< The plan of the save that is under way.
    std::vector<Owner> m_owners;
};

} // namespace brindle::engine
