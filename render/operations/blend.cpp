#include "render/operations/blend.h"

#include "render/pixelrows.h"

#include <algorithm>
#include <cmath>

namespace brindle::render {

namespace {

using Share = std::uint16_t;

constexpr Share added(std::uint32_t a, std::uint32_t b)
{
    return static_cast<Share>(std::min<std::uint32_t>(a + b, fullShare));
}

struct Normal {
    static Share colour(Share s, Share d, Share sa, Share) { return added(s, shareOf(d, fullShare - sa)); }
    static Share alpha(Share sa, Share da) { return added(sa, shareOf(da, fullShare - sa)); }
};

struct Multiply : Normal {
    static Share colour(Share s, Share d, Share sa, Share da)
    {
        return added(shareOf(s, d), shareOf(s, fullShare - da) + std::uint32_t(shareOf(d, fullShare - sa)));
    }
};

struct Screen : Normal {
    static Share colour(Share s, Share d, Share, Share) { return added(s, shareOf(d, fullShare - s)); }
};

struct Add {
    static Share colour(Share s, Share d, Share, Share) { return added(s, d); }
    static Share alpha(Share sa, Share da) { return added(sa, da); }
};

double hardLight(double s, double d, double sa, double da)
{
    return 2 * s <= sa ? 2 * s * d : sa * da - 2 * (sa - s) * (da - d);
}

double overlay(double s, double d, double sa, double da)
{
    return hardLight(d, s, da, sa);
}

double darken(double s, double d, double sa, double da)
{
    return std::min(s * da, d * sa);
}

double lighten(double s, double d, double sa, double da)
{
    return std::max(s * da, d * sa);
}

double difference(double s, double d, double sa, double da)
{
    return std::abs(s * da - d * sa);
}

double exclusion(double s, double d, double sa, double da)
{
    return s * da + d * sa - 2 * s * d;
}

double softLight(double s, double d, double sa, double da)
{
    if (sa == 0 || da == 0)
        return 0;
    const double source = s / sa;
    const double backdrop = d / da;
    if (2 * source <= 1)
        return sa * da * (backdrop - (1 - 2 * source) * backdrop * (1 - backdrop));
    const double dodged = backdrop <= 0.25 ? ((16 * backdrop - 12) * backdrop + 4) * backdrop : std::sqrt(backdrop);
    return sa * da * (backdrop + (2 * source - 1) * (dodged - backdrop));
}

/// A mode by its mix, on the scale 0 to 1.
template <double (*mix)(double s, double d, double sa, double da)>
struct Mixed : Normal {
    static Share colour(Share s, Share d, Share sa, Share da)
    {
        constexpr double one = 1.0 / fullShare;
        const double both = mix(s * one, d * one, sa * one, da * one);
        return added(shareOf(both), shareOf(s, fullShare - da) + std::uint32_t(shareOf(d, fullShare - sa)));
    }
};

template <typename Mode>
void blendRow(Share* d, const Share* s, int width)
{
    for (int x = 0; x < width; ++x, d += channelCount, s += channelCount) {
        const Share sa = s[3];
        const Share da = d[3];
        const Share alpha = Mode::alpha(sa, da);
        // Rounding never leaves a colour greater than its alpha.
        for (int c = 0; c < 3; ++c)
            d[c] = std::min(Mode::colour(s[c], d[c], sa, da), alpha);
        d[3] = alpha;
    }
}

template <typename Mode>
void blendRows(Picture& below, const Picture& above)
{
    const QRect box = above.box();
    const QPoint place = box.topLeft() - below.box().topLeft();
    QImage& pixels = below.pixels();
    for (int y = 0; y < box.height(); ++y)
        blendRow<Mode>(rowOf(pixels, place.x(), place.y() + y), rowOf(above.pixels(), 0, y), box.width());
}

} // namespace

void blend(Picture& below, const Picture& above, BlendMode mode)
{
    if (above.isEmpty())
        return;
    if (below.isEmpty()) {
        below = Picture(below.size(), above.box().topLeft(), above.pixels());
        return;
    }
    below = below.grown(above.box());
    switch (mode) {
    case BlendMode::Normal:
        return blendRows<Normal>(below, above);
    case BlendMode::Multiply:
        return blendRows<Multiply>(below, above);
    case BlendMode::Screen:
        return blendRows<Screen>(below, above);
    case BlendMode::Overlay:
        return blendRows<Mixed<overlay>>(below, above);
    case BlendMode::Darken:
        return blendRows<Mixed<darken>>(below, above);
    case BlendMode::Lighten:
        return blendRows<Mixed<lighten>>(below, above);
    case BlendMode::Add:
        return blendRows<Add>(below, above);
    case BlendMode::Difference:
        return blendRows<Mixed<difference>>(below, above);
    case BlendMode::Exclusion:
        return blendRows<Mixed<exclusion>>(below, above);
    case BlendMode::SoftLight:
        return blendRows<Mixed<softLight>>(below, above);
    case BlendMode::HardLight:
        return blendRows<Mixed<hardLight>>(below, above);
    }
}

} // namespace brindle::render
