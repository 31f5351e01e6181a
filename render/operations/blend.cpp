#include "render/operations/blend.h"

#include "render/pixelrows.h"

#include <algorithm>

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
    case BlendMode::Add:
        return blendRows<Add>(below, above);
    }
}

} // namespace brindle::render
