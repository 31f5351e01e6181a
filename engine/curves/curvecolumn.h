#pragma once

#include "core/host/sc_scene.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/framepaste.h"
#include "engine/curves/frameshift.h"
#include "engine/curves/hostcolumn.h"
#include "engine/curves/pointcurve.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QCoreApplication>
#include <QLocale>

#include <optional>

namespace brindle::engine {

/// The status of a command that made an edit.
inline CO_Command::Status statusOf(CurveEdit edit)
{
    switch (edit) {
    case CurveEdit::Done:
        return CO_Command::kOk;
    case CurveEdit::Nothing:
        return CO_Command::kNoop;
    case CurveEdit::Refused:
        break;
    }
    return CO_Command::kFail;
}

/// Stands for a command on a column of another engine, or on none.
class RefusedCommand final : public CO_Command {
public:
    Status execute() override { return kFail; }
    Status unexecute() override { return kNoop; }
};

/// Makes an edit of what a column holds, `CurveEdit edit(Content&, Log&)`, tells what depends on the column, and takes
/// exactly this edit back. It keeps the edit itself: a long undo list has many of them.
template <typename ColumnT, typename Content, typename Log, typename Edit>
class EditCommand final : public CO_Command {
public:
    EditCommand(ColumnT& column, Content& content, Edit edit)
        : m_column(column),
          m_content(content),
          m_edit(std::move(edit))
    {}

    Status execute() override
    {
        m_log.clear();
        const Status status = statusOf(m_edit(m_content, m_log));
        if (status == kFail)
            m_content.revert(m_log);
        else if (status == kOk)
            m_column.tellLinked();
        return status;
    }

    Status unexecute() override
    {
        if (m_log.empty())
            return kNoop;
        m_content.revert(m_log);
        m_column.tellLinked();
        return kOk;
    }

private:
    ColumnT& m_column;
    Content& m_content;
    Edit m_edit;
    Log m_log;
};

/// The frames of a number of cells of the exposure sheet, if a column can have values there.
inline bool areCells(double frame, int count)
{
    constexpr int countLimit = 1'000'000;
    return std::abs(frame) <= 1e9 && count >= 1 && count <= countLimit;
}

/// The number that a cell of the exposure sheet was given, written as in C; nothing where it isn't one.
inline std::optional<double> numberInCell(const QString& text)
{
    bool isNumber = false;
    const double value = QLocale::c().toDouble(text, &isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

inline QString cellText(double value)
{
    return QString::number(value + 0.0, 'g', QLocale::FloatingPointShortest);
}

/// A column of the open engine that is a curve of numbers: the curve, the frames over which its value is held, and what
/// every column has.
///
/// - Keyframes and control points are one and the same.
/// - A column that only drives switches (attributes that are on or off) makes keys that hold their value up to the next
///   one: a switch has nothing in between.
/// - The exposure sheet shows the value in the fewest digits that give it back, and takes numbers written as in C. The
///   empty text takes a key away.
///
/// `CurveT` is a PointCurve with `evaluate`, `splice`, `move` and `setValue`. `Format` says how a point is shown to the
/// host (`shown`), written to a file and read from it. The fields of a file:
///
///     hold               [start, stop, step]
///     points             a list for each point, as `Format` writes it; their frames ascend
template <typename Host, typename CurveT, typename Format>
class CurveColumn : public HeldColumn<Host>, public NumberValues {
public:
    using Point = typename CurveT::Point;
    using HostPoint = decltype(Format::shown(Point()));
    using Log = typename CurveT::Log;
    static constexpr const char* fieldNames[] = {"hold", "points"};

    CurveColumn(const ColumnKind& kind, const QString& name, bool anonymous) : HeldColumn<Host>(kind, name, anonymous)
    {}

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) override;

    /// About the value 0. The second argument means nothing to a curve of values.
    void scale(double factor, int second, CO_Command** command) override;
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double frame, bool constantSegment) override;
    std::unique_ptr<TUCellMemo> remember(double frame) override;

    double evaluate(double frame) const override { return m_curve.evaluate(this->shownFrame(frame)); }
    int pointCount() const override { return m_curve.points().size(); }
    bool isKey(double frame) const override { return m_curve.points().find(frame); }
    std::vector<int> keyframes() const override;
    CO_Command* createKeyframes(const std::vector<double>& frames, std::vector<double>& refused) override;
    void removeKeyframes(double first, double last, CO_Command** command) override;
    bool addControlPoint(double frame) override;
    TUFnc2DPoint curvePoint(int index) const override;
    bool isConstantAt(double frame) const override;
    void adjustColumn(double frame, double value, CO_BaseOrCommand& commands) override;

    HostPoint point(int index) const override { return Format::shown(m_curve.points().at(index)); }
    bool pointAt(double frame, HostPoint& point) const override { return give(m_curve.points().find(frame), point); }
    bool pointBefore(double frame, HostPoint& point) const override
    {
        return give(m_curve.points().around(frame).before, point);
    }
    bool pointAfter(double frame, HostPoint& point) const override
    {
        return give(m_curve.points().around(frame).after, point);
    }
    /// Writes a point as it is given (its identity apart), in place of one at its frame, and leaves its neighbours
    /// alone: how a project is read. False when a number is not finite or out of bounds.
    bool putPoint(const HostPoint& point)
    {
        if constexpr (requires { m_curve.canHave(point.value); }) {
            if (!m_curve.canHave(point.value))
                return false;
        }
        return m_curve.put(Format::kept(point));
    }

    bool fits(const AttributeMeta& attribute) const override
    {
        return attribute.isLinkable() && attribute.kind().drivenBy == DrivenBy::Numbers && !this->owner();
    }
    NumberValues* numbers() override { return this; }
    bool valueAt(double frame, double& value) const override;
    bool setValueAt(double frame, double value, bool constantSegment) override;
    std::unique_ptr<CO_Command> setValueCommand(double frame, double value) override;
    /// The frames over which the value is held move along, too.
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) override;
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) override;
    std::unique_ptr<CO_Command> pasteCommand(const Column& source, const FramePaste& paste) override;
    void keepFrames(int first, int count) override;
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;
    void writePoints(JsonWriter& json) const; ///< The field "points" alone.
    void readPoints(const JsonPlace& points);

    /// The command that makes an edit of the curve, `CurveEdit edit(CurveT&, Log&)`.
    template <typename Edit>
    std::unique_ptr<CO_Command> editCommand(Edit edit)
    {
        return std::make_unique<EditCommand<CurveColumn, CurveT, Log, Edit>>(*this, m_curve, std::move(edit));
    }
    CurveEdit splice(CurveT& curve, double frame, bool constantSegment, Log& log) const
    {
        return curve.splice(frame, constantSegment || this->drivesOnlySwitches(), log);
    }

