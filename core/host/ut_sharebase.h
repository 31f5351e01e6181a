#pragma once

#include "core/host/export.h"

#include <QSharedData>

/// Base of what several hold together: the last one that lets go of it deletes it. Held by a
/// QExplicitlySharedDataPointer; a copy has no holders yet.
class BRINDLE_HOST_EXPORT UT_ShareBase : public QSharedData {
public:
    UT_ShareBase() = default;
    UT_ShareBase(const UT_ShareBase&) = default;
    UT_ShareBase& operator=(const UT_ShareBase&) { return *this; }
    virtual ~UT_ShareBase() = default;
};
