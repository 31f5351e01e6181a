#include "engine/drawings/outline.h"

#include "engine/drawings/linepieces.h"
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

/// Makes one outline with one tolerance.
class OutlineMaker {
public:
    OutlineMaker(const LineForm& form, const LineSections& sections, double tolerance)
        : m_form(form),
          m_sections(sections),
          m_pieces(sections, tolerance),
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
            m_pieces.cut(span, start, last, [this](const LineCut& from, const LineCut& to) {
                m_outline.add(std::array{from.right, to.right, to.left, from.left});
                m_tooMany = m_outline.pieceCount() > m_mostPieces;
                return !m_tooMany;
            });
            if (m_tooMany)
                return false;
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
        return true;
    }

    Outline takeOutline() { return std::move(m_outline); }

private:
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
    LinePieces m_pieces;
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
    Outline outline;
    const LineSections sections(form);
    withTolerance(form, tolerance, [&](double possible) {
        if (form.largestHalfWidth() == 0)
            return true;
        OutlineMaker maker(form, sections, possible);
        const bool isMade = maker.make();
        outline = maker.takeOutline();
        return isMade;
    });
    return outline;
}

} // namespace brindle::engine
