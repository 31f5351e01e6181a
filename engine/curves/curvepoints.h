#pragma once

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace brindle::engine {

/// A control point as a curve keeps it.
///
/// `leftX` and `rightX` are frames. The handles' y stands for the point at the value `anchor`: they move up and down
/// with the point without being written, so that a value that is set and set back leaves every bit of them as it was.
struct CurvePoint {
    double frame = 0;
    double value = 0;
    double anchor = 0;
    double leftX = 0, leftY = 0;
    double rightX = 0, rightY = 0;
    unsigned long long identity = 0; ///< Unlike that of all other points that the curve ever had.
    bool constSegment = false;
    int continuity = 0;

    double leftHandleY() const { return carried(leftY); }
    double rightHandleY() const { return carried(rightY); }
    void setLeftHandle(double x, double y)
    {
        drop();
        leftX = x;
        leftY = y;
    }
    void setRightHandle(double x, double y)
    {
        drop();
        rightX = x;
        rightY = y;
    }

    bool operator==(const CurvePoint&) const = default;

private:
    double carried(double y) const
    {
        if (value == anchor)
            return y;
        const double sum = y + (value - anchor);
        return std::isfinite(sum) ? sum : std::copysign(std::numeric_limits<double>::max(), value);
    }
    /// Writes the handles down where they are.
    void drop()
    {
        leftY = leftHandleY();
        rightY = rightHandleY();
        anchor = value;
    }
};

/// Control points in the order of their frames, no two at the same frame.
///
/// They lie in blocks of bounded size behind a table of the blocks' first frames: finding is logarithmic, inserting and
/// taking anywhere move no more than a block. Pointers and references hold until the next insertion or removal.
class CurvePoints {
public:
    struct Neighbours {
        const CurvePoint* before; ///< The last point at or before the frame, or null.
        const CurvePoint* after;  ///< The first point behind the frame, or null.
    };

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const CurvePoint& at(int index) const; ///< `index` below size().
    const CurvePoint& first() const { return m_blocks.front().front(); }
    const CurvePoint& last() const { return m_blocks.back().back(); }

    Neighbours around(double frame) const;
    const CurvePoint* find(double frame) const;   ///< At exactly this frame, or null.
    const CurvePoint* before(double frame) const; ///< The last one ahead of the frame, or null.
    /// One of the points, to be written. Its frame must stay.
    CurvePoint& edit(const CurvePoint& point) { return const_cast<CurvePoint&>(point); }

    CurvePoint& insert(const CurvePoint& point); ///< No point may stand at its frame.
    CurvePoint take(double frame);               ///< A point must stand there.

    template <typename Function>
    void forEach(Function function) const
    {
        for (const auto& block : m_blocks) {
            for (const auto& point : block)
                function(point);
        }
    }

private:
    using Block = std::vector<CurvePoint>;

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
};

} // namespace brindle::engine
