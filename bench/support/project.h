#pragma once

#include "core/frame/obj.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/scene/history.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

class MO_Node;

namespace bench {

/// A project in a temporary folder for measurements, with a chain of pegs "Top/N0", "Top/N1", ... Everything goes with
/// the object; one at a time.
class Project {
public:
    explicit Project(int nodes = 0);
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;
    ~Project();

    /// One with that many nodes, which is kept until another number is asked for. Measurements that only read, or that
    /// undo what they did, share it.
    static Project& ofSize(int nodes);
    /// Drops the one that is kept: a session is about to be made.
    static void dropShared();

    TUScene& scene() const;
    SC_ProjectManager& projectManager() const { return *m_session->projectManager(); }
    CO_CommandManager& commandManager() const { return *m_session->commandManager(); }
    OMC::History history() const { return OMC::History(m_session->projectCommon()); }
    QString path() const { return m_folder.filePath(QStringLiteral("project")); }

    MO_Node& node(int index) const;
    /// Makes pegs, each linked to the one before, as one undo entry.
    void createNodes(int count);
    /// Closes the project and opens it again from its folder.
    void reopen();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SC_SessionContext> m_session;
};

/// The object of class T in a handle; throws when there is none, so that no measurement runs on nothing.
template <typename T>
T& require(const OMC::Obj& handle)
{
    return dynamic_cast<T&>(*handle.get());
}

} // namespace bench
