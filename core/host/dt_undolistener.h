#pragma once

#include "core/host/ca_celkey.h"
#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/gr_drawingaccess.h"

#include <memory>

class TUSceneChangeManager;

/// What an edit session changed of the art layers of its drawing, as one undoable step. It was done already when it is
/// made: its first execution does nothing. It refuses to run while a session is open on its drawing, and does nothing
/// once that is gone for good.
class BRINDLE_HOST_EXPORT DT_Command : public CO_EngineCommand {
public:
    using CO_EngineCommand::CO_EngineCommand;

    virtual bool IsEmpty() const = 0; ///< No layer and no stroke differs from before.
    /// The drawings count as changed since the last save; they also do without it.
    virtual void setAllDrawingsModified() = 0;
};

/// The drawings that a person has selected. There is none without a view.
class BRINDLE_HOST_EXPORT DT_SelectionManager {
public:
    virtual ~DT_SelectionManager() = default;
};

/// Collects what changes in the drawing of a session, and keeps it for the session: until `Release`, or until it goes,
/// nothing else gives the drawing another content. Operations on other drawings are not collected. The arguments: the
/// selection, or null; who is told of changes by undo and redo, or null; always null; always 1.
class BRINDLE_HOST_EXPORT DT_UndoListener : public GR_DrawingAccessListener {
public:
    DT_UndoListener(DT_SelectionManager* selection, TUSceneChangeManager* changes, void* holder, int);
    DT_UndoListener(const DT_UndoListener&) = delete;
    DT_UndoListener& operator=(const DT_UndoListener&) = delete;
    ~DT_UndoListener() override;

    /// Keeps, by value, how the composite drawing of this art layer is now. The step finds the drawing again by itself,
    /// whatever the key says.
    void SetCurrentDrawing(GR_VectorDrawingObj* drawing, const CA_CelKey& key);
    /// The step from then to now; the caller owns it. Null without a drawing. The listener is at its end.
    DT_Command* Release();

private:
    class Private;
    std::unique_ptr<Private> d;
};
