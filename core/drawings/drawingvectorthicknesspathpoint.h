#pragma once

#include "core/frame/obj.h"
#include "core/host/gr_thicknesspath.h"

namespace OMC {

/// A key of a thickness path: how far the two edges of a line lie from its centre line at a position, and the handles
/// that shape the widths on both sides of the key. The left edge is the one at the left of the line's direction.
///
/// A value: a change reaches no path until the point is set there. Positions are shares of the path's length, 0 at its
/// start and 1 at its end; widths are in units of the drawing, finite and, at the key, not negative. The handle "from"
/// lies towards the start of the path, the handle "to" towards its end; in a new point both lie at the key.
class BRINDLE_CORE_EXPORT DrawingVectorThicknessPathPoint : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorThicknessPathPoint)
    Q_PROPERTY(double position READ getPosition WRITE setPosition)
    Q_PROPERTY(double left_thickness READ getLeftThickness WRITE setLeftThickness)
    Q_PROPERTY(double right_thickness READ getRightThickness WRITE setRightThickness)
    Q_PROPERTY(double left_thickness_from_control READ getLeftThicknessFromControl WRITE setLeftThicknessFromControl)
    Q_PROPERTY(double left_thickness_from_control_position READ getLeftThicknessFromControlPosition WRITE
                   setLeftThicknessFromControlPosition)
    Q_PROPERTY(double left_thickness_to_control READ getLeftThicknessToControl WRITE setLeftThicknessToControl)
    Q_PROPERTY(double left_thickness_to_control_position READ getLeftThicknessToControlPosition WRITE
                   setLeftThicknessToControlPosition)
    Q_PROPERTY(double right_thickness_from_control READ getRightThicknessFromControl WRITE setRightThicknessFromControl)
    Q_PROPERTY(double right_thickness_from_control_position READ getRightThicknessFromControlPosition WRITE
                   setRightThicknessFromControlPosition)
    Q_PROPERTY(double right_thickness_to_control READ getRightThicknessToControl WRITE setRightThicknessToControl)
    Q_PROPERTY(double right_thickness_to_control_position READ getRightThicknessToControlPosition WRITE
                   setRightThicknessToControlPosition)

public:
    using Key = GR_ThicknessPath::ThicknessKey;

    DrawingVectorThicknessPathPoint(); ///< At 0, without width.
    /// The same width on both sides.
    explicit DrawingVectorThicknessPathPoint(double position, double thickness);
    explicit DrawingVectorThicknessPathPoint(const Key& key);
    DrawingVectorThicknessPathPoint(const DrawingVectorThicknessPathPoint& other);
    DrawingVectorThicknessPathPoint& operator=(const DrawingVectorThicknessPathPoint& other);

    std::string __str__() const override;

    bool operator==(const DrawingVectorThicknessPathPoint& other) const { return m_key == other.m_key; }

    /// The place along the path; writing it puts the handles to the key again.
    ///
    /// Required: a key that is moved is a new one with the widths of the old.
    double getPosition() const;
    void setPosition(double position);
    double getLeftThickness() const; ///< The distance of the left edge.
    void setLeftThickness(double thickness);
    double getRightThickness() const; ///< The distance of the right edge.
    void setRightThickness(double thickness);
    double getLeftThicknessFromControl() const; ///< The width of the left edge's handle towards the start.
    void setLeftThicknessFromControl(double thickness);
    double getLeftThicknessFromControlPosition() const; ///< The position of the left edge's handle towards the start.
    void setLeftThicknessFromControlPosition(double position);
    double getLeftThicknessToControl() const; ///< The width of the left edge's handle towards the end.
    void setLeftThicknessToControl(double thickness);
    double getLeftThicknessToControlPosition() const; ///< The position of the left edge's handle towards the end.
    void setLeftThicknessToControlPosition(double position);
    double getRightThicknessFromControl() const; ///< The width of the right edge's handle towards the start.
    void setRightThicknessFromControl(double thickness);
    double getRightThicknessFromControlPosition() const; ///< The position of the right edge's handle towards the start.
    void setRightThicknessFromControlPosition(double position);
    double getRightThicknessToControl() const; ///< The width of the right edge's handle towards the end.
    void setRightThicknessToControl(double thickness);
    double getRightThicknessToControlPosition() const; ///< The position of the right edge's handle towards the end.
    void setRightThicknessToControlPosition(double position);

    const Key& key() const { return m_key; } ///< The engine's key.

private:
    Key m_key;
};

} // namespace OMC
