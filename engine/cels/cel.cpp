#include "core/host/ca_celref.h"
#include "core/host/cel_cel.h"

#include <array>

namespace {

using Format = CEL_Representation::CelFormat;

/// The pixels that cover the whole picture, the deepest first.
constexpr std::array wholePixels = {CEL_Representation::PIXMAP_RGBA_FLOAT, CEL_Representation::PIXMAP_RGBA16,
                                    CEL_Representation::PIXMAP_RGBA8,      CEL_Representation::PIXMAP_MATTE16,
                                    CEL_Representation::PIXMAP_MATTE8,     CEL_Representation::PIXMAP_RGBA8_THUMBNAIL};

CEL_RepresentationPtr ofFormat(const std::vector<CEL_RepresentationPtr>& representations, Format format)
{
    for (const CEL_RepresentationPtr& representation : representations) {
        if (representation->format() == format)
            return representation;
    }
    return nullptr;
}

} // namespace

Format CEL_Cel::realFormat() const
{
    return m_main ? m_main->format() : CEL_Representation::EMPTY;
}

CEL_RepresentationPtr CEL_Cel::findRepresentation(Format format) const
{
    if (m_main && m_main->format() == format)
        return m_main;
    if (auto beside = ofFormat(m_beside, format))
        return beside;
    return ofFormat(m_converted, format);
}

CEL_PixmapPtr CEL_Cel::findBestPixmapRepresentation() const
{
    for (const Format format : wholePixels) {
        if (auto pixels = std::dynamic_pointer_cast<const CEL_Pixmap>(findRepresentation(format)))
            return pixels;
    }
    return nullptr;
}

std::shared_ptr<const CELVEC_Brd> CEL_Cel::findBestVectorRepresentation() const
{
    return std::dynamic_pointer_cast<const CELVEC_Brd>(findRepresentation(CEL_Representation::BRD));
}

CEL_RepresentationPtr CEL_Cel::convertTo(Format format)
{
    if (auto present = findRepresentation(format))
        return present;
    CEL_RepresentationPtr made = make(format);
    if (made && !findRepresentation(format))
        m_converted.push_back(made);
    return made;
}

void CEL_Cel::setRepresentation(CEL_RepresentationPtr main)
{
    m_main = std::move(main);
    m_converted.clear();
}

void CEL_Cel::addRepresentation(CEL_RepresentationPtr representation)
{
    if (!representation)
        return;
    std::erase_if(m_beside, [&](const auto& other) { return other->format() == representation->format(); });
    m_beside.push_back(std::move(representation));
}

CEL_RepresentationPtr CEL_Cel::make(Format format)
{
    auto source = std::dynamic_pointer_cast<const CEL_Pixmap>(m_main);
    if (!source)
        source = findBestPixmapRepresentation();
    return source ? source->converted(format) : nullptr;
}

CA_CelPtr::CA_CelPtr(const CA_CelKey& key, const CEL_Context&) : m_cel(key.isSpecial() ? new CEL_Cel : nullptr) {}
