#include "engine/exposure/exposures.h"

#include "engine/curves/frameshift.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace brindle::engine {

/// A list of exposures in the making, whole or from a place on. It leaves out empty exposures that change nothing.
class Exposures::Sheet {
public:
    explicit Sheet(std::size_t size) { m_exposures.reserve(size); }
    /// The exposures from a place on; `shown` is the drawing shown ahead of it, empty for none.
    Sheet(std::size_t place, const QString& shown) : m_place(place), m_before(shown) {}

    /// Adds an exposure behind the others; a drawing always begins one.
    void add(int frame, const QString& drawing)
    {
        if (!drawing.isEmpty() || showsDrawing())
            m_exposures.push_back({frame, drawing});
    }
    /// Lets a drawing be shown from a frame on; one that is shown there already goes on.
    void show(int frame, const QString& drawing)
    {
        if (drawing != shown())
            add(frame, drawing);
    }
    void add(std::span<const Exposure> exposures)
    {
        for (const Exposure& exposure : exposures)
            add(exposure.frame, exposure.drawing);
    }

    bool showsDrawing() const { return !shown().isEmpty(); }
    const QString& shown() const { return m_exposures.empty() ? m_before : m_exposures.back().drawing; }
    const std::vector<Exposure>& exposures() const { return m_exposures; }
    std::size_t place() const { return m_place; }

private:
    std::size_t m_place = 0;
    QString m_before;
    std::vector<Exposure> m_exposures;
};

namespace {

bool isWithin(std::span<const FrameSpan> ranges, int frame)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [frame](const FrameSpan& range) { return frame >= range.first && frame < range.end; });
}

/// The span from the first frame of all ranges to the last end of them; empty without ranges.
FrameSpan wholeOf(std::span<const FrameSpan> ranges)
{
    if (ranges.empty())
        return {};
    FrameSpan whole = ranges.front();
    for (const FrameSpan& range : ranges)
        whole = {std::min(whole.first, range.first), std::max(whole.end, range.end)};
    return whole;
}

/// The frames of all ranges, ascending, each once.
std::vector<int> framesOf(std::span<const FrameSpan> ranges)
{
    std::vector<int> frames;
    for (const FrameSpan& range : ranges) {
        for (int frame = std::max(range.first, 1); frame < std::min(range.end, Exposures::lastFrame + 1); ++frame)
            frames.push_back(frame);
    }
    std::sort(frames.begin(), frames.end());
    frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
    return frames;
}

} // namespace

std::size_t Exposures::placeFrom(int frame) const
{
    const auto found = std::lower_bound(m_all.begin(), m_all.end(), frame,
                                        [](const Exposure& exposure, int at) { return exposure.frame < at; });
    return static_cast<std::size_t>(found - m_all.begin());
}

std::size_t Exposures::placeOf(int frame) const
{
    const Exposure* exposure = find(frame);
    return exposure ? static_cast<std::size_t>(exposure - m_all.data()) : 0;
}

const Exposure* Exposures::find(int frame) const
{
    const auto behind = std::upper_bound(m_all.begin(), m_all.end(), frame,
                                         [](int at, const Exposure& exposure) { return at < exposure.frame; });
    return behind == m_all.begin() ? nullptr : &*std::prev(behind);
}

QString Exposures::at(int frame) const
{
    const Exposure* exposure = find(frame);
    return exposure && !exposure->drawing.isEmpty() ? exposure->drawing : QString();
}

bool Exposures::isKey(int frame) const
{
    const std::size_t place = placeFrom(frame);
    return place < m_all.size() && m_all[place].frame == frame && !m_all[place].drawing.isEmpty();
}

int Exposures::nextKey(int frame, const std::function<bool(const QString&)>& shows) const
{
    for (std::size_t place = frame < lastFrame ? placeFrom(frame + 1) : m_all.size(); place < m_all.size(); ++place) {
        const QString& drawing = m_all[place].drawing;
        if (!drawing.isEmpty() && (!shows || shows(drawing)))
            return m_all[place].frame;
    }
    return 0;
}

