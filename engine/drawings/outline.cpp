#include "engine/drawings/outline.h"

#include "engine/drawings/outlineshape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace brindle::engine {

namespace {

double turn(const Math::Point2d& a, const Math::Point2d& b, const Math::Point2d& c)
{
    return (b - a).cross(c - b);
}

double areaOf(std::span<const Math::Point2d> polygon)
{
    double twice = 0;
    for (std::size_t i = 2; i < polygon.size(); ++i)
        twice += (polygon[i - 1] - polygon[0]).cross(polygon[i] - polygon[0]);
    return twice / 2;
}

/// How many corners turn left, and how many right.
struct Turns {
    int left = 0;
    int right = 0;

    explicit Turns(std::span<const Math::Point2d> polygon)
    {
        const std::size_t count = polygon.size();
        for (std::size_t i = 0; i < count; ++i) {
            const double side = turn(polygon[i], polygon[(i + 1) % count], polygon[(i + 2) % count]);
            left += side > 0;
            right += side < 0;
        }
    }
};

/// Whether a polygon whose corners all turn one way runs around once, and not more often.
bool runsAroundOnce(std::span<const Math::Point2d> polygon)
{
    double angle = 0;
    const std::size_t count = polygon.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Math::Vector2d in = polygon[(i + 1) % count] - polygon[i];
        const Math::Vector2d out = polygon[(i + 2) % count] - polygon[(i + 1) % count];
        angle += std::atan2(in.cross(out), in.dot(out));
    }
    return std::abs(std::abs(angle) - 2 * std::numbers::pi) < 1;
}

/// Where the lines a-b and c-d cross, if both segments do.
std::optional<Math::Point2d> crossing(const Math::Point2d& a, const Math::Point2d& b, const Math::Point2d& c,
                                      const Math::Point2d& d)
{
    const double start = turn(c, d, a);
    const double end = turn(c, d, b);
    if ((start < 0) == (end < 0) || (turn(a, b, c) < 0) == (turn(a, b, d) < 0))
        return std::nullopt;
    return a + (b - a) * (start / (start - end));
}

bool isInTriangle(const Math::Point2d& point, const Math::Point2d& a, const Math::Point2d& b, const Math::Point2d& c)
{
    return turn(a, b, point) >= 0 && turn(b, c, point) >= 0 && turn(c, a, point) >= 0;
}

/// The number of chords that keep an arc, or a curve, within the tolerance.
std::size_t chordsOfArc(double radius, double angle, double tolerance)
{
    constexpr double most = 64;
    const double step = 2 * std::acos(std::max(0.0, 1 - tolerance / radius));
    return static_cast<std::size_t>(std::clamp(std::ceil(std::abs(angle) / step), 1.0, most));
}

std::size_t chordsOfCurve(const PlaneCurve& curve, double tolerance)
{
    constexpr double most = 64;
    double bend = 0;
    for (unsigned int i = 2; i <= curve.degree; ++i) {
        const Math::Vector2d second =
            (curve.points[i] - curve.points[i - 1]) - (curve.points[i - 1] - curve.points[i - 2]);
        bend = std::max(bend, second.length());
    }
    const double degree = curve.degree;
    const double count = std::ceil(std::sqrt(degree * (degree - 1) / 8 * bend / tolerance));
    return static_cast<std::size_t>(std::clamp(count, 1.0, most));
}

bool isNearSegment(const Math::Point2d& point, const Math::Point2d& from, const Math::Point2d& to, double tolerance)
{
    const Math::Vector2d way = to - from;
    const double square = way.dot(way);
    const double place = square > 0 ? std::clamp((point - from).dot(way) / square, 0.0, 1.0) : 0;
    return distanceSquared(point, from + way * place) <= tolerance * tolerance;
}

/// Makes one outline with one tolerance.
class OutlineMaker {
public:
    OutlineMaker(const LineForm& form, const LineSections& sections, double tolerance)
        : m_form(form),
          m_sections(sections),
          m_tolerance(tolerance),
          m_mostPieces(mostOutlinePieces + 2 * static_cast<std::size_t>(sections.spanCount()))
    {}

