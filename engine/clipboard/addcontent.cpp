#include "engine/clipboard/addcontent.h"

#include "engine/elements/elementmanager.h"

#include <algorithm>
#include <utility>

namespace brindle::engine {

AddContent::AddContent(Scene& scene, Group* group, DetachedContent content)
    : m_scene(scene),
      m_elementManager(*engineElements(scene.elementManager())),
      m_group(group),
      m_content(std::move(content))
{
    for (const auto& host : m_content.nodes)
        m_nodes.push_back(engineNode(host.get()));
    for (const auto& column : m_content.columns)
        m_columns.push_back(column.get());
    for (const auto& element : m_content.elements)
        m_elements.push_back(element.get());
}

CO_Command::Status AddContent::execute()
{
    if (!m_nodes.empty() && (!m_group || m_group->graph() != &m_scene.graph()))
        return kFail;
    for (const Element* element : m_elements) {
        if (!m_elementManager.isFreeName(element->name(), nullptr))
            return kFail;
    }
    if (!addColumns())
        return kFail;
    for (auto& element : m_content.elements)
        m_elementManager.insert(std::move(element));
    addNodes();
    m_scene.graph().announceStructure();
    return kOk;
}

CO_Command::Status AddContent::unexecute()
{
    if (std::any_of(m_elements.begin(), m_elements.end(),
                    [](const Element* element) { return element->isUnderEdit(); }))
        return kFail;
    if (!m_nodes.empty())
        m_content.nodes = m_scene.graph().take(*m_group, m_nodes);
    takeColumns(m_columns.size());
    for (std::size_t left = m_elements.size(); left > 0; --left)
        m_content.elements[left - 1] = m_elementManager.take(*m_elements[left - 1]);
    m_scene.graph().announceStructure();
    return kOk;
}

bool AddContent::addColumns()
{
    for (std::size_t place = 0; place < m_columns.size(); ++place) {
        if (!m_scene.columnList().insert(m_content.columns[place], -1)) {
            takeColumns(place);
            return false;
        }
    }
    return true;
}

/// From the end forwards, which is the quickest.
void AddContent::takeColumns(std::size_t count)
{
    int position = -1;
    for (std::size_t left = count; left > 0; --left)
        m_content.columns[left - 1] = m_scene.columnList().take(m_columns[left - 1], position);
}

void AddContent::addNodes()
{
    if (m_nodes.empty())
        return;
    SceneGraph& graph = m_scene.graph();
    if (std::exchange(m_isNamed, true)) {
        graph.putBack(*m_group, std::move(m_content.nodes), m_nodes);
        return;
    }
    for (std::size_t place = 0; place < m_nodes.size(); ++place) {
        Node& node = *m_nodes[place];
        node.setName(node.type().nodeClass == NodeClass::Display ? graph.generateName(node.name(), *m_group)
                                                                 : graph.freeName(node.name(), *m_group));
        graph.append(*m_group, std::move(m_content.nodes[place]), node);
    }
}

} // namespace brindle::engine