bool Exposures::shows(const QString& drawing) const
{
    return !drawing.isEmpty() && std::any_of(m_all.begin(), m_all.end(),
                                             [&](const Exposure& exposure) { return exposure.drawing == drawing; });
}

QString Exposures::freeNumber() const
{
    int highest = 0;
    for (const Exposure& exposure : m_all)
        highest = std::max(highest, exposure.drawing.toInt());
    return QString::number(static_cast<qint64>(highest) + 1);
}

QStringList Exposures::drawings() const
{
    QStringList drawings;
    QSet<QString> known;
    for (const Exposure& exposure : m_all) {
        if (exposure.drawing.isEmpty() || known.contains(exposure.drawing))
            continue;
        known.insert(exposure.drawing);
        drawings.append(exposure.drawing);
    }
    return drawings;
}

int Exposures::frameCount(int sceneLength) const
{
    if (m_all.empty())
        return 0;
    const Exposure& last = m_all.back();
    return last.drawing.isEmpty() ? last.frame - 1 : std::max(last.frame, sceneLength);
}

void Exposures::exchange(Change& change)
{
    const auto first = m_all.begin() + static_cast<std::ptrdiff_t>(change.place);
    const std::size_t shared = std::min(change.count, change.exposures.size());
    std::swap_ranges(first, first + static_cast<std::ptrdiff_t>(shared), change.exposures.begin());
    const auto behind = first + static_cast<std::ptrdiff_t>(shared);
    const auto rest = change.exposures.begin() + static_cast<std::ptrdiff_t>(shared);
    const std::size_t count = change.exposures.size();
    if (count > change.count) {
        m_all.insert(behind, std::make_move_iterator(rest), std::make_move_iterator(change.exposures.end()));
        change.exposures.erase(rest, change.exposures.end());
    } else if (count < change.count) {
        const auto end = behind + static_cast<std::ptrdiff_t>(change.count - shared);
        change.exposures.insert(change.exposures.end(), std::make_move_iterator(behind), std::make_move_iterator(end));
        m_all.erase(behind, end);
    }
    change.count = count;
}

bool Exposures::append(int frame, const QString& drawing)
{
    const bool follows = m_all.empty() ? frame >= 1 : frame > m_all.back().frame;
    const bool changes = !drawing.isEmpty() || (!m_all.empty() && !m_all.back().drawing.isEmpty());
    if (!follows || !changes || frame > lastFrame)
        return false;
    m_all.push_back({frame, drawing});
    return true;
}

Exposures::Change Exposures::exposed(int frame, const QStringList& drawings) const
{
    Change change{placeFrom(frame), 0, {}};
    const int end = frame + static_cast<int>(drawings.size());
    QString shown = change.place > 0 ? m_all[change.place - 1].drawing : QString();
    auto present = m_all.begin() + static_cast<std::ptrdiff_t>(change.place);
    for (const QString& drawing : drawings) {
        const bool isHere = present != m_all.end() && present->frame == frame;
        if (drawing != shown || (isHere && !drawing.isEmpty() && present->drawing == drawing)) {
            change.exposures.push_back({frame, drawing});
            shown = drawing;
        }
        if (isHere)
            ++present;
        ++frame;
    }
    // An empty exposure behind nothing would be one too many.
    if (shown.isEmpty() && present != m_all.end() && present->drawing.isEmpty())
        ++present;
    Q_ASSERT(present == m_all.end() || present->frame >= end);
    change.count = static_cast<std::size_t>(present - m_all.begin()) - change.place;
    const std::span<const Exposure> before(m_all.data() + change.place, change.count);
    if (std::equal(before.begin(), before.end(), change.exposures.begin(), change.exposures.end()))
        return {};
    return change;
}

Exposures::Change Exposures::exposedOnly(int frame, const QStringList& drawings) const
{
    const int end = frame + static_cast<int>(drawings.size());
    Sheet sheet = sheetFrom(placeFrom(frame));
    for (const QString& drawing : drawings) {
        if (isKey(frame) && at(frame) == drawing)
            sheet.add(frame, drawing);
        else
            sheet.show(frame, drawing);
        ++frame;
    }
    const std::size_t behind = placeFrom(end);
    if (end <= lastFrame && (behind == m_all.size() || m_all[behind].frame != end))
        sheet.show(end, at(end));
    return changeTo(std::move(sheet), behind);
}

