#include "core/palettes/palettelistcommands.h"

#include "core/frame/exception.h"
#include "core/palettes/paletteedit.h"

#include <ranges>

namespace OMC {

using paletteedit::notifyOf;

OMC_PaletteList_BaseCommand::OMC_PaletteList_BaseCommand(std::shared_ptr<CM_PaletteList> list,
                                                         std::shared_ptr<CM_Palette> palette, int index, bool withFiles)
    : m_list(std::move(list)),
      m_palette(std::move(palette)),
      m_index(index),
      m_files(m_palette->GetPath(), withFiles)
{}

bool OMC_PaletteList_BaseCommand::insert()
{
    moveFilesBack();
    if (!m_list->InsertPalette(m_palette, m_index)) {
        moveFilesAway();
        return false;
    }
    notifyOf(*m_list, *m_palette);
    return true;
}

bool OMC_PaletteList_BaseCommand::remove()
{
    m_index = m_list->GetPaletteIndex(m_palette->GetID());
    if (m_index < 0)
        return false;
    // Read ahead of the move: only the place of its files is known to a palette.
    if (!m_palette->IsLoadedFromDisk())
        m_palette->Load();
    moveFilesAway();
    if (!m_list->RemovePalette(m_palette->GetID())) {
        moveFilesBack();
        return false;
    }
    notifyOf(*m_list, *m_palette);
    return true;
}

void OMC_PaletteList_BaseCommand::moveFilesBack()
{
    if (!m_files.areAway())
        return;
    m_files.moveBack();
    paletteedit::manager().unclaimPalette(m_palette->GetID());
}

void OMC_PaletteList_BaseCommand::moveFilesAway()
{
    m_files.moveAway();
    if (m_files.areAway())
        paletteedit::manager().claimPalette(m_palette->GetID());
}

OMC_PaletteList_AddPaletteCommand::OMC_PaletteList_AddPaletteCommand(std::shared_ptr<CM_PaletteList> list,
                                                                     std::shared_ptr<CM_Palette> palette, int index,
                                                                     bool withFiles)
    : OMC_PaletteList_BaseCommand(std::move(list), std::move(palette), index, withFiles),
      m_replaced(m_palette->GetPath(), withFiles)
{}

bool OMC_PaletteList_AddPaletteCommand::Execute()
{
    m_replaced.moveAway();
    try {
        if (insert())
            return true;
    } catch (const Exception&) {
        m_replaced.moveBack();
        throw;
    }
    m_replaced.moveBack();
    return false;
}

bool OMC_PaletteList_AddPaletteCommand::Undo()
{
    if (!remove())
        return false;
    m_replaced.moveBack();
    return true;
}

OMC_PaletteList_RemovePaletteCommand::OMC_PaletteList_RemovePaletteCommand(std::shared_ptr<CM_PaletteList> list,
                                                                           std::shared_ptr<CM_Palette> palette,
                                                                           bool withFiles)
    : OMC_PaletteList_BaseCommand(std::move(list), std::move(palette), -1, withFiles)
{}

OMC_PaletteList_SetPaletteCommand::OMC_PaletteList_SetPaletteCommand(const std::shared_ptr<CM_PaletteList>& list,
                                                                     const std::shared_ptr<CM_Palette>& palette,
                                                                     int index, bool withFiles)
    : m_remove(list, list->palettes()[static_cast<std::size_t>(index)], withFiles),
      m_add(list, palette, index, withFiles)
{}

bool OMC_PaletteList_SetPaletteCommand::Execute()
{
    if (!m_remove.Execute())
        return false;
    try {
        if (m_add.Execute())
            return true;
    } catch (const Exception&) {
        m_remove.Undo();
        throw;
    }
    m_remove.Undo();
    return false;
}

bool OMC_PaletteList_SetPaletteCommand::Undo()
{
    return m_add.Undo() && m_remove.Undo();
}

OMC_PaletteList_ReorderPaletteCommand::OMC_PaletteList_ReorderPaletteCommand(std::shared_ptr<CM_PaletteList> list,
                                                                             int from, int to)
    : m_list(std::move(list)),
      m_from(from),
      m_to(to)
{}

bool OMC_PaletteList_ReorderPaletteCommand::move(int from, int to)
{
    if (from < 0 || from >= m_list->Size() || to < 0 || to >= m_list->Size())
        return false;
    const std::shared_ptr<CM_Palette> palette = m_list->palettes()[static_cast<std::size_t>(from)];
    if (!m_list->RemovePalette(palette->GetID()))
        return false;
    m_list->InsertPalette(palette, to);
    notifyOf(*m_list);
    return true;
}

OMC_PaletteList_ClearPaletteCommand::OMC_PaletteList_ClearPaletteCommand(const std::shared_ptr<CM_PaletteList>& list,
                                                                         bool withFiles)
{
    for (const std::shared_ptr<CM_Palette>& palette : list->palettes() | std::views::reverse)
        m_removals.push_back(std::make_unique<OMC_PaletteList_RemovePaletteCommand>(list, palette, withFiles));
}

bool OMC_PaletteList_ClearPaletteCommand::Execute()
{
    std::size_t done = 0;
    const auto takeBack = [&] {
        while (done > 0)
            m_removals[--done]->Undo();
    };
    try {
        for (; done < m_removals.size(); ++done) {
            if (!m_removals[done]->Execute()) {
                takeBack();
                return false;
            }
        }
    } catch (const Exception&) {
        takeBack();
        throw;
    }
    return true;
}

bool OMC_PaletteList_ClearPaletteCommand::Undo()
{
    for (auto& removal : m_removals | std::views::reverse) {
        if (!removal->Undo())
            return false;
    }
    return true;
}

} // namespace OMC
