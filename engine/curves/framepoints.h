#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace brindle::engine {

/// Control points in the order of their frames, no two at the same frame.
///
/// They lie in blocks of bounded size behind a table of the blocks' first frames: finding is logarithmic, inserting and
/// taking anywhere move no more than a block. Pointers and references hold until the next insertion or removal. A
/// `Point` has a `frame`.
template <typename Point>
class FramePoints {
public:
    struct Neighbours {
        const Point* before; ///< The last point at or before the frame, or null.
        const Point* after;  ///< The first point behind the frame, or null.
    };

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const Point& at(int index) const; ///< `index` below size().
    const Point& first() const { return m_blocks.front().front(); }
    const Point& last() const { return m_blocks.back().back(); }

    Neighbours around(double frame) const;
    const Point* find(double frame) const;   ///< At exactly this frame, or null.
    const Point* before(double frame) const; ///< The last one ahead of the frame, or null.
    /// One of the points, to be written. Its frame must stay.
    Point& edit(const Point& point)
    {
        ++m_changes;
        return const_cast<Point&>(point);
    }

    Point& insert(const Point& point); ///< No point may stand at its frame.
    Point take(double frame);          ///< A point must stand there.

    template <typename Function>
    void forEach(Function function) const
    {
        for (const auto& block : m_blocks) {
            for (const auto& point : block)
                function(point);
        }
    }

    /// Calls a function with each of the points, to be written. The frames must stay.
    template <typename Function>
    void editAll(Function function)
    {
        ++m_changes;
        for (auto& block : m_blocks) {
            for (auto& point : block)
                function(point);
        }
    }

    /// A number that is another one after each change.
    unsigned long long changes() const { return m_changes; }

private:
    using Block = std::vector<Point>;

    static constexpr std::size_t blockSize = 128;

    Neighbours neighboursAt(std::size_t block, std::size_t place) const;
    int blockOf(double frame) const; ///< The block whose range holds the frame, -1 ahead of all.
    bool holds(int block, double frame) const;
    int placeIn(int block, double frame) const; ///< The last point at or before the frame; -1 ahead of all.
    void joinSmall(int block);

    std::vector<Block> m_blocks; // none is empty
    std::vector<double> m_firstFrames;
    mutable std::vector<int> m_starts; // the places of the blocks' first points; empty when out of date
    mutable int m_recentBlock = 0;     // what was asked for last
    mutable int m_recentPlace = 0;
    int m_size = 0;
    unsigned long long m_changes = 0;
};

template <typename Point>
bool FramePoints<Point>::holds(int block, double frame) const
{
    const auto index = static_cast<std::size_t>(block);
    return index < m_firstFrames.size() && m_firstFrames[index] <= frame &&
           (index + 1 == m_firstFrames.size() || frame < m_firstFrames[index + 1]);
}

template <typename Point>
int FramePoints<Point>::blockOf(double frame) const
{
    // Successive frames of a loop over a curve mostly lie in the same block.
    const int recent = m_recentBlock;
    if (holds(recent, frame))
        return recent;
    const auto behind = std::upper_bound(m_firstFrames.begin(), m_firstFrames.end(), frame);
    return m_recentBlock = static_cast<int>(behind - m_firstFrames.begin()) - 1;
}

template <typename Point>
int FramePoints<Point>::placeIn(int index, double frame) const
{
    const Block& block = m_blocks[index];
    const auto isPlace = [&](int place) {
        const auto at = static_cast<std::size_t>(place);
        return at < block.size() && block[at].frame <= frame && (at + 1 == block.size() || frame < block[at + 1].frame);
    };
    // The next step along a curve is to the same place or to one beside it.
    const int recent = m_recentPlace;
    for (const int place : {recent, recent + 1, recent - 1}) {
        if (isPlace(place))
            return m_recentPlace = place;
    }
    const auto after = std::upper_bound(block.begin(), block.end(), frame,
                                        [](double wanted, const Point& point) { return wanted < point.frame; });
    return m_recentPlace = static_cast<int>(after - block.begin()) - 1;
}

template <typename Point>
const Point& FramePoints<Point>::at(int index) const
{
    if (m_starts.empty()) {
        int start = 0;
        for (const auto& block : m_blocks) {
            m_starts.push_back(start);
            start += static_cast<int>(block.size());
        }
    }
    const auto block = std::upper_bound(m_starts.begin(), m_starts.end(), index) - m_starts.begin() - 1;
    return m_blocks[block][index - m_starts[block]];
}

