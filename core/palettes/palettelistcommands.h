#pragma once

#include "core/host/cm_palettelist.h"
#include "core/host/ut_undoredo.h"
#include "core/palettes/palettefiles.h"

#include <memory>
#include <vector>

/// The undoable changes of a palette list. The files of a palette that leaves its list move to ".deleted", and come
/// back with it. A move that fails leaves list and files as they were.
namespace OMC {

/// The base of the commands with one palette: puts it on the list at an index, and takes it off, with its files.
class OMC_PaletteList_BaseCommand : public UT_Command {
protected:
    /// `withFiles` tells whether the files go along.
    OMC_PaletteList_BaseCommand(std::shared_ptr<CM_PaletteList> list, std::shared_ptr<CM_Palette> palette, int index,
                                bool withFiles);

    bool insert();
    bool remove();

    std::shared_ptr<CM_PaletteList> m_list;
    std::shared_ptr<CM_Palette> m_palette;
    int m_index;

private:
    void moveFilesBack();
    void moveFilesAway();

    PaletteFiles m_files;
};

/// Puts a new palette on the list. Files of another palette in its place move to ".deleted".
class OMC_PaletteList_AddPaletteCommand final : public OMC_PaletteList_BaseCommand {
public:
    OMC_PaletteList_AddPaletteCommand(std::shared_ptr<CM_PaletteList> list, std::shared_ptr<CM_Palette> palette,
                                      int index, bool withFiles);

    bool Execute() override;
    bool Undo() override;

private:
    PaletteFiles m_replaced;
};

class OMC_PaletteList_RemovePaletteCommand final : public OMC_PaletteList_BaseCommand {
public:
    OMC_PaletteList_RemovePaletteCommand(std::shared_ptr<CM_PaletteList> list, std::shared_ptr<CM_Palette> palette,
                                         bool withFiles);

    bool Execute() override { return remove(); }
    bool Undo() override { return insert(); }
};

/// Puts a new palette in the place of another.
class OMC_PaletteList_SetPaletteCommand final : public UT_Command {
public:
    OMC_PaletteList_SetPaletteCommand(const std::shared_ptr<CM_PaletteList>& list,
                                      const std::shared_ptr<CM_Palette>& palette, int index, bool withFiles);

    bool Execute() override;
    bool Undo() override;

private:
    OMC_PaletteList_RemovePaletteCommand m_remove;
    OMC_PaletteList_AddPaletteCommand m_add;
};

/// Moves a palette to another place of the list.
class OMC_PaletteList_ReorderPaletteCommand final : public UT_Command {
public:
    OMC_PaletteList_ReorderPaletteCommand(std::shared_ptr<CM_PaletteList> list, int from, int to);

    bool Execute() override { return move(m_from, m_to); }
    bool Undo() override { return move(m_to, m_from); }

private:
    bool move(int from, int to);

    std::shared_ptr<CM_PaletteList> m_list;
    int m_from;
    int m_to;
};

/// Takes all palettes off the list.
class OMC_PaletteList_ClearPaletteCommand final : public UT_Command {
public:
    OMC_PaletteList_ClearPaletteCommand(const std::shared_ptr<CM_PaletteList>& list, bool withFiles);

    bool Execute() override;
    bool Undo() override;

private:
    std::vector<std::unique_ptr<OMC_PaletteList_RemovePaletteCommand>> m_removals; ///< From the last palette on.
};

} // namespace OMC
