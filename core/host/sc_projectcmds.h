#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/sc_resolution.h"

#include <QString>

class SC_AdvancedFlags;
class SC_Id;
class SC_ProjectCommon;

/// The undoable changes of a project's settings and of its list of scenes. Each fails, and changes nothing, for a value
/// that it doesn't take and for a project of another engine.
namespace SC_ProjectCmds {

/// Chooses a named resolution, with its field of view and its projection. Frame rates stay. Fails for an unknown name.
class BRINDLE_HOST_EXPORT SetProjectResolutionByNameCmd final : public CO_EngineCommand {
public:
    SetProjectResolutionByNameCmd(SC_ProjectCommon* project, const QString& name);
};

/// Sets a resolution of its own, which has no name: 1 to 32768 pixels a side, a field of view over 0 and under 180
/// degrees. The values that the current one has already leave it its name.
class BRINDLE_HOST_EXPORT SetProjectResolutionByValueCmd final : public CO_EngineCommand {
public:
    SetProjectResolutionByValueCmd(SC_ProjectCommon* project, unsigned int width, unsigned int height,
                                   TUDbResolution::FovFit fovFit, double fov, TUDbResolution::Projection projection);
};

/// Fails for a name that the project's colour spaces don't have.
class BRINDLE_HOST_EXPORT SetProjectColorSpaceCmd final : public CO_EngineCommand {
public:
    SetProjectColorSpaceCmd(SC_ProjectCommon* project, const QString& name);
};

/// Fails for a factor that is not a positive, finite number.
class BRINDLE_HOST_EXPORT SetAdvancedFlagsCmd final : public CO_EngineCommand {
public:
    SetAdvancedFlagsCmd(SC_ProjectCommon* project, const SC_AdvancedFlags& flags);
};

/// Both at least 1.
class BRINDLE_HOST_EXPORT SetDesignAspectRatioCmd final : public CO_EngineCommand {
public:
    SetDesignAspectRatioCmd(SC_ProjectCommon* project, int x, int y);
};

/// Fields from the centre to the border along each axis: 0.001 to 1000000.
class BRINDLE_HOST_EXPORT SetDesignFieldChartCmd final : public CO_EngineCommand {
public:
    SetDesignFieldChartCmd(SC_ProjectCommon* project, double x, double y, double z);
};

class BRINDLE_HOST_EXPORT SetCoordinatesAtCenterCmd final : public CO_EngineCommand {
public:
    SetCoordinatesAtCenterCmd(SC_ProjectCommon* project, int x, int y);
};

/// Adds a scene with what a new project's scene holds, at a place in the project's order; -1 is the end. Fails when the
/// name is empty or another scene's.
class BRINDLE_HOST_EXPORT AddSceneCmd final : public CO_EngineCommand {
public:
    AddSceneCmd(SC_ProjectCommon* project, const QString& name, int position = -1);
};

/// Takes a scene away with all that is in it. Fails for the last one: a project keeps at least one scene.
class BRINDLE_HOST_EXPORT RemoveSceneCmd final : public CO_EngineCommand {
public:
    RemoveSceneCmd(SC_ProjectCommon* project, const SC_Id& scene);
};

} // namespace SC_ProjectCmds
