#pragma once

#include "core/frame/obj.h"
#include "core/host/gr_thicknesspath.h"

namespace OMC {

/// The width of a stroke: a thickness path, and which part of it belongs to the stroke. Strokes whose thicknesses have
/// one path share it: parts of one line keep their widths together. By default there is no path, and the line style's
/// thickness counts.
///
/// A value: a change reaches no drawing until it is set on a stroke. Positions are shares of the path's length; where
/// the start lies behind the stop, the stroke runs against the path. A tangent is the slope of an edge over the tip: by
/// how much the edge's distance from the centre line grows for each unit of length beyond the end. 0 goes straight on,
/// -1 narrows by 45 degrees.
class BRINDLE_CORE_EXPORT DrawingVectorThickness : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorThickness)
    Q_PROPERTY(double start_position READ getStartPosition WRITE setStartPosition)
    Q_PROPERTY(double stop_position READ getStopPosition WRITE setStopPosition)
    Q_PROPERTY(double start_tangent_left READ getStartTangentLeft WRITE setStartTangentLeft)
    Q_PROPERTY(double start_tangent_right READ getStartTangentRight WRITE setStartTangentRight)
    Q_PROPERTY(double stop_tangent_left READ getStopTangentLeft WRITE setStopTangentLeft)
    Q_PROPERTY(double stop_tangent_right READ getStopTangentRight WRITE setStopTangentRight)
    Q_PROPERTY(QVariant thickness_path READ getThicknessPath WRITE setThicknessPath)
    Q_PROPERTY(QVariant path READ getThicknessPath WRITE setThicknessPath)

public:
    DrawingVectorThickness();
    explicit DrawingVectorThickness(const GR_ThicknessBinder& thickness);
    DrawingVectorThickness(const DrawingVectorThickness& other);
    DrawingVectorThickness& operator=(const DrawingVectorThickness& other);

    std::string __str__() const override;

    bool operator==(const DrawingVectorThickness& other) const { return m_binder == other.m_binder; }

    double getStartPosition() const; ///< Where on the path the stroke starts; 0 unless it is a part.
    void setStartPosition(double position);
    double getStopPosition() const; ///< Where on the path the stroke ends; 1 unless it is a part.
    void setStopPosition(double position);
    double getStartTangentLeft() const; ///< The slope of the left edge over the tip at the start.
    void setStartTangentLeft(double tangent);
    double getStartTangentRight() const; ///< The slope of the right edge over the tip at the start.
    void setStartTangentRight(double tangent);
    double getStopTangentLeft() const; ///< The slope of the left edge over the tip at the end.
    void setStopTangentLeft(double tangent);
    double getStopTangentRight() const; ///< The slope of the right edge over the tip at the end.
    void setStopTangentRight(double tangent);
    /// The path, a DrawingVectorThicknessPath that shares it, without keys where there is none; a path that is written
    /// is shared.
    QVariant getThicknessPath() const;
    void setThicknessPath(const QVariant& path);

    /// Takes the path of another thickness, so that strokes with the two share one. Start, stop and tangents stay.
    void shareThickness(const QVariant& other);

    const GR_ThicknessBinder& binder() const { return m_binder; } ///< The engine's record.

private:
    GR_ThicknessBinder m_binder;
};

} // namespace OMC