template <typename Point>
typename FramePoints<Point>::Neighbours FramePoints<Point>::neighboursAt(std::size_t block, std::size_t place) const
{
    const Block& points = m_blocks[block];
    const Point* after = nullptr;
    if (place + 1 < points.size())
        after = &points[place + 1];
    else if (block + 1 < m_blocks.size())
        after = &m_blocks[block + 1].front();
    return {&points[place], after};
}

template <typename Point>
typename FramePoints<Point>::Neighbours FramePoints<Point>::around(double frame) const
{
    // Most questions are about the place that was asked for last.
    const auto recentBlock = static_cast<std::size_t>(m_recentBlock);
    const auto recentPlace = static_cast<std::size_t>(m_recentPlace);
    if (recentBlock < m_blocks.size() && recentPlace < m_blocks[recentBlock].size()) {
        const Neighbours recent = neighboursAt(recentBlock, recentPlace);
        if (recent.before->frame <= frame && (!recent.after || frame < recent.after->frame))
            return recent;
    }
    const int index = blockOf(frame);
    if (index < 0)
        return {nullptr, m_size ? &first() : nullptr};
    return neighboursAt(static_cast<std::size_t>(index), static_cast<std::size_t>(placeIn(index, frame)));
}

template <typename Point>
const Point* FramePoints<Point>::find(double frame) const
{
    const Point* point = around(frame).before;
    return point && point->frame == frame ? point : nullptr;
}

template <typename Point>
const Point* FramePoints<Point>::before(double frame) const
{
    const Point* point = around(frame).before;
    if (!point || point->frame < frame)
        return point;
    const int index = blockOf(frame);
    if (point != &m_blocks[index].front())
        return point - 1;
    return index > 0 ? &m_blocks[index - 1].back() : nullptr;
}

template <typename Point>
Point& FramePoints<Point>::insert(const Point& point)
{
    ++m_changes;
    m_starts.clear();
    ++m_size;
    if (m_blocks.empty()) {
        m_blocks.push_back({point});
        m_firstFrames.push_back(point.frame);
        return m_blocks.front().front();
    }
    int index = std::max(0, blockOf(point.frame));
    if (m_blocks[index].size() >= blockSize) {
        // Points that come in ascending order fill their blocks; others halve them.
        const bool atEnd = index + 1 == static_cast<int>(m_blocks.size()) && point.frame > last().frame;
        const auto half = atEnd ? blockSize : blockSize / 2;
        Block upper(m_blocks[index].begin() + half, m_blocks[index].end());
        m_blocks[index].resize(half);
        if (atEnd)
            upper.push_back(point);
        m_firstFrames.insert(m_firstFrames.begin() + index + 1, upper.front().frame);
        m_blocks.insert(m_blocks.begin() + index + 1, std::move(upper));
        if (atEnd)
            return m_blocks.back().back();
        if (point.frame > m_firstFrames[index + 1])
            ++index;
    }
    Block& block = m_blocks[index];
    const auto inserted = block.insert(block.begin() + placeIn(index, point.frame) + 1, point);
    m_firstFrames[index] = block.front().frame;
    return *inserted;
}

template <typename Point>
Point FramePoints<Point>::take(double frame)
{
    ++m_changes;
    const int index = blockOf(frame);
    Block& block = m_blocks[index];
    const auto place = block.begin() + placeIn(index, frame);
    const Point taken = *place;
    block.erase(place);
    --m_size;
    m_starts.clear();
    if (block.empty()) {
        m_blocks.erase(m_blocks.begin() + index);
        m_firstFrames.erase(m_firstFrames.begin() + index);
    } else {
        m_firstFrames[index] = block.front().frame;
        joinSmall(index);
    }
    return taken;
}

template <typename Point>
void FramePoints<Point>::joinSmall(int index)
{
    if (index + 1 >= static_cast<int>(m_blocks.size()))
        return;
    Block& block = m_blocks[index];
    Block& next = m_blocks[index + 1];
    if (block.size() + next.size() > blockSize / 4)
        return;
    block.insert(block.end(), next.begin(), next.end());
    m_blocks.erase(m_blocks.begin() + index + 1);
    m_firstFrames.erase(m_firstFrames.begin() + index + 1);
}

} // namespace brindle::engine
