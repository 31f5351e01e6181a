#pragma once

#include "core/host/export.h"
#include "core/host/gr_bezierpath.h"
#include "core/host/gr_color.h"
#include "core/host/gr_linestyle.h"
#include "core/host/gr_thicknesspath.h"
#include "core/host/math_box2d.h"
#include "core/host/math_point.h"

#include <QtGlobal>

#include <memory>
#include <optional>
#include <vector>

class GR_Contour;
class GR_Layer;
class GR_VectorStroke;

/// The sides of a stroke, as seen along it from its tail to its head. The numbers are those of GR_DrawingAccess.
enum class GR_StrokeSide : int { Right = 0, Left = 1 };

/// The form that a line has beyond its last point. Other numbers may be read from files of other engines; a line with
/// such a tip ends flat.
enum GR_TipType : int { kRoundTip = 0, kFlatTip = 1, kBevelTip = 2 };

/// The ends of a stroke.
enum class GR_StrokeEnd : int { From = 0, To = 1 };

/// An area as convex polygons, each counterclockwise and with an area. They may overlap: filled together by the
/// non-zero rule they leave neither holes nor seams.
struct GR_OutlinePieces {
    std::vector<Math::Point2d> points; ///< Of all pieces, one after the other.
    std::vector<int> ends;             ///< Behind the last point of each piece.
};

/// Straight cuts across a line, in their order along it, and what lies on it between two of them. They go on over the
/// tips, and turn where the path does.
struct GR_LineCuts {
    struct Cut {
        Math::Point2d right; ///< The edges of the line, as seen along the stroke.
        Math::Point2d left;
        double distance;     ///< From the start of the path, along it: below 0, or above its length, on the tips.
        double overhang = 0; ///< By how much a tip is wider here, on one side.
    };
    std::vector<Cut> cuts;
    double length = 0; ///< Of the path.
    double width = 0;  ///< The largest one of the line.
};

/// Everything that a stroke is made of: a value, from which strokes are inserted, and of which they give copies.
/// Coordinates are those of the drawing's art. Copies share the path, which never changes: it stays where it is while
/// one of them has it.
class BRINDLE_HOST_EXPORT GR_StrokeData {
public:
    GR_StrokeData() : GR_StrokeData(GR_BezierPath2d()) {}
    explicit GR_StrokeData(const GR_BezierPath2d& path) : m_path(std::make_shared<const GR_BezierPath2d>(path)) {}

    const GR_BezierPath2d& GetPath() const { return *m_path; }
    void SetPath(const GR_BezierPath2d& path) { m_path = std::make_shared<const GR_BezierPath2d>(path); }

    /// Null: the side has no colour.
    const GR_ColorPtr& GetColor(int side) const { return m_colours[side == 0 ? 0 : 1]; }
    void SetColor(const GR_ColorPtr& colour, int side) { m_colours[side == 0 ? 0 : 1] = colour; }

    const GR_LineStyle& GetLineStyle() const { return m_lineStyle; }
    void SetLineStyle(const GR_LineStyle& style) { m_lineStyle = style; }

    /// The part of a thickness path that belongs to the stroke. Strokes share a path where their binders hold the same
    /// one.
    const GR_ThicknessBinder& GetThicknessBinder() const { return m_thickness; }
    void CopyThicknessBinder(const GR_ThicknessBinder& thickness) { m_thickness = thickness; }

    GR_TipType tipType(GR_StrokeEnd end) const { return m_tips[static_cast<int>(end)]; }
    void setTipType(GR_StrokeEnd end, GR_TipType type) { m_tips[static_cast<int>(end)] = type; }

    /// Whether the end was made by cutting the stroke where it crosses another one.
    bool isCut(GR_StrokeEnd end) const { return m_cut[static_cast<int>(end)]; }
    void setCut(GR_StrokeEnd end, bool isCut) { m_cut[static_cast<int>(end)] = isCut; }

    /// The area that the line covers with its thickness and its tips, whatever its type, to within a tolerance, which
    /// is in units of the drawing, finite and above 0 (else std::invalid_argument). Throws std::domain_error when a
    /// point of the path is not finite.
    GR_OutlinePieces GetOutline(double tolerance) const;
    /// Where things lie along and across the same area, under the same conditions.
    GR_LineCuts GetCuts(double tolerance) const;

