#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/ut_sharedweak.h"

#include <QString>

#include <memory>
#include <vector>

class AT_Attr;
class AT_ColumnMarkerManager;
class AT_TimedValueVisitor;
class MO_Node;
class SC_SceneCommon;

/// Shows which control points of a column are selected.
class BRINDLE_HOST_EXPORT TUSelInterface {
public:
    virtual ~TUSelInterface() = default;
    virtual void refresh() = 0;                 ///< Values of selected points changed.
    virtual void pointErased(double frame) = 0; ///< The point at this frame is about to go.
};

/// Remembers what a column had at a frame and beside it, before a value was written there. The column outlives it.
class BRINDLE_HOST_EXPORT TUCellMemo {
public:
    virtual ~TUCellMemo() = default;
    virtual void restore() = 0; ///< The column gets it back, to the last bit; as often as it is asked for.
};

/// A column of the exposure sheet: a value for each frame. It belongs to its scene; while only the undo list keeps it,
/// weak pointers to it are expired. Frames count from 1 and may be fractional.
class BRINDLE_HOST_EXPORT TUTimedValue : public UT_SharedWeakBase {
public:
    enum timedValueType {
        kDrawing = 0,
        kSound = 1,
        k3dPath = 2,
        kBezier = 3,
        kEase = 4,
        kExpression = 5,
        kTiming = 6,
        kVeloBased = 7,
        kQuaternionPath = 8,
        kAnnotation = 9,
        kFileLibrary = 10
    };

    virtual timedValueType type() const = 0;
    virtual QString getName() const = 0; ///< Unique in the scene.
    virtual QString getDisplayName() const = 0;
    virtual bool isAnonymous() const = 0;            ///< Named by the engine, and shown by what it drives.
    virtual SC_SceneCommon* sceneCommon() const = 0; ///< Null while the column is in no scene.
    virtual void accept(AT_TimedValueVisitor& visitor) = 0;

    /// The text that the exposure sheet shows at a frame. The flags tell of the cell's look.
    virtual void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                                   bool& isLocked) const = 0;
    /// Writes `count` cells as if typed into the exposure sheet, undoably. 0 on success.
    virtual int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) = 0;

    /// The links from attributes, in the order of linking; and the nodes of those attributes, each once.
    virtual unsigned int getNumLinks() const = 0;
    virtual AT_Attr* linkedAttr(unsigned int index) const = 0;
    virtual std::vector<MO_Node*> linkedNodes() const = 0;

    /// Leaves a new command that multiplies the values by a factor, or null when the column can't be scaled.
    virtual void scale(double factor, int second, CO_Command** command) = 0;

    virtual bool takesValues() const = 0; ///< Whether values can be written; false where they are computed.
    /// The command that makes a key at a frame and leaves what the column shows; the caller owns it. The key's value
    /// holds up to the next key with `constantSegment`. Null where a key stands, and for a kind without keys.
    virtual CO_Command* spliceCommand(double frame, bool constantSegment) = 0;
    /// Remembers what a value at this frame may change; null for a kind that takes no values at frames.
    virtual std::unique_ptr<TUCellMemo> remember(double frame) = 0;

    virtual void endModif(double frame) = 0; ///< An edit at this frame is complete: what depends on it may be told.
    virtual TUSelInterface* selInterface() { return nullptr; } ///< Null where nothing shows a selection.
    /// The markers on stretches of the column's cells; null for a column that keeps none.
    virtual AT_ColumnMarkerManager* createOrGetColumnMarkerManager() { return nullptr; }

    /// A name that no column of the scene has, made from a prefix (or the engine's own when it is empty).
    static QString generateAnonymousName(const SC_SceneCommon* scene, const QString& prefix);
};

/// A column that is a function of time with control points.
class BRINDLE_HOST_EXPORT AT_FncTimedValue : public TUTimedValue {
public:
    virtual int pointCount() const = 0;
    virtual bool isKey(double frame) const = 0;     ///< Whether a keyframe stands exactly there.
    virtual std::vector<int> keyframes() const = 0; ///< Their frames, ascending, cut to integers.
    /// The command that makes a keyframe at each of these frames, in any order; the caller owns it. Null when there are
    /// frames that the column can't have; they are appended to `refused`.
    virtual CO_Command* createKeyframes(const std::vector<double>& frames, std::vector<double>& refused) = 0;
    /// Leaves a new command that removes the keyframes over a range of frames, or null when there are none.
    virtual void removeKeyframes(double first, double last, CO_Command** command) = 0;
    /// Makes a control point at the frame if none stands there, keeping the curve's shape; true when it made one.
    virtual bool addControlPoint(double frame) = 0;
};

/// A control point of a curve in the plane of frame and value, without what its kind adds.
struct TUFnc2DPoint {
    double frame = 0;
    double value = 0;
    bool constSegment = false; ///< The value holds up to the next point.
};

/// A curve in the plane of frame and value.
class BRINDLE_HOST_EXPORT TUFnc2DTimedValue : public AT_FncTimedValue {
public:
    virtual double evaluate(double frame) const = 0;
    virtual TUFnc2DPoint curvePoint(int index) const = 0; ///< By its place; `index` below pointCount().
    /// Whether the value at a frame is that of the point before it, up to the next one.
    virtual bool isConstantAt(double frame) const = 0;

    virtual int start() const = 0; ///< Hold values, in frames: the curve holds its value over steps from start to stop.
    virtual int stop() const = 0;
    virtual int step() const = 0;

