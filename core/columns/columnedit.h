#pragma once

#include "core/frame/undo.h"
#include "core/host/tu_timedvalue.h"

namespace OMC {

/// Edits of a column as one undo entry. An exception undoes them.
class ColumnEdit {
public:
    ColumnEdit(TUTimedValue& column, const QString& label)
        : m_manager(undo::manager(column.sceneCommon())),
          m_scope(m_manager, label)
    {}

    /// Runs a command, which it takes; false where that fails.
    bool run(CO_Command* command) { return m_manager.execute(command, QString()); }

private:
    CO_CommandManager& m_manager;
    undo::Scope m_scope;
};

/// The point of a curve at a frame; throws where there is none.
template <typename Column>
auto pointAt(const Column& column, double frame)
{
    decltype(column.point(0)) point;
    if (!column.pointAt(frame, point))
        unexpected::fail(unexpected::Error);
    return point;
}

} // namespace OMC
