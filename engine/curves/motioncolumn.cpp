#include "engine/curves/motioncolumn.h"

#include <QCoreApplication>

namespace brindle::engine {

using Math::Point3d;

namespace {

/// The coordinate of a sub-column of the exposure sheet, or null.
double* coordinateOf(Point3d& position, int subColumn)
{
    switch (subColumn) {
    case 1:
        return &position.x;
    case 2:
        return &position.y;
    case 3:
        return &position.z;
    default:
        return nullptr;
    }
}

} // namespace

constinit const ColumnKind path3dKind{TUTimedValue::k3dPath, "3D_PATH", Path3dColumn::fieldNames,
                                      &makeColumn<Path3dColumn>};
constinit const ColumnKind quaternionKind{TUTimedValue::kQuaternionPath, "QUATERNION_PATH",
                                          QuaternionColumn::fieldNames, &makeColumn<QuaternionColumn>};

template class MotionColumn<AT_Path3dTimedValue>;
template class MotionColumn<AT_QuaternionPathTimedValue>;

/// Takes down what attributes change past the commands, from the moment that it is made up to the next one.
template <typename Host>
class MotionColumn<Host>::Memo final : public TUCellMemo {
public:
    explicit Memo(MotionColumn& column) : m_column(column) { m_column.m_recorder = &m_log; }
    ~Memo() override
    {
        if (m_column.m_recorder == &m_log)
            m_column.m_recorder = nullptr;
    }

    void restore() override { m_column.m_path.revert(m_log); }

private:
    MotionColumn& m_column;
    Log m_log;
};

template <typename Host>
void MotionColumn<Host>::getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld,
                                           bool& isBlank, bool& isLocked) const
{
    Point3d position;
    const bool isSet = positionAt(frame, position);
    const double* coordinate = coordinateOf(position, subColumn);
    isKey = this->isKey(frame);
    isHeld = !isKey && m_velocity.isConstantAt(frame);
    isBlank = !isSet || !coordinate;
    isLocked = false;
    if (text)
        *text = isBlank ? QString() : cellText(*coordinate);
}

template <typename Host>
int MotionColumn<Host>::setValuesFromXsheet(double frame, int count, const QString& text, int subColumn)
{
    enum { kDone = 0, kRefused = 1 };
    CO_CommandManager* manager = this->scene() ? this->scene()->commandManager() : nullptr;
    if (!manager || !areCells(frame, count) || subColumn < 1 || subColumn > 3)
        return kRefused;
    const QString written = text.trimmed();
    if (written.isEmpty()) {
        CO_Command* command = nullptr;
        removeKeyframes(frame, frame + count - 1, &command);
        if (!command)
            return kDone;
        return manager->execute(command, QCoreApplication::translate("Column", "Clear Cells")) ? kDone : kRefused;
    }
    const std::optional<double> value = numberInCell(written);
    if (!value)
        return kRefused;
    auto command = editCommand([frame, count, subColumn, value = *value](MotionPath& path, Log& log) {
        const auto before = log.size();
        for (int i = 0; i < count; ++i) {
            if (path.addKey(frame + i, log) == CurveEdit::Refused)
                return CurveEdit::Refused;
            const int index = path.keyAt(frame + i);
            Point3d position = path.points()[static_cast<std::size_t>(index)].position;
            *coordinateOf(position, subColumn) = value;
            path.move(index, position, log);
        }
        return log.size() == before ? CurveEdit::Nothing : CurveEdit::Done;
    });
    return manager->execute(command.release(), QCoreApplication::translate("Column", "Set Cells")) ? kDone : kRefused;
}

template <typename Host>
void MotionColumn<Host>::scale(double factor, int second, CO_Command** command)
{
    *command = nullptr;
    if (std::isfinite(factor) && second >= 0 && second <= 3)
        *command = editCommand([factor, second](MotionPath& path, Log& log) {
                       return path.scale(factor, second, log);
                   }).release();
}

