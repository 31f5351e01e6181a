#include "core/attributes/attributecommands.h"

#include "core/columns/columncast.h"
#include "core/host/mo_node.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_scene.h"

namespace tu_attr {

ValueKey::ValueKey(TUTimedValue* column, double frame)
    : m_memo(column ? column->remember(frame) : nullptr),
      m_column(column),
      m_frame(frame)
{
    auto* function = m_memo ? OMC::columnCast<AT_FncTimedValue>(column) : nullptr;
    if (!function)
        return;
    m_made = function->addControlPoint(frame);
    if (TUSelInterface* selection = m_made ? nullptr : column->selInterface())
        selection->refresh();
}

void ValueKey::restore()
{
    if (!m_memo)
        return;
    if (TUSelInterface* selection = m_made ? m_column->selInterface() : nullptr)
        selection->pointErased(m_frame);
    m_memo->restore();
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
    if (!column || column->takesValues())
        return true;
    MSG_Scope("AT_AttrCmdsImpl", "Cannot set value in expression.", MSG_Scope::kError, 0);
    return false;
}

} // namespace tu_attr