    bool operator==(const GR_StrokeData& other) const;

private:
    std::shared_ptr<const GR_BezierPath2d> m_path; ///< Of degree 3. Never null.
    GR_ColorPtr m_colours[2];
    GR_LineStyle m_lineStyle;
    GR_ThicknessBinder m_thickness;
    GR_TipType m_tips[2] = {kRoundTip, kRoundTip};
    bool m_cut[2] = {false, false};
};

/// One end of a stroke.
class BRINDLE_HOST_EXPORT GR_StrokeAccess {
public:
    enum StrokeExtremity : int { kTail = 0, kHead = 1, kInvalid = 2 };

    GR_StrokeAccess() = default;
    GR_StrokeAccess(const GR_VectorStroke* stroke, StrokeExtremity extremity) : m_stroke(stroke), m_extremity(extremity)
    {}

    const GR_VectorStroke* GetStroke() const { return m_stroke; } ///< Null: of no stroke.
    StrokeExtremity GetExtremity() const { return m_extremity; }
    /// The place that all ends of the joint share.
    Math::Point2d GetJointPosition() const;
    /// The direction in which the stroke leaves the joint, of length 1; zero for a degenerate stroke.
    Math::Vector2d GetTangent() const;

private:
    const GR_VectorStroke* m_stroke = nullptr;
    StrokeExtremity m_extremity = kInvalid;
};

/// A place where ends of strokes meet, or where one end is free, seen from one of these ends. A value that is good
/// until the drawing changes.
class BRINDLE_HOST_EXPORT GR_Joint {
public:
    GR_Joint() = default;
    explicit GR_Joint(const GR_StrokeAccess& access) : m_access(access) {}

    /// No stroke, or one that is degenerate and so in no joint.
    bool IsEmpty() const;
    const GR_StrokeAccess& GetStrokeAccess() const { return m_access; }
    int GetDegree() const; ///< The number of stroke ends that meet here: 1 for a free end, 0 when empty.
    /// Of the neighbouring end in the order in which strokes leave the joint: the next one counterclockwise for Left(),
    /// clockwise for Right(). A free end is its own neighbour.
    GR_Joint Left() const;
    GR_Joint Right() const;
    GR_Joint Opposite() const; ///< At the other end of the same stroke.
    /// The contours that pass through the joint, each once, counterclockwise from the one at the left of this end.
    std::vector<const GR_Contour*> GetContours() const;
    /// The colour of the stroke's left side as seen when leaving the joint, and of its right side. Null: no colour.
    GR_ColorPtr GetInsideColor() const;
    GR_ColorPtr GetOutsideColor() const;
    bool operator==(const GR_Joint& other) const;

private:
    GR_StrokeAccess m_access;
};

/// A stroke of a layer: a path with colours at its two sides, a line style and a thickness. A pointer to it is good
/// until the drawing's revision grows; its id leads to it again.
class BRINDLE_HOST_EXPORT GR_VectorStroke {
public:
    virtual ~GR_VectorStroke() = default;

    virtual quint32 id() const = 0; ///< From 1, unique in its composite drawing, kept over moves, undo and saves.
    virtual GR_Layer* GetLayer() const = 0;
    virtual const GR_StrokeData& GetStrokeData() const = 0;

    virtual Math::Box2d GetBox() const = 0;        ///< Of the curves, without thickness.
    virtual Math::Box2d GetInnerBox() const = 0;   ///< Of the points on the curve.
    virtual Math::Box2d GetVisibleBox() const = 0; ///< With thickness and tips; empty for a line that isn't shown.
    virtual bool IsDegenerate() const = 0;         ///< All points in one place: it is in no joint and in no contour.

    virtual GR_Joint Tail() const = 0;
    virtual GR_Joint Head() const = 0;
    /// The direction of travel at an end, from tail to head, of length 1; zero for a degenerate stroke.
    virtual Math::Vector2d GetTangent(GR_StrokeAccess::StrokeExtremity extremity) const = 0;
    int tipType(int end) const { return static_cast<int>(GetStrokeData().tipType(static_cast<GR_StrokeEnd>(end))); }

