#pragma once

#include "engine/elements/drawing.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

namespace brindle::engine {

/// The drawings of an element, which it owns: by their ids, and found by name or id without a walk.
class DrawingList {
public:
    using Map = EM_ElementInfo::Map;

    DrawingList() = default;
    DrawingList(const DrawingList&) = delete;
    DrawingList& operator=(const DrawingList&) = delete;
    ~DrawingList();

    const Map& map() const { return m_map; }
    std::size_t size() const { return m_map.size(); }
    Drawing& at(std::size_t place) const;
    Drawing* find(EM_DrawingId id) const; ///< Null where there is none.
    Drawing* named(const QString& name) const { return m_byName.value(name); }
    qulonglong highestNumber() const; ///< The highest number below a billion that is a drawing's name; or 0.

    /// Adds a drawing whose name no other one has. One that was in a list before keeps its stem.
    Drawing& insert(std::unique_ptr<Drawing> drawing);
    std::unique_ptr<Drawing> take(Drawing& drawing);
    /// Gives one a name that no other one has, and a stem that is made of it.
    void rename(Drawing& drawing, const QString& name) { rename(drawing, name, QString()); }
    /// The same with a stem that no other one has.
    void rename(Drawing& drawing, const QString& name, const QString& stem);
    /// Whether a drawing may have the stem, beside those that are there.
    bool isFreeStem(const QString& stem) const;
    /// Adds one that was read, with the stem that it has in its file.
    Drawing& insert(std::unique_ptr<Drawing> drawing, const QString& stem);

private:
    void enter(Drawing& drawing, const QString& stem);
    void leave(const Drawing& drawing);
    Map::const_iterator placeFor(EM_DrawingId id) const; ///< Of the first that has this id or a higher one.

    Map m_map;
    QHash<QString, Drawing*> m_byName;
    QSet<QString> m_stems; ///< As a file system sees them that doesn't tell capital letters apart.
    /// Unset when the drawing of that name goes; found anew when it is asked for.
    mutable std::optional<qulonglong> m_highestNumber;
};

} // namespace brindle::engine