    /// False when there are too many pieces.
    bool make()
    {
        const int count = m_sections.spanCount();
        if (count == 0) {
            if (!m_form.path->IsEmpty()) {
                addTip(startTip(m_form, placeSection(m_form, 0)));
                addTip(endTip(m_form, placeSection(m_form, 1)));
            }
            return true;
        }
        LineSection start = m_sections.at(0, 0);
        const LineSection first = start;
        LineSection last = start;
        for (int span = 0; span < count; ++span) {
            last = m_sections.at(span, 1);
            addSpan(span, {0, start}, cutAt(span, 0.5), {1, last}, 0);
            if (span + 1 == count)
                break;
            start = m_sections.at(span + 1, 0);
            if (cornerAngle(last, start) == 0)
                start = last; // one section, to the last digit
            else
                addCorner(last, start);
        }
        if (m_form.isClosed()) {
            addCorner(last, first);
        } else {
            addTip(startTip(m_form, first));
            addTip(endTip(m_form, last));
        }
        return !m_tooMany;
    }

    Outline takeOutline() { return std::move(m_outline); }

private:
    struct Cut {
        double t;
        LineSection section;
        Math::Point2d left = section.left();
        Math::Point2d right = section.right();
    };

    Cut cutAt(int span, double t) const { return {t, m_sections.at(span, t)}; }

    void addSpan(int span, const Cut& from, const Cut& middle, const Cut& to, int depth)
    {
        constexpr int deepest = 16;
        if (m_outline.pieceCount() > m_mostPieces)
            m_tooMany = true;
        if (m_tooMany)
            return;
        const Cut before = cutAt(span, std::lerp(from.t, middle.t, 0.5));
        const Cut behind = cutAt(span, std::lerp(middle.t, to.t, 0.5));
        if (depth == deepest ||
            (isStraight(from, middle, to) && isStraight(from, before, to) && isStraight(from, behind, to))) {
            m_outline.add(std::array{from.right, to.right, to.left, from.left});
            return;
        }
        addSpan(span, from, before, middle, depth + 1);
        addSpan(span, middle, behind, to, depth + 1);
    }

    bool isStraight(const Cut& from, const Cut& between, const Cut& to) const
    {
        return isNearSegment(between.section.place, from.section.place, to.section.place, m_tolerance) &&
               isNearSegment(between.left, from.left, to.left, m_tolerance) &&
               isNearSegment(between.right, from.right, to.right, m_tolerance);
    }

    void addCorner(const LineSection& before, const LineSection& behind)
    {
        for (const CornerSector& sector : cornerSectors(before, behind)) {
            const double radius = sector.from.length();
            if (radius == 0)
                continue;
            const std::size_t chords = chordsOfArc(radius, sector.angle, m_tolerance);
            std::vector<Math::Point2d> polygon{sector.centre};
            for (std::size_t i = 0; i <= chords; ++i) {
                const double angle = sector.angle * static_cast<double>(i) / static_cast<double>(chords);
                const Math::Vector2d& way = sector.from;
                polygon.push_back(sector.centre + Math::Vector2d{way.x * std::cos(angle) - way.y * std::sin(angle),
                                                                 way.x * std::sin(angle) + way.y * std::cos(angle)});
            }
            m_outline.addConvex(polygon);
        }
    }

    void addTip(const GR_BezierPath2d& tip)
    {
        std::vector<Math::Point2d> polygon;
        for (const PlaneCurve& curve : planeCurves(tip)) {
            if (polygon.empty())
                polygon.push_back(curve.from());
            const std::size_t chords = chordsOfCurve(curve, m_tolerance);
            for (std::size_t i = 1; i < chords; ++i)
                polygon.push_back(curve.at(static_cast<double>(i) / static_cast<double>(chords)));
            polygon.push_back(curve.to());
        }
        m_outline.add(polygon);
    }

