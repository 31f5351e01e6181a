#pragma once

#include "core/host/export.h"

class DT_SelectionManager;

/// The views in which a person draws.
class BRINDLE_HOST_EXPORT PLUG_InteractiveViewManagerImpl {
public:
    virtual ~PLUG_InteractiveViewManagerImpl() = default;

    /// Null while there is no such view. An application that has views installs them here, and takes them away again
    /// before they go.
    static PLUG_InteractiveViewManagerImpl* instance();
    static void setInstance(PLUG_InteractiveViewManagerImpl* views);

    virtual DT_SelectionManager* getDrawingSelectionManager() const = 0; ///< Null where drawings can't be selected.
};