template <typename Host>
CO_Command* MotionColumn<Host>::spliceCommand(double frame, bool constantSegment)
{
    if (isKey(frame))
        return nullptr;
    return editCommand([frame, constantSegment](MotionPath& path, Log& log) {
               const CurveEdit made = path.addKey(frame, log);
               if (made == CurveEdit::Done && constantSegment)
                   path.setConstSegment(frame, true, log);
               return made;
           })
        .release();
}

template <typename Host>
std::unique_ptr<TUCellMemo> MotionColumn<Host>::remember(double)
{
    return std::make_unique<Memo>(*this);
}

template <typename Host>
std::vector<int> MotionColumn<Host>::keyframes() const
{
    std::vector<int> frames;
    for (const double frame : m_path.keyFrames(-INFINITY, INFINITY))
        frames.push_back(static_cast<int>(frame));
    return frames;
}

template <typename Host>
CO_Command* MotionColumn<Host>::createKeyframes(const std::vector<double>& frames, std::vector<double>& refused)
{
    std::copy_if(frames.begin(), frames.end(), std::back_inserter(refused),
                 [](double frame) { return !VelocityCurve::isFrame(frame); });
    if (!refused.empty())
        return nullptr;
    return editCommand([frames](MotionPath& path, Log& log) {
               for (const double frame : frames)
                   path.addKey(frame, log);
               return log.empty() ? CurveEdit::Nothing : CurveEdit::Done;
           })
        .release();
}

template <typename Host>
void MotionColumn<Host>::removeKeyframes(double first, double last, CO_Command** command)
{
    *command = nullptr;
    if (!m_path.keyFrames(first, last).empty())
        *command = editCommand([first, last](MotionPath& path, Log& log) {
                       return path.removeKeys(path.keyFrames(first, last), log);
                   }).release();
}

template <typename Host>
bool MotionColumn<Host>::addControlPoint(double frame)
{
    Log unrecorded;
    return m_path.addKey(frame, m_recorder ? *m_recorder : unrecorded) == CurveEdit::Done;
}

template <typename Host>
bool MotionColumn<Host>::getValue(double frame, double& x, double& y, double& z) const
{
    Point3d position;
    const bool isSet = positionAt(frame, position);
    x = position.x;
    y = position.y;
    z = position.z;
    return isSet;
}

template <typename Host>
CatmullCtrlPt MotionColumn<Host>::shown(int index, const VelocityPoint* key) const
{
    const PathPoint& point = m_path.points()[static_cast<std::size_t>(index)];
    return {.index = index,
            .frame = key ? key->frame : m_path.timeOf(index),
            .x = point.position.x,
            .y = point.position.y,
            .z = point.position.z,
            .tension = point.tension,
            .continuity = point.continuity,
            .bias = point.bias,
            .keyframe = key != nullptr,
            .constSegment = key && key->constSegment,
            .identity = point.identity};
}

template <typename Host>
bool MotionColumn<Host>::give(const VelocityPoint* key, CatmullCtrlPt& point) const
{
    if (key)
        point = shown(m_path.keyAt(key->frame), key);
    return key;
}

template <typename Host>
CatmullCtrlPt MotionColumn<Host>::path(int index) const
{
    return shown(index, m_path.keyOf(index));
}

template <typename Host>
bool MotionColumn<Host>::keyAt(double frame, CatmullCtrlPt& point) const
{
    const VelocityPoint* key = m_path.keyBefore(frame);
    return key && key->frame == frame && give(key, point);
}

template <typename Host>
bool MotionColumn<Host>::fits(const AttributeMeta& attribute) const
{
    constexpr DrivenBy values =
        std::is_same_v<Host, AT_QuaternionPathTimedValue> ? DrivenBy::Rotations : DrivenBy::Positions;
    return attribute.isLinkable() && attribute.kind().drivenBy == values;
}

