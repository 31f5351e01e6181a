#include "engine/geometry2d/pathmeetings.h"

#include "engine/geometry2d/intersection.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>

namespace engine {

namespace {

/// One curve of a path, where the sweep finds it.
struct Piece {
    PlaneCurve curve;
    Math::Box2d hull;   ///< Enlarged by what a meeting may be off by.
    unsigned int index; ///< Of the curve in its path.
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

} // namespace

std::vector<double> pathMeetings(const GR_BezierPath2d& first, const GR_BezierPath2d& second, Wanted wanted)
{
    std::vector<Piece> pieces;
    addPieces(first, 0, pieces);
    addPieces(second, 1, pieces);
    std::vector<double> parameters;
    forEachPair(pieces, false, [&](const Piece& one, const Piece& other) {
        for (const Meeting& at : meetings(one.curve, other.curve))
            parameters.push_back(wrapped(one.index + at.first, first));
        return wanted == Wanted::All || parameters.empty();
    });
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
        for (const Meeting& at : meetings(one.curve, other.curve)) {
            const bool joined = (neighbours && atJoint(at)) || (closing && atJoint({at.second, at.first}));
            if (!joined)
                add(one, other, at);
        }
        return wanted == Wanted::All || found.empty();
    });

    // Where more than two strands pass one place, it is found for each two: the lowest strand has it already.
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

} // namespace engine
