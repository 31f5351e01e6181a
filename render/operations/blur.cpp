#include "render/operations/blur.h"

#include "render/pixelrows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace brindle::render {

namespace {

constexpr int passes = 3;

/// How far each of the three means reaches to either side.
using Reaches = std::array<int, passes>;

Reaches reachesOf(double radius)
{
    constexpr double mostRadius = 4096.0;
    if (!(radius > 0))
        return {};
    const double deviation = std::min(radius, mostRadius) / 2;
    // Widths are odd: of a lower and the next one as many each as give the nearest variance.
    const double ideal = std::sqrt(12 * deviation * deviation / passes + 1);
    int lower = int(std::floor(ideal));
    lower -= lower % 2 == 0;
    const double count =
        (12 * deviation * deviation - passes * lower * lower - 4.0 * passes * lower - 3 * passes) / (-4.0 * lower - 4);
    const int narrow = std::clamp(int(std::lround(count)), 0, passes);
    Reaches reaches;
    for (int pass = 0; pass < passes; ++pass)
        reaches[std::size_t(pass)] = (pass < narrow ? lower : lower + 2) / 2;
    return reaches;
}

int reachOf(const Reaches& reaches)
{
    return reaches[0] + reaches[1] + reaches[2];
}

/// So many pixels of neighbouring lines are blurred side by side: those of a cache line, where lines run down.
constexpr int mostLanes = 8 * channelCount;

/// The means of steps of so many values each, from one buffer to another.
template <int lanes>
void meanOf(const float* from, float* to, int count, int reach)
{
    const double share = 1.0 / (2 * reach + 1);
    std::array<double, lanes> sums{};
    const auto add = [&](int step) {
        for (int lane = 0; lane < lanes; ++lane)
            sums[lane] += double(from[step * lanes + lane]);
    };
    const auto subtract = [&](int step) {
        for (int lane = 0; lane < lanes; ++lane)
            sums[lane] -= double(from[step * lanes + lane]);
    };
    for (int step = 0; step < std::min(reach, count); ++step)
        add(step);
    for (int step = 0; step < count; ++step) {
        if (step + reach < count)
            add(step + reach);
        if (step - reach > 0)
            subtract(step - reach - 1);
        for (int lane = 0; lane < lanes; ++lane)
            to[step * lanes + lane] = float(sums[lane] * share);
    }
}

/// Lines of pixels, which run across or down in a picture.
class Lines {
public:
    explicit Lines(int count) : m_now(std::size_t(count) * mostLanes), m_next(m_now.size()), m_count(count) {}

    /// Blurs lines that begin at neighbouring pixels; `step` leads from one pixel of a line to the next.
    template <int lanes>
    void blur(std::uint16_t* pixels, qsizetype step, const Reaches& reaches)
    {
        for (int i = 0; i < m_count; ++i)
            std::copy_n(pixels + i * step, lanes, &m_now[std::size_t(i * lanes)]);
        for (const int reach : reaches) {
            if (reach == 0)
                continue;
            meanOf<lanes>(m_now.data(), m_next.data(), m_count, reach);
            std::swap(m_now, m_next);
        }
        for (int i = 0; i < m_count; ++i) {
            const float* const values = &m_now[std::size_t(i * lanes)];
            for (int lane = 0; lane < lanes; ++lane)
                pixels[i * step + lane] = std::uint16_t(std::clamp(values[lane], 0.0f, 65535.0f) + 0.5f);
        }
    }

private:
    std::vector<float> m_now;
    std::vector<float> m_next;
    int m_count;
};

} // namespace

void blur(Picture& picture, double radiusAcross, double radiusDown)
{
    const Reaches across = reachesOf(radiusAcross);
    const Reaches down = reachesOf(radiusDown);
    const int dx = reachOf(across);
    const int dy = reachOf(down);
    if (picture.isEmpty() || dx + dy == 0)
        return;
    picture = picture.grown(picture.box().adjusted(-dx, -dy, dx, dy));
    QImage& pixels = picture.pixels();
    if (dx > 0) {
        Lines lines(pixels.width());
        for (int y = 0; y < pixels.height(); ++y)
            lines.blur<channelCount>(rowOf(pixels, 0, y), channelCount, across);
    }
    if (dy > 0) {
        Lines lines(pixels.height());
        const qsizetype step = pixels.bytesPerLine() / qsizetype(sizeof(std::uint16_t));
        int x = 0;
        for (; x + mostLanes / channelCount <= pixels.width(); x += mostLanes / channelCount)
            lines.blur<mostLanes>(rowOf(pixels, x, 0), step, down);
        for (; x < pixels.width(); ++x)
            lines.blur<channelCount>(rowOf(pixels, x, 0), step, down);
    }
}

} // namespace brindle::render
