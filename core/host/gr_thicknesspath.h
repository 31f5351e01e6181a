#pragma once

#include "core/host/export.h"
#include "core/host/gr_bezier.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class GR_ThicknessPath;
using GR_ThicknessPathPtr = std::shared_ptr<const GR_ThicknessPath>;

/// How far the two edges of a line lie from its centre line at one place, in units of the drawing; each is 0 or more.
struct GR_HalfWidths {
    double left = 0;
    double right = 0;

    bool operator==(const GR_HalfWidths&) const = default;
};

/// The varying width of a line: keys along it, each with a half-width on the left and on the right of the centre line,
/// seen in the direction of the stroke with axes x to the right and y up.
///
/// A position is a share of the length of the path, 0 at its start and 1 at its end; keys may lie anywhere. Half-widths
/// are in units of the drawing. Each side is a function of its own: between two neighbouring keys a and b it is the
/// cubic Bezier curve, in the plane of position and half-width, with the control points
///
///     (a.position, a.thickness), (a.toControlPosition, a.toControl),
///     (b.fromControlPosition, b.fromControl), (b.position, b.thickness)
///
/// where handles are drawn back along the position as far as the function needs to have one value at each position, and
/// a value below 0 counts as 0. A handle at its own key, as a new key has, makes the function a straight line between
/// two such keys. Ahead of the first and behind the last key the function stays as it is there, unless the path is
/// closed: then the last key is followed by the first one, at its position plus 1. Without keys all widths are 0.
///
/// A path can be shared by strokes (see GR_ThicknessBinder). What a drawing or a binder holds never changes: who wants
/// another path makes a copy, and changes it while nobody else holds it. Two paths are equal when all fields are.
class BRINDLE_HOST_EXPORT GR_ThicknessPath {
public:
    /// The half-width of one side at a key, with the handles towards the start of the path (from) and towards its end
    /// (to). Positions of handles are counted as those of keys.
    struct Side {
        double thickness = 0;
        double fromControl = 0;
        double fromControlPosition = 0;
        double toControl = 0;
        double toControlPosition = 0;

        bool operator==(const Side&) const = default;
    };

    struct BRINDLE_HOST_EXPORT ThicknessKey {
        ThicknessKey() = default;
        /// Both handles of each side lie at the key.
        ThicknessKey(double keyPosition, double leftThickness, double rightThickness);
        ThicknessKey(double keyPosition, double thickness) : ThicknessKey(keyPosition, thickness, thickness) {}

        bool operator==(const ThicknessKey&) const = default; ///< Exactly, handles too.
        /// Whether all numbers are finite and both half-widths 0 or more.
        bool isUsable() const;

        double position = 0;
        Side left;
        Side right;
    };

    GR_ThicknessPath() = default;
    /// The same half-width on both sides from start to end: a key at 0 and one at 1.
    explicit GR_ThicknessPath(double thickness);
    /// A path with the keys in the order of their positions; of keys at one position, the last counts.
    /// std::invalid_argument for one that isn't usable.
    static std::shared_ptr<GR_ThicknessPath> CreateWith(const std::vector<ThicknessKey>& keys);

    // --- Keys -------------------------------------------------------------------------------------------------------
    int numThicknessKeys() const { return static_cast<int>(m_keys.size()); }
    bool isEmpty() const { return m_keys.empty(); }
    const std::vector<ThicknessKey>& thicknessKeys() const { return m_keys; }   ///< In the order of their positions.
    const ThicknessKey& thicknessKey(int index) const;                          ///< std::out_of_range beyond the keys.
    double thicknessT(int index) const { return thicknessKey(index).position; } ///< Its position.
    /// Puts a key in its place by its position, instead of one that stands at the very same position, and gives its
    /// index. std::invalid_argument for a key that isn't usable.
    int insertThicknessKey(const ThicknessKey& key);
    int insertThicknessKey(double position, double leftThickness, double rightThickness);
    void eraseThicknessKey(int index); ///< std::out_of_range beyond the keys.

    /// Whether the line is closed, and its width goes on from the last key to the first. A closed line has no tips.
    bool isClosed() const { return m_closed; }
    void setClosed(bool closed) { m_closed = closed; }

