#include "engine/session/colorspaces.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// The web first, then television, film and the working spaces of the academy's system. "Linear" is sRGB's primaries
/// without its curve.
constexpr QStringView colorSpaceTable[] = {
    u"sRGB",
    u"Linear",
    u"Display P3",
    u"Adobe RGB (1998)",
    u"ProPhoto RGB",
    u"Rec.601 NTSC",
    u"Rec.601 PAL",
    u"Rec.709",
    u"Linear Rec.709",
    u"Rec.2020",
    u"Linear Rec.2020",
    u"Rec.2100 PQ",
    u"Rec.2100 HLG",
    u"DCI-P3",
    u"P3-D65",
    u"Linear P3-D65",
    u"CIE XYZ-D65",
    u"Cineon Log",
    u"ACES2065-1",
    u"ACEScg",
    u"ACEScc",
    u"ACEScct",
    u"Raw",
};

} // namespace

bool isColorSpace(QStringView name)
{
    return std::find(std::begin(colorSpaceTable), std::end(colorSpaceTable), name) != std::end(colorSpaceTable);
}

QStringList ColorSpaceManager::colorSpaceNames(const QString& filter) const
{
    QStringList names;
    for (const QStringView name : colorSpaceTable) {
        if (name.contains(filter, Qt::CaseInsensitive))
            names.append(name.toString());
    }
    return names;
}

} // namespace brindle::engine
