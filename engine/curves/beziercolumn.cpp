#include "engine/curves/beziercolumn.h"

#include "core/host/sc_scene.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/frameshift.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace brindle::engine {

namespace {

constexpr double frameCountLimit = 1e6;

BezierCtrlPt shown(const CurvePoint& point)
{
    return {point.frame,          point.value,        point.leftX,      point.leftHandleY(), point.rightX,
            point.rightHandleY(), point.constSegment, point.continuity, point.identity};
}

CurvePoint kept(const BezierCtrlPt& point)
{
    return {point.frame,  point.value,  point.value,    point.leftX,        point.leftY,
            point.rightX, point.rightY, point.identity, point.constSegment, point.continuity};
}

bool showsTheHandles(const CurvePoint& point, const BezierCtrlPt& wanted)
{
    return point.leftX == wanted.leftX && point.leftHandleY() == wanted.leftY && point.rightX == wanted.rightX &&
           point.rightHandleY() == wanted.rightY;
}

bool give(const CurvePoint* found, BezierCtrlPt& point)
{
    if (found)
        point = shown(*found);
    return found;
}

CO_Command::Status statusOf(Curve::Edit edit)
{
    switch (edit) {
    case Curve::Edit::Done:
        return CO_Command::kOk;
    case Curve::Edit::Nothing:
        return CO_Command::kNoop;
    case Curve::Edit::Refused:
        break;
    }
    return CO_Command::kFail;
}

} // namespace

CO_Command::Status BezierColumn::EditCommand::execute()
{
    m_log.clear();
    const Status status = statusOf(edit(m_column.m_curve, m_log));
    if (status == kFail)
        m_column.m_curve.revert(m_log);
    else if (status == kOk)
        m_column.tellLinked();
    return status;
}

CO_Command::Status BezierColumn::EditCommand::unexecute()
{
    if (m_log.empty())
        return kNoop;
    m_column.m_curve.revert(m_log);
    m_column.tellLinked();
    return kOk;
}

/// Sets the frames over which the value is held.
class BezierColumn::HoldCommand final : public CO_Command {
public:
    HoldCommand(BezierColumn& column, int start, int stop) : m_column(column), m_start(start), m_stop(stop) {}