Exposures::Change Exposures::withKeys(std::span<const FrameSpan> ranges) const
{
    const std::vector<int> frames = framesOf(ranges);
    if (frames.empty())
        return {};
    Sheet sheet = sheetFrom(placeOf(frames.front()));
    auto present = m_all.begin() + static_cast<std::ptrdiff_t>(sheet.place());
    const auto addUpTo = [&](int frame) {
        for (; present != m_all.end() && present->frame <= frame; ++present)
            sheet.add(present->frame, present->drawing);
    };
    for (const int frame : frames) {
        addUpTo(frame);
        if (sheet.showsDrawing() && sheet.exposures().back().frame != frame)
            sheet.add(frame, sheet.shown());
    }
    return changeTo(std::move(sheet), static_cast<std::size_t>(present - m_all.begin()));
}

Exposures::Change Exposures::withoutKeys(std::span<const FrameSpan> ranges, bool duplicatesOnly) const
{
    const FrameSpan whole = wholeOf(ranges);
    Sheet sheet = sheetFrom(placeFrom(whole.first));
    const std::size_t end = placeFrom(whole.end);
    for (std::size_t place = sheet.place(); place < end; ++place) {
        const Exposure& exposure = m_all[place];
        const bool isTaken = !exposure.drawing.isEmpty() && isWithin(ranges, exposure.frame) &&
                             (!duplicatesOnly || exposure.drawing == sheet.shown());
        if (!isTaken)
            sheet.add(exposure.frame, exposure.drawing);
    }
    return changeTo(std::move(sheet), end);
}

Exposures::Change Exposures::filled(std::span<const FrameSpan> ranges) const
{
    const FrameSpan whole = wholeOf(ranges);
    Sheet sheet = sheetFrom(placeOf(whole.first));
    const std::size_t last = std::max(placeFrom(whole.end), sheet.place());
    const auto stop = m_all.begin() + static_cast<std::ptrdiff_t>(last);
    // An empty stretch may be filled in part: it begins anew behind what is filled.
    for (auto present = m_all.begin() + static_cast<std::ptrdiff_t>(sheet.place()); present != stop; ++present) {
        if (!present->drawing.isEmpty()) {
            sheet.add(present->frame, present->drawing);
            continue;
        }
        const int end = std::next(present) == m_all.end() ? lastFrame + 1 : std::next(present)->frame;
        const QString held = sheet.shown();
        for (int frame = present->frame; frame < end;) {
            const bool isFilled = isWithin(ranges, frame);
            sheet.show(frame, isFilled ? held : QString());
            int next = end;
            for (const FrameSpan& range : ranges) {
                for (const int border : {range.first, range.end}) {
                    if (border > frame)
                        next = std::min(next, border);
                }
            }
            frame = next;
        }
    }
    return changeTo(std::move(sheet), last);
}

Exposures::Change Exposures::pasted(const Exposures& source, int first, int count, bool extends, bool substitutes) const
{
    const int end = first + count;
    Sheet sheet = sheetFrom(placeFrom(first));
    for (int frame = first; frame < end; ++frame) {
        const bool gives = substitutes || at(frame).isEmpty();
        const Exposures& shown = gives ? source : *this;
        const int there = gives ? frame - first + 1 : frame;
        if (shown.isKey(there))
            sheet.add(frame, shown.at(there));
        else
            sheet.show(frame, shown.at(there));
    }
    const std::size_t behind = placeFrom(end);
    const bool isExposed = behind < m_all.size() && m_all[behind].frame == end;
    if (end <= lastFrame && !isExposed && !(extends && sheet.showsDrawing()))
        sheet.show(end, at(end));
    return changeTo(std::move(sheet), behind);
}

Exposures Exposures::kept(int first, int count) const
{
    Sheet sheet(m_all.size() + 2);
    sheet.show(1, at(first));
    for (std::size_t place = placeFrom(first + 1); place < m_all.size() && m_all[place].frame < first + count; ++place)
        sheet.add(m_all[place].frame - first + 1, m_all[place].drawing);
    sheet.show(count + 1, QString());
    Exposures kept;
    kept.m_all = sheet.exposures();
    return kept;
}

