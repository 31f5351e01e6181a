#include "core/columns/bezieredit.h"

namespace OMC {

BezierEdit::BezierEdit(TUBezierTimedValue& column, const QString& what)
    : m_column(column),
      m_manager(undo::manager(column.sceneCommon())),
      m_scope(m_manager, what + column.getDisplayName())
{}

BezierCtrlPt BezierEdit::pointAt(double frame) const
{
    BezierCtrlPt point;
    if (!m_column.pointAt(frame, point))
        unexpected::fail(unexpected::Error);
    return point;
}

} // namespace OMC
