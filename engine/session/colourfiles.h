#pragma once

#include "engine/folder/folder.h"
#include "engine/folder/projectfiles.h"

#include <optional>

namespace brindle::engine {

class ContentStore;

/// The project's own configuration of colours: "colour/config.ocio" in its folder, and what else lies in "colour", as
/// tables that it names. The project only reads it; saving to another folder copies all of it.
class ColourFiles final : public ProjectFiles {
public:
    static constexpr const char* configurationName = "colour/config.ocio";

    /// `contents` knows the folder of the open project.
    explicit ColourFiles(const ContentStore& contents) : m_contents(contents) {}

    void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere) override;
    void saved(const Folder&) override { m_source.reset(); }

private:
    const ContentStore& m_contents;
    std::optional<Folder> m_source; ///< While a save copies from there.
};

} // namespace brindle::engine
