#include "engine/elements/elementfiles.h"

#include "engine/elements/elementfile.h"
#include "engine/elements/elementmanager.h"
#include "engine/folder/foldertransaction.h"

namespace brindle::engine {

void ElementFiles::opened(const Folder& folder, bool isOwn, bool hasFile)
{
    m_elements.contents().open(folder, isOwn);
    m_hasFile = hasFile;
}

void ElementFiles::addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere)
{
    m_plan.clear();
    m_owners.clear();
    for (const TUElement* entry : m_elements.elements()) {
        const auto& element = static_cast<const Element&>(*entry);
        for (std::size_t place = 0; place < element.drawings().size(); ++place) {
            Drawing& drawing = element.drawings().at(place);
            for (const DrawingFile& file : drawing.files()) {
                m_plan.push_back({file.content, element.fileName(drawing, file.layer, file.version)});
                m_owners.push_back([&drawing, layer = file.layer, version = file.version](ContentPointer content) {
                    drawing.setStanding(layer, version, std::move(content));
                });
            }
        }
    }
    for (const auto& extra : m_elements.extraFiles()) {
        m_plan.push_back({extra->content, extra->place});
        m_owners.push_back([extra](ContentPointer content) { extra->content = std::move(content); });
    }
    m_elements.contents().addTo(save, folder, isElsewhere, m_plan);

    const QString file = QLatin1String(elementFileName);
    const bool isOurs = m_hasFile && !isElsewhere;
    if (m_elements.elements().empty()) {
        if (isOurs)
            save.remove(file);
        return;
    }
    if (!isOurs && folder.kindOf(file) != FileKind::Nothing)
        throw FolderFailure{quoted(folder.pathOf(file)) + " is in the way: it is not a file of the project"};
    save.write(file, elementFileText(m_elements));
}

void ElementFiles::saved(const Folder& folder)
{
    m_hasFile = !m_elements.elements().empty();
    std::vector<ContentPointer> standing = m_elements.contents().saved(folder, m_plan);
    for (std::size_t place = 0; place < m_owners.size(); ++place) {
        if (standing[place] != m_plan[place].content)
            m_owners[place](std::move(standing[place]));
    }
    for (const TUElement* entry : m_elements.elements()) {
        const auto& element = static_cast<const Element&>(*entry);
        for (std::size_t place = 0; place < element.drawings().size(); ++place)
            element.drawings().at(place).saved();
    }
    m_plan.clear();
    m_owners.clear();
}

} // namespace brindle::engine
