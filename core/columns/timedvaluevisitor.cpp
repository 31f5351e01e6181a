#include "core/columns/timedvaluevisitor.h"

#include "core/columns/beziercolumn.h"

namespace OMC {

TimedValueVisitor::TimedValueVisitor() = default;
TimedValueVisitor::TimedValueVisitor(TimedValueVisitor&&) noexcept = default;
TimedValueVisitor& TimedValueVisitor::operator=(TimedValueVisitor&&) noexcept = default;
TimedValueVisitor::~TimedValueVisitor() = default;

void TimedValueVisitor::visit(TUTimedValue& column)
{
    m_wrapper = std::make_unique<Column>(&column);
}

void TimedValueVisitor::visit(AT_FncTimedValue& column)
{
    m_wrapper = std::make_unique<KeyframeableColumn>(&column);
}

void TimedValueVisitor::visit(TUBezierTimedValue& column)
{
    m_wrapper = std::make_unique<BezierColumn>(&column);
}

Column* TimedValueVisitor::take()
{
    return m_wrapper.release();
}

} // namespace OMC
