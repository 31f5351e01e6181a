#pragma once

#include "core/host/co_command.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A session of the open engine with a new project in a temporary folder. Everything goes with the object; one at a
/// time. Made in a test, it throws (and the test fails) when there is no project.
class OpenProject {
public:
    OpenProject();
    OpenProject(const OpenProject&) = delete;
    OpenProject& operator=(const OpenProject&) = delete;
    ~OpenProject();

    SC_SessionContext& session() const { return *m_session; }
    SC_Project* project() const; ///< Null once it is closed, as are the next three.
    SC_ProjectCommon* projectCommon() const;
    TUScene* scene() const; ///< The project's first scene.
    SC_SceneCommon* sceneCommon() const;
    CO_CommandManager& manager() const;

    QStringList labels() const;     ///< The labels that can be undone, oldest first.
    QStringList redoLabels() const; ///< The labels that can be done again, next first.
    void undo(unsigned int count = 1) { manager().unexecute(count); }
    void redo(unsigned int count = 1) { manager().reexecute(count); }

    TUGroup* top() const;
    MO_Node* node(const QString& path) const; ///< By its path ("Top/Group/Node"), or null.

    /// The project as it is saved: equal bytes are an equal project. It saves, so the project is clean afterwards.
    QByteArray saved() const;
    /// The same without the label of the last change, which a change without effect leaves behind.
    QByteArray savedContent() const;
    void close(); ///< Every engine object of the project is gone afterwards; the session stays.

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SC_SessionContext> m_session;
};

/// Base of the test fixtures that work on an open project: `class NodeTest : public ProjectTest {};`
class ProjectTest : public testing::Test, public OpenProject {};
