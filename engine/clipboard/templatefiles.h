#pragma once

#include "engine/clipboard/dragscene.h"
#include "engine/folder/projectfiles.h"

namespace brindle::engine {

/// What a template has beside its scene: the elements with the files of their drawings, palettes, and the files that
/// were copied with them. It is written whole into a new folder; the drag scene stays as it is.
class TemplateFiles final : public ProjectFiles {
public:
    explicit TemplateFiles(const DragScene& content) : m_content(content) {}

    void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere) override;
    void saved(const Folder&) override {}

private:
    void addElements(FolderTransaction& save) const;
    void addPalettes(FolderTransaction& save, const Folder& folder) const;

    const DragScene& m_content;
};

} // namespace brindle::engine
