#include "bench/peers/loop/reference.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace peers {

namespace {

constexpr int samples = 16; // a pixel, in either direction

/// An edge between two points, in samples; `up` is -1 for one that runs upwards.
struct Edge {
    double top;
    double bottom;
    double x; ///< at the top
    double slope;
    int direction;
};

/// A fill's edges, sorted by their tops.
struct Area {
    std::vector<Edge> edges;
    std::array<float, 4> colour; ///< premultiplied
    double top = 0;
    double bottom = 0;
};

Point placed(const Fill& fill, Point point)
{
    const auto& [a, b, c, d, e, f] = fill.matrix;
    return {samples * (a * point.x + c * point.y + e), samples * (b * point.x + d * point.y + f)};
}

/// Points along a cubic, to its end: chords between them are off by less than a tenth of a sample.
std::array<Point, 64> pointsOf(Point from, Point first, Point second, Point to)
{
    std::array<Point, 64> points;
    for (std::size_t step = 1; step < points.size(); ++step) {
        const double t = double(step) / double(points.size());
        const double s = 1 - t;
        const double weights[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
        points[step - 1] = {weights[0] * from.x + weights[1] * first.x + weights[2] * second.x + weights[3] * to.x,
                            weights[0] * from.y + weights[1] * first.y + weights[2] * second.y + weights[3] * to.y};
    }
    points.back() = to;
    return points;
}

Area areaOf(const Path& path, const Fill& fill)
{
    Area area;
    const float alpha = float(fill.colour[3]) / 255.0F;
    for (std::size_t channel = 0; channel < 3; ++channel)
        area.colour[channel] = float(fill.colour[channel]) / 255.0F * alpha;
    area.colour[3] = alpha;
    const auto join = [&area](Point from, Point to) {
        const int direction = to.y > from.y ? 1 : -1;
        if (direction < 0)
            std::swap(from, to);
        if (to.y > from.y)
            area.edges.push_back({from.y, to.y, from.x, (to.x - from.x) / (to.y - from.y), direction});
    };
    Point start;
    Point at;
    for (const Segment& segment : path) {
        switch (segment.kind) {
        case Segment::Move:
            start = at = placed(fill, segment.points[0]);
            break;
        case Segment::Line: {
            const Point to = placed(fill, segment.points[0]);
            join(at, to);
            at = to;
            break;
        }
        case Segment::Cubic: {
            const auto& [first, second, end] = segment.points;
            for (const Point& next : pointsOf(at, placed(fill, first), placed(fill, second), placed(fill, end))) {
                join(at, next);
                at = next;
            }
            break;
        }
        case Segment::Close:
            join(at, start);
            at = start;
            break;
        }
    }
    std::sort(area.edges.begin(), area.edges.end(), [](const Edge& a, const Edge& b) { return a.top < b.top; });
    if (!area.edges.empty()) {
        area.top = area.edges.front().top;
        area.bottom = std::max_element(area.edges.begin(), area.edges.end(), [](const Edge& a, const Edge& b) {
                          return a.bottom < b.bottom;
                      })->bottom;
    }
    return area;
}

struct Crossing {
    double x;
    int direction;
};

/// Lays an area over a row of samples, whose middle is at y.
void cover(const Area& area, double y, std::vector<float>& row, std::vector<Crossing>& crossings)
{
    crossings.clear();
    for (const Edge& edge : area.edges) {
        if (edge.top > y)
            break;
        if (edge.bottom > y)
            crossings.push_back({edge.x + (y - edge.top) * edge.slope, edge.direction});
    }
    std::sort(crossings.begin(), crossings.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    const int last = int(row.size() / 4);
    int winding = 0;
    const float rest = 1.0F - area.colour[3];
    for (std::size_t place = 0; place + 1 < crossings.size(); ++place) {
        winding += crossings[place].direction;
        if (!winding)
            continue;
        // Samples whose middles lie between the crossings.
        const int from = std::clamp(int(std::ceil(std::clamp(crossings[place].x, -1e6, 1e6) - 0.5)), 0, last);
        const int to = std::clamp(int(std::ceil(std::clamp(crossings[place + 1].x, -1e6, 1e6) - 0.5)), 0, last);
        for (int sample = from; sample < to; ++sample) {
            float* pixel = &row[std::size_t(sample) * 4];
            for (std::size_t channel = 0; channel < 4; ++channel)
                pixel[channel] = area.colour[channel] + rest * pixel[channel];
        }
    }
}

Pixels drawn(const Scene& scene, const std::vector<Fill>& fills)
{
    std::vector<Area> areas;
    for (const Fill& fill : fills)
        areas.push_back(areaOf(scene.paths[fill.path], fill));
    Pixels pixels(std::size_t(scene.width) * std::size_t(scene.height) * 4);
    std::vector<float> row(std::size_t(scene.width) * samples * 4);
    std::vector<Crossing> crossings;
    for (int y = 0; y < scene.height; ++y) {
        float* const line = &pixels[std::size_t(y) * std::size_t(scene.width) * 4];
        for (int sample = 0; sample < samples; ++sample) {
            const double middle = y * samples + sample + 0.5;
            std::fill(row.begin(), row.end(), 0.0F);
            for (const Area& area : areas) {
                if (area.top <= middle && area.bottom > middle)
                    cover(area, middle, row, crossings);
            }
            for (std::size_t place = 0; place < row.size(); ++place)
                line[place / (4 * samples) * 4 + place % 4] += row[place];
        }
    }
    for (float& value : pixels)
        value /= float(samples * samples);
    return pixels;
}

void lay(Pixels& below, const Pixels& above)
{
    for (std::size_t pixel = 0; pixel < below.size(); pixel += 4) {
        const float rest = 1.0F - above[pixel + 3];
        for (std::size_t channel = 0; channel < 4; ++channel)
            below[pixel + channel] = above[pixel + channel] + rest * below[pixel + channel];
    }
}

void cut(Pixels& image, const Pixels& matte)
{
    for (std::size_t place = 0; place < image.size(); ++place)
        image[place] *= matte[place / 4 * 4 + 3];
}

/// Blurs rows or columns: `lines` of them with `count` pixels each. `line` is the distance between the beginnings of
/// two of them, `step` that between two pixels in one, both in floats.
void blurLines(Pixels& pixels, int lines, std::size_t line, int count, std::size_t step,
               const std::vector<float>& weights)
{
    const int reach = int(weights.size()) - 1;
    std::vector<float> from(std::size_t(count) * 4);
    for (int number = 0; number < lines; ++number) {
        float* const first = &pixels[std::size_t(number) * line];
        for (int pixel = 0; pixel < count; ++pixel)
            std::copy_n(first + std::size_t(pixel) * step, 4, &from[std::size_t(pixel) * 4]);
        for (int pixel = 0; pixel < count; ++pixel) {
            std::array<float, 4> sum{};
            for (int near = std::max(pixel - reach, 0); near <= std::min(pixel + reach, count - 1); ++near) {
                for (std::size_t channel = 0; channel < 4; ++channel)
                    sum[channel] +=
                        weights[std::size_t(std::abs(near - pixel))] * from[std::size_t(near) * 4 + channel];
            }
            std::copy(sum.begin(), sum.end(), first + std::size_t(pixel) * step);
        }
    }
}

void blur(Pixels& pixels, const Scene& scene, double deviation)
{
    std::vector<float> weights;
    double sum = 0;
    for (int reach = 0; reach <= int(std::ceil(4 * deviation)); ++reach) {
        weights.push_back(float(std::exp(-reach * reach / (2 * deviation * deviation))));
        sum += (reach ? 2.0 : 1.0) * double(weights.back());
    }
    for (float& weight : weights)
        weight = float(double(weight) / sum);
    const std::size_t row = std::size_t(scene.width) * 4;
    blurLines(pixels, scene.height, row, scene.width, 4, weights);
    blurLines(pixels, scene.width, 4, scene.height, row, weights);
}

} // namespace

Pixels reference(const Scene& scene, const std::vector<Step>& frame)
{
    std::vector<Pixels> pile;
    for (const Step& step : frame) {
        const std::size_t needed = step.kind == Step::Draw ? 0 : step.kind == Step::Blur ? 1 : 2;
        if (pile.size() < needed)
            throw std::runtime_error("a step of a frame lacks its pictures");
        if (step.kind == Step::Draw)
            pile.push_back(drawn(scene, step.fills));
        else if (step.kind == Step::Blur)
            blur(pile.back(), scene, step.deviation);
        else {
            const Pixels above = std::move(pile.back());
            pile.pop_back();
            if (step.kind == Step::Over)
                lay(pile.back(), above);
            else {
                Pixels image = above;
                cut(image, pile.back());
                pile.back() = std::move(image);
            }
        }
    }
    if (pile.size() != 1)
        throw std::runtime_error("a frame is not one picture");
    return pile.back();
}

} // namespace peers
