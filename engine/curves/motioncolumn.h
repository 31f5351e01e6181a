#pragma once

#include "engine/curves/motionpath.h"
#include "engine/curves/velocitycolumn.h"

namespace brindle::engine {

extern const ColumnKind path3dKind;
extern const ColumnKind quaternionKind;

/// A path column of the open engine: the path, and the velocity column that belongs to it.
///
/// - Its keyframes are the frames at which the velocity has the path on a control point. Taking a keyframe takes its
///   control point, too, unless another keyframe stands on it.
/// - The hold values are the velocity's.
/// - The exposure sheet has a sub-column for each of x, y and z (1, 2, 3). It shows a number in the fewest digits that
///   give it back, and takes numbers written as in C. The empty text takes a keyframe away.
///
/// Its fields in a file:
///
///     hold               [start, stop, step] of the velocity
///     points             [x, y, z, tension, continuity, bias] for each control point, in the order of the path
///     velocity           [frame, place] for each point of the velocity, with "CONSTANT" behind it where the path stays
///                        there up to the next one; the frames ascend
template <typename Host>
class MotionColumn : public HostColumn<Host>, public PositionValues {
public:
    using Log = MotionPath::Log;
    static constexpr const char* fieldNames[] = {"hold", "points", "velocity"};

    MotionColumn(const ColumnKind& kind, PieceMaker maker, const QString& name, bool anonymous)
        : HostColumn<Host>(kind, name, anonymous),
          m_velocity(static_cast<Column&>(*this)),
          m_path(m_velocity.curve(), maker)
    {}

    Column* part() const override { return &m_velocity; }

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) override;

    /// About the place (0, 0, 0): all coordinates with a second argument of 0, or only x, y or z with 1, 2 or 3. Null
    /// for another one.
    void scale(double factor, int second, CO_Command** command) override;
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double frame, bool constantSegment) override;
    std::unique_ptr<TUCellMemo> remember(double frame) override;

    int pointCount() const override { return m_path.size(); }
    bool isKey(double frame) const override { return m_path.keyAt(frame) >= 0; }
    std::vector<int> keyframes() const override;
    CO_Command* createKeyframes(const std::vector<double>& frames, std::vector<double>& refused) override;
    void removeKeyframes(double first, double last, CO_Command** command) override;
    bool addControlPoint(double frame) override;

    TUVeloBasedTimedValue* velocity() const override { return &m_velocity; }
    bool getValue(double frame, double& x, double& y, double& z) const override;
    int pathSize() const override { return m_path.size(); }
    CatmullCtrlPt path(int index) const override;
    double computeControlPointTime(int index) const override { return m_path.timeOf(index); }
    bool keyAt(double frame, CatmullCtrlPt& point) const override;
    bool keyBefore(double frame, CatmullCtrlPt& point) const override { return give(m_path.keyBefore(frame), point); }
    bool keyAfter(double frame, CatmullCtrlPt& point) const override { return give(m_path.keyAfter(frame), point); }

    bool fits(const AttributeMeta& attribute) const override;
    NumberValues* numbers() override { return nullptr; }
    PositionValues* positions() override { return this; }
    bool positionAt(double frame, Math::Point3d& position) const override
    {
        return m_path.valueAt(m_velocity.shownFrame(frame), position);
    }
    bool setPositionAt(double frame, const Math::Point3d& position, bool constantSegment) override;
    std::unique_ptr<CO_Command> setPositionCommand(double frame, const Math::Point3d& position) override;
    /// The frames over which the value is held move along, too.
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) override;
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) override;
    /// Writes keyframes alone: control points between them that are none stay behind.
    std::unique_ptr<CO_Command> pasteCommand(const Column& source, const FramePaste& paste) override;
    void keepFrames(int first, int count) override;
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;

    /// The command that makes an edit of the path, `CurveEdit edit(MotionPath&, Log&)`.
    template <typename Edit>
    std::unique_ptr<CO_Command> editCommand(Edit edit)
    {
        return std::make_unique<EditCommand<MotionColumn, MotionPath, Log, Edit>>(*this, m_path, std::move(edit));
    }

private:
    class Memo;

    CatmullCtrlPt shown(int index, const VelocityPoint* key) const;
    bool give(const VelocityPoint* key, CatmullCtrlPt& point) const;
    void readPoints(const JsonPlace& place);

    mutable VelocityColumn m_velocity;
    MotionPath m_path;
    Log* m_recorder = nullptr; ///< Takes down edits that are made without a command; the open memo's, or null.
};

extern template class MotionColumn<AT_Path3dTimedValue>;
extern template class MotionColumn<AT_QuaternionPathTimedValue>;

/// Positions in fields.
class Path3dColumn final : public MotionColumn<AT_Path3dTimedValue> {
public:
    explicit Path3dColumn(const QString& name, bool anonymous = false)
        : MotionColumn(path3dKind, &makePositionPiece, name, anonymous)
    {}
};

/// Rotations by angles in degrees about x, then y, then z. Between keyframes the angles are those from -180 to 180
/// (about y from -90 to 90) that give the rotation.
class QuaternionColumn final : public MotionColumn<AT_QuaternionPathTimedValue> {
public:
    explicit QuaternionColumn(const QString& name, bool anonymous = false)
        : MotionColumn(quaternionKind, &makeRotationPiece, name, anonymous)
    {}
};

} // namespace brindle::engine
