#pragma once

#include "core/host/cel_representation.h"

#include <QString>

#include <array>
#include <optional>

namespace OMC {

struct CelFormatName {
    const char* name;
    CEL_Representation::CelFormat value;
};

/// The names of formats of cels; 5, 6 and 12 have none.
inline constexpr std::array celFormatNames = {
    CelFormatName{"EMPTY", CEL_Representation::EMPTY},
    CelFormatName{"BRD", CEL_Representation::BRD},
    CelFormatName{"PNT", CEL_Representation::PNT},
    CelFormatName{"BR3D", CEL_Representation::BR3D},
    CelFormatName{"PIXMAP_AREA_RGBA16", CEL_Representation::PIXMAP_AREA_RGBA16},
    CelFormatName{"PIXMAP_RGBA16", CEL_Representation::PIXMAP_RGBA16},
    CelFormatName{"PIXMAP_RGBA8", CEL_Representation::PIXMAP_RGBA8},
    CelFormatName{"PIXMAP_MATTE8", CEL_Representation::PIXMAP_MATTE8},
    CelFormatName{"PIXMAP_MATTE16", CEL_Representation::PIXMAP_MATTE16},
    CelFormatName{"PIXMAP_RGBA8_THUMBNAIL", CEL_Representation::PIXMAP_RGBA8_THUMBNAIL},
    CelFormatName{"PIXMAP_AREA_ZBUF", CEL_Representation::PIXMAP_AREA_ZBUF},
};

/// The format of a name, in any case of letters.
inline std::optional<CEL_Representation::CelFormat> celFormatOf(const QString& name)
{
    const QString upper = name.toUpper();
    for (const CelFormatName& row : celFormatNames) {
        if (upper == QLatin1String(row.name))
            return row.value;
    }
    return std::nullopt;
}

} // namespace OMC
