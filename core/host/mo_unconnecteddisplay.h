#pragma once

#include "core/host/mo_node.h"

/// The placeholder for a scene that has displays and shows none of them. It lies in no group, isn't saved, and counts
/// as no display.
class BRINDLE_HOST_EXPORT MO_UnconnectedDisplayModule : public TUDisplayModule {};
