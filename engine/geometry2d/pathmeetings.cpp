#include "engine/geometry2d/pathmeetings.h"

#include "engine/geometry2d/intersection.h"
#include "engine/geometry2d/nearest.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// One curve of a path, where the sweep finds it.
struct Piece {
    PlaneCurve curve;
    Math::Box2d hull;   ///< Enlarged by what a meeting may be off by.
    unsigned int index; ///< The curve's place in its path.
    int set;
};

void addPieces(const GR_BezierPath2d& path, int set, std::vector<Piece>& pieces)
{
    std::vector<PlaneCurve> curves = planeCurves(path);
    if (curves.empty() && !path.IsEmpty()) {
        curves.emplace_back();
        curves.back().points[0] = path.GetFromPoint();
    }
    for (unsigned int i = 0; i < curves.size(); ++i) {
        requireFinite(curves[i]);
        Math::Box2d hull = curves[i].hullBox();
        const double slack = meetingTolerance * std::max(hull.width(), hull.height());
        hull.Enlarge(slack, slack);
        pieces.push_back({curves[i], hull, i, set});
    }
}

/// Calls `visit`, which tells whether to go on, with each two pieces of two sets (or of the one set there is) whose
/// boxes meet; within one set, the piece with the lower index first.
template <typename Visit>
void forEachPair(const std::vector<Piece>& pieces, bool oneSet, const Visit& visit)
{
    std::vector<const Piece*> order;
    for (const Piece& piece : pieces)
        order.push_back(&piece);
    std::ranges::stable_sort(order, {}, [](const Piece* piece) { return piece->hull.minX(); });
    std::vector<const Piece*> open[2];
    for (const Piece* piece : order) {
        auto& others = open[oneSet ? 0 : 1 - piece->set];
        std::erase_if(others, [&](const Piece* other) { return other->hull.maxX() < piece->hull.minX(); });
        for (const Piece* other : others) {
            if (other->hull.minY() > piece->hull.maxY() || other->hull.maxY() < piece->hull.minY())
                continue;
            const bool inOrder = oneSet ? piece->index < other->index : piece->set < other->set;
            if (!(inOrder ? visit(*piece, *other) : visit(*other, *piece)))
                return;
        }
        open[piece->set].push_back(piece);
    }
}

void sortAndMerge(std::vector<double>& parameters)
{
    std::ranges::sort(parameters);
    const auto same = [](double one, double other) { return other - one <= sameParameter; };
    parameters.erase(std::unique(parameters.begin(), parameters.end(), same), parameters.end());
}

/// The end of a closed path is its start.
double wrapped(double parameter, const GR_BezierPath2d& path)
{
    return path.IsClosed() && parameter >= path.GetNumBezier() - sameParameter ? 0 : parameter;
}

/// Whether two curves, one behind the other, come together at the point that joins them.
bool atJoint(const Meeting& at)
{
    constexpr double near = 1e-6;
    return at.first >= 1 - near && at.second <= near;
}

/// Whether a curve and the one behind it run on along one direction throughout: then they meet at their joint alone.
bool runsOn(const PlaneCurve& curve, const PlaneCurve& behind)
{
    const Math::Vector2d way = (curve.to() - curve.from()) + (behind.to() - behind.from());
    const auto forward = [&way](const PlaneCurve& part) {
        for (unsigned int i = 0; i < part.degree; ++i) {
            const Math::Vector2d leg = part.points[i + 1] - part.points[i];
            if (leg != Math::Vector2d{} && !(way.dot(leg) > 0))
                return false;
        }
        return true;
    };
    return forward(curve) && forward(behind);
}

/// Joins meetings that are one touch of two paths at a joint of their curves: each curve at the joint reports the touch
/// on its own, at slightly different parameters, and between these the paths stay together. Parameters are of paths.
class TouchJoiner {
public:
    TouchJoiner(const GR_BezierPath2d& first, const GR_BezierPath2d& second) : m_first(first), m_second(second) {}

    void join(std::vector<Meeting>& found) const
    {
        std::ranges::sort(found, {}, [](const Meeting& at) { return std::pair(at.first, at.second); });
        std::vector<Meeting> joined;
        for (const Meeting& at : found) {
            // More than a few in a place are crossings. The end of a closed path is at its start.
            constexpr std::ptrdiff_t few = 6;
            const auto isSame = [&](const Meeting& other) { return isOneTouch(other, at); };
            auto known = std::find_if(joined.end() - std::min(few, std::ssize(joined)), joined.end(), isSame);
            if (known == joined.end() && !joined.empty() && isSame(joined.front()))
                known = joined.begin();
            if (known == joined.end())
                joined.push_back(at);
            else if (joints(at) > joints(*known))
                *known = at;
        }
        found = std::move(joined);
    }

private:
    static int joints(const Meeting& at)
    {
        return (at.first == std::floor(at.first)) + (at.second == std::floor(at.second));
    }

