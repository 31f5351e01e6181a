#pragma once

#include "core/host/export.h"

/// The way into the database of a studio, for a project that lies in one. The object model asks whether there is one.
class BRINDLE_HOST_EXPORT TUDbAccess {
public:
    virtual ~TUDbAccess() = default;
};
