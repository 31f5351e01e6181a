#pragma once

#include "core/host/export.h"
#include "core/host/sc_resolution.h"

#include <vector>

/// What a project keeps beside its scenes: tables that belong to the studio rather than to a scene.
class BRINDLE_HOST_EXPORT TUDbSceneData {
public:
    virtual ~TUDbSceneData() = default;

    /// The named resolutions, in the table's order.
    virtual std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const = 0;
};
