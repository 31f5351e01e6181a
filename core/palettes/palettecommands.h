#pragma once

#include "core/frame/export.h"
#include "core/host/cm_palette.h"
#include "core/host/ut_undoredo.h"

#include <memory>
#include <vector>

/// The undoable changes of a palette. Each keeps what undoing takes, and tells those who show colours of what changed.
namespace OMC {

/// Adds colours: each at its index, or at the end where there are no indices.
class BRINDLE_CORE_EXPORT OMC_Palette_AddColorCommand final : public UT_StreamCommand {
public:
    OMC_Palette_AddColorCommand(std::shared_ptr<CM_Palette> palette, const QByteArray& colours,
                                std::vector<int> indices = {});

    bool Execute() override;
    bool Undo() override;

private:
    bool removeAdded();

    std::shared_ptr<CM_Palette> m_palette;
    std::vector<int> m_indices;
    std::vector<UT_Id> m_added;
};

class BRINDLE_CORE_EXPORT OMC_Palette_RemoveColorCommand final : public UT_Command {
public:
    OMC_Palette_RemoveColorCommand(std::shared_ptr<CM_Palette> palette, std::vector<UT_Id> colours);

    bool Execute() override;
    bool Undo() override;

private:
    struct Removed {
        int index;
        CM_Palette::Entry entry;
    };

    bool findRemoved(); ///< False where one of the colours is not there.

    std::shared_ptr<CM_Palette> m_palette;
    std::vector<UT_Id> m_colours;
    std::vector<Removed> m_removed; ///< In the order of the palette.
};

/// Puts a colour in the place of another one.
class BRINDLE_CORE_EXPORT OMC_Palette_SetColorCommand final : public UT_StreamCommand {
public:
    OMC_Palette_SetColorCommand(std::shared_ptr<CM_Palette> palette, const QByteArray& colour, int index);

    bool Execute() override;
    bool Undo() override;

private:
    bool replaceWith(const CM_Palette::Entry& entry);

    std::shared_ptr<CM_Palette> m_palette;
    int m_index;
    CM_Palette::Entry m_old;
};

/// Moves a colour to another place.
class BRINDLE_CORE_EXPORT OMC_Palette_ReorderCommand final : public UT_Command {
public:
    OMC_Palette_ReorderCommand(std::shared_ptr<CM_Palette> palette, int from, int to);

    bool Execute() override { return move(m_from, m_to); }
    bool Undo() override { return move(m_to, m_from); }

private:
    bool move(int from, int to);

    std::shared_ptr<CM_Palette> m_palette;
    int m_from;
    int m_to;
};

/// Moves a colour to the end of another palette.
class OMC_Palette_MoveCommand final : public UT_Command {
public:
    OMC_Palette_MoveCommand(std::shared_ptr<CM_Palette> source, std::shared_ptr<CM_Palette> target,
                            const UT_Id& colour);

    bool Execute() override;
    bool Undo() override;

private:
    std::shared_ptr<CM_Palette> m_source;
    std::shared_ptr<CM_Palette> m_target;
    UT_Id m_colour;
    int m_index = 0; ///< In the source.
};

/// Gives a palette another name; its file keeps its own.
class OMC_Palette_RenameCommand final : public UT_Command {
public:
    OMC_Palette_RenameCommand(std::shared_ptr<CM_Palette> palette, const QString& name);

    bool Execute() override { return rename(m_new); }
    bool Undo() override { return rename(m_old); }

private:
    bool rename(const QString& name);

    std::shared_ptr<CM_Palette> m_palette;
    QString m_old;
    QString m_new;
};

class OMC_Palette_SetTypeCommand final : public UT_Command {
public:
    OMC_Palette_SetTypeCommand(std::shared_ptr<CM_Palette> palette, CM_Palette::Type type);

    bool Execute() override { return set(m_new); }
    bool Undo() override { return set(m_old); }

private:
    bool set(CM_Palette::Type type);

    std::shared_ptr<CM_Palette> m_palette;
    CM_Palette::Type m_old;
    CM_Palette::Type m_new;
};

} // namespace OMC
