#pragma once

#include "core/host/co_command.h"
#include "engine/elements/element.h"
#include "engine/session/scene.h"

#include <memory>
#include <vector>

namespace brindle::engine {

class ElementManager;

/// Nodes, columns and elements that were made for a scene and are not in it.
struct DetachedContent {
    std::vector<std::unique_ptr<MO_Node>> nodes;
    std::vector<std::unique_ptr<TUTimedValue>> columns; ///< Under names that no column of the scene has.
    std::vector<std::unique_ptr<Element>> elements;     ///< Under names that no element of the project has.
};

/// Adds content to a scene all at once, and owns it while it is not there: the nodes behind those of a group, under
/// free names, the columns at the end. Links among what is added are made before, and stay while it is out.
class AddContent final : public CO_Command {
public:
    /// Without nodes, the group may be null.
    AddContent(Scene& scene, Group* group, DetachedContent content);

    const std::vector<Node*>& nodes() const { return m_nodes; }

    Status execute() override;
    Status unexecute() override;

private:
    bool addColumns();
    void addNodes();
    void takeColumns(std::size_t count);

    Scene& m_scene;
    ElementManager& m_elementManager;
    Group* m_group;
    DetachedContent m_content;
    std::vector<Node*> m_nodes;
    std::vector<TUTimedValue*> m_columns;
    std::vector<Element*> m_elements;
    bool m_isNamed = false; ///< The nodes have the names that they keep.
};

} // namespace brindle::engine
