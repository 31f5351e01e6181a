#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <span>
#include <vector>

namespace brindle::engine {

struct FrameShift;

/// A drawing, by its name, from a frame up to the next exposure; an empty name shows nothing.
struct Exposure {
    int frame = 0;
    QString drawing;

    bool operator==(const Exposure&) const = default;
};

/// The frames from `first` up to `end`, which is not included.
struct FrameSpan {
    int first = 0;
    int end = 0;
};

/// The exposures of a column, by their frames from 1 to `lastFrame`. Ahead of the first one, and behind an empty one,
/// no drawing is shown; there is no empty one where none is shown already. Two in a row may show the same drawing: each
/// is a key exposure.
///
/// An edit is worked out as a Change first; `exchange` makes it, and gives the change that takes it back.
class Exposures {
public:
    static constexpr int lastFrame = 1'000'000;

    /// The exposures `count` from `place` on give way to others.
    struct Change {
        std::size_t place = 0;
        std::size_t count = 0;
        std::vector<Exposure> exposures;
    };

    const std::vector<Exposure>& all() const { return m_all; }
    bool isEmpty() const { return m_all.empty(); }
    QString at(int frame) const;           ///< The drawing that is shown, or a null text.
    const Exposure* find(int frame) const; ///< The exposure that a frame lies in, or null.
    bool isKey(int frame) const;           ///< Whether a drawing is exposed from this frame on.
    int nextKey(int frame) const { return nextKey(frame, nullptr); } ///< The first one behind the frame; 0 for none.
    int nextKey(int frame, const std::function<bool(const QString& drawing)>& shows) const;
    bool shows(const QString& drawing) const;
    QString freeNumber() const;   ///< The number behind the highest one that is the name of a drawing.
    QStringList drawings() const; ///< Each once, in the order of their first exposures.
    /// The number of frames from 1 to the last one that shows a drawing, in a scene of this length.
    int frameCount(int sceneLength) const;

    void exchange(Change& change);
    void reserve(std::size_t count) { m_all.reserve(count); }
    /// Adds an exposure behind all others, as a file has it; false where it can't stand there.
    bool append(int frame, const QString& drawing);

    /// Exposes a drawing a frame, the last one up to the next exposure. A frame that shows what the one ahead of it
    /// shows continues that exposure, unless it is a key exposure of this drawing already.
    Change exposed(int frame, const QStringList& drawings) const;
    /// The same up to the last frame and no further: what lies behind stays.
    Change exposedOnly(int frame, const QStringList& drawings) const;
    Change withKeys(std::span<const FrameSpan> ranges) const;
    Change withoutKeys(std::span<const FrameSpan> ranges, bool duplicatesOnly) const;
    Change filled(std::span<const FrameSpan> ranges) const;
    /// Writes the frames 1 to `count` of other exposures over those from `first` on. `extends`: a drawing that is shown
    /// last holds on up to the next exposure. `substitutes`: drawings give way, and not only frames that show nothing.
    Change pasted(const Exposures& source, int first, int count, bool extends, bool substitutes) const;
    /// The exposures of `count` frames from `first` on, which become those from 1 on; nothing is shown behind them.
    Exposures kept(int first, int count) const;
    /// The same exposures of other drawings, from names to names; an empty name shows nothing.
    Exposures mapped(const QHash<QString, QString>& names) const;
    Change without(const QStringList& drawings) const; ///< Shows nothing where it showed one of these.
    Change renamed(const QString& from, const QString& to) const;
    /// Follows frames of a scene of this length that come in or go. New frames show nothing; with `extends` the
    /// exposure ahead of them holds on over them.
    Change shifted(const FrameShift& shift, int sceneLength, bool extends) const;
    /// Takes the exposures on `count` frames behind frame `at`: what is exposed ahead holds on, what is shown behind
    /// stays.
    Change cleared(int at, int count, int sceneLength) const;

private:
    class Sheet;

    std::size_t placeFrom(int frame) const;   ///< The place of the first exposure at a frame or behind it.
    std::size_t placeOf(int frame) const;     ///< The place of the exposure that a frame lies in; 0 ahead of the first.
    Sheet sheetFrom(std::size_t place) const; ///< An empty one that goes on from the exposures ahead of a place.
    /// The change that replaces the exposures from the sheet's place up to the place `end` by the sheet.
    Change changeTo(Sheet sheet, std::size_t end) const;

    std::vector<Exposure> m_all;
};

} // namespace brindle::engine
