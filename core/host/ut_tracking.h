#pragma once

#include "core/host/export.h"

#include <QString>

/// Facts about the program and the machine, for reports. A fact that can't be found out is an empty text.
class BRINDLE_HOST_EXPORT UT_Tracking {
public:
    static const UT_Tracking& instance();

    QString applicationFullName() const; ///< With its version.
    QString graphicsCard() const;        ///< What draws the pictures.
    QString graphicsVersion() const;     ///< The version of that.
    QString driver() const;              ///< The system of windows that pictures are shown on.
    QString cpu() const;
    QString memory() const;   ///< All that the machine has, as "16042 MB".
    QString database() const; ///< The kind of store that projects lie in.
    QString language() const; ///< The person's, as "en_GB".
};
