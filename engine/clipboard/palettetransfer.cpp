#include "engine/clipboard/palettetransfer.h"

#include "core/host/cm_palettemanager.h"
#include "engine/palettes/palette.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettelist.h"
#include "engine/session/projectcommon.h"

#include <QFileInfo>

namespace brindle::engine {

namespace {

using List = std::shared_ptr<CM_PaletteList>;
using Palette = std::shared_ptr<CM_Palette>;
using Mode = DD_DropMode::PaletteMode;

void tell(const List& list, const CM_Palette& palette)
{
    CM_PaletteManager::GetInstance()->notify({list ? list->GetID() : UT_Id(), palette.GetID(), {}});
}

/// Puts a palette on a list. Where a save has written its files since, they go to ".deleted" with an undo.
class AddPalette final : public CO_Command {
public:
    AddPalette(List list, Palette palette) : m_list(std::move(list)), m_palette(std::move(palette)) {}

    Status execute() override
    {
        if (m_isAway)
            m_isAway = !attempt([&] { palette_files::putBack(file(), m_palette->GetID()); });
        if (m_isAway || !m_list->InsertPalette(m_palette, -1))
            return kFail;
        tell(m_list, *m_palette);
        return kOk;
    }

    Status unexecute() override
    {
        if (!m_list->RemovePalette(m_palette->GetID()))
            return kFail;
        if (m_ownsFile && identityInPaletteFile(file()) == m_palette->GetID())
            m_isAway = attempt([&] { palette_files::moveToDeleted(file()); });
        tell(m_list, *m_palette);
        return kOk;
    }

    /// The palette's file is that of another place, and stays there.
    void linkOnly() { m_ownsFile = false; }

private:
    QString file() const { return m_palette->engine().file(); }

    template <typename Action>
    static bool attempt(Action action)
    {
        try {
            action();
            return true;
        } catch (const FolderFailure&) {
            return false;
        }
    }

    List m_list;
    Palette m_palette;
    bool m_ownsFile = true;
    bool m_isAway = false; ///< Its files are in ".deleted".
};

/// Exchanges what a palette holds: its name, its type and its entries.
class ExchangePalette final : public CO_Command {
public:
    ExchangePalette(Palette palette, PaletteRecord record) : m_palette(std::move(palette)), m_record(std::move(record))
    {}

    Status execute() override
    {
        PaletteRecord before = m_palette->engine().record();
        m_palette->engine().setRecord(std::move(m_record));
        m_record = std::move(before);
        tell(nullptr, *m_palette);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    Palette m_palette;
    PaletteRecord m_record; ///< That it gets next.
};

/// What a palette has when the colours of another one are added, and, with `updates`, replace its own.
PaletteRecord merged(const CM_Palette& palette, const CM_Palette& other, bool updates)
{
    PaletteRecord record = palette.engine().record();
    std::unordered_map<UT_Id, std::size_t> places;
    for (std::size_t place = 0; place < record.entries.size(); ++place)
        places.emplace(record.entries[place]->GetID(), place);
    for (const CM_Palette::Entry& entry : other.colors()) {
        const auto place = places.find(entry->GetID());
        if (place == places.end())
            record.entries.push_back(entry->Clone(false));
        else if (updates)
            record.entries[place->second] = entry->Clone(false);
    }
    return record;
}

/// All that another palette has, under the palette's own identity.
PaletteRecord replaced(const CM_Palette& palette, const CM_Palette& other)
{
    PaletteRecord record{palette.GetID(), other.GetName(), other.GetType(), {}};
    for (const CM_Palette::Entry& entry : other.colors())
        record.entries.push_back(entry->Clone(false));
    return record;
}

/// The mode for palettes of either kind of list.
Mode modeFor(const DragScene::DraggedPalette& dragged, Mode mode)
{
    switch (mode) {
    case DD_DropMode::kCopySceneAndMerge:
        return dragged.element < 0 ? DD_DropMode::kCopyAndMerge : DD_DropMode::kReusePalettes;
    case DD_DropMode::kCopySceneAndUpdate:
        return dragged.element < 0 ? DD_DropMode::kCopyAndUpdate : DD_DropMode::kReusePalettes;
    default:
        return mode;
    }
}

class PalettePaste {
public:
    PalettePaste(ProjectCommon& project, const std::map<int, int>& elements)
        : m_store(project.palettes()),
          m_elements(project.elements()),
          m_ids(elements)
    {}

