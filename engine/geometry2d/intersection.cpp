#include "engine/geometry2d/intersection.h"

#include "engine/geometry2d/curveshape.h"
#include "engine/geometry2d/nearest.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace brindle::engine {

namespace {

bool apart(const Math::Box2d& one, const Math::Box2d& other)
{
    const double slack = meetingTolerance * std::max({one.width(), one.height(), other.width(), other.height()});
    return one.minX() - slack > other.maxX() || other.minX() - slack > one.maxX() ||
           one.minY() - slack > other.maxY() || other.minY() - slack > one.maxY();
}

/// The meetings of two curves whose coordinates are about 1.
class Intersector {
public:
    Intersector(const PlaneCurve& first, const PlaneCurve& second) : m_first(first), m_second(second) {}

    std::vector<Meeting> find()
    {
        addEnds();
        const bool firstStraight = isStraight(m_first);
        const bool secondStraight = isStraight(m_second);
        m_onOneLine = firstStraight && secondStraight && onOneLine();
        if (m_onOneLine)
            return result();
        findStretches();
        if (firstStraight) {
            addCrossingsOfLine(m_first, m_second, false);
        } else if (secondStraight) {
            addCrossingsOfLine(m_second, m_first, true);
        } else {
            for (const Meeting& at : crossings(m_first, m_second, m_stretches))
                add(at);
        }
        return result();
    }

private:
    double separation(const Meeting& at) const
    {
        return std::sqrt(distanceSquared(m_first.at(at.first), m_second.at(at.second)));
    }

    void addEndOf(const PlaneCurve& curve, double t, const PlaneCurve& other, bool swapped)
    {
        Math::Box2d reach = other.hullBox();
        reach.Enlarge(meetingTolerance, meetingTolerance);
        const Math::Point2d end = t == 0 ? curve.from() : curve.to();
        if (!reach.contains(end))
            return;
        const auto found = nearest(other, end);
        if (found && found->distanceSquared <= meetingTolerance * meetingTolerance)
            m_found.push_back(swapped ? Meeting{found->parameter, t} : Meeting{t, found->parameter});
    }

    void addEnds()
    {
        for (const double end : {0.0, 1.0}) {
            if (end == 0 || !m_first.isPoint())
                addEndOf(m_first, end, m_second, false);
            if (end == 0 || !m_second.isPoint())
                addEndOf(m_second, end, m_first, true);
        }
    }

    /// Whether two straight curves lie on one line: then they meet where the ends of either lie on the other, and that
    /// has been found.
    bool onOneLine() const
    {
        PlaneCurve both;
        both.degree = 3;
        const Math::Box2d first = tightBox(m_first);
        const Math::Box2d second = tightBox(m_second);
        // A line that falls runs through the other two corners of its box.
        const auto corners = [](const PlaneCurve& curve, const Math::Box2d& box) {
            const Math::Vector2d way = fromTangent(curve);
            const bool falls = way.x * way.y < 0;
            return std::pair<Math::Point2d, Math::Point2d>{{box.minX(), falls ? box.maxY() : box.minY()},
                                                           {box.maxX(), falls ? box.minY() : box.maxY()}};
        };
        std::tie(both.points[0], both.points[1]) = corners(m_first, first);
        std::tie(both.points[2], both.points[3]) = corners(m_second, second);
        return isStraight(both);
    }

    /// Two polynomial curves of degree 3 that have more than 9 places in common coincide (Bezout); where they begin and
    /// cease to do so, one of them ends.
    void findStretches()
    {
        constexpr int places = 12;
        std::vector<double> ends;
        for (const Meeting& end : m_found)
            ends.push_back(end.first);
        std::ranges::sort(ends);
        for (std::size_t i = 1; i < ends.size(); ++i) {
            const Stretch stretch{ends[i - 1], ends[i]};
            if (stretch.end - stretch.start <= sameParameter)
                continue;
            bool coincide = true;
            for (int place = 1; place <= places && coincide; ++place) {
                const double t = std::lerp(stretch.start, stretch.end, static_cast<double>(place) / (places + 1));
                const auto found = nearest(m_second, m_first.at(t));
                coincide = found && found->distanceSquared <= meetingTolerance * meetingTolerance;
            }
            if (!coincide)
                continue;
            if (!m_stretches.empty() && stretch.start - m_stretches.back().end <= sameParameter)
                m_stretches.back().end = stretch.end;
            else
                m_stretches.push_back(stretch);
        }
    }

    void add(Meeting at)
    {
        at = polished(m_first, m_second, at);
        if (!(separation(at) <= meetingTolerance))
            return;
        constexpr double aboutAnEnd = 1e-6;
        const bool known = std::ranges::any_of(m_stretches, [&](const Stretch& stretch) {
            return at.first >= stretch.start - aboutAnEnd && at.first <= stretch.end + aboutAnEnd;
        });
        if (!known)
            m_found.push_back(at);
    }

