#include "core/attributes/attributecommands.h"

#include "core/columns/columncast.h"
#include "core/host/mo_node.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_scene.h"

#include <tuple>

namespace tu_attr {

namespace {

auto fieldsOf(const BezierCtrlPt& point)
{
    return std::tie(point.value, point.leftX, point.leftY, point.rightX, point.rightY, point.constSegment,
                    point.continuity);
}

bool sameCurve(const BezierCtrlPt& one, const BezierCtrlPt& other)
{
    return fieldsOf(one) == fieldsOf(other);
}

} // namespace

void ValueKey::prepare(TUTimedValue* column, double frame)
{
    m_column = OMC::columnCast<AT_FncTimedValue>(column);
    if (!m_column)
        return;
    m_frame = frame;
    m_bezier = OMC::columnCast<TUBezierTimedValue>(column);
    m_hadPoint = m_bezier && m_bezier->pointAt(frame, m_points[0]);
    if (m_hadPoint) {
        m_count = 1;
    } else if (m_bezier) {
        m_count += m_bezier->pointBefore(frame, m_points[0]);
        m_count += m_bezier->pointAfter(frame, m_points[static_cast<std::size_t>(m_count)]);
    }
    m_made = m_column->addControlPoint(frame);
    TUSelInterface* selection = m_made ? nullptr : m_column->selInterface();
    if (selection)
        selection->refresh();
}

void ValueKey::erase()
{
    if (!m_made)
        return;
    if (TUSelInterface* selection = m_column->selInterface())
        selection->pointErased(m_frame);
    m_column->eraseControlPoint(m_frame);
    restore();
}

void ValueKey::restore()
{
    for (int index = 0; index < m_count; ++index)
        restore(m_points[static_cast<std::size_t>(index)]);
}

void ValueKey::restore(const BezierCtrlPt& point)
{
    BezierCtrlPt present;
    if (!m_bezier->pointAt(point.frame, present))
        return;
    if (present.constSegment != point.constSegment) {
        tu_timedvalue::bezier::SetConstSegCmd(m_bezier, point.frame, point.constSegment).execute();
        m_bezier->pointAt(point.frame, present);
    }
    if (!sameCurve(present, point))
        m_bezier->restorePoint(point);
}

void setDirtyIfAsked(const AT_Attr& attr)
{
    MO_Node* node = attr.node();
    if (node && attr.meta().isNodeDirtyOnChange())
        node->setDirty();
}

void emitChanged(const AT_Attr& attr)
{
    const SC_SceneCommon* scene = attr.sceneCommon();
    TUSceneChangeManager* changes = scene ? scene->changeManager() : nullptr;
    if (changes)
        changes->emitNodeChanged(attr.node());
}

bool takesValues(const TUTimedValue* column)
{
    if (!column || column->type() != TUTimedValue::kExpression)
        return true;
    MSG_Scope("AT_AttrCmdsImpl", "Cannot set value in expression.", MSG_Scope::kError, 0);
    return false;
}

} // namespace tu_attr
