#pragma once

#include "core/host/sc_session.h"
#include "engine/session/project.h"

#include <functional>

namespace brindle::engine {

/// Opens and closes projects: one at a time. It belongs to the session. What a failure leaves is as before.
class ProjectManager final : public SC_ProjectManager {
public:
    /// `closed` is called whenever a project has been closed.
    explicit ProjectManager(std::function<void()> closed) : m_closed(std::move(closed)) {}

    SC_Project* createProject(const QString& path, QString& error, const QString& howToDiscard) override;
    SC_Project* openProject(const QString& path, QString& error, const QString& howToDiscard) override;
    SC_Project* openProjectReadOnly(const QString& path, QString& error, const QString& howToDiscard) override;
    bool saveProject(QString& error) override;
    bool saveProjectAs(const QString& path, QString& error) override;
    void closeProject() override;

    SC_Project* project() const override { return m_project.get(); }
    SC_Project* findProject(const SC_Id& id) const override;

private:
    ProjectFolder folderAt(const QString& path, const QString& howToDiscard) const;
    bool hasMovedTo(const QString& path) const;
    void closeProject(const ProjectLock& next);
    SC_Project* replaceProject(std::unique_ptr<Project> project);

    std::function<void()> m_closed;
    std::unique_ptr<Project> m_project;
};

} // namespace brindle::engine
