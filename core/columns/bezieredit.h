#pragma once

#include "core/frame/undo.h"
#include "core/host/tu_timedvalue.h"

namespace OMC {

/// Edits of a bezier column as one undo entry, labelled with what is done and the column's name. An exception undoes
/// them.
class BezierEdit {
public:
    BezierEdit(TUBezierTimedValue& column, const QString& what);

    /// Runs a command, whatever becomes of it.
    void run(CO_Command* command) { m_manager.execute(command, QString()); }
    /// The point at a frame; throws when there is none.
    BezierCtrlPt pointAt(double frame) const;

private:
    TUBezierTimedValue& m_column;
    CO_CommandManager& m_manager;
    undo::Scope m_scope;
};

} // namespace OMC
