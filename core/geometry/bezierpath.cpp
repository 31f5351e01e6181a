#include "core/geometry/bezierpath.h"

#include "core/frame/valuetypes.h"
#include "core/geometry/bezier.h"
#include "core/geometry/curvelist_p.h"
#include "core/host/gr_bezierfitter.h"
#include "core/host/gr_bezierpath.h"

namespace OMC {

namespace {

/// The curves that travel inside a QVariant by value.
[[maybe_unused]] const bool curvesRegistered = registerValueTypes<Bezier, BezierPath>();

/// The constants of createOval(), cut off where the ones that it must agree with are: a full turn comes out a little
/// short of itself, which closing the path hides.
constexpr double fullTurn = 6.2831852;
constexpr double halfTurn = 3.1415926;
constexpr double quarterTurn = 1.5707963;
constexpr double handleFactor = 1.3333333333333333;

/// How a path is fitted to a script's points.
constexpr GR_BezierPath2dFitterOptions fitOptions{
    .tolerance = 1.0,
    .iterations = 3,
    .method = GR_BezierPath2dFitterOptions::LeastSquares,
    .parametrization = GR_BezierPath2dFitterOptions::ChordLength,
    .cornerDetection = GR_BezierPath2dFitterOptions::CornersByAngle,
    .linearInterpolation = GR_BezierPath2dFitterOptions::LinesBetweenCorners,
    .tangentOptimization = GR_BezierPath2dFitterOptions::NoOptimization,
    .neighbours = 3,
    .cornerAngle = 100.0,
};

/// A quarter, third, ... of the unit circle, clockwise from an angle that counts from straight up.
GR_Bezier2d arcOfCircle(double from, double to, double handle)
{
    const auto tangent = [handle](double angle) {
        return Math::Vector2d{std::sin(angle + quarterTurn) * handle, std::cos(angle + quarterTurn) * handle};
    };
    const Math::Point2d start{std::sin(from), std::cos(from)};
    const Math::Point2d end{std::sin(to), std::cos(to)};
    GR_Bezier2d arc(GR_Bezier2d::maxDegree, Math::Constants::Closed, Math::Constants::Closed);
    arc.SetPoint(0, start);
    arc.SetPoint(1, start + tangent(from));
    arc.SetPoint(2, end - tangent(to));
    arc.SetPoint(3, end);
    return arc;
}

/// Refuses a count that would fill the memory, by the argument's place.
void requireFewEnough(unsigned int count, unsigned int argument)
{
    if (count > BezierPath::mostMade)
        BaseObject::throwInvalidArgument(argument);
}

/// The curves that an argument tells: those of a Bezier or a BezierPath, or cubics as their reader takes them.
std::vector<GR_Bezier2d> readCurves(const QVariant& value)
{
    std::vector<GR_Bezier2d> curves;
    if (const auto* curve = objectFrom<Bezier>(value)) {
        curves.push_back(curve->getBezier());
    } else if (const auto* path = objectFrom<BezierPath>(value)) {
        for (unsigned int index = 0; index < path->getBezierCount(); ++index)
            curves.push_back(path->getBezier().GetBezier(index));
    } else {
        Bezier::getBezierFromQVariant(value, curves, GR_Bezier2d::maxDegree);
    }
    return curves;
}

/// Adds the curves of an argument to a path: all of them or none. `add` must add one piece wholly or not at all.
template <typename Add>
void addCurves(GR_BezierPath2d& path, const QVariant& value, Add add)
{
    try {
        if (const auto* other = objectFrom<BezierPath>(value)) {
            add(path, other->getBezier());
            return;
        }
        const std::vector<GR_Bezier2d> curves = readCurves(value);
        if (curves.size() == 1) {
            add(path, curves.front());
            return;
        }
        GR_BezierPath2d longer = path;
        for (const GR_Bezier2d& curve : curves)
            add(longer, curve);
        path = std::move(longer);
    } catch (const std::logic_error&) {
        BaseObject::throwUnexpected();
    }
}

} // namespace

template <>
struct CurveTraits<BezierPath> {
    static constexpr auto text = "BezierPath()[%1]";
    static constexpr unsigned int degree = GR_Bezier2d::maxDegree;

    static std::size_t count(const GR_BezierPath2d& path) { return path.GetNumPoints(); }
    static Math::Box2d box(const GR_BezierPath2d& path) { return path.GetBox(); }

    /// Points beyond the last one are appended, as points on the curve.
    static void setPoints(GR_BezierPath2d& path, unsigned int first, const CurvePoints& points)
    {
        orRefused([&] {
            GR_BezierPath2d changed = path;
            for (const auto& point : points) {
                if (first < changed.GetNumPoints())
                    changed.SetPoint(first, *point);
                else
                    changed.Append(*point, true);
                ++first;
            }
            path = std::move(changed);
        });
    }

