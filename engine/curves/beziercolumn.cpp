#include "engine/curves/beziercolumn.h"

#include "core/host/sc_scene.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/frameshift.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <optional>

namespace brindle::engine {

namespace {

constexpr double frameCountLimit = 1e6;
constexpr const char* fieldNames[] = {"hold", "points"};
constexpr const char* continuities[] = {"CORNER", "STRAIGHT", "SMOOTH"};

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

void writePoint(JsonWriter& json, const CurvePoint& point)
{
    json.beginArray(JsonWriter::Inline);
    for (const double number :
         {point.frame, point.value, point.leftX, point.leftHandleY(), point.rightX, point.rightHandleY()})
        json.number(number);
    json.text(continuities[point.continuity]);
    if (point.constSegment)
        json.text("CONSTANT");
    json.endArray();
}

BezierCtrlPt readPoint(const JsonPlace& place)
{
    BezierCtrlPt point;
    double* const numbers[] = {&point.frame, &point.value, &point.leftX, &point.leftY, &point.rightX, &point.rightY};
    int index = 0;
    for (double* number : numbers)
        *number = place.item(index++).number();
    point.continuity = place.item(index++).oneOf(continuities);
    if (place.size() > index)
        point.constSegment = place.item(index++).oneOf({"CONSTANT"}) == 0;
    place.requireSize(index);
    return point;
}

} // namespace

constinit const ColumnKind bezierKind{TUTimedValue::kBezier, "BEZIER", fieldNames, &makeColumn<BezierColumn>};

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

class BezierColumn::Memo final : public TUCellMemo {
public:
    Memo(Curve& curve, double frame) : m_curve(curve), m_kept(curve.keep(frame)) {}

    void restore() override { m_curve.restore(m_kept); }

private:
    Curve& m_curve;
    Curve::Kept m_kept;
};

BezierColumn::BezierColumn(const QString& name, bool anonymous) : HeldColumn(bezierKind, name, anonymous) {}

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
    isBlank = m_curve.points().isEmpty();
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

CO_Command* BezierColumn::spliceCommand(double frame, bool constantSegment)
{
    if (isKey(frame))
        return nullptr;
    return editCommand([this, frame, constantSegment](Curve& curve, CurveLog& log) {
               return splice(curve, frame, constantSegment, log);
           })
        .release();
}

std::unique_ptr<TUCellMemo> BezierColumn::remember(double frame)
{
    return std::make_unique<Memo>(m_curve, frame);
}

double BezierColumn::evaluate(double frame) const
{
    return m_curve.evaluate(shownFrame(frame));
}

std::vector<int> BezierColumn::keyframes() const
{
    std::vector<int> frames;
    frames.reserve(pointCount());
    m_curve.points().forEach([&](const CurvePoint& point) { frames.push_back(static_cast<int>(point.frame)); });
    return frames;
}

CO_Command* BezierColumn::createKeyframes(const std::vector<double>& frames, std::vector<double>& refused)
{
    std::copy_if(frames.begin(), frames.end(), std::back_inserter(refused),
                 [](double frame) { return !Curve::isFrame(frame); });
    if (!refused.empty())
        return nullptr;
    return editCommand([this, frames](Curve& curve, CurveLog& log) {
               log.reserve(frames.size() * Curve::changesOfSplice);
               for (const double frame : frames)
                   splice(curve, frame, false, log);
               return log.empty() ? Curve::Edit::Nothing : Curve::Edit::Done;
           })
        .release();
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
    return splice(m_curve, frame, false, log) == Curve::Edit::Done;
}

TUFnc2DPoint BezierColumn::curvePoint(int index) const
{
    const CurvePoint& point = m_curve.points().at(index);
    return {point.frame, point.value, point.constSegment};
}

bool BezierColumn::isConstantAt(double frame) const
{
    const CurvePoint* before = m_curve.points().around(frame).before;
    return before && before->constSegment;
}

void BezierColumn::adjustColumn(double frame, double value, CO_BaseOrCommand& commands)
{
    if (m_curve.points().isEmpty() || !(m_curve.points().last().frame < frame))
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

bool BezierColumn::putPoint(const BezierCtrlPt& point)
{
    return m_curve.put(kept(point));
}

bool BezierColumn::fits(const AttributeMeta& attribute) const
{
    return attribute.isLinkable();
}

bool BezierColumn::valueAt(double frame, double& value) const
{
    if (m_curve.points().isEmpty())
        return false;
    value = evaluate(frame);
    return true;
}

bool BezierColumn::setValueAt(double frame, double value, bool constantSegment)
{
    if (!std::isfinite(value) || !Curve::isFrame(frame))
        return false;
    addControlPoint(frame);
    CurvePoint point = *m_curve.points().find(frame);
    point.value = value;
    point.constSegment = point.constSegment || constantSegment;
    return m_curve.put(point);
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
    if (!m_curve.points().isEmpty() && m_curve.points().last().frame >= static_cast<double>(shift.at) + 1)
        steps->add(editCommand([shift](Curve& curve, CurveLog& log) {
                       return curve.shift(shift.at, shift.delta, log);
                   }).release());
    steps->add(shiftCommand(*this, shift).release());
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

std::unique_ptr<Column> BezierColumn::copy(const QString& name, bool anonymous) const
{
    auto made = std::make_unique<BezierColumn>(name, anonymous);
    made->m_curve = m_curve;
    static_cast<Hold&>(*made) = *this;
    return made;
}

void BezierColumn::write(JsonWriter& json) const
{
    json.key("hold");
    Hold::write(json);
    json.key("points").beginArray();
    m_curve.points().forEach([&json](const CurvePoint& point) { writePoint(json, point); });
    json.endArray();
}

void BezierColumn::read(const JsonPlace& place)
{
    Hold::read(place.field("hold"));
    const JsonPlace points = place.field("points");
    std::optional<double> last;
    for (int i = 0; i < points.size(); ++i) {
        const JsonPlace pointPlace = points.item(i);
        const BezierCtrlPt point = readPoint(pointPlace);
        if (last && !(point.frame > *last))
            pointPlace.fail(QStringLiteral("is not behind the point ahead of it"));
        if (!putPoint(point))
            pointPlace.fail(QStringLiteral("is out of range"));
        last = point.frame;
    }
}

} // namespace brindle::engine