template <typename Host>
bool MotionColumn<Host>::setPositionAt(double frame, const Point3d& position, bool constantSegment)
{
    Log unrecorded;
    Log& log = m_recorder ? *m_recorder : unrecorded;
    if (!std::isfinite(position.x) || !std::isfinite(position.y) || !std::isfinite(position.z) ||
        m_path.setKey(frame, position, log) == CurveEdit::Refused)
        return false;
    if (constantSegment)
        m_path.setConstSegment(frame, true, log);
    return true;
}

template <typename Host>
std::unique_ptr<CO_Command> MotionColumn<Host>::setPositionCommand(double frame, const Point3d& position)
{
    return editCommand([frame, position](MotionPath& path, Log& log) { return path.setKey(frame, position, log); });
}

template <typename Host>
std::unique_ptr<CO_Command> MotionColumn<Host>::shiftFramesCommand(const FrameShift& shift)
{
    auto steps = std::make_unique<CO_AndCommand>();
    const auto& points = m_velocity.curve().points();
    if (!points.isEmpty() && points.last().frame >= static_cast<double>(shift.at) + 1)
        steps->add(editCommand([shift](MotionPath& path, Log& log) {
                       return path.shift(shift.at, shift.delta, log);
                   }).release());
    steps->add(m_velocity.shiftCommand(m_velocity, shift).release());
    return steps->size() > 0 ? std::move(steps) : nullptr;
}

template <typename Host>
std::unique_ptr<CO_Command> MotionColumn<Host>::clearFramesCommand(int at, int count)
{
    const double begin = static_cast<double>(at) + 1;
    const auto [before, after] = m_velocity.curve().points().around(begin);
    const VelocityPoint* first = before && before->frame == begin ? before : after;
    if (!first || first->frame >= begin + count)
        return nullptr;
    return editCommand([begin, count](MotionPath& path, Log& log) { return path.clear(begin, begin + count, log); });
}

namespace {

/// A keyframe that is written to another path.
struct PastedKey {
    double frame;
    PathPoint point;
    bool constSegment;
};

/// The place of a path at a frame, to which it is brought back once keyframes around it came or went.
struct Pin {
    double frame;
    Point3d position;
};

Pin pinAt(const MotionPath& path, double frame)
{
    Pin pin{frame, {}};
    path.valueAt(frame, pin.position);
    return pin;
}

CurveEdit writeKey(MotionPath& path, const PastedKey& key, MotionPath::Log& log)
{
    if (path.setKey(key.frame, key.point.position, log) == CurveEdit::Refused)
        return CurveEdit::Refused;
    path.setConstSegment(key.frame, key.constSegment, log);
    return path.setParameters(path.keyAt(key.frame), key.point.tension, key.point.continuity, key.point.bias, log);
}

} // namespace

template <typename Host>
std::unique_ptr<CO_Command> MotionColumn<Host>::pasteCommand(const Column& source, const FramePaste& paste)
{
    if (&source.kind() != &this->kind())
        return nullptr;
    const std::unique_ptr<Column> copied = source.copy(QString(), false);
    auto& own = static_cast<MotionColumn&>(*copied);
    if (own.m_path.size() == 0)
        return nullptr;
    Log unrecorded;
    if (paste.fixesEnds) {
        const Pin last = pinAt(own.m_path, paste.count);
        own.m_path.addKey(1, unrecorded);
        own.m_path.setKey(last.frame, last.position, unrecorded);
    }
    Point3d offset;
    Point3d before;
    Point3d pasted;
    if (paste.offsets && m_path.valueAt(paste.first(), before) && own.m_path.valueAt(1, pasted))
        offset = {before.x - pasted.x, before.y - pasted.y, before.z - pasted.z};
    std::vector<PastedKey> keys;
    for (const double frame : own.m_path.keyFrames(1, paste.count)) {
        PathPoint point = own.m_path.points()[static_cast<std::size_t>(own.m_path.keyAt(frame))];
        point.position = {point.position.x + offset.x, point.position.y + offset.y, point.position.z + offset.z};
        keys.push_back({frame + paste.at - 1, point, own.m_velocity.curve().points().find(frame)->constSegment});
    }
    return editCommand([paste, keys](MotionPath& path, Log& log) {
        std::vector<Pin> beside;
        if (paste.fixesEnds && path.size() > 0) {
            if (paste.first() > 1)
                beside.push_back(pinAt(path, paste.first() - 1));
            beside.push_back(pinAt(path, paste.last() + 1));
        }
        for (const Pin& pin : beside)
            path.addKey(pin.frame, log);
        path.clear(paste.first(), paste.last() + 1.0, log);
        for (const PastedKey& key : keys) {
            if (writeKey(path, key, log) == CurveEdit::Refused)
                return CurveEdit::Refused;
        }
        for (const Pin& pin : beside)
            path.setKey(pin.frame, pin.position, log);
        return log.empty() ? CurveEdit::Nothing : CurveEdit::Done;
    });
}

