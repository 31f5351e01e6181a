#include "core/columns/controlpointvisitor.h"

#include "core/columns/beziercontrolpoint.h"

namespace OMC {

void ControlPointWrapperVisitor::visit(TUBezierTimedValue& column)
{
    if (m_index < static_cast<quint64>(column.pointCount()))
        m_point = std::make_unique<BezierControlPoint>(column, column.point(static_cast<int>(m_index)));
}

void ControlPointFrameWrapperVisitor::visit(TUBezierTimedValue& column)
{
    BezierCtrlPt point;
    if (column.pointAt(m_frame, point))
        m_point = std::make_unique<BezierControlPoint>(column, point);
}

} // namespace OMC
