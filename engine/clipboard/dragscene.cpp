#include "engine/clipboard/dragscene.h"

namespace brindle::engine {

DragScene::DragScene(const ProjectSettings& settings, const SceneRecord& record)
    : m_scene(static_cast<Scene&>(*m_project.addScene(record)))
{
    m_project.setRecord({settings, QString(), false});
}

ElementManager& DragScene::elements() const
{
    return *engineElements(m_scene.elementManager());
}

} // namespace brindle::engine