    Status execute() override
    {
        std::swap(m_column.m_start, m_start);
        std::swap(m_column.m_stop, m_stop);
        m_column.tellLinked();
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    BezierColumn& m_column;
    int m_start; ///< Those that it sets next.
    int m_stop;
};

BezierColumn::BezierColumn(const QString& name, bool anonymous) : Column(static_cast<TUTimedValue&>(*this))
{
    setName(name);
    setAnonymous(anonymous);
}

Curve::Edit BezierColumn::splice(Curve& curve, double frame, bool constantSegment, CurveLog& log) const
{
    return curve.splice(frame, constantSegment || drivesOnlySwitches(), log);
}

void BezierColumn::getValueForXsheet(double frame, int, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                                     bool& isLocked) const
{
    const CurvePoint* before = m_curve.points().around(frame).before;
    isKey = before && before->frame == frame;
    isHeld = before && !isKey && before->constSegment;
    isBlank = !hasValues();
    isLocked = false;
    if (text)
        *text = isBlank ? QString() : QString::number(evaluate(frame) + 0.0, 'g', QLocale::FloatingPointShortest);
}

int BezierColumn::setValuesFromXsheet(double frame, int count, const QString& text, int)
{
    enum { kDone = 0, kRefused = 1 };
    CO_CommandManager* manager = scene() ? scene()->commandManager() : nullptr;
    if (!manager || !Curve::isFrame(frame) || count < 1 || count > frameCountLimit)
        return kRefused;
    const QString written = text.trimmed();
    if (written.isEmpty()) {
        CO_Command* command = nullptr;
        removeKeyframes(frame, frame + count - 1, &command);
        if (!command)
            return kDone;
        return manager->execute(command, QCoreApplication::translate("Column", "Clear Cells")) ? kDone : kRefused;
    }
    bool isNumber = false;
    const double value = QLocale::c().toDouble(written, &isNumber);
    if (!isNumber || !std::isfinite(value))
        return kRefused;
    auto command = editCommand([this, frame, count, value](Curve& curve, CurveLog& log) {
        Curve::Edit result = Curve::Edit::Nothing;
        for (int i = 0; i < count; ++i) {
            const auto made = splice(curve, frame + i, false, log);
            const auto set = curve.setValue(frame + i, value, log);
            if (made == Curve::Edit::Refused || set == Curve::Edit::Refused)
                return Curve::Edit::Refused;
            if (made == Curve::Edit::Done || set == Curve::Edit::Done)
                result = Curve::Edit::Done;
        }
        return result;
    });
    return manager->execute(command.release(), QCoreApplication::translate("Column", "Set Cells")) ? kDone : kRefused;
}

void BezierColumn::scale(double factor, int, CO_Command** command)
{
    *command = nullptr;
    if (std::isfinite(factor))
        *command = editCommand([factor](Curve& curve, CurveLog& log) { return curve.scale(factor, log); }).release();
}

void BezierColumn::endModif(double)
{
    tellLinked();
}

double BezierColumn::heldFrame(double frame) const
{
    if (m_step <= 1 || !(frame >= m_start && frame <= m_stop))
        return frame;
    return m_start + std::floor((frame - m_start) / m_step) * m_step;
}

double BezierColumn::evaluate(double frame) const
{
    return m_curve.evaluate(heldFrame(frame));
}

std::vector<int> BezierColumn::keyframes() const
{
    std::vector<int> frames;
    frames.reserve(pointCount());
    m_curve.points().forEach([&](const CurvePoint& point) { frames.push_back(static_cast<int>(point.frame)); });
    return frames;
}

void BezierColumn::createKeyframes(double first, double last, CO_Command** command)
{
    *command = nullptr;
    if (!Curve::isFrame(first) || !Curve::isFrame(last) || !(last - first >= 0 && last - first < frameCountLimit))
        return;
    *command = editCommand([this, first, last](Curve& curve, CurveLog& log) {
                   for (int i = 0; first + i <= last; ++i) {
                       if (splice(curve, first + i, false, log) == Curve::Edit::Refused)
                           return Curve::Edit::Refused;
                   }
                   return log.empty() ? Curve::Edit::Nothing : Curve::Edit::Done;
               }).release();
}

void BezierColumn::removeKeyframes(double first, double last, CO_Command** command)
{
    *command = nullptr;
    const auto [before, after] = m_curve.points().around(first);
    const bool any = (before && before->frame == first) || (after && after->frame <= last);
    if (!any || !(first <= last))
        return;
    *command = editCommand([first, last](Curve& curve, CurveLog& log) {
                   std::vector<double> frames;
                   const CurvePoint* point = curve.points().find(first);
                   if (!point)
                       point = curve.points().around(first).after;
                   while (point && point->frame <= last) {
                       frames.push_back(point->frame);
                       point = curve.points().around(point->frame).after;
                   }
                   for (const double frame : frames)
                       curve.erase(frame, log);
                   return frames.empty() ? Curve::Edit::Nothing : Curve::Edit::Done;
               }).release();
}

bool BezierColumn::addControlPoint(double frame)
{
    CurveLog log;
    if (splice(m_curve, frame, false, log) != Curve::Edit::Done)
        return false;
    std::vector<Added> neighbours;
    for (const CurveChange& change : log) {
        if (change.kind == CurveChange::Edited)
            neighbours.push_back({change.before, *m_curve.points().find(change.frame)});
    }
    m_added[frame].push_back(std::move(neighbours));
    return true;
}

bool BezierColumn::eraseControlPoint(double frame)
{
    CurveLog log;
    if (m_curve.erase(frame, log) != Curve::Edit::Done)
        return false;
    const auto added = m_added.find(frame);
    if (added == m_added.end())
        return true;
    for (const auto& [before, after] : added->second.back()) {
        const CurvePoint* there = m_curve.points().find(after.frame);
        if (there && *there == after)
            m_curve.put(before);
    }
    added->second.pop_back();
    if (added->second.empty())
        m_added.erase(added);
    return true;
}

bool BezierColumn::setStart(int frame)
{
    if (frame < 1)
        return false;
    m_start = frame;
    return true;
}

bool BezierColumn::setStop(int frame)
{
    if (frame < 1)
        return false;
    m_stop = frame;
    return true;
}

bool BezierColumn::setStep(int step)
{
    if (step < 1)
        return false;
    m_step = step;
    return true;
}

void BezierColumn::adjustColumn(double frame, double value, CO_BaseOrCommand& commands)
{
    if (!hasValues() || !(m_curve.points().last().frame < frame))
        return;
    const double last = m_curve.points().last().frame;
    commands.add(
        editCommand([last, value](Curve& curve, CurveLog& log) { return curve.setValue(last, value, log); }).release());
}

BezierCtrlPt BezierColumn::point(int index) const
{
    return shown(m_curve.points().at(index));
}

bool BezierColumn::pointAt(double frame, BezierCtrlPt& point) const
{
    return give(m_curve.points().find(frame), point);
}

bool BezierColumn::pointBefore(double frame, BezierCtrlPt& point) const
{
    return give(m_curve.points().around(frame).before, point);
}

bool BezierColumn::pointAfter(double frame, BezierCtrlPt& point) const
{
    return give(m_curve.points().around(frame).after, point);
}

bool BezierColumn::restorePoint(const BezierCtrlPt& point)
{
    const CurvePoint* there = m_curve.points().find(point.frame);
    if (!there)
        return false;
    // Where only the value went, the handles stay written down as they are: the next change of it carries them as the
    // last one did, to the last bit.
    CurvePoint carried = *there;
    carried.value = point.value;
    carried.constSegment = point.constSegment;
    carried.continuity = point.continuity;
    return m_curve.put(showsTheHandles(carried, point) ? carried : kept(point));
}

bool BezierColumn::putPoint(const BezierCtrlPt& point)
{
    return m_curve.put(kept(point));
}

bool BezierColumn::fits(const AttributeMeta& attribute) const
{
    return attribute.isLinkable();
}

bool BezierColumn::setValueAt(double frame, double value, bool constantSegment)
{
    if (!std::isfinite(value) || !Curve::isFrame(frame))
        return false;
    CurveLog log;
    addControlPoint(frame);
    m_curve.setValue(frame, value, log);
    if (constantSegment)
        m_curve.setConstSegment(frame, true, log);
    return true;
}

std::unique_ptr<CO_Command> BezierColumn::setValueCommand(double frame, double value)
{
    return editCommand([this, frame, value](Curve& curve, CurveLog& log) {
        const auto made = splice(curve, frame, false, log);
        if (made == Curve::Edit::Refused)
            return made;
        const auto set = curve.setValue(frame, value, log);
        return set == Curve::Edit::Nothing ? made : set;
    });
}

std::unique_ptr<CO_Command> BezierColumn::shiftFramesCommand(const FrameShift& shift)
{
    auto steps = std::make_unique<CO_AndCommand>();
    if (hasValues() && m_curve.points().last().frame >= static_cast<double>(shift.at) + 1)
        steps->add(editCommand([shift](Curve& curve, CurveLog& log) {
                       return curve.shift(shift.at, shift.delta, log);
                   }).release());
    int start = m_start;
    int stop = m_stop;
    if (m_step > 1 && start <= stop) {
        if (!shift.carry(start, stop))
            start = stop = std::max(shift.at, 1);
        if (start != m_start || stop != m_stop)
            steps->add(new HoldCommand(*this, start, stop));
    }
    return steps->size() > 0 ? std::move(steps) : nullptr;
}

std::unique_ptr<CO_Command> BezierColumn::clearFramesCommand(int at, int count)
{
    const double begin = static_cast<double>(at) + 1;
    const double end = begin + count;
    const auto firstIn = [begin, end](const Curve& curve) -> const CurvePoint* {
        const CurvePoint* point = curve.points().find(begin);
        if (!point)
            point = curve.points().around(begin).after;
        return point && point->frame < end ? point : nullptr;
    };
    if (!firstIn(m_curve))
        return nullptr;
    return editCommand([firstIn](Curve& curve, CurveLog& log) {
        while (const CurvePoint* point = firstIn(curve))
            curve.erase(point->frame, log);
        return Curve::Edit::Done;
    });
}

} // namespace brindle::engine