protected:
    CurveT m_curve;

private:
    class Memo;

    static bool give(const Point* found, HostPoint& point)
    {
        if (found)
            point = Format::shown(*found);
        return found;
    }
    /// The points on the frames that are pasted, moved to where they are pasted.
    std::vector<Point> pastedPoints(const CurveT& source, const FramePaste& paste) const;
    /// The first point at a frame or behind it.
    static const Point* firstFrom(const CurveT& curve, double frame)
    {
        const auto [before, after] = curve.points().around(frame);
        return before && before->frame == frame ? before : after;
    }
    /// Takes all points from a frame up to another one.
    static CurveEdit eraseRange(CurveT& curve, double first, double last, Log& log)
    {
        CurveEdit edit = CurveEdit::Nothing;
        for (const Point* point = firstFrom(curve, first); point && point->frame <= last;
             point = firstFrom(curve, first))
            edit = curve.erase(point->frame, log);
        return edit;
    }
};

template <typename Host, typename CurveT, typename Format>
class CurveColumn<Host, CurveT, Format>::Memo final : public TUCellMemo {
public:
    Memo(CurveT& curve, double frame) : m_curve(curve), m_kept(curve.keep(frame)) {}

    void restore() override { m_curve.restore(m_kept); }

private:
    CurveT& m_curve;
    typename CurveT::Kept m_kept;
};

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::getValueForXsheet(double frame, int, QString* text, bool& isKey, bool& isHeld,
                                                          bool& isBlank, bool& isLocked) const
{
    const Point* before = m_curve.points().around(frame).before;
    isKey = before && before->frame == frame;
    isHeld = before && !isKey && before->constSegment;
    isBlank = m_curve.points().isEmpty();
    isLocked = false;
    if (text)
        *text = isBlank ? QString() : cellText(evaluate(frame));
}

