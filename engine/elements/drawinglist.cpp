#include "engine/elements/drawinglist.h"

#include "engine/folder/safenames.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// The number that a name stands for; 0 for a name that is no number, and from a billion on.
qulonglong numberOf(const QString& name)
{
    constexpr qulonglong largest = 1'000'000'000;
    const qulonglong number = name.toULongLong();
    return number < largest ? number : 0;
}

} // namespace

DrawingList::~DrawingList()
{
    for (const EM_DrawingInfo* drawing : m_map)
        delete drawing;
}

Drawing& DrawingList::at(std::size_t place) const
{
    return const_cast<Drawing&>(static_cast<const Drawing&>(*m_map[place]));
}

Drawing* DrawingList::find(EM_DrawingId id) const
{
    const auto place = placeFor(id);
    if (place == m_map.end() || (*place)->id() != id)
        return nullptr;
    return &at(static_cast<std::size_t>(place - m_map.begin()));
}

DrawingList::Map::const_iterator DrawingList::placeFor(EM_DrawingId id) const
{
    return std::lower_bound(m_map.begin(), m_map.end(), id, [](const EM_DrawingInfo* drawing, EM_DrawingId sought) {
        return static_cast<const Drawing*>(drawing)->id() < sought;
    });
}

qulonglong DrawingList::highestNumber() const
{
    if (!m_highestNumber) {
        m_highestNumber = 0;
        for (const EM_DrawingInfo* drawing : m_map)
            m_highestNumber = std::max(*m_highestNumber, numberOf(static_cast<const Drawing*>(drawing)->name()));
    }
    return *m_highestNumber;
}

Drawing& DrawingList::insert(std::unique_ptr<Drawing> drawing)
{
    return insert(std::move(drawing), QString());
}

Drawing& DrawingList::insert(std::unique_ptr<Drawing> drawing, const QString& stem)
{
    Drawing& added = *drawing;
    enter(added, stem.isEmpty() ? added.stem() : stem);
    const auto place = std::upper_bound(m_map.begin(), m_map.end(), added.id(),
                                        [](EM_DrawingId id, const EM_DrawingInfo* other) { return id < other->id(); });
    m_map.insert(place, drawing.release());
    added.setGone(false);
    return added;
}

std::unique_ptr<Drawing> DrawingList::take(Drawing& drawing)
{
    leave(drawing);
    m_map.erase(placeFor(drawing.id()));
    drawing.setGone(true);
    return std::unique_ptr<Drawing>(&drawing);
}

void DrawingList::rename(Drawing& drawing, const QString& name, const QString& stem)
{
    leave(drawing);
    drawing.m_name = name;
    enter(drawing, stem);
}

bool DrawingList::isFreeStem(const QString& stem) const
{
    return !m_stems.contains(safe_names::folded(stem));
}

/// An empty stem stands for one that is made of the name.
void DrawingList::enter(Drawing& drawing, const QString& stem)
{
    drawing.m_stem = stem.isEmpty() ? safe_names::unique(safe_names::made(drawing.m_name), m_stems) : stem;
    m_stems.insert(safe_names::folded(drawing.m_stem));
    m_byName.insert(drawing.m_name, &drawing);
    if (m_highestNumber)
        m_highestNumber = std::max(*m_highestNumber, numberOf(drawing.m_name));
}

void DrawingList::leave(const Drawing& drawing)
{
    m_stems.remove(safe_names::folded(drawing.m_stem));
    m_byName.remove(drawing.m_name);
    if (m_highestNumber == numberOf(drawing.m_name))
        m_highestNumber.reset();
}

} // namespace brindle::engine
