#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"

#include <QString>

class SC_SceneCommon;

/// A note on a stretch of a scene's frames. A plain value; frames count from 1.
struct SC_SceneMarker {
    QString name;
    int frame = 1;                    ///< The first one.
    int length = 1;                   ///< In frames, at least 1.
    unsigned int colour = 0xFFFFC83C; ///< 0xAARRGGBB.
    QString note;

    int lastFrame() const { return frame + length - 1; }
    bool operator==(const SC_SceneMarker&) const = default;
};

/// A scene lists its markers by their first frames, and those at the same frame in the order in which they came there.
/// A marker lies within the scene. Each command fails for one that doesn't, and for a place that the list hasn't.
namespace SC_SceneCmds {

class BRINDLE_HOST_EXPORT AddSceneMarkerCmd final : public CO_EngineCommand {
public:
    AddSceneMarkerCmd(SC_SceneCommon* scene, const SC_SceneMarker& marker);
};

class BRINDLE_HOST_EXPORT RemoveSceneMarkerCmd final : public CO_EngineCommand {
public:
    RemoveSceneMarkerCmd(SC_SceneCommon* scene, int place);
};

/// Puts a marker in place of one, which may move it in the list.
class BRINDLE_HOST_EXPORT SetSceneMarkerCmd final : public CO_EngineCommand {
public:
    SetSceneMarkerCmd(SC_SceneCommon* scene, int place, const SC_SceneMarker& marker);
};

} // namespace SC_SceneCmds
