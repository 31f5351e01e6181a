#include "core/palettes/palettecommands.h"

#include "core/palettes/paletteedit.h"

#include <algorithm>
#include <unordered_set>

namespace OMC {

using paletteedit::notifyOf;

OMC_Palette_AddColorCommand::OMC_Palette_AddColorCommand(std::shared_ptr<CM_Palette> palette, const QByteArray& colours,
                                                         std::vector<int> indices)
    : UT_StreamCommand(colours),
      m_palette(std::move(palette)),
      m_indices(std::move(indices))
{}

bool OMC_Palette_AddColorCommand::Execute()
{
    m_added.clear();
    const std::vector<CM_Palette::Entry> entries = CM_Palette::LoadColorList(stream());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const bool added =
            i < m_indices.size() ? m_palette->InsertColor(entries[i], m_indices[i]) : m_palette->AddColor(entries[i]);
        if (!added) {
            removeAdded();
            return false;
        }
        m_added.push_back(entries[i]->GetID());
    }
    notifyOf(*m_palette, m_added);
    return true;
}

bool OMC_Palette_AddColorCommand::Undo()
{
    const bool removed = removeAdded();
    notifyOf(*m_palette, m_added);
    return removed;
}

bool OMC_Palette_AddColorCommand::removeAdded()
{
    return std::all_of(m_added.rbegin(), m_added.rend(),
                       [this](const UT_Id& colour) { return m_palette->RemoveColor(colour); });
}

OMC_Palette_RemoveColorCommand::OMC_Palette_RemoveColorCommand(std::shared_ptr<CM_Palette> palette,
                                                               std::vector<UT_Id> colours)
    : m_palette(std::move(palette)),
      m_colours(std::move(colours))
{}

bool OMC_Palette_RemoveColorCommand::Execute()
{
    if (!findRemoved())
        return false;
    std::for_each(m_removed.rbegin(), m_removed.rend(),
                  [this](const Removed& removed) { m_palette->RemoveColor(removed.entry->GetID()); });
    notifyOf(*m_palette, m_colours);
    return true;
}

bool OMC_Palette_RemoveColorCommand::findRemoved()
{
    m_removed.clear();
    if (m_colours.size() == 1) {
        const int index = m_palette->GetColorIndex(m_colours.front());
        m_removed.push_back({index, m_palette->GetColor(index)});
        return index >= 0;
    }
    const std::unordered_set<UT_Id> wanted(m_colours.begin(), m_colours.end());
    const std::vector<CM_Palette::Entry>& entries = m_palette->colors();
    for (std::size_t index = 0; index < entries.size() && m_removed.size() < wanted.size(); ++index) {
        if (wanted.contains(entries[index]->GetID()))
            m_removed.push_back({static_cast<int>(index), entries[index]});
    }
    return m_removed.size() == wanted.size();
}

bool OMC_Palette_RemoveColorCommand::Undo()
{
    const bool inserted = std::all_of(m_removed.begin(), m_removed.end(), [this](const Removed& removed) {
        return m_palette->InsertColor(removed.entry, removed.index);
    });
    notifyOf(*m_palette, m_colours);
    return inserted;
}

OMC_Palette_SetColorCommand::OMC_Palette_SetColorCommand(std::shared_ptr<CM_Palette> palette, const QByteArray& colour,
                                                         int index)
    : UT_StreamCommand(colour),
      m_palette(std::move(palette)),
      m_index(index)
{}

bool OMC_Palette_SetColorCommand::Execute()
{
    const std::vector<CM_Palette::Entry> read = CM_Palette::LoadColorList(stream());
    m_old = m_palette->GetColor(m_index);
    return m_old && read.size() == 1 && replaceWith(read.front());
}

bool OMC_Palette_SetColorCommand::Undo()
{
    return replaceWith(m_old);
}

bool OMC_Palette_SetColorCommand::replaceWith(const CM_Palette::Entry& entry)
{
    const CM_Palette::Entry before = m_palette->GetColor(m_index);
    if (!before || !m_palette->RemoveColor(before->GetID()))
        return false;
    if (!m_palette->InsertColor(entry, m_index)) {
        m_palette->InsertColor(before, m_index);
        return false;
    }
    notifyOf(*m_palette, {before->GetID(), entry->GetID()});
    return true;
}

OMC_Palette_ReorderCommand::OMC_Palette_ReorderCommand(std::shared_ptr<CM_Palette> palette, int from, int to)
    : m_palette(std::move(palette)),
      m_from(from),
      m_to(to)
{}

bool OMC_Palette_ReorderCommand::move(int from, int to)
{
    if (!m_palette->MoveColor(from, to))
        return false;
    notifyOf(*m_palette, {m_palette->GetColorId(to)});
    return true;
}

OMC_Palette_MoveCommand::OMC_Palette_MoveCommand(std::shared_ptr<CM_Palette> source, std::shared_ptr<CM_Palette> target,
                                                 const UT_Id& colour)
    : m_source(std::move(source)),
      m_target(std::move(target)),
      m_colour(colour)
{}

bool OMC_Palette_MoveCommand::Execute()
{
    const CM_Palette::Entry entry = m_source->GetColorById(m_colour);
    if (!entry || m_target->GetColorById(m_colour))
        return false;
    m_index = m_source->GetColorIndex(m_colour);
    m_source->RemoveColor(m_colour);
    notifyOf(*m_source, {m_colour});
    m_target->AddColor(entry);
    notifyOf(*m_target, {m_colour});
    return true;
}

bool OMC_Palette_MoveCommand::Undo()
{
    const CM_Palette::Entry entry = m_target->GetColorById(m_colour);
    if (!entry || m_source->GetColorById(m_colour))
        return false;
    m_target->RemoveColor(m_colour);
    notifyOf(*m_target, {m_colour});
    m_source->InsertColor(entry, m_index);
    notifyOf(*m_source, {m_colour});
    return true;
}

OMC_Palette_RenameCommand::OMC_Palette_RenameCommand(std::shared_ptr<CM_Palette> palette, const QString& name)
    : m_palette(std::move(palette)),
      m_old(m_palette->GetName()),
      m_new(name)
{}

bool OMC_Palette_RenameCommand::rename(const QString& name)
{
    m_palette->SetName(name);
    notifyOf(*m_palette);
    for (const std::shared_ptr<CM_PaletteList>& list : paletteedit::manager().paletteLists()) {
        if (list->GetPaletteIndex(m_palette->GetID()) < 0)
            continue;
        list->Modify();
        notifyOf(*list, *m_palette);
    }
    return true;
}

OMC_Palette_SetTypeCommand::OMC_Palette_SetTypeCommand(std::shared_ptr<CM_Palette> palette, CM_Palette::Type type)
    : m_palette(std::move(palette)),
      m_old(m_palette->GetType()),
      m_new(type)
{}

bool OMC_Palette_SetTypeCommand::set(CM_Palette::Type type)
{
    m_palette->SetType(type);
    notifyOf(*m_palette);
    return true;
}

} // namespace OMC
