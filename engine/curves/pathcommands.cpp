#include "engine/curves/motioncolumn.h"

namespace {

using brindle::engine::CurveEdit;
using brindle::engine::MotionPath;
using brindle::engine::Path3dColumn;
using brindle::engine::QuaternionColumn;

/// The command that calls one of the edits of a path with its arguments; one that refuses for a path of another engine,
/// and for none.
template <typename... Parameters, typename... Arguments>
std::unique_ptr<CO_Command> editPath(AT_Fnc3dTimedValue* path, CurveEdit (MotionPath::*edit)(Parameters...),
                                     Arguments... arguments)
{
    const auto call = [=](MotionPath& own, MotionPath::Log& log) { return (own.*edit)(arguments..., log); };
    if (auto* positions = dynamic_cast<Path3dColumn*>(path))
        return positions->editCommand(call);
    if (auto* rotations = dynamic_cast<QuaternionColumn*>(path))
        return rotations->editCommand(call);
    return std::make_unique<brindle::engine::RefusedCommand>();
}

/// A command on the velocity of a path.
class VelocityCommand final : public CO_Command {
public:
    VelocityCommand(AT_Fnc3dTimedValue* path, CO_Command* command) : m_path(path), m_command(command) {}

    Status execute() override
    {
        if (!m_path || !m_command)
            return kFail;
        const Status status = m_command->execute();
        if (status == kOk)
            m_path->endModif(1);
        return status;
    }
    Status unexecute() override
    {
        const Status status = m_command->unexecute();
        m_path->endModif(1);
        return status;
    }

private:
    AT_Fnc3dTimedValue* m_path;
    std::unique_ptr<CO_Command> m_command;
};

} // namespace

namespace tu_timedvalue::path3d {

AddKeyFrameCmd::AddKeyFrameCmd(AT_Fnc3dTimedValue* path, double frame, double x, double y, double z)
    : CO_EngineCommand(editPath(path, &MotionPath::makeKey, frame, Math::Point3d{x, y, z}))
{}

MoveCtrlPtCmd::MoveCtrlPtCmd(AT_Fnc3dTimedValue* path, int index, double x, double y, double z)
    : CO_EngineCommand(editPath(path, &MotionPath::move, index, Math::Point3d{x, y, z}))
{}

SetParametersCmd::SetParametersCmd(AT_Fnc3dTimedValue* path, int index, double tension, double continuity, double bias)
    : CO_EngineCommand(editPath(path, &MotionPath::setParameters, index, tension, continuity, bias))
{}

RemoveCtrlPtCmd::RemoveCtrlPtCmd(AT_Fnc3dTimedValue* path, int index)
    : CO_EngineCommand(editPath(path, &MotionPath::remove, index))
{}

TrimCtrlPtsCmd::TrimCtrlPtsCmd(AT_Fnc3dTimedValue* path) : CO_EngineCommand(editPath(path, &MotionPath::trim)) {}

Path3DVeloCmd::Path3DVeloCmd(AT_Fnc3dTimedValue* path, CO_Command* command)
    : CO_EngineCommand(std::make_unique<VelocityCommand>(path, command))
{}

} // namespace tu_timedvalue::path3d