template <typename Host, typename CurveT, typename Format>
int CurveColumn<Host, CurveT, Format>::setValuesFromXsheet(double frame, int count, const QString& text, int)
{
    enum { kDone = 0, kRefused = 1 };
    CO_CommandManager* manager = this->scene() ? this->scene()->commandManager() : nullptr;
    if (!manager || !areCells(frame, count))
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
    auto command = editCommand([this, frame, count, value = *value](CurveT& curve, Log& log) {
        CurveEdit result = CurveEdit::Nothing;
        for (int i = 0; i < count; ++i) {
            const auto made = splice(curve, frame + i, false, log);
            const auto set = curve.setValue(frame + i, value, log);
            if (made == CurveEdit::Refused || set == CurveEdit::Refused)
                return CurveEdit::Refused;
            if (made == CurveEdit::Done || set == CurveEdit::Done)
                result = CurveEdit::Done;
        }
        return result;
    });
    return manager->execute(command.release(), QCoreApplication::translate("Column", "Set Cells")) ? kDone : kRefused;
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::scale(double factor, int, CO_Command** command)
{
    *command = nullptr;
    if (std::isfinite(factor) && !this->owner())
        *command = editCommand([factor](CurveT& curve, Log& log) { return curve.scale(factor, log); }).release();
}

template <typename Host, typename CurveT, typename Format>
CO_Command* CurveColumn<Host, CurveT, Format>::spliceCommand(double frame, bool constantSegment)
{
    if (isKey(frame))
        return nullptr;
    return editCommand([this, frame, constantSegment](CurveT& curve, Log& log) {
               return splice(curve, frame, constantSegment, log);
           })
        .release();
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<TUCellMemo> CurveColumn<Host, CurveT, Format>::remember(double frame)
{
    return std::make_unique<Memo>(m_curve, frame);
}

template <typename Host, typename CurveT, typename Format>
std::vector<int> CurveColumn<Host, CurveT, Format>::keyframes() const
{
    std::vector<int> frames;
    frames.reserve(static_cast<std::size_t>(pointCount()));
    m_curve.points().forEach([&](const Point& point) { frames.push_back(static_cast<int>(point.frame)); });
    return frames;
}

template <typename Host, typename CurveT, typename Format>
CO_Command* CurveColumn<Host, CurveT, Format>::createKeyframes(const std::vector<double>& frames,
                                                               std::vector<double>& refused)
{
    std::copy_if(frames.begin(), frames.end(), std::back_inserter(refused),
                 [](double frame) { return !CurveT::isFrame(frame); });
    if (!refused.empty())
        return nullptr;
    return editCommand([this, frames](CurveT& curve, Log& log) {
               log.reserve(frames.size() * CurveT::changesOfSplice);
               for (const double frame : frames)
                   splice(curve, frame, false, log);
               return log.empty() ? CurveEdit::Nothing : CurveEdit::Done;
           })
        .release();
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::removeKeyframes(double first, double last, CO_Command** command)
{
    *command = nullptr;
    const Point* point = firstFrom(m_curve, first);
    if (point && point->frame <= last)
        *command = editCommand([first, last](CurveT& curve, Log& log) {
                       return eraseRange(curve, first, last, log);
                   }).release();
}

template <typename Host, typename CurveT, typename Format>
std::vector<typename CurveColumn<Host, CurveT, Format>::Point>
CurveColumn<Host, CurveT, Format>::pastedPoints(const CurveT& source, const FramePaste& paste) const
{
    CurveT whole = source;
    if (paste.fixesEnds) {
        Log unrecorded;
        splice(whole, 1, false, unrecorded);
        splice(whole, paste.count, false, unrecorded);
    }
    const bool isMoved = paste.offsets && !m_curve.points().isEmpty();
    const double offset = isMoved ? m_curve.evaluate(paste.first()) - whole.evaluate(1) : 0;
    std::vector<Point> points;
    whole.points().forEach([&](Point point) {
        if (point.frame < 1 || point.frame > paste.count)
            return;
        point.frame += paste.at - 1;
        point.shift(paste.at - 1);
        point.value += offset;
        points.push_back(point);
    });
    return points;
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<CO_Command> CurveColumn<Host, CurveT, Format>::pasteCommand(const Column& source,
                                                                            const FramePaste& paste)
{
    const auto* own = dynamic_cast<const CurveColumn*>(&source);
    if (!own || own->m_curve.points().isEmpty())
        return nullptr;
    return editCommand([this, paste, points = pastedPoints(own->m_curve, paste)](CurveT& curve, Log& log) {
        if (paste.fixesEnds && !curve.points().isEmpty()) {
            if (paste.first() > 1)
                splice(curve, paste.first() - 1, false, log);
            splice(curve, paste.last() + 1, false, log);
        }
        return curve.replace(paste.first(), paste.last(), points, log);
    });
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::keepFrames(int first, int count)
{
    constexpr int beyondAll = 1'000'000'000;
    const double last = static_cast<double>(first) + count - 1;
    Hold::keepFrames(first, count);
    if (m_curve.points().isEmpty())
        return;
    Log unrecorded;
    if (m_curve.points().first().frame < first)
        splice(m_curve, first, false, unrecorded);
    if (m_curve.points().last().frame > last)
        splice(m_curve, last, false, unrecorded);
    eraseRange(m_curve, -beyondAll, std::nextafter(first, -beyondAll), unrecorded);
    eraseRange(m_curve, std::nextafter(last, beyondAll), beyondAll, unrecorded);
    m_curve.shift(-beyondAll, 1 - first, unrecorded);
}

template <typename Host, typename CurveT, typename Format>
bool CurveColumn<Host, CurveT, Format>::addControlPoint(double frame)
{
    Log log;
    return splice(m_curve, frame, false, log) == CurveEdit::Done;
}

template <typename Host, typename CurveT, typename Format>
TUFnc2DPoint CurveColumn<Host, CurveT, Format>::curvePoint(int index) const
{
    const Point& point = m_curve.points().at(index);
    return {point.frame, point.value, point.constSegment};
}

template <typename Host, typename CurveT, typename Format>
bool CurveColumn<Host, CurveT, Format>::isConstantAt(double frame) const
{
    const Point* before = m_curve.points().around(frame).before;
    return before && before->constSegment;
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::adjustColumn(double frame, double value, CO_BaseOrCommand& commands)
{
    if (m_curve.points().isEmpty() || !(m_curve.points().last().frame < frame))
        return;
    const double last = m_curve.points().last().frame;
    commands.add(
        editCommand([last, value](CurveT& curve, Log& log) { return curve.setValue(last, value, log); }).release());
}

template <typename Host, typename CurveT, typename Format>
bool CurveColumn<Host, CurveT, Format>::valueAt(double frame, double& value) const
{
    if (m_curve.points().isEmpty())
        return false;
    value = evaluate(frame);
    return true;
}

template <typename Host, typename CurveT, typename Format>
bool CurveColumn<Host, CurveT, Format>::setValueAt(double frame, double value, bool constantSegment)
{
    if (!std::isfinite(value) || !CurveT::isFrame(frame))
        return false;
    addControlPoint(frame);
    Point point = *m_curve.points().find(frame);
    point.value = value;
    point.constSegment = point.constSegment || constantSegment;
    return m_curve.put(point);
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<CO_Command> CurveColumn<Host, CurveT, Format>::setValueCommand(double frame, double value)
{
    return editCommand([this, frame, value](CurveT& curve, Log& log) {
        const auto made = splice(curve, frame, false, log);
        if (made == CurveEdit::Refused)
            return made;
        const auto set = curve.setValue(frame, value, log);
        return set == CurveEdit::Nothing ? made : set;
    });
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<CO_Command> CurveColumn<Host, CurveT, Format>::shiftFramesCommand(const FrameShift& shift)
{
    auto steps = std::make_unique<CO_AndCommand>();
    if (!m_curve.points().isEmpty() && m_curve.points().last().frame >= static_cast<double>(shift.at) + 1)
        steps->add(editCommand([shift](CurveT& curve, Log& log) {
                       return curve.shift(shift.at, shift.delta, log);
                   }).release());
    steps->add(this->shiftCommand(*this, shift).release());
    return steps->size() > 0 ? std::move(steps) : nullptr;
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<CO_Command> CurveColumn<Host, CurveT, Format>::clearFramesCommand(int at, int count)
{
    const double begin = static_cast<double>(at) + 1;
    const double last = std::nextafter(begin + count, begin); // a point at the end stays
    const Point* point = firstFrom(m_curve, begin);
    if (!point || point->frame > last)
        return nullptr;
    return editCommand([begin, last](CurveT& curve, Log& log) { return eraseRange(curve, begin, last, log); });
}

template <typename Host, typename CurveT, typename Format>
std::unique_ptr<Column> CurveColumn<Host, CurveT, Format>::copy(const QString& name, bool anonymous) const
{
    auto made = this->kind().make(name, anonymous);
    auto& own = static_cast<CurveColumn&>(*made);
    own.m_curve = m_curve;
    static_cast<Hold&>(own) = *this;
    return made;
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::write(JsonWriter& json) const
{
    json.key("hold");
    Hold::write(json);
    json.key("points");
    writePoints(json);
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::writePoints(JsonWriter& json) const
{
    json.beginArray();
    m_curve.points().forEach([&json](const Point& point) {
        json.beginArray(JsonWriter::Inline);
        Format::write(json, point);
        if (point.constSegment)
            json.text("CONSTANT");
        json.endArray();
    });
    json.endArray();
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::read(const JsonPlace& place)
{
    Hold::read(place.field("hold"));
    readPoints(place.field("points"));
}

template <typename Host, typename CurveT, typename Format>
void CurveColumn<Host, CurveT, Format>::readPoints(const JsonPlace& points)
{
    std::optional<double> last;
    for (int i = 0; i < points.size(); ++i) {
        const JsonPlace pointPlace = points.item(i);
        int index = 0;
        HostPoint point = Format::read(pointPlace, index);
        if (pointPlace.size() > index)
            point.constSegment = pointPlace.item(index++).oneOf({"CONSTANT"}) == 0;
        pointPlace.requireSize(index);
        if (last && !(point.frame > *last))
            pointPlace.fail(QStringLiteral("is not behind the point ahead of it"));
        if (!putPoint(point))
            pointPlace.fail(QStringLiteral("is out of range"));
        last = point.frame;
    }
}

} // namespace brindle::engine
