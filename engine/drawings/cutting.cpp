#include "engine/drawings/cutting.h"

#include "engine/drawings/jointgrid.h"
#include "engine/drawings/strokemeetings.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

GR_BezierPath2d stretch(const GR_BezierPath2d& path, double from, double to)
{
    GR_BezierPath2d part = path;
    part.Truncate(from, to);
    return part;
}

/// Whether the path between two parameters stays within reach of its first place.
bool staysWithin(const GR_BezierPath2d& path, double from, double to, double reach)
{
    const Math::Point2d start = path.Evaluate(from);
    if ((path.Evaluate(to) - start).length() > reach)
        return false;
    const GR_BezierPath2d part = stretch(path, from, to);
    for (unsigned int i = 0; i < part.GetNumPoints(); ++i) {
        if ((part.GetPoint(i) - start).length() > reach)
            return false;
    }
    return true;
}

bool isAtTail(const GR_BezierPath2d& path, double parameter, double reach)
{
    return staysWithin(path, 0, parameter, reach);
}

bool isAtHead(const GR_BezierPath2d& path, double parameter, double reach)
{
    return staysWithin(path, parameter, path.GetNumBezier(), reach);
}

/// Collects the cuts of strokes, and makes the pieces.
class Cutter {
public:
    Cutter(std::span<const MapStroke> strokes, double reach)
        : m_strokes(strokes),
          m_reach(reach),
          m_grid(reach),
          m_cuts(strokes.size())
    {
        for (const MapStroke& stroke : strokes)
            m_grid.add(*stroke.path);
    }

    void add(const StrokeMeeting& meeting)
    {
        const std::optional<Math::Point2d> firstEnd = endAt(meeting.first);
        const std::optional<Math::Point2d> secondEnd = endAt(meeting.second);
        if (firstEnd && secondEnd)
            return;
        const Math::Point2d place = firstEnd ? *firstEnd
                                    : secondEnd
                                        ? *secondEnd
                                        : pointAt(between(placeOf(meeting.first), placeOf(meeting.second), 0.5));
        if (!firstEnd)
            m_cuts[at(meeting.first.stroke)].push_back({meeting.first.parameter, place});
        if (!secondEnd)
            m_cuts[at(meeting.second.stroke)].push_back({meeting.second.parameter, place});
    }

    std::vector<StrokePiece> pieces()
    {
        std::vector<StrokePiece> made;
        for (std::size_t stroke = 0; stroke < m_cuts.size(); ++stroke) {
            if (!m_cuts[stroke].empty())
                cut(static_cast<int>(stroke), made);
        }
        return made;
    }

private:
    struct Cut {
        double parameter;
        Math::Point2d place;
    };

    const GR_BezierPath2d& pathOf(int stroke) const { return *m_strokes[at(stroke)].path; }
    Math::Point2d placeOf(const StrokePlace& place) const { return pathOf(place.stroke).Evaluate(place.parameter); }

    std::optional<Math::Point2d> endAt(const StrokePlace& place) const
    {
        const GR_BezierPath2d& path = pathOf(place.stroke);
        if (isAtTail(path, place.parameter, m_reach))
            return path.GetFromPoint();
        if (isAtHead(path, place.parameter, m_reach))
            return path.GetToPoint();
        return std::nullopt;
    }

    /// One point for all cuts nearby.
    Math::Point2d pointAt(const Math::Point2d& place)
    {
        if (const auto known = m_grid.nearby(place))
            return *known;
        m_grid.add(place);
        return place;
    }

    void cut(int stroke, std::vector<StrokePiece>& made)
    {
        const GR_BezierPath2d& path = pathOf(stroke);
        std::vector<Cut>& cuts = m_cuts[at(stroke)];
        std::ranges::stable_sort(cuts, {}, &Cut::parameter);
        std::vector<Cut> kept{{0, path.GetFromPoint()}};
        for (const Cut& cut : cuts) {
            // Curves on both sides of a point of the path each tell a cut there.
            if (kept.size() == 1 || !staysWithin(path, kept.back().parameter, cut.parameter, m_reach))
                kept.push_back(cut);
        }
        kept.push_back({static_cast<double>(path.GetNumBezier()), path.GetToPoint()});

        std::vector<double> lengths{0};
        const std::size_t first = made.size();
        for (std::size_t i = 1; i < kept.size(); ++i) {
            StrokePiece piece{
                stroke, stretch(path, kept[i - 1].parameter, kept[i].parameter), 0, 0, i > 1, i + 1 < kept.size()};
            lengths.push_back(lengths.back() + piece.path.GetLength());
            piece.path.SetPoint(0, kept[i - 1].place);
            piece.path.SetToPoint(kept[i].place);
            made.push_back(std::move(piece));
        }
        for (std::size_t i = 1; i < kept.size(); ++i) {
            made[first + i - 1].from = lengths[i - 1] / lengths.back();
            made[first + i - 1].to = lengths[i] / lengths.back();
        }
    }

    std::span<const MapStroke> m_strokes;
    double m_reach;
    JointGrid m_grid;
    std::vector<std::vector<Cut>> m_cuts; ///< Of each stroke.
};

} // namespace

std::vector<StrokePiece> cutPieces(std::span<const MapStroke> strokes, double reach)
{
    Cutter cutter(strokes, reach);
    StrokeMeetings(strokes).forEach([](int, int) { return StrokeMeetings::Pair::Compare; },
                                    [&cutter](const StrokeMeeting& meeting) { cutter.add(meeting); });
    return cutter.pieces();
}

std::vector<bool> crossedComponents(const PlanarMap& map, double reach)
{
    std::vector<MapStroke> strokes;
    for (int stroke = 0; stroke < map.strokeCount(); ++stroke)
        strokes.push_back({map.idOf(stroke), &map.path(stroke)});
    std::vector<bool> crossed(at(map.componentCount()), false);
    const auto componentOf = [&map](int stroke) {
        return at(map.componentOf(map.contourOf(PlanarMap::halfEdge(stroke, PlanarMap::Left))));
    };
    std::size_t pairs = 0;
    const auto wanted = [&](int stroke, int other) {
        using Pair = StrokeMeetings::Pair;
        if (++pairs > mostComparedPairs) {
            crossed.assign(crossed.size(), true);
            return Pair::Stop;
        }
        return crossed[componentOf(stroke)] && crossed[componentOf(other)] ? Pair::PassOver : Pair::Compare;
    };
    const auto isEnd = [&](const StrokePlace& place) {
        const GR_BezierPath2d& path = map.path(place.stroke);
        return isAtTail(path, place.parameter, reach) || isAtHead(path, place.parameter, reach);
    };
    StrokeMeetings(strokes).forEach(wanted, [&](const StrokeMeeting& meeting) {
        if (isEnd(meeting.first) && isEnd(meeting.second))
            return;
        crossed[componentOf(meeting.first.stroke)] = true;
        crossed[componentOf(meeting.second.stroke)] = true;
    });
    return crossed;
}

} // namespace brindle::engine