    /// The contour at a side; null for a degenerate stroke.
    virtual const GR_Contour* GetContour(GR_StrokeSide side) const = 0;
    virtual double GetMaxVisibleThickness() const = 0; ///< The largest full width; 0 for a line that isn't shown.
    virtual bool IsThicknessValid() const = 0; ///< Whether the stroke's part of its thickness path has a length.
    /// The strokes of the layer with the same thickness path, this one first.
    virtual std::vector<const GR_VectorStroke*> GetStrokesSharingThickness() const = 0;
    /// The strokes of the layer that are drawn as one line with this one: they share its thickness path and continue
    /// one another at joints, in their order along the line.
    virtual std::vector<const GR_VectorStroke*> GetStrokesShared() const = 0;
    /// Whether an end of this stroke and one of the other's meet in a joint in which they are neighbours and run on in
    /// the same direction, to within 1e-6 of a radian.
    virtual bool IsContinuous(const GR_VectorStroke& other) const = 0;
};

/// A cycle of stroke sides that bounds an area of a layer, or follows strokes that bound none. It is named by any of
/// its (stroke, side) pairs, and a pointer to it is good until the drawing's revision grows.
class BRINDLE_HOST_EXPORT GR_Contour {
public:
    enum Comparison : int { kContains = 0, kContainedIn = 1, kNotRelated = 2 };

    virtual ~GR_Contour() = default;

    virtual quint32 id() const = 0;                       ///< Of its least (stroke id, side): 2 * stroke id + side.
    virtual const GR_VectorStroke* GetStroke() const = 0; ///< Of that pair.
    virtual GR_StrokeSide GetSide() const = 0;            ///< The same; the contour's inside lies at it.
    virtual std::vector<const GR_VectorStroke*> GetStrokes() const = 0; ///< In the order of the cycle, each once.

    virtual Math::Box2d GetBox() const = 0;      ///< Of the curves.
    virtual Math::Box2d GetInnerBox() const = 0; ///< Of the points on the curves.
    virtual bool IsClockwise() const = 0;        ///< By its signed area; false where that is 0.
    virtual bool IsDegenerate() const = 0;       ///< It encloses no area: lines with free ends, or coincident strokes.
    virtual bool IsOutlineColorUsed() const = 0; ///< Whether a stroke of it is drawn with a line.
    virtual bool IsTopLevel() const = 0;         ///< No other contour holds it.

    virtual GR_ColorPtr GetInsideColor() const = 0;  ///< Of the pair's own side. Null: no colour.
    virtual GR_ColorPtr GetOutsideColor() const = 0; ///< Of the stroke's other side.
    /// What its area is painted with: the colour of the first side on the cycle that has one. Null: nothing.
    virtual GR_ColorPtr GetFillColor() const = 0;
    /// The closed paths that bound its area, by the even-odd rule: its own cycle, and those around what lies within,
    /// without what crosses it. None for one that goes around nothing, or around its strokes from outside.
    virtual std::vector<GR_BezierPath2d> GetArea() const = 0;
    /// Whether strokes that are connected with its own cross or touch strokes elsewhere than in joints, so that its
    /// area may overlap others.
    virtual bool IsCrossed() const = 0;

    virtual const GR_Contour* GetParent() const = 0; ///< The smallest one that holds it; null at top level.
    virtual std::vector<const GR_Contour*> GetChildren() const = 0;
    /// The strokes that lie within, at any depth, without its own.
    virtual std::vector<const GR_VectorStroke*> GetStrokesInside() const = 0;
    virtual std::vector<const GR_VectorStroke*> GetStrokesOfChildren() const = 0;

    /// Where this contour stands to another one of its layer, by their chains of parents.
    virtual Comparison TopologicalComparison(const GR_Contour* other) const = 0;
    /// Whether this contour lies within the area that the path fills; `fillType` 1 is Math::Constants::FillType's.
    virtual bool IsInside(const GR_BezierPath2d& path, int fillType) const = 0;
    virtual bool IsContaining(const GR_BezierPath2d& path, int fillType) const = 0; ///< The path lies within it.
    virtual bool IsOutside(const GR_BezierPath2d& path, int fillType) const = 0; ///< Neither holds part of the other.
};
