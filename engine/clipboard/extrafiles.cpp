#include "engine/clipboard/extrafiles.h"

#include "engine/folder/folder.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr QLatin1String modellingFolder("modelling");
constexpr QLatin1String scanFolder("scan");

/// Takes the files below a folder of the project along, where there is one. `shownAs` is the folder's place in that of
/// the project or the element.
void copyFiles(const Folder& folder, const QString& place, int element, const QString& shownAs, DragScene& to)
{
    if (folder.kindOf(place) != FileKind::Folder)
        return;
    for (const QString& name : folder.entries(place)) {
        const QString file = place + u'/' + name;
        const QString shown = shownAs + u'/' + name;
        if (folder.kindOf(file) == FileKind::File)
            to.files.push_back({element, shown, folder.read(file)});
        else
            copyFiles(folder, file, element, shown, to);
    }
}

/// Adds files to those that are saved with a project.
class AddFiles final : public CO_Command {
public:
    AddFiles(ElementManager& elements, ElementManager::ExtraFiles files)
        : m_elements(elements),
          m_files(std::move(files))
    {}

    Status execute() override
    {
        ElementManager::ExtraFiles& all = m_elements.extraFiles();
        all.insert(all.end(), m_files.begin(), m_files.end());
        return kOk;
    }

    Status unexecute() override
    {
        std::erase_if(m_elements.extraFiles(), [this](const auto& file) {
            return std::find(m_files.begin(), m_files.end(), file) != m_files.end();
        });
        return kOk;
    }

private:
    ElementManager& m_elements;
    ElementManager::ExtraFiles m_files;
};

bool isFree(ElementManager& elements, const QString& place)
{
    const auto isThere = [&](const auto& file) { return file->place == place; };
    const ElementManager::ExtraFiles& files = elements.extraFiles();
    return std::none_of(files.begin(), files.end(), isThere) && elements.contents().isFree(place);
}

} // namespace

void copyExtraFiles(ElementManager& from, const std::map<int, int>& elements, bool modelling, bool scans, DragScene& to)
{
    const Folder* folder = from.contents().folder();
    if (!folder)
        return;
    if (modelling)
        copyFiles(*folder, modellingFolder, -1, modellingFolder, to);
    if (!scans)
        return;
    for (const auto& [source, id] : elements)
        copyFiles(*folder, from.find(source)->folder() + u'/' + scanFolder, id, scanFolder, to);
}

std::unique_ptr<CO_Command> newExtraFilesCommand(const DragScene& from, ElementManager& to,
                                                 const std::map<int, int>& elements)
{
    ElementManager::ExtraFiles files;
    for (const DragScene::ExtraFile& file : from.files) {
        QString place = file.place;
        if (file.element >= 0) {
            const auto id = elements.find(file.element);
            const Element* element = id == elements.end() ? nullptr : to.find(id->second);
            if (!element)
                continue;
            place = element->folder() + u'/' + file.place;
        }
        if (isFree(to, place))
            files.push_back(std::make_shared<ElementManager::ExtraFile>(
                ElementManager::ExtraFile{place, to.contents().fromBytes(file.bytes)}));
    }
    return files.empty() ? nullptr : std::make_unique<AddFiles>(to, std::move(files));
}

} // namespace brindle::engine
