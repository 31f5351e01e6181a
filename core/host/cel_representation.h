#pragma once

#include "core/host/export.h"

#include <memory>

/// A form that a picture is kept in: pixels, a vector drawing, a 3D object. It never changes once a cel holds it, and
/// cels share it.
class BRINDLE_HOST_EXPORT CEL_Representation {
public:
    /// The forms. 5 and 6 stand for none. RGBA16, float and areas have colours multiplied by alpha; RGBA8 and
    /// thumbnails have them as they are.
    enum CelFormat : int {
        EMPTY = 0,
        BRD = 1,                ///< A vector drawing (CELVEC_Brd).
        PNT = 2,                ///< A vector drawing in the form of its file.
        BR3D = 3,               ///< A 3D object (TD_CelBr3d).
        PIXMAP_AREA_RGBA16 = 4, ///< The part of a picture that isn't empty (CEL_PixmapArea).
        PIXMAP_RGBA16 = 7,
        PIXMAP_RGBA8 = 8,
        PIXMAP_MATTE8 = 9, ///< Alpha alone.
        PIXMAP_MATTE16 = 10,
        PIXMAP_RGBA8_THUMBNAIL = 11, ///< At most 128 pixels a side.
        PIXMAP_RGBA_FLOAT = 12,
        PIXMAP_AREA_ZBUF = 13 ///< Depths (CEL_PixmapZBuf).
    };

    virtual ~CEL_Representation() = default;
    virtual CelFormat format() const = 0;
};

using CEL_RepresentationPtr = std::shared_ptr<const CEL_Representation>;
