#include "core/attributes/attributecommands.h"

#include "core/host/mo_node.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_scene.h"

namespace tu_attr {

void ValueKey::prepare(TUTimedValue* column, double frame)
{
    m_column = dynamic_cast<AT_FncTimedValue*>(column);
    if (!m_column)
        return;
    m_frame = frame;
    m_bezier = dynamic_cast<TUBezierTimedValue*>(column);
    if (m_bezier && m_bezier->pointAt(frame, m_points[0])) {
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
        m_bezier->restorePoint(m_points[static_cast<std::size_t>(index)]);
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