    /// How far apart two parameters are; on a closed path, over its end if that is nearer.
    static double apart(double one, double other, const GR_BezierPath2d& path)
    {
        const double way = std::abs(one - other);
        return path.IsClosed() ? std::min(way, path.GetNumBezier() - way) : way;
    }

    static PlaneCurve curveAt(double parameter, const GR_BezierPath2d& path)
    {
        PlaneCurve curve;
        curve.points[0] = path.GetFromPoint();
        if (path.GetNumBezier() == 0)
            return curve;
        const double last = path.GetNumBezier() - 1;
        return planeCurve(path.GetBezier(static_cast<unsigned int>(std::min(std::floor(parameter), last))));
    }

    bool isOneTouch(const Meeting& one, const Meeting& other) const
    {
        constexpr double near = 1e-3;
        const double first = apart(one.first, other.first, m_first);
        const double second = apart(one.second, other.second, m_second);
        if (first > near || second > near)
            return false;
        if (first <= sameParameter && second <= sameParameter)
            return true;
        const bool overEnd = std::abs(one.first - other.first) > near;
        const double halfway = (one.first + other.first + (overEnd ? m_first.GetNumBezier() : 0)) / 2;
        const double count = m_first.GetNumBezier();
        const Math::Point2d place = m_first.Evaluate(halfway > count ? halfway - count : halfway);
        return staysAt(place, curveAt(one.second, m_second), one) ||
               staysAt(place, curveAt(other.second, m_second), other);
    }

    bool staysAt(const Math::Point2d& place, const PlaneCurve& curve, const Meeting& at) const
    {
        Math::Box2d both = curve.hullBox();
        both.AddClosed(curveAt(at.first, m_first).hullBox());
        const double slack = meetingTolerance * UnitFrame(both).scale();
        const auto found = nearest(curve, place);
        return found && std::sqrt(found->distanceSquared) <= slack;
    }

    const GR_BezierPath2d& m_first;
    const GR_BezierPath2d& m_second;
};

} // namespace

std::vector<double> pathMeetings(const GR_BezierPath2d& first, const GR_BezierPath2d& second, Wanted wanted)
{
    std::vector<Piece> pieces;
    addPieces(first, 0, pieces);
    addPieces(second, 1, pieces);
    std::vector<Meeting> found; // parameters of the paths
    forEachPair(pieces, false, [&](const Piece& one, const Piece& other) {
        for (const Meeting& at : meetings(one.curve, other.curve))
            found.push_back({wrapped(one.index + at.first, first), wrapped(other.index + at.second, second)});
        return wanted == Wanted::All || found.empty();
    });
    TouchJoiner(first, second).join(found);
    std::vector<double> parameters;
    for (const Meeting& at : found)
        parameters.push_back(at.first);
    sortAndMerge(parameters);
    return parameters;
}

std::vector<double> pathSelfMeetings(const GR_BezierPath2d& path, Wanted wanted)
{
    std::vector<Piece> all;
    addPieces(path, 0, all);
    // Curves without length would come between neighbours. What is left is numbered anew; `curveOf` leads back.
    std::vector<Piece> pieces;
    std::vector<unsigned int> curveOf;
    for (const Piece& piece : all) {
        if (piece.curve.isPoint())
            continue;
        pieces.push_back(piece);
        pieces.back().index = static_cast<unsigned int>(curveOf.size());
        curveOf.push_back(piece.index);
    }

    std::vector<Meeting> found; // parameters of the path
    const auto add = [&](const Piece& one, const Piece& other, const Meeting& at) {
        const double first = wrapped(curveOf[one.index] + at.first, path);
        const double second = wrapped(curveOf[other.index] + at.second, path);
        found.push_back({std::min(first, second), std::max(first, second)});
    };
    for (const Piece& piece : pieces) {
        for (const Meeting& at : selfMeetings(piece.curve))
            add(piece, piece, at);
    }
    const auto last = static_cast<unsigned int>(pieces.size()) - 1;
    forEachPair(pieces, true, [&](const Piece& one, const Piece& other) {
        const bool neighbours = other.index == one.index + 1;
        const bool closing = path.IsClosed() && one.index == 0 && other.index == last;
        if (neighbours != closing && runsOn((neighbours ? one : other).curve, (neighbours ? other : one).curve))
            return true;
        for (const Meeting& at : meetings(one.curve, other.curve)) {
            const bool joined = (neighbours && atJoint(at)) || (closing && atJoint({at.second, at.first}));
            if (!joined)
                add(one, other, at);
        }
        return wanted == Wanted::All || found.empty();
    });

    TouchJoiner(path, path).join(found);

    // A place that more than two strands pass is found once for each pair; the lowest strand has it already.
    std::vector<double> higher;
    for (const Meeting& at : found)
        higher.push_back(at.second);
    std::ranges::sort(higher);
    std::vector<double> parameters;
    for (const Meeting& at : found) {
        const auto known = std::ranges::lower_bound(higher, at.first - sameParameter);
        if (known == higher.end() || *known > at.first + sameParameter)
            parameters.push_back(at.first);
    }
    sortAndMerge(parameters);
    return parameters;
}

} // namespace brindle::engine
