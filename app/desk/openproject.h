#pragma once

#include "core/host/sc_session.h"
#include "engine/engine.h"

#include <QObject>
#include <QString>

#include <optional>

namespace app::desk {

/// The project that is open in the session, whichever that is at the moment: scripts may open another one, or close it.
/// It tells when something of what it shows may be another, whoever changed it. On the main thread.
class OpenProject final : public QObject {
    Q_OBJECT

public:
    explicit OpenProject(SC_SessionContext& session);

    bool isOpen() const { return project(); }
    QString name() const; ///< The name of its folder. Empty without a project, like the path.
    QString path() const;
    bool isReadOnly() const; ///< Whether it can be saved in another folder only.
    bool isModified() const;

    /// The labels of what undoing and redoing would take on; none where there is nothing.
    std::optional<QString> undoLabel() const;
    std::optional<QString> redoLabel() const;
    void undo();
    void redo();

    /// Each gives an empty text, or the sentence that says why it isn't saved.
    QString save();
    QString saveAs(const QString& folder);

Q_SIGNALS:
    void changed();

private:
    SC_Project* project() const { return m_session.projectManager()->project(); }
    CO_CommandManager* history() const { return m_session.commandManager(); }

    SC_SessionContext& m_session;
    brindle::engine::SessionWatch m_watch;
};

} // namespace app::desk