    /// A straight curve meets another where the other's distance from the line is zero, or has an extremum of zero.
    void addCrossingsOfLine(const PlaneCurve& line, const PlaneCurve& other, bool swapped)
    {
        const Math::Vector2d along = fromTangent(line);
        std::array<double, GR_Bezier2d::maxDegree + 1> distances{};
        for (unsigned int i = 0; i <= other.degree; ++i)
            distances[i] = along.cross(other.points[i] - line.from());
        std::vector<double> parameters = bernsteinRoots({distances.data(), other.degree + 1});
        for (unsigned int i = 0; i < other.degree; ++i)
            distances[i] = distances[i + 1] - distances[i];
        if (other.degree > 1)
            std::ranges::copy(bernsteinRoots({distances.data(), other.degree}), std::back_inserter(parameters));
        for (const double parameter : parameters) {
            const auto found = nearest(line, other.at(parameter));
            if (found && found->distanceSquared <= meetingTolerance * meetingTolerance)
                add(swapped ? Meeting{parameter, found->parameter} : Meeting{found->parameter, parameter});
        }
    }

    /// Whether two meetings are one: also where the curves touch, and come so near that many places were found.
    bool same(const Meeting& one, const Meeting& other) const
    {
        constexpr double near = 1e-2;
        if (std::abs(one.first - other.first) > near || std::abs(one.second - other.second) > near)
            return false;
        if (std::abs(one.first - other.first) <= sameParameter && std::abs(one.second - other.second) <= sameParameter)
            return true;
        if (m_onOneLine) // They run along each other from one place to the other.
            return false;
        const bool isStretch = std::ranges::any_of(m_stretches, [&](const Stretch& stretch) {
            return stretch.start >= one.first - sameParameter && stretch.end <= other.first + sameParameter;
        });
        if (isStretch)
            return false;
        const auto halfway = nearest(m_second, m_first.at((one.first + other.first) / 2));
        return halfway && halfway->distanceSquared <= meetingTolerance * meetingTolerance;
    }

    /// Which of two meetings that are one tells it better: the one at an end, whose place is exact, or the closer one.
    bool isBetter(const Meeting& one, const Meeting& other) const
    {
        const auto ends = [](const Meeting& at) {
            return (at.first == 0 || at.first == 1) + (at.second == 0 || at.second == 1);
        };
        return ends(one) != ends(other) ? ends(one) > ends(other) : separation(one) < separation(other);
    }

    std::vector<Meeting> result()
    {
        std::ranges::sort(m_found, {}, [](const Meeting& at) { return std::pair(at.first, at.second); });
        std::vector<Meeting> result;
        for (const Meeting& at : m_found) {
            // One curve passes a place at most twice, so the same meeting is among the last few.
            constexpr std::ptrdiff_t few = 6;
            const auto recent = result.end() - std::min(few, std::ssize(result));
            const auto known =
                std::find_if(recent, result.end(), [&](const Meeting& other) { return same(other, at); });
            if (known == result.end())
                result.push_back(at);
            else if (isBetter(at, *known))
                *known = at;
        }
        return result;
    }

    const PlaneCurve& m_first;
    const PlaneCurve& m_second;
    std::vector<Meeting> m_found;
    std::vector<Stretch> m_stretches;
    bool m_onOneLine = false;
};

} // namespace

std::vector<Meeting> meetings(const PlaneCurve& first, const PlaneCurve& second)
{
    Math::Box2d both = first.hullBox();
    const Math::Box2d other = second.hullBox();
    if (apart(both, other))
        return {};
    both.AddClosed(other);
    const UnitFrame frame(both);
    const PlaneCurve one = frame.toUnit(first);
    const PlaneCurve two = frame.toUnit(second);
    return Intersector(one, two).find();
}

std::vector<Meeting> selfMeetings(const PlaneCurve& curve)
{
    if (curve.degree < 3 || isStraight(curve))
        return {};
    const UnitFrame frame(curve.used());
    const auto p = frame.toUnit(curve).points;
    // P(t) = a t^3 + b t^2 + c t + p0
    const Math::Vector2d c = (p[1] - p[0]) * 3;
    const Math::Vector2d b = (p[2] - p[1]) * 3 - c;
    const Math::Vector2d a = (p[3] - p[0]) - b - c;
    // a (s^2 - q) + b s + c = 0 with the sum s and the product q of both parameters.
    const double determinant = a.cross(b);
    if (determinant == 0)
        return {};
    const double sum = c.cross(a) / determinant;
    const double product = sum * sum - b.cross(c) / determinant;
    const double discriminant = sum * sum - 4 * product;
    if (!(discriminant > 0))
        return {};
    const double larger = (sum + std::copysign(std::sqrt(discriminant), sum)) / 2;
    const double smaller = larger == 0 ? 0 : product / larger;
    const auto snapped = [](double t) {
        if (std::abs(t) <= sameParameter)
            return 0.0;
        return std::abs(t - 1) <= sameParameter ? 1.0 : t;
    };
    const auto [low, high] = std::minmax({snapped(larger), snapped(smaller)});
    if (low < 0 || high > 1 || high - low <= sameParameter || (low == 0 && high == 1))
        return {};
    const PlaneCurve unit = frame.toUnit(curve);
    if (distanceSquared(unit.at(low), unit.at(high)) > meetingTolerance * meetingTolerance)
        return {};
    return {{low, high}};
}

} // namespace brindle::engine
