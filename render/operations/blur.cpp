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

/// The running mean of `count` values of `width` floats each, from one row to another.
void meanOf(const float* from, float* to, int count, int stride, int reach)
{
    const double share = 1.0 / (2 * reach + 1);
    for (int c = 0; c < channelCount; ++c) {
        double sum = 0;
        for (int i = 0; i < std::min(reach, count); ++i)
            sum += double(from[i * stride + c]);
        for (int i = 0; i < count; ++i) {
            if (i + reach < count)
                sum += double(from[(i + reach) * stride + c]);
            if (i - reach > 0)
                sum -= double(from[(i - reach - 1) * stride + c]);
            to[i * stride + c] = float(sum * share);
        }
    }
}

/// The means of a line of pixels, which may lie across or down in a picture.
class Line {
public:
    explicit Line(int count) : m_now(std::size_t(count) * channelCount), m_next(m_now.size()), m_count(count) {}

    void blur(std::uint16_t* pixels, qsizetype step, const Reaches& reaches)
    {
        for (int i = 0; i < m_count; ++i) {
            for (int c = 0; c < channelCount; ++c)
                m_now[std::size_t(i * channelCount + c)] = float(pixels[i * step + c]);
        }
        for (const int reach : reaches) {
            if (reach == 0)
                continue;
            meanOf(m_now.data(), m_next.data(), m_count, channelCount, reach);
            std::swap(m_now, m_next);
        }
        for (int i = 0; i < m_count; ++i) {
            const float* const value = &m_now[std::size_t(i * channelCount)];
            for (int c = 0; c < channelCount; ++c)
                pixels[i * step + c] = std::uint16_t(std::clamp(value[c], 0.0f, 65535.0f) + 0.5f);
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
        Line line(pixels.width());
        for (int y = 0; y < pixels.height(); ++y)
            line.blur(rowOf(pixels, 0, y), channelCount, across);
    }
    if (dy > 0) {
        Line line(pixels.height());
        for (int x = 0; x < pixels.width(); ++x)
            line.blur(rowOf(pixels, x, 0), pixels.bytesPerLine() / qsizetype(sizeof(std::uint16_t)), down);
    }
}

} // namespace brindle::render
