#pragma once

#include "core/host/cm_palettepath.h"
#include "core/host/export.h"
#include "core/host/sc_resolution.h"

#include <vector>

/// The data that a project keeps beside its scenes: tables of the studio rather than of a scene.
class BRINDLE_HOST_EXPORT TUDbSceneData {
public:
    virtual ~TUDbSceneData() = default;

    /// The named resolutions, in the table's order.
    virtual std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const = 0;

    /// The names of the first scene and of its version, its folder, and the project's.
    virtual QString sceneName() const { return {}; }
    virtual QString versionName() const { return {}; }
    virtual QString sceneDir() const { return {}; }
    virtual QString projectDir() const { return {}; }

    /// Where a folder of palettes lies: a CM_LocationType, CM_External where the project knows nothing of it.
    virtual CM_LocationType getLocationRelativeToElement(const QString&) const { return CM_External; }
};