    /// Up to the farthest corner of the box.
    static double reach(const GR_BezierPath2d& path, const Math::Point2d& point)
    {
        const Math::Box2d box = path.GetBox();
        const auto farther = [](double place, double least, double most) {
            return std::max((place - most) * (place - most), (place - least) * (place - least));
        };
        return farther(point.x, box.minX(), box.maxX()) + farther(point.y, box.minY(), box.maxY());
    }
};

BezierPath::BezierPath() : CurveList(GR_BezierPath2d()) {}

BezierPath::BezierPath(const GR_BezierPath2d& path) : CurveList(path) {}

BezierPath::BezierPath(const BezierPath& other) = default;

BezierPath::BezierPath(const QVariant& value, unsigned int degree) : BezierPath()
{
    getBezierPathFromQVariant(value, *this, degree);
}

BezierPath& BezierPath::operator=(const BezierPath& other) = default;

void BezierPath::getBezierPathFromQVariant(const QVariant& value, BezierPath& path, unsigned int degree)
{
    if (const auto* other = objectFrom<BezierPath>(value)) {
        path.hostCurve() = other->getBezier();
        return;
    }
    std::vector<GR_Bezier2d> curves;
    Bezier::getBezierFromQVariant(value, curves, degree);
    orRefused([&] {
        GR_BezierPath2d longer = path.getBezier();
        for (const GR_Bezier2d& curve : curves)
            longer.Append(curve);
        path.hostCurve() = std::move(longer);
    });
}

Obj BezierPath::createCircle(double x, double y, double r, unsigned int arcs)
{
    requireFinite(x, 0);
    requireFinite(y, 1);
    requireFinite(r, 2);
    requireFewEnough(arcs, 3);
    return createOval(x, y, r, r, arcs);
}

Obj BezierPath::createOval(double x, double y, double rx, double ry, unsigned int arcs)
{
    requireFinite(x, 0);
    requireFinite(y, 1);
    requireFinite(rx, 2);
    requireFinite(ry, 3);
    requireFewEnough(arcs, 4);
    const double step = fullTurn / arcs;
    const double handle = std::tan(halfTurn / (arcs + arcs)) * handleFactor;
    return orRefused([&] {
        GR_BezierPath2d path;
        double from = 0.0;
        for (unsigned int arc = 0; arc < arcs; ++arc) {
            const double to = from + step;
            path.Append(arcOfCircle(from, to, handle));
            from = to;
        }
        if (!path.IsEmpty()) {
            path.SetToPoint(path.GetFromPoint());
            path.ClosePath();
        }
        path *= Math::Matrix2x3().Scale({rx, ry}).Translate({x, y});
        return Obj(new BezierPath(path));
    });
}

Obj BezierPath::createRectangle(double x1, double y1, double x2, double y2)
{
    const double coordinates[] = {x1, y1, x2, y2};
    for (unsigned int argument = 0; argument < std::size(coordinates); ++argument)
        requireFinite(coordinates[argument], argument);
    GR_BezierPath2d path;
    path.Append({x1, y1}, true);
    path.Append({x2, y1}, true);
    path.Append({x2, y2}, true);
    path.Append({x1, y2}, true);
    path.ClosePath();
    return Obj(new BezierPath(path));
}

Obj BezierPath::createBezierFit(const QVariant& value, bool closed, bool oneBezier)
{
    const CurvePoints points = readCurvePoints(value);
    return orRefused([&] {
        GR_BezierPath2d path;
        for (const auto& point : points)
            path.Append(*point, true);
        if (path.IsEmpty())
            return Obj(new BezierPath());
        if (closed)
            path.ClosePath();
        const GR_BezierPath2dFitter fitter(fitOptions);
        GR_BezierPath2d fitted;
        if (oneBezier) {
            fitted = fitter.FitOneBezier(path);
            if (closed) {
                fitted.SetToPoint(fitted.GetFromPoint());
                fitted.ClosePath();
            }
        } else if (path.GetFromPoint() == path.GetToPoint()) {
            fitted = fitter.FitClosed(path);
        } else {
            fitted = fitter.Fit(path);
        }
        return Obj(new BezierPath(fitted));
    });
}

Obj BezierPath::bezier(unsigned int index) const
{
    if (index >= getBezierCount())
        throwIndexOutOfRange();
    return Obj(new Bezier(getBezier().GetBezier(index)));
}

unsigned int BezierPath::bezierDegree(unsigned int index) const
{
    if (index >= getBezierCount())
        throwIndexOutOfRange();
    return getBezier().GetDegree(index);
}

void BezierPath::bezierAppend(const QVariant& curves) const
{
    addCurves(hostCurve(), curves, [](GR_BezierPath2d& path, const auto& piece) { path.Append(piece); });
}

void BezierPath::bezierAppendFront(const QVariant& curves) const
{
    addCurves(hostCurve(), curves, [](GR_BezierPath2d& path, const auto& piece) { path.AppendFront(piece); });
}

void BezierPath::bezierSet(unsigned int index, const QVariant& value) const
{
    if (index >= getBezierCount())
        throwIndexOutOfRange();
    const std::vector<GR_Bezier2d> curves = readCurves(value);
    if (curves.size() > getBezierCount() - index)
        throwIndexOutOfRange();
    orRefused([&] {
        GR_BezierPath2d changed = getBezier();
        for (const GR_Bezier2d& curve : curves)
            changed.SetBezier(index++, curve);
        hostCurve() = std::move(changed);
    });
}

bool BezierPath::pointOnCurve(unsigned int index) const
{
    if (index >= size())
        throwIndexOutOfRange();
    return getBezier().IsOnCurve(index);
}

void BezierPath::insertPoint(double parameter)
{
    requireFinite(parameter, 0);
    orRefused([&] { hostCurve().insertPoint(parameter); });
}

void BezierPath::erase(unsigned int first, unsigned int count)
{
    if (count > size() || first > size() - count)
        throwIndexOutOfRange();
    orRefused([&] { hostCurve().Erase(first, count); });
}

void BezierPath::clear()
{
    hostCurve().Clear();
}

void BezierPath::close()
{
    orRefused([&] { hostCurve().ClosePath(); });
}

void BezierPath::straighten()
{
    orRefused([&] {
        GR_BezierPath2d straight;
        for (unsigned int index = 0; index < getBezierCount(); ++index) {
            Bezier curve(getBezier().GetBezier(index));
            curve.straighten();
            straight.Append(curve.getBezier());
        }
        hostCurve() = std::move(straight);
    });
}

void BezierPath::trim(unsigned int count)
{
    if (count < size())
        throw Exception(tr("Cannot trim path to fewer points than available."));
    requireFewEnough(count, 0);
    orRefused([&] { hostCurve().trimNumPointsToSize(count); });
}

double BezierPath::getPolygonLength(int index) const
{
    if (index >= 0 && static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    return orRefused([&] {
        return index < 0 ? getBezier().GetPolygonLength()
                         : getBezier().GetSubPolygonLength(static_cast<unsigned int>(index));
    });
}

bool BezierPath::containing(const QVariant& value) const
{
    const Point2d point(value);
    return orRefused([&] { return getBezier().IsContaining({point.x, point.y}, Math::Constants::NonZero); });
}

bool BezierPath::inside(const QVariant& other) const
{
    return orRefused(
        [&] { return getBezier().IsInside(readCurve<BezierPath>(other).getBezier(), Math::Constants::NonZero); });
}

bool BezierPath::outside(const QVariant& other) const
{
    return orRefused(
        [&] { return getBezier().IsOutside(readCurve<BezierPath>(other).getBezier(), Math::Constants::NonZero); });
}

bool BezierPath::getClosed() const
{
    return getBezier().IsClosed();
}

void BezierPath::setClosed(bool closed)
{
    if (closed && !getClosed())
        close();
}

bool BezierPath::getEmpty() const
{
    return getBezier().IsEmpty();
}

void BezierPath::setEmpty(bool empty)
{
    if (empty)
        clear();
}

bool BezierPath::getDegenerate() const
{
    return orRefused([&] { return getBezier().IsDegenerate(); });
}

bool BezierPath::getPolyline() const
{
    return orRefused([&] { return getBezier().IsPolyline(); });
}

unsigned int BezierPath::getPointsOnCurve() const
{
    return getBezier().GetNumPointsOnCurve();
}

unsigned int BezierPath::getBezierCount() const
{
    return getBezier().GetNumBezier();
}

Obj BezierPath::getBoundingBoxInner() const
{
    return orRefused([&] { return rectangleOf(getBezier().GetInnerBox()); });
}

double BezierPath::getPolygonLength() const
{
    return getPolygonLength(-1);
}

double BezierPath::getPolygonArea() const
{
    return orRefused([&] { return getBezier().GetPolygonArea(); });
}

bool BezierPath::getPolygonClockwise() const
{
    return orRefused([&] { return getBezier().IsClockwisePolygon(); });
}

template class CurveList<BezierPath, GR_BezierPath2d>;

} // namespace OMC