    /// Adds the commands by which the rest of the column follows a new value at a frame: when the last keyframe lies
    /// before the frame, it takes the value too, so that a value set behind the animation doesn't start a motion.
    virtual void adjustColumn(double frame, double value, CO_BaseOrCommand& commands) = 0;
};

/// A control point of a bezier column. Handles are in global coordinates: x in frames, y in the column's values.
struct BezierCtrlPt {
    double frame = 0;
    double value = 0;
    double leftX = 0, leftY = 0;
    double rightX = 0, rightY = 0;
    bool constSegment = false; ///< The value holds up to the next point.
    int continuity = 0;        ///< 0 corner, 1 straight, 2 smooth.
    /// Which point this is: unlike all others that the column ever had, also one at the same frame. Given by the column
    /// when the point is made (also when an undo brings one back), kept while it is edited, not saved.
    unsigned long long identity = 0;
};

/// A cubic Bezier curve through control points. The x of the handles is held within the neighbouring points, so that
/// the curve is a function of the frame; before the first and after the last point the value is constant.
class BRINDLE_HOST_EXPORT TUBezierTimedValue : public TUFnc2DTimedValue {
public:
    virtual BezierCtrlPt point(int index) const = 0;                   ///< By its place; `index` below pointCount().
    virtual bool pointAt(double frame, BezierCtrlPt& point) const = 0; ///< At exactly this frame.
    virtual bool pointBefore(double frame, BezierCtrlPt& point) const = 0; ///< The last one at or before the frame.
    virtual bool pointAfter(double frame, BezierCtrlPt& point) const = 0;  ///< The first one behind the frame.
};

/// The place at which an attribute is linked to a column.
class BRINDLE_HOST_EXPORT TUTvSocket {
public:
    virtual ~TUTvSocket() = default;
    virtual AT_Attr* attr() const = 0;
    virtual TUTimedValue* linkedTimedValue() const = 0; ///< Null when not linked.
    bool isLinked() const { return linkedTimedValue() != nullptr; }
    /// Gives the name of the linked column; false when there is none. The second argument is always 0.
    virtual bool columnName(QString& name, int) const = 0;
};

namespace tu_tv_socket {

/// Links an attribute to a column of its scene, in place of the one it had. Fails when the column's values don't fit.
class BRINDLE_HOST_EXPORT LinkCmd final : public CO_EngineCommand {
public:
    LinkCmd(TUTvSocket* socket, TUTimedValue* timedValue);
};

/// Without a link it does nothing. The second argument is always 0.
class BRINDLE_HOST_EXPORT UnlinkCmd final : public CO_EngineCommand {
public:
    UnlinkCmd(TUTvSocket* socket, int);
};

} // namespace tu_tv_socket

namespace tu_timedvalue {

namespace timedvalue {

/// Fails when another column of the scene has the name, or it is empty.
class BRINDLE_HOST_EXPORT RenameCmd final : public CO_EngineCommand {
public:
    RenameCmd(TUTimedValue* timedValue, const QString& name);
};

class BRINDLE_HOST_EXPORT SetAnonymous final : public CO_EngineCommand {
public:
    SetAnonymous(TUTimedValue* timedValue, bool anonymous);
};

} // namespace timedvalue

namespace bezier {

/// Makes a keyframe at the frame without changing the curve's shape; where one stands it does nothing.
class BRINDLE_HOST_EXPORT SpliceCmd final : public CO_EngineCommand {
public:
    SpliceCmd(TUBezierTimedValue* column, double frame, bool makeKey, bool constantSegment = false);
};

/// The commands below name a point by its frame, and fail when none stands at exactly that frame or a number is not
/// finite.

class BRINDLE_HOST_EXPORT RemovePointCmd final : public CO_EngineCommand {
public:
    RemovePointCmd(TUBezierTimedValue* column, double frame);
};

/// Moves a point to another frame and value; its handles stay where they are in global coordinates, held within the
/// neighbouring points. Fails when another point stands at the new frame.
class BRINDLE_HOST_EXPORT SetPointCmd2 final : public CO_EngineCommand {
public:
    SetPointCmd2(TUBezierTimedValue* column, double frame, double newFrame, double value);
};

class BRINDLE_HOST_EXPORT SetLeftHandleGlobalCmd final : public CO_EngineCommand {
public:
    SetLeftHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y);
};

class BRINDLE_HOST_EXPORT SetRightHandleGlobalCmd final : public CO_EngineCommand {
public:
    SetRightHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y);
};

class BRINDLE_HOST_EXPORT SetConstSegCmd final : public CO_EngineCommand {
public:
    SetConstSegCmd(TUBezierTimedValue* column, double frame, bool constantSegment);
};

/// 0 corner, 1 straight, 2 smooth; fails for another number. The last argument is always 0.
class BRINDLE_HOST_EXPORT SetContinuityCmd final : public CO_EngineCommand {
public:
    SetContinuityCmd(TUBezierTimedValue* column, double frame, int continuity, int);
};

} // namespace bezier

/// The hold values of a function column. Each fails for a value that the column refuses.
namespace fnc2d {

class BRINDLE_HOST_EXPORT SetStartCmd final : public CO_EngineCommand {
public:
    SetStartCmd(TUFnc2DTimedValue* column, int frame);
};

class BRINDLE_HOST_EXPORT SetStopCmd final : public CO_EngineCommand {
public:
    SetStopCmd(TUFnc2DTimedValue* column, int frame);
};

class BRINDLE_HOST_EXPORT SetStepCmd final : public CO_EngineCommand {
public:
    SetStepCmd(TUFnc2DTimedValue* column, int step);
};

} // namespace fnc2d

} // namespace tu_timedvalue
