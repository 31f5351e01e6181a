#pragma once

#include "core/columns/column.h"

class AT_FncTimedValue;
class TUFnc2DTimedValue;

namespace OMC {

/// A column that is a function of time with keyframes. Frames are given as a number or a list of them, nested to any
/// depth.
///
/// Hold values and the number of points of a 3D path are those of its velocity column.
///
/// Numeric texts pass as frames. All bad frames are told in one message, one a line, and then nothing has changed.
class BRINDLE_CORE_EXPORT KeyframeableColumn : public Column {
    Q_OBJECT
    BRINDLE_COPYABLE(KeyframeableColumn)
    Q_PROPERTY(int hold_start READ getHoldStartFrame WRITE setHoldStartFrame)
    Q_PROPERTY(int hold_stop READ getHoldStopFrame WRITE setHoldStopFrame)
    Q_PROPERTY(int hold_step READ getHoldStep WRITE setHoldStep)
    Q_PROPERTY(int control_point_size READ numberOfPoints)
    Q_PROPERTY(OMC::Obj control_points READ getControlPoints)

public:
    explicit KeyframeableColumn(AT_FncTimedValue* timedValue);

    std::string __str__() const override;

    virtual Obj getControlPoints() const; ///< The control points.

    /// Makes keyframes without changing the curve. Gives the control point, or a list of them for several.
    QVariant keyframeCreate(const QVariant& frames);
    void keyframeRemove(const QVariant& frames);       ///< Removes keyframes; frames without one are passed over.
    bool keyframeExists(const QVariant& frames) const; ///< Whether a keyframe stands at any of the frames.
    /// Removes the keyframes over a range of frames; an end under 1 is the scene's last frame.
    void keyframeClear(int start, int end);
    QList<int> keyframeList() const; ///< The frames of the keyframes, ascending.

    /// Adds the frames of an argument, and a text for each thing in it that is no frame.
    static void keyframelistFromVariant(const QVariant& value, QList<double>& frames, QList<QString>& errors);

    /// The first frame of the stretch that holds its values over steps; a value that the engine refuses is left.
    int getHoldStartFrame() const;
    void setHoldStartFrame(int frame);
    /// The last frame of the stretch that holds its values over steps; a value that the engine refuses is left.
    int getHoldStopFrame() const;
    void setHoldStopFrame(int frame);
    int getHoldStep() const; ///< The length of a step in frames; a value that the engine refuses is left.
    void setHoldStep(int step);

    int numberOfPoints() const; ///< The number of control points; of a 3D path, those of its velocity.

private:
    AT_FncTimedValue& function() const;
    /// The curve that has the points and is held: the column, or the velocity of a 3D path. Throws for another kind.
    TUFnc2DTimedValue& curve() const;
    template <typename Command>
    void setHold(int value, const QString& label);
};

} // namespace OMC
