#include "engine/drawings/tip.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr double quarterHandle = 0.55228474983079340; // 4/3 (sqrt 2 - 1)

/// Appends points that are told in the coordinates of an end.
class TipPath {
public:
    explicit TipPath(const LineEnd& end) : m_end(end) {}

    void add(double x, double y, bool onCurve = true)
    {
        m_path.Append(m_end.place + m_end.outward * x + m_end.toLeft * y, onCurve);
    }
    const GR_BezierPath2d& path() const { return m_path; }

private:
    const LineEnd& m_end;
    GR_BezierPath2d m_path;
};

double depthOf(const LineEnd& end)
{
    return (end.widths.left + end.widths.right) / 2;
}

/// The half-width of a side so far outwards.
double leftAt(const LineEnd& end, double distance)
{
    return std::max(0., end.widths.left + end.slopeLeft * distance);
}

double rightAt(const LineEnd& end, double distance)
{
    return std::max(0., end.widths.right + end.slopeRight * distance);
}

void addRound(TipPath& path, const LineEnd& end)
{
    const double depth = depthOf(end);
    const double handle = quarterHandle * depth;
    path.add(handle, leftAt(end, handle), false);
    path.add(depth, quarterHandle * end.widths.left, false);
    path.add(depth, 0);
    path.add(depth, -quarterHandle * end.widths.right, false);
    path.add(handle, -rightAt(end, handle), false);
}

void addBevel(TipPath& path, const LineEnd& end)
{
    const double depth = depthOf(end);
    const double left = leftAt(end, depth / 2);
    const double right = rightAt(end, depth / 2);
    path.add(depth / 2, left);
    path.add(depth, left / 2);
    path.add(depth, -right / 2);
    path.add(depth / 2, -right);
}

} // namespace

GR_BezierPath2d tipOutline(const LineEnd& end, GR_TipType type)
{
    if (depthOf(end) == 0)
        return {};
    TipPath path(end);
    path.add(0, end.widths.left);
    if (type == kRoundTip)
        addRound(path, end);
    else if (type == kBevelTip)
        addBevel(path, end);
    path.add(0, -end.widths.right);
    return path.path();
}

GR_BezierPath2d tipOutline(const LineEnd& end, const GR_Bezier2d& curve)
{
    const double depth = depthOf(end);
    if (depth == 0)
        return {};
    TipPath path(end);
    path.add(0, end.widths.left);
    for (unsigned int index = 0; index <= curve.GetDegree(); ++index) {
        const Math::Point2d& point = curve.GetPoint(index);
        path.add(point.x * depth, point.y * (point.y > 0 ? end.widths.left : end.widths.right),
                 index == 0 || index == curve.GetDegree());
    }
    path.add(0, -end.widths.right);
    return path.path();
}

} // namespace brindle::engine
