#pragma once

#include "core/host/co_command.h"
#include "core/host/dd_dragdrop.h"
#include "core/host/export.h"

#include <memory>

class TUScene;

/// Builds the command that deletes what lies on a stretch of frames from all columns of a scene: the keys and exposures
/// within go, everything else stays at its frame. Shortening the scene afterwards (TUScene::setNumberOfFrames) then
/// finds the stretch empty and closes the gap; both steps together leave what shortening alone leaves.
///
/// The stretch is that of the drop mode: numFramesSrc frames behind frame startDeleteFrame, by the same rules as in
/// setNumberOfFrames.
class BRINDLE_HOST_EXPORT DD_DeleteSequenceVisitor {
public:
    explicit DD_DeleteSequenceVisitor(const DD_DropMode& mode) : m_mode(mode) {}

    /// A scene that can't lose the stretch, and one that has nothing there, gives no command.
    void visit(TUScene& scene);
    /// The command for the scene that was visited last, or null.
    std::unique_ptr<CO_Command> takeCommand() { return std::move(m_command); }

private:
    DD_DropMode m_mode;
    std::unique_ptr<CO_Command> m_command;
};
