#pragma once

#include "core/host/mo_port.h"
#include "core/host/tu_node.h"
#include "engine/session/project.h"
#include "engine/session/scene.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <memory>
#include <set>

/// A project of one scene that was never on disk, with short ways to change it through its undo list.
class MemoryProject {
public:
    MemoryProject();

    brindle::engine::Project& project() { return *m_project; }
    brindle::engine::Scene& scene() { return static_cast<brindle::engine::Scene&>(*m_project->sceneAt(0)); }
    CO_CommandManager& manager() { return *scene().commandManager(); }
    TUGroup* top() { return scene().getRootGroup(); }
    MO_Node* node(const QString& path); ///< By its path from the root group, or null.

    bool run(CO_Command* command, const QString& label = QStringLiteral("Change"));
    void undo(unsigned int count = 1) { manager().unexecute(count); }
    void redo(unsigned int count = 1) { manager().reexecute(count); }
    QStringList labels() { return manager().collectExecutedNames(); }

    /// A new node in a group, "Top" by default; a null name is left to the engine. Null when it was refused.
    MO_Node* add(const QString& type, const QString& name = {}, TUGroup* group = nullptr);
    TUGroup* addGroup(const QString& name, TUGroup* group = nullptr);
    bool link(MO_Node* from, MO_Node* to, unsigned int outIndex = 0, unsigned int inIndex = 0);
    bool remove(const std::set<MO_Node*>& nodes, bool columns = false, bool bridge = false);

    /// Everything that the scene holds but columns and attribute values, a line a thing: equal texts are equal scenes.
    QString dump();
    QStringList names(TUGroup* group); ///< The names of the direct sub-nodes, in order.

    void close() { m_project.reset(); }

private:
    std::unique_ptr<brindle::engine::Project> m_project;
};

class GraphTest : public testing::Test, public MemoryProject {};
