#pragma once

#include "core/host/cel_pixmap.h"
#include "core/host/cel_representation.h"
#include "core/host/ut_sharebase.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>

#include <vector>

class CELVEC_Brd;
class GR_CompositeVectorDrawingObj;

/// What a cel is asked for. A plain value.
class BRINDLE_HOST_EXPORT CEL_Context {
public:
    CEL_Context() = default;
    /// The scale is that of the pixels that a drawing is turned into: 1 for those of the scene's resolution. `frame` is
    /// the frame of the scene; below 0 where it plays no part.
    explicit CEL_Context(double scale, double frame = -1.0) : m_scale(scale), m_frame(frame) {}

    double scale() const { return m_scale; }
    double frame() const { return m_frame; }
    bool operator==(const CEL_Context&) const = default;

private:
    double m_scale = 1.0;
    double m_frame = -1.0;
};

/// What a cel has beside its representations.
class BRINDLE_HOST_EXPORT CEL_Impl {
public:
    /// The ICC profile of the colours, as a file holds it; empty where they have none and count as sRGB.
    const QByteArray& colorProfile() const { return m_colorProfile; }
    void setColorProfile(const QByteArray& profile) { m_colorProfile = profile; }

private:
    QByteArray m_colorProfile;
};

/// A picture in one or several representations: one main representation, others beside it, and those that the main one
/// was converted to, which are kept.
///
/// Held by CA_CelRef; the last one that lets go of it deletes it. One thread at a time may use it.
class BRINDLE_HOST_EXPORT CEL_Cel : public UT_ShareBase {
public:
    CEL_Cel() = default; ///< An empty cel.
    explicit CEL_Cel(CEL_RepresentationPtr main) { setRepresentation(std::move(main)); }

    /// The format of the main representation; EMPTY where there is none.
    virtual CEL_Representation::CelFormat realFormat() const;
    /// What is there in a format; null where nothing is.
    virtual CEL_RepresentationPtr findRepresentation(CEL_Representation::CelFormat format) const;
    /// Of the pixels that are there and cover the whole picture, those of the greatest depth: float, RGBA16, RGBA8,
    /// matte 16, matte 8, thumbnail. Null where there are none; an area is none.
    virtual CEL_PixmapPtr findBestPixmapRepresentation() const;
    /// The vector drawing; null where there is none.
    virtual std::shared_ptr<const CELVEC_Brd> findBestVectorRepresentation() const;
    /// What is there in a format, or is made now and kept. Null where it can't be made: for formats that aren't of
    /// pixels, and for a cel without pixels.
    virtual CEL_RepresentationPtr convertTo(CEL_Representation::CelFormat format);

    /// Replaces the main representation, and drops what it was converted to. What stands beside it stays.
    void setRepresentation(CEL_RepresentationPtr main);
    /// Puts a representation beside the main one, in place of one of its format.
    void addRepresentation(CEL_RepresentationPtr representation);

    const CEL_Impl& impl() const { return m_impl; }
    CEL_Impl& impl() { return m_impl; }

protected:
    /// Makes a representation that isn't there yet; null where that can't be.
    virtual CEL_RepresentationPtr make(CEL_Representation::CelFormat format);

private:
    CEL_RepresentationPtr m_main;
    std::vector<CEL_RepresentationPtr> m_beside;
    std::vector<CEL_RepresentationPtr> m_converted;
    CEL_Impl m_impl;
};

/// A vector drawing as the representation of a cel.
class BRINDLE_HOST_EXPORT CELVEC_Brd : public CEL_Representation {
public:
    CelFormat format() const override { return BRD; }
    virtual QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> getDrawingObject() const = 0;
};
