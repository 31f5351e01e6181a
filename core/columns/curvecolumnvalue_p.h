#pragma once

#include "core/columns/columnedit.h"
#include "core/columns/continuitywords.h"
#include "core/columns/curvecolumnvalue.h"
#include "core/frame/finite.h"

#include <cmath>

/// The bodies of CurveColumnValue and SegmentColumnValue, for the sources of the classes that derive from them.
namespace OMC {

/// In what the classes differ; their sources translate the texts. Required: scripts compare them, and undo lists show
/// the labels.
struct CurveValueRules {
    const char* description;  ///< `__str__`, with the column's name and the frame filled in.
    const char* valueLabel;   ///< For a value that is set; the column's name follows, here and in the next two.
    const char* keyLabel;     ///< For a keyframe that is made.
    const char* removalLabel; ///< For a keyframe that is removed.
    int continuityCount = 0;  ///< The number of continuitywords::words that the class has.
    const char* continuities = "";
};

/// The rules of the class over a host class, and the commands of that class.
template <typename Timed>
extern const CurveValueRules curveValueRules;
template <typename Timed>
struct CurveCommands;

template <typename Value, typename Timed>
std::string CurveColumnValue<Value, Timed>::__str__() const
{
    return Value::tr(curveValueRules<Timed>.description)
        .arg(this->column().getName(), QString::number(this->frame()))
        .toStdString();
}

template <typename Value, typename Timed>
double CurveColumnValue<Value, Timed>::getFrame() const
{
    this->column();
    return this->frame();
}

template <typename Value, typename Timed>
QVariant CurveColumnValue<Value, Timed>::getValue() const
{
    return this->column().evaluate(this->frame());
}

template <typename Value, typename Timed>
void CurveColumnValue<Value, Timed>::setValue(const QVariant& variant)
{
    using Commands = CurveCommands<Timed>;
    const double frame = this->frame();
    const auto here = this->place();
    Timed& column = here.column;
    const double value = this->numberFrom(variant);
    if (here.isKey && std::abs(value - column.evaluate(frame)) < this->valueTolerance)
        return;

    ColumnEdit edit(column, Value::tr(curveValueRules<Timed>.valueLabel) + column.getDisplayName());
    if (!here.isKey)
        edit.run(new typename Commands::Splice(&column, frame, true));
    const double delta = value - pointAt(column, frame).value;
    edit.run(new typename Commands::SetPoint(&column, frame, frame, value));
    if constexpr (requires { Commands::carryHandles(edit, column, frame, delta); }) {
        if (std::abs(delta) > this->valueTolerance)
            Commands::carryHandles(edit, column, frame, delta);
    }
}

template <typename Value, typename Timed>
bool CurveColumnValue<Value, Timed>::getKey() const
{
    return this->place().isKey;
}

template <typename Value, typename Timed>
void CurveColumnValue<Value, Timed>::setKey(bool key)
{
    const double frame = this->frame();
    const auto here = this->place();
    Timed& column = here.column;
    if (key == here.isKey)
        return;
    const auto& rules = curveValueRules<Timed>;
    ColumnEdit edit(column, Value::tr(key ? rules.keyLabel : rules.removalLabel) + column.getDisplayName());
    if (key)
        edit.run(new typename CurveCommands<Timed>::Splice(&column, frame, true));
    else
        edit.run(new typename CurveCommands<Timed>::Remove(&column, frame));
    if (column.isKey(frame) != key)
        unexpected::fail(unexpected::Error);
}

template <typename Value, typename Timed>
Obj CurveColumnValue<Value, Timed>::getKeyframePrevious() const
{
    return this->previousOf(static_cast<const Value&>(*this));
}

template <typename Value, typename Timed>
Obj CurveColumnValue<Value, Timed>::getKeyframeNext() const
{
    return this->nextOf(static_cast<const Value&>(*this));
}

template <typename Value, typename Timed>
bool SegmentColumnValue<Value, Timed>::getConstSegment() const
{
    const auto here = this->place();
    return here.hasPoint && here.point.constSegment;
}

template <typename Value, typename Timed>
void SegmentColumnValue<Value, Timed>::setConstSegment(bool constSegment)
{
    const auto key = segmentPlace();
    if (constSegment == key.point.constSegment)
        return;
    ColumnEdit edit(key.column, Value::tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new typename CurveCommands<Timed>::SetConstSegment(&key.column, this->frame(), constSegment));
}

template <typename Value, typename Timed>
QString SegmentColumnValue<Value, Timed>::getContinuity() const
{
    const auto here = this->place();
    return continuitywords::wordFor(here.hasPoint ? here.point.continuity : -1, curveValueRules<Timed>.continuityCount);
}

template <typename Value, typename Timed>
void SegmentColumnValue<Value, Timed>::setContinuity(const QString& continuity)
{
    const auto& rules = curveValueRules<Timed>;
    const auto key = segmentPlace();
    const int number = continuitywords::numberFor(continuity, rules.continuityCount);
    if (number < 0)
        throw Exception(Value::tr("Invalid continuity value %1. Accepted values are : %2 ")
                            .arg(continuity, QLatin1String(rules.continuities)));
    if (number == key.point.continuity)
        return;
    // Required: the label is the constant segment's.
    ColumnEdit edit(key.column, Value::tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new typename CurveCommands<Timed>::SetContinuity(&key.column, this->frame(), number, 0));
}

// Required: the constant segment's sentence stands for continuity, and for the handles of a bezier column, too.
template <typename Value, typename Timed>
typename FramedValue<Timed>::Place SegmentColumnValue<Value, Timed>::segmentPlace() const
{
    return this->keyPlace(Value::tr("Constant Segment can only be set on a keyframe."));
}

} // namespace OMC
