#pragma once

#include "core/host/sc_advancedflags.h"
#include "core/host/sc_resolution.h"
#include "engine/session/metrics.h"

#include <QString>

namespace brindle::engine {

/// The size of the picture, and the angle in degrees that it shows.
struct Picture {
    SC_Resolution resolution;
    double fov = standardFov;
    bool operator==(const Picture&) const = default;

    /// A camera that stands 8 away sees 6.
    static constexpr double standardFov = 41.112;
    /// The picture of a named resolution; 0 x 0 pixels when none has the name.
    static Picture named(const QString& name);
};

/// The settings of a project that its scenes share. A plain value: a new project has the values given here.
struct ProjectSettings {
    Picture picture = Picture::named(QStringLiteral("HD_1080"));
    QString colorSpace = QStringLiteral("sRGB");
    SC_AdvancedFlags advancedFlags;
    AspectRatio aspectRatio;
    FieldChart fieldChart;
    CenterCoordinates center;
    bool operator==(const ProjectSettings&) const = default;
};

/// Whether a project takes a setting.
bool isAcceptable(const Picture& picture);          ///< 1 to 32768 pixels a side; over 0 and under 180 degrees.
bool isAcceptable(const QString& colorSpace);       ///< A name; the configuration of colours need not have it.
bool isAcceptable(const SC_AdvancedFlags& flags);   ///< Positive, finite factors.
bool isAcceptable(const AspectRatio& ratio);        ///< At least 1.
bool isAcceptable(const FieldChart& chart);         ///< 0.001 to 1000000 fields.
bool isAcceptable(const CenterCoordinates& center); ///< All are.
bool isAcceptable(const ProjectSettings& settings); ///< Each of them.

} // namespace brindle::engine