    const LineForm& m_form;
    const LineSections& m_sections;
    double m_tolerance;
    std::size_t m_mostPieces; ///< The bound, and one piece and one corner for each span.
    bool m_tooMany = false;
    Outline m_outline;
};

} // namespace

std::span<const Math::Point2d> Outline::piece(std::size_t index) const
{
    const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
    return {m_points.data() + start, m_ends[index] - start};
}

void Outline::add(std::span<const Math::Point2d> polygon)
{
    if (!isFinite(polygon))
        return;
    const Turns turns(polygon);
    if (turns.left == 0 || turns.right == 0) {
        if (polygon.size() <= 4 || runsAroundOnce(polygon))
            addConvex(polygon);
        else
            addTriangles(polygon);
    } else if (polygon.size() == 4 && turns.left == turns.right) {
        addCrossed(polygon);
    } else {
        addTriangles(polygon);
    }
}

void Outline::addConvex(std::span<const Math::Point2d> polygon)
{
    const double area = areaOf(polygon);
    if (area == 0 || !std::isfinite(area))
        return;
    if (area > 0)
        m_points.insert(m_points.end(), polygon.begin(), polygon.end());
    else
        m_points.insert(m_points.end(), polygon.rbegin(), polygon.rend());
    m_ends.push_back(m_points.size());
}

void Outline::addCrossed(std::span<const Math::Point2d> quad)
{
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        const Math::Point2d& a = quad[first];
        const Math::Point2d& b = quad[first + 1];
        const Math::Point2d& c = quad[first + 2];
        const Math::Point2d& d = quad[(first + 3) % 4];
        if (const auto at = crossing(a, b, c, d)) {
            addConvex(std::array{b, c, *at});
            addConvex(std::array{d, a, *at});
            return;
        }
    }
    addTriangles(quad);
}

/// Cuts off ears: corners whose triangle holds none of the other points. A polygon that crosses itself runs out of
/// them; the rest of it becomes a fan, which covers it.
void Outline::addTriangles(std::span<const Math::Point2d> polygon)
{
    std::vector<Math::Point2d> rest(polygon.begin(), polygon.end());
    if (areaOf(rest) < 0)
        std::ranges::reverse(rest);
    const auto isEar = [&rest](std::size_t index) {
        const std::size_t count = rest.size();
        const Math::Point2d& before = rest[(index + count - 1) % count];
        const Math::Point2d& behind = rest[(index + 1) % count];
        if (turn(before, rest[index], behind) <= 0)
            return false;
        return std::ranges::none_of(rest, [&](const Math::Point2d& point) {
            return point != before && point != rest[index] && point != behind &&
                   isInTriangle(point, before, rest[index], behind);
        });
    };
    while (rest.size() > 3) {
        std::size_t ear = 0;
        while (ear < rest.size() && !isEar(ear))
            ++ear;
        if (ear == rest.size())
            break;
        const std::size_t count = rest.size();
        addConvex(std::array{rest[(ear + count - 1) % count], rest[ear], rest[(ear + 1) % count]});
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(ear));
    }
    for (std::size_t i = 2; i < rest.size(); ++i)
        addConvex(std::array{rest[0], rest[i - 1], rest[i]});
}

Outline outlineOf(const LineForm& form, double tolerance)
{
    if (!std::isfinite(tolerance) || tolerance <= 0)
        throw std::invalid_argument("The tolerance of an outline must be a finite number above 0.");
    const LineSections sections(form);
    if (form.largestHalfWidth() == 0)
        return {};
    Math::Box2d box = form.path->GetBox();
    box.Enlarge(form.largestHalfWidth(), form.largestHalfWidth());
    const double size = std::max(box.width(), box.height());
    constexpr double finest = 1e-9; // of the size
    for (tolerance = std::max(tolerance, finest * size);; tolerance *= 4) {
        OutlineMaker maker(form, sections, tolerance);
        if (maker.make() || tolerance > size || !std::isfinite(tolerance))
            return maker.takeOutline();
    }
}

} // namespace brindle::engine
