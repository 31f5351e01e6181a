#pragma once

#include "core/host/gr_bezierpath.h"
#include "render/picture.h"
#include "render/raster/paint.h"

#include <memory>
#include <span>
#include <vector>

namespace brindle::render {

/// An area with its paint: closed paths that bound it, filled by the even-odd rule. A straight line closes a path that
/// is open.
struct Face {
    std::span<const GR_BezierPath2d> bounds;
    const Paint* paint;
};

/// A line as convex polygons that run counterclockwise (with y up) and may overlap; together they are filled once, by
/// the non-zero rule. So no fold of an outline makes a hole, and edges that two pieces share leave no seam.
struct StrokePieces {
    std::vector<Math::Point2d> points; ///< Of all pieces, one after the other.
    std::vector<int> ends;             ///< Behind the last point of each piece.

    void add(std::span<const Math::Point2d> piece);
    void add(const GR_BezierPath2d& polygon); ///< By its points on the curve; the last one may be the first again.
    bool isEmpty() const { return ends.empty(); }
    qint64 bytes() const ///< In memory.
    {
        return qint64(points.capacity() * sizeof(points[0]) + ends.capacity() * sizeof(ends[0]) + sizeof *this);
    }
};

/// A line with its paint.
struct Stroke {
    const StrokePieces* pieces;
    const Paint* paint;
};

/// Turns what a layer holds into pixels: begin a layer, add faces and strokes in the order from below to above, end it.
///
/// Pixels at the edge of an area are covered by their exact share of it, in 256 steps. The same calls give the same
/// bytes. Numbers that aren't finite are passed over, and so is what lies outside of the layer. An object serves one
/// thread; any number of them work side by side.
class Rasteriser {
public:
    /// How faces come together.
    enum class Faces {
        /// They don't overlap: what pixels at a common edge get of each adds up, and no seam is seen.
        Partition,
        /// Each is laid over those before it.
        Over,
    };

    virtual ~Rasteriser() = default;

    /// Begins an empty layer of a picture of a size. `place` leads from the coordinates of faces and strokes to the
    /// picture's. Throws std::bad_alloc where memory doesn't suffice.
    virtual void beginLayer(const QSize& picture, const QTransform& place) = 0;
    /// Begins a layer with the pixels that are there, in the format of pictures. Nothing outside of `part`, in pixels,
    /// is read or written; the pixels in it are the same for any part.
    virtual void beginAbove(QImage pixels, const QTransform& place, const QRect& part) = 0;
    virtual void addFaces(std::span<const Face> faces, Faces how) = 0;
    virtual void addStrokes(std::span<const Stroke> strokes) = 0;
    virtual Picture endLayer() = 0;

    /// The rasteriser that is in use.
    static std::unique_ptr<Rasteriser> make();
};

} // namespace brindle::render
