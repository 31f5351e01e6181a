#pragma once

#include "core/columns/column.h"

class AT_FncTimedValue;
class TUFnc2DTimedValue;

namespace OMC {

/// A column that is a function of time with keyframes.
///
/// Where frames are asked for, one may give a number or a list of frames, nested to any depth; numeric texts pass. All
/// bad frames are told in one message, one a line, and then nothing has changed.
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

    virtual Obj getControlPoints() const; ///< The ControlPointList of the column.

    /// The control point made, or a list of them when there are several.
    QVariant keyframeCreate(const QVariant& frames);
    void keyframeRemove(const QVariant& frames);       ///< Frames without a keyframe are passed over.
    bool keyframeExists(const QVariant& frames) const; ///< Whether any of them is a keyframe.
    /// Removes the keyframes over a range of frames; an end under 1 is the scene's last frame.
    void keyframeClear(int start, int end);
    QList<int> keyframeList() const;

    /// Adds the frames of an argument, and a text for each thing in it that is no frame.
    static void keyframelistFromVariant(const QVariant& value, QList<double>& frames, QList<QString>& errors);

    /// The curve holds its value over steps from the start to the stop frame. A value that the engine refuses is left.
    int getHoldStartFrame() const;
    void setHoldStartFrame(int frame);
    int getHoldStopFrame() const;
    void setHoldStopFrame(int frame);
    int getHoldStep() const;
    void setHoldStep(int step);

    int numberOfPoints() const;

private:
    AT_FncTimedValue& function() const;
    TUFnc2DTimedValue& curve() const; ///< Throws where the function is no curve of values.
};

} // namespace OMC
