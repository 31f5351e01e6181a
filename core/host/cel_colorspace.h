#pragma once

#include "core/host/export.h"

#include <QString>
#include <QStringList>

/// The colour spaces that a project can work in.
class BRINDLE_HOST_EXPORT CEL_ColorSpaceManager {
public:
    virtual ~CEL_ColorSpaceManager() = default;

    /// Their names in the order in which a list shows them: those that contain the filter, whatever the case of its
    /// letters. A null or empty filter gives all.
    virtual QStringList colorSpaceNames(const QString& filter) const = 0;
    /// Whether there is a colour space of exactly this name.
    virtual bool contains(const QString& name) const = 0;
};