Exposures Exposures::mapped(const QHash<QString, QString>& names) const
{
    Sheet sheet(m_all.size());
    for (const Exposure& exposure : m_all)
        sheet.add(exposure.frame, names.value(exposure.drawing, exposure.drawing));
    Exposures mapped;
    mapped.m_all = sheet.exposures();
    return mapped;
}

Exposures::Change Exposures::without(const QStringList& drawings) const
{
    Sheet sheet(m_all.size());
    for (const Exposure& exposure : m_all)
        sheet.add(exposure.frame, drawings.contains(exposure.drawing) ? QString() : exposure.drawing);
    return changeTo(std::move(sheet), m_all.size());
}

Exposures::Change Exposures::renamed(const QString& from, const QString& to) const
{
    const auto isIt = [&from](const Exposure& exposure) { return exposure.drawing == from; };
    const auto first = std::find_if(m_all.begin(), m_all.end(), isIt);
    const auto last = std::find_if(m_all.rbegin(), std::make_reverse_iterator(first), isIt).base();
    Sheet sheet = sheetFrom(static_cast<std::size_t>(first - m_all.begin()));
    std::for_each(first, last,
                  [&](const Exposure& exposure) { sheet.add(exposure.frame, isIt(exposure) ? to : exposure.drawing); });
    return changeTo(std::move(sheet), static_cast<std::size_t>(last - m_all.begin()));
}

Exposures::Change Exposures::shifted(const FrameShift& shift, int sceneLength, bool extends) const
{
    const int at = shift.at;
    const int behind = shift.delta < 0 ? at - shift.delta + 1 : at + 1; // the first frame that moves
    Sheet sheet = sheetFrom(placeFrom(at + 1));
    if (shift.delta > 0 && !extends)
        sheet.show(at + 1, QString());
    const std::size_t moved = placeFrom(behind);
    const bool goesOn = behind <= sceneLength && (moved == m_all.size() || m_all[moved].frame != behind);
    if (goesOn)
        sheet.show(behind + shift.delta, this->at(behind));
    for (const Exposure& exposure : std::span(m_all).subspan(moved)) {
        if (exposure.frame + shift.delta <= lastFrame)
            sheet.add(exposure.frame + shift.delta, exposure.drawing);
    }
    return changeTo(std::move(sheet), m_all.size());
}

Exposures::Change Exposures::cleared(int at, int count, int sceneLength) const
{
    const int behind = at + count + 1;
    Sheet sheet = sheetFrom(placeFrom(at + 1));
    const std::size_t rest = placeFrom(behind);
    if (behind <= sceneLength && (rest == m_all.size() || m_all[rest].frame != behind))
        sheet.show(behind, this->at(behind));
    return changeTo(std::move(sheet), rest);
}

Exposures::Sheet Exposures::sheetFrom(std::size_t place) const
{
    return {place, place > 0 ? m_all[place - 1].drawing : QString()};
}

Exposures::Change Exposures::changeTo(Sheet sheet, std::size_t end) const
{
    // What follows stays, but an empty exposure has nothing to end where nothing is shown any more.
    if (end < m_all.size() && m_all[end].drawing.isEmpty()) {
        sheet.add(m_all[end].frame, m_all[end].drawing);
        ++end;
    }
    const std::vector<Exposure>& after = sheet.exposures();
    const auto first = m_all.begin() + static_cast<std::ptrdiff_t>(sheet.place());
    auto lastHere = m_all.begin() + static_cast<std::ptrdiff_t>(end);
    const auto [here, there] = std::mismatch(first, lastHere, after.begin(), after.end());
    auto lastThere = after.end();
    while (lastHere != here && lastThere != there && *std::prev(lastHere) == *std::prev(lastThere)) {
        --lastHere;
        --lastThere;
    }
    return {static_cast<std::size_t>(here - m_all.begin()), static_cast<std::size_t>(lastHere - here),
            std::vector<Exposure>(there, lastThere)};
}

} // namespace brindle::engine