    void paste(const DragScene::DraggedPalette& dragged, Mode mode)
    {
        const CM_Palette& palette = *dragged.palette;
        if (mode == DD_DropMode::kCopyAndCreate || mode == DD_DropMode::kCopyAndCreateInElement) {
            for (const List& list : listsFor(dragged, mode))
                add(list, palette, UT_Id::Generate());
            return;
        }
        if (const Palette present = find(palette.GetID())) {
            if (mode == DD_DropMode::kCopyAndOverwrite)
                exchange(present, replaced(*present, palette));
            else if (mode == DD_DropMode::kCopyAndMerge || mode == DD_DropMode::kCopyAndUpdate)
                exchange(present, merged(*present, palette, mode == DD_DropMode::kCopyAndUpdate));
            return;
        }
        const List list = listsFor(dragged, mode).front();
        if (mode != DD_DropMode::kLinkToOriginal) {
            add(list, palette, palette.GetID());
        } else if (QFileInfo::exists(palette.GetPath().filename(true))) {
            auto command =
                std::make_unique<AddPalette>(list, std::make_shared<CM_Palette>(palette.GetPath(), palette.GetID()));
            command->linkOnly();
            m_commands->add(command.release());
        }
    }

    std::unique_ptr<CO_Command> takeCommands() { return m_commands->size() > 0 ? std::move(m_commands) : nullptr; }

private:
    Palette find(const UT_Id& id)
    {
        for (const List& list : m_store.lists()) {
            if (Palette palette = list->GetPalette(id)) {
                palette->Load();
                return palette;
            }
        }
        return nullptr;
    }

    List elementList(int dragElement)
    {
        const auto id = m_ids.find(dragElement);
        return id == m_ids.end() ? nullptr : m_store.listAt(m_elements.elementFolder(id->second, 0).ToString(), true);
    }

    /// The lists that get a palette, at least one.
    std::vector<List> listsFor(const DragScene::DraggedPalette& dragged, Mode mode)
    {
        std::vector<List> lists;
        if (dragged.element >= 0) {
            lists.push_back(elementList(dragged.element));
        } else if (mode == DD_DropMode::kCopyAndCreateInElement) {
            for (const auto& [source, id] : m_ids)
                lists.push_back(elementList(source));
        }
        std::erase(lists, nullptr);
        if (lists.empty())
            lists.push_back(m_store.lists().front());
        return lists;
    }

    void add(const List& list, const CM_Palette& palette, const UT_Id& id)
    {
        const QString base = list->engine().library() + u'/' + CM_PalettePathGen::FileName(palette.GetName());
        QString path = base;
        const auto isTaken = [&] {
            return m_paths.contains(path) || CM_PaletteManager::GetInstance()->PaletteExists(CM_PalettePathFile(path));
        };
        for (int number = 1; isTaken(); ++number)
            path = base + u'_' + QString::number(number);
        m_paths.insert(path);
        auto copy = std::make_shared<CM_Palette>(CM_PalettePathFile(path));
        copy->Copy(palette, true);
        copy->engine().id = id;
        m_commands->add(new AddPalette(list, std::move(copy)));
    }

    void exchange(const Palette& palette, PaletteRecord record)
    {
        m_commands->add(new ExchangePalette(palette, std::move(record)));
    }

    PaletteStore& m_store;
    const ElementManager& m_elements;
    const std::map<int, int>& m_ids;
    QSet<QString> m_paths; ///< Of the palettes that are added.
    std::unique_ptr<CO_AndCommand> m_commands = std::make_unique<CO_AndCommand>();
};

} // namespace

void copyPalettes(PaletteStore& from, const ElementManager& fromElements, const std::map<int, int>& elements,
                  DragScene& to)
{
    QHash<QString, int> byFolder;
    for (const auto& [source, id] : elements)
        byFolder.insert(fromElements.elementFolder(source, 0).ToString(), id);
    for (const List& list : from.lists()) {
        const int element = byFolder.value(list->GetPath(), -1);
        if (list->type() == CM_PaletteList::kElement && element < 0)
            continue;
        for (const Palette& palette : list->palettes()) {
            if (!palette->Load())
                continue;
            auto copy = std::make_shared<CM_Palette>(palette->GetPath());
            copy->Copy(*palette, true);
            copy->engine().id = palette->GetID();
            to.palettes.push_back({std::move(copy), list->type() == CM_PaletteList::kElement ? element : -1});
        }
    }
}

std::unique_ptr<CO_Command> newPalettesCommand(const DragScene& from, ProjectCommon& to,
                                               const std::map<int, int>& elements, DD_DropMode::PaletteMode mode)
{
    if (mode == DD_DropMode::kNoPalettes)
        return nullptr;
    PalettePaste paste(to, elements);
    for (const DragScene::DraggedPalette& dragged : from.palettes)
        paste.paste(dragged, modeFor(dragged, mode));
    return paste.takeCommands();
}

} // namespace brindle::engine