    // --- Tips -------------------------------------------------------------------------------------------------------
    /// The form of the line beyond its start and its end by a curve, which counts instead of the tip's type. It runs
    /// from the left edge of the line to the right one, in the coordinates that tips are drawn in: x outwards along the
    /// line, y to its left; 1 is the left half-width for a point with y > 0, the right one for y < 0, and their mean
    /// for x. The line is joined to its ends by straight lines. A curve whose points all lie in one place stands for
    /// none; that is what a new path has. Points must be finite: std::invalid_argument.
    const GR_Bezier2d& tipFromBezier() const { return m_tipFrom; }
    const GR_Bezier2d& tipToBezier() const { return m_tipTo; }
    void setTipFromBezier(const GR_Bezier2d& curve);
    void setTipToBezier(const GR_Bezier2d& curve);
    bool hasTipFromBezier() const;
    bool hasTipToBezier() const;

    // --- Widths -----------------------------------------------------------------------------------------------------
    /// By the curves, as above. A position that isn't finite counts as 0.
    GR_HalfWidths halfWidths(double position) const;
    /// The least and the greatest half-width that either side has anywhere, by the extrema of the curves, and (inner)
    /// that a key has. 0 without keys.
    double minThickness() const;
    double maxThickness() const;
    double minThicknessInner() const;
    double maxThicknessInner() const;
    bool isConstant() const; ///< Whether each side has one half-width all along. True without keys.

    // --- Changes ----------------------------------------------------------------------------------------------------
    /// The path as a stroke that runs backwards sees it: position p becomes 1 - p, left becomes right, and the tips
    /// change places.
    void reverse();
    /// Cuts off what lies outside of two positions, in either order: keys with the widths and handles of the curves
    /// there become the first and the last. Positions stay; a closed path becomes an open one. std::invalid_argument
    /// for positions that are equal or not finite. A path without keys stays empty.
    void truncate(double from, double to);
    /// Moves all keys and handles along the path: position p becomes p * factor + offset. std::invalid_argument when
    /// the factor isn't above 0 or a result isn't finite.
    void transform(double factor, double offset);

    bool operator==(const GR_ThicknessPath&) const = default;

private:
    std::vector<ThicknessKey> m_keys;
    bool m_closed = false;
    GR_Bezier2d m_tipFrom{GR_Bezier2d::maxDegree, Math::Constants::Closed, Math::Constants::Closed};
    GR_Bezier2d m_tipTo{GR_Bezier2d::maxDegree, Math::Constants::Closed, Math::Constants::Closed};
};

/// The width of one stroke: a part of a thickness path, which it may share with others. A value; who holds a copy owns
/// it, and copies share the path.
///
/// A place on the stroke is told by the share s of its length, 0 to 1, and has the widths of the path at
/// start + s * (stop - start). Where start lies behind stop, the stroke runs against the path, and left and right
/// change places. The tangents are the slopes with which the edges go on over the tips: by how much a side's half-width
/// grows for each unit of length beyond the end. 0 goes straight on; -1 narrows the line by 45 degrees.
class BRINDLE_HOST_EXPORT GR_ThicknessBinder {
public:
    /// No path: the line style's thickness counts.
    GR_ThicknessBinder() = default;
    explicit GR_ThicknessBinder(GR_ThicknessPathPtr path) : m_path(std::move(path)) {}

    const GR_ThicknessPathPtr& thicknessPath() const { return m_path; } ///< Null for none.
    /// The path is shared with who else holds it. Start, stop and tangents stay.
    void setThicknessPath(GR_ThicknessPathPtr path) { m_path = std::move(path); }
    /// Takes the path of another binder, so that both share one. Start, stop and tangents stay.
    void shareThicknessPathAndFunctionPaths(const GR_ThicknessBinder& other) { m_path = other.m_path; }
    bool isSharing(const GR_ThicknessBinder& other) const { return m_path && m_path == other.m_path; }

    /// The half-widths at a share of the stroke's length; 0 without a path.
    GR_HalfWidths halfWidths(double share) const;
    /// The greatest half-width that either side has within the part.
    double maxThickness() const;
    /// The curve of the tip at the start or the end of the stroke, from its left edge to its right one; none where the
    /// path has none, and where the stroke begins or ends between the positions 0 and 1.
    std::optional<GR_Bezier2d> tipFromBezier() const;
    std::optional<GR_Bezier2d> tipToBezier() const;

    /// For a stroke that is turned round: start and stop, and the tangents with them, change places.
    void reverse();
    /// For a piece of a stroke, between two shares of its length, from < to. The tangents of ends that are new are 0.
    void truncate(double from, double to);

    bool operator==(const GR_ThicknessBinder& other) const; ///< Paths are compared by what they hold.

    // --- The record, free to be read and written. Finite numbers. ---------------------------------------------------
    double startPosition = 0;
    double stopPosition = 1;
    double startTangentLeft = 0;
    double startTangentRight = 0;
    double stopTangentLeft = 0;
    double stopTangentRight = 0;

private:
    GR_ThicknessPathPtr m_path;
};