template <typename Host>
void MotionColumn<Host>::keepFrames(int first, int count)
{
    constexpr int beyondAll = 1'000'000'000;
    const double last = static_cast<double>(first) + count - 1;
    static_cast<Hold&>(m_velocity).keepFrames(first, count);
    const auto& points = m_velocity.curve().points();
    if (points.isEmpty())
        return;
    Log unrecorded;
    std::vector<Pin> ends;
    if (points.first().frame < first)
        ends.push_back(pinAt(m_path, first));
    if (points.last().frame > last)
        ends.push_back(pinAt(m_path, last));
    for (const Pin& pin : ends)
        m_path.addKey(pin.frame, unrecorded);
    m_path.clear(-beyondAll, first, unrecorded);
    m_path.clear(std::nextafter(last, beyondAll), beyondAll, unrecorded);
    for (const Pin& pin : ends)
        m_path.setKey(pin.frame, pin.position, unrecorded);
    m_path.shift(-beyondAll, 1 - first, unrecorded);
}

template <typename Host>
std::unique_ptr<Column> MotionColumn<Host>::copy(const QString& name, bool anonymous) const
{
    auto made = this->kind().make(name, anonymous);
    auto& own = static_cast<MotionColumn&>(*made);
    own.m_velocity.curve() = m_velocity.curve();
    static_cast<Hold&>(own.m_velocity) = m_velocity;
    own.m_path.setPoints(m_path.points());
    return made;
}

template <typename Host>
void MotionColumn<Host>::write(JsonWriter& json) const
{
    json.key("hold");
    static_cast<const Hold&>(m_velocity).write(json);
    json.key("points").beginArray();
    for (const PathPoint& point : m_path.points()) {
        json.beginArray(JsonWriter::Inline);
        for (const double number :
             {point.position.x, point.position.y, point.position.z, point.tension, point.continuity, point.bias})
            json.number(number);
        json.endArray();
    }
    json.endArray();
    json.key("velocity");
    m_velocity.writePoints(json);
}

template <typename Host>
void MotionColumn<Host>::read(const JsonPlace& place)
{
    static_cast<Hold&>(m_velocity).read(place.field("hold"));
    readPoints(place.field("points"));
    m_velocity.readPoints(place.field("velocity"));
}

template <typename Host>
void MotionColumn<Host>::readPoints(const JsonPlace& place)
{
    std::vector<PathPoint> points;
    points.reserve(static_cast<std::size_t>(place.size()));
    for (int i = 0; i < place.size(); ++i) {
        const JsonPlace pointPlace = place.item(i);
        PathPoint point;
        int index = 0;
        for (double* number :
             {&point.position.x, &point.position.y, &point.position.z, &point.tension, &point.continuity, &point.bias})
            *number = pointPlace.item(index++).number();
        pointPlace.requireSize(index);
        if (!point.isSound())
            pointPlace.fail(QStringLiteral("is out of range"));
        points.push_back(point);
    }
    m_path.setPoints(points);
}

} // namespace brindle::engine
