#include "engine/curves/hold.h"

#include "core/host/tu_timedvalue.h"
#include "engine/curves/column.h"
#include "engine/curves/frameshift.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace brindle::engine {

namespace {

/// Sets one of the hold values, and the old one when it is undone. Refused for a column that holds nothing.
class HoldCommand final : public CO_Command {
public:
    using Get = int (Hold::*)() const;
    using Set = bool (Hold::*)(int);

    HoldCommand(Column* column, Hold* hold, Get get, Set set, int value)
        : m_column(column),
          m_hold(hold),
          m_get(get),
          m_set(set),
          m_value(value)
    {}

    Status execute() override
    {
        if (!m_column || !m_hold)
            return kFail;
        m_before = (m_hold->*m_get)();
        if (m_before == m_value)
            return kNoop;
        return change(m_value);
    }
    Status unexecute() override { return change(m_before); }

private:
    Status change(int value)
    {
        if (!(m_hold->*m_set)(value))
            return kFail;
        m_column->tellLinked();
        return kOk;
    }

    Column* m_column;
    Hold* m_hold;
    Get m_get;
    Set m_set;
    int m_value;
    int m_before = 0;
};

std::unique_ptr<CO_Command> holdCommand(TUFnc2DTimedValue* column, HoldCommand::Get get, HoldCommand::Set set,
                                        int value)
{
    return std::make_unique<HoldCommand>(Column::of(column), dynamic_cast<Hold*>(column), get, set, value);
}

} // namespace

bool Hold::set(int& member, int value)
{
    if (value < 1)
        return false;
    member = value;
    return true;
}

double Hold::shownFrame(double frame) const
{
    if (m_step <= 1 || !(frame >= m_start && frame <= m_stop))
        return frame;
    return m_start + std::floor((frame - m_start) / m_step) * m_step;
}

std::unique_ptr<CO_Command> Hold::shiftCommand(Column& column, const FrameShift& shift)
{
    int start = m_start;
    int stop = m_stop;
    if (m_step <= 1 || start > stop)
        return nullptr;
    if (!shift.carry(start, stop))
        start = stop = std::max(shift.at, 1);
    auto steps = std::make_unique<CO_AndCommand>();
    if (start != m_start)
        steps->add(new HoldCommand(&column, this, &Hold::start, &Hold::setStart, start));
    if (stop != m_stop)
        steps->add(new HoldCommand(&column, this, &Hold::stop, &Hold::setStop, stop));
    return steps->size() > 0 ? std::move(steps) : nullptr;
}

void Hold::keepFrames(int first, int count)
{
    const int start = std::max(m_start, first);
    const int stop = std::min(m_stop, first + count - 1);
    const bool isHeld = m_step > 1 && start <= stop;
    m_start = isHeld ? start - first + 1 : 1;
    m_stop = isHeld ? stop - first + 1 : 1;
    m_step = isHeld ? m_step : 1;
}

void Hold::write(JsonWriter& json) const
{
    json.beginArray(JsonWriter::Inline);
    json.integer(m_start);
    json.integer(m_stop);
    json.integer(m_step);
    json.endArray();
}

void Hold::read(const JsonPlace& place)
{
    setStart(place.item(0).integer(1));
    setStop(place.item(1).integer(1));
    setStep(place.item(2).integer(1));
    place.requireSize(3);
}

} // namespace brindle::engine

namespace tu_timedvalue::fnc2d {

using brindle::engine::Hold;
using brindle::engine::holdCommand;

SetStartCmd::SetStartCmd(TUFnc2DTimedValue* column, int frame)
    : CO_EngineCommand(holdCommand(column, &Hold::start, &Hold::setStart, frame))
{}

SetStopCmd::SetStopCmd(TUFnc2DTimedValue* column, int frame)
    : CO_EngineCommand(holdCommand(column, &Hold::stop, &Hold::setStop, frame))
{}

SetStepCmd::SetStepCmd(TUFnc2DTimedValue* column, int step)
    : CO_EngineCommand(holdCommand(column, &Hold::step, &Hold::setStep, step))
{}

} // namespace tu_timedvalue::fnc2d
