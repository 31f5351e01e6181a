#include "core/geometry/bezier.h"

#include "core/geometry/curvelist_p.h"
#include "core/host/gr_bezier.h"

namespace OMC {

namespace {

/// The texts of the boundaries, and what the engine calls them.
constexpr struct {
    QLatin1String text;
    Math::Constants::Boundary boundary;
} boundaries[] = {
    {QLatin1String("Open"), Math::Constants::Open},
    {QLatin1String("Closed"), Math::Constants::Closed},
};

QString boundaryText(Math::Constants::Boundary boundary)
{
    for (const auto& entry : boundaries) {
        if (entry.boundary == boundary)
            return entry.text;
    }
    return QStringLiteral("Unknown");
}

Math::Constants::Boundary boundaryFrom(const QString& text)
{
    for (const auto& entry : boundaries) {
        if (text.compare(entry.text, Qt::CaseInsensitive) == 0)
            return entry.boundary;
    }
    throw Exception(Bezier::tr("Unexpected boundary type. Valid types are : Open, Closed"));
}

[[noreturn]] void throwInvalidDegree()
{
    throw Exception(Bezier::tr("Invalid bezier degree - valid value is from 0 through 3."));
}

GR_Bezier2d newCurve()
{
    return {GR_Bezier2d::maxDegree, Math::Constants::Closed, Math::Constants::Closed};
}

/// Makes a curve of the first `degree` points, in slots 0 on.
///
/// Required: the last slot stays as it was made, and the points behind the first ones make no curve. Scripts pass one
/// point more than the degree.
void appendCurveOfPoints(const QVariant& value, std::vector<GR_Bezier2d>& curves, unsigned int degree)
{
    const CurvePoints points = readCurvePoints(value);
    if (points.empty())
        return;
    if (degree > GR_Bezier2d::maxDegree)
        throwInvalidDegree();
    if (degree == 0 || points.size() < degree)
        return;
    GR_Bezier2d curve = newCurve();
    curve.SetDegree(degree);
    for (unsigned int index = 0; index < degree; ++index)
        curve.SetPoint(index, *points[index]);
    curves.push_back(curve);
}

} // namespace

template <>
struct CurveTraits<Bezier> {
    static constexpr auto text = "Bezier()[%1]";
    static constexpr unsigned int degree = GR_Bezier2d::maxDegree;

    static std::size_t count(const GR_Bezier2d& curve) { return curve.GetDegree() + 1; }
    static const Math::Box2d& box(const GR_Bezier2d& curve) { return curve.GetBoxRef(); }

    /// Required: several points may not reach the last control point.
    static void setPoints(GR_Bezier2d& curve, unsigned int first, const CurvePoints& points)
    {
        if (first + points.size() >= count(curve))
            ListQVar::throwIndexOutOfRange();
        for (const auto& point : points)
            curve.SetPoint(first++, *point);
    }

    /// Required: the last control point is left out, so a curve of degree 0 finds nothing but its own point.
    static double reach(const GR_Bezier2d& curve, const Math::Point2d& point)
    {
        double farthest = 0.0;
        for (unsigned int index = 0; index < curve.GetDegree(); ++index) {
            const Math::Vector2d way = curve.GetPoint(index) - point;
            farthest = std::max(farthest, way.dot(way));
        }
        return farthest;
    }
};

Bezier::Bezier() : CurveList(newCurve()) {}

Bezier::Bezier(const GR_Bezier2d& curve) : CurveList(curve) {}

Bezier::Bezier(const Bezier& other) = default;

Bezier::Bezier(const QVariant& value, unsigned int) : Bezier()
{
    std::vector<GR_Bezier2d> curves;
    getBezierFromQVariant(value, curves, CurveTraits<Bezier>::degree);
    if (!curves.empty())
        hostCurve() = curves.front();
}

Bezier& Bezier::operator=(const Bezier& other) = default;

void Bezier::getBezierFromQVariant(const QVariant& value, std::vector<GR_Bezier2d>& curves, unsigned int degree)
{
    if (value.typeId() != QMetaType::QVariantList) {
        appendCurveOfPoints(value, curves, degree);
        return;
    }
    const QVariantList list = value.toList();
    for (qsizetype next = 0; list.size() - next > degree;) {
        QVariantList run;
        for (; next < list.size(); ++next) {
            const auto* curve = objectFrom<Bezier>(list[next]);
            if (!curve)
                run.append(list[next]);
            else if (run.isEmpty())
                curves.push_back(curve->getBezier());
            else
                break;
        }
        appendCurveOfPoints(run, curves, degree);
    }
}

Obj Bezier::derivative() const
{
    return orRefused([&] { return Obj(new Bezier(getBezier().GetDerivative())); });
}

Obj Bezier::evaluateAndRound(double parameter) const
{
    requireFinite(parameter, 0);
    return orRefused([&] { return Obj(new Point2d(getBezier().EvaluateAndRound(parameter))); });
}

void Bezier::straighten()
{
    GR_Bezier2d& curve = hostCurve();
    if (curve.GetDegree() <= 1)
        return;
    curve.SetPoint(1, curve.GetPoint(curve.GetDegree()));
    curve.SetDegree(1);
}

int Bezier::getDegree() const
{
    return static_cast<int>(getBezier().GetDegree());
}

void Bezier::setDegree(int degree)
{
    if (degree < 0 || static_cast<unsigned int>(degree) > GR_Bezier2d::maxDegree)
        throwInvalidDegree();
    hostCurve().SetDegree(static_cast<unsigned int>(degree));
}

QString Bezier::getFromBoundary() const
{
    return boundaryText(getBezier().GetFromBoundary());
}

void Bezier::setFromBoundary(const QString& boundary)
{
    hostCurve().SetFromBoundary(boundaryFrom(boundary));
}

double Bezier::getFromParameter() const
{
    return getBezier().GetFromParameter();
}

void Bezier::setFromParameter(double parameter)
{
    requireFinite(parameter, 0);
    hostCurve().SetFromParameter(parameter);
}

QString Bezier::getToBoundary() const
{
    return boundaryText(getBezier().GetToBoundary());
}

void Bezier::setToBoundary(const QString& boundary)
{
    hostCurve().SetToBoundary(boundaryFrom(boundary));
}

double Bezier::getToParameter() const
{
    return getBezier().GetToParameter();
}

void Bezier::setToParameter(double parameter)
{
    requireFinite(parameter, 0);
    hostCurve().SetToParameter(parameter);
}

bool Bezier::getLine() const
{
    return orRefused([&] { return getBezier().IsSegment(); });
}

bool Bezier::getCusp() const
{
    return orRefused([&] { return getBezier().GetCurveCharacteristic() == GR_Bezier2d::Cusp; });
}

unsigned int Bezier::getInflections() const
{
    switch (orRefused([&] { return getBezier().GetCurveCharacteristic(); })) {
    case GR_Bezier2d::OneInflection:
        return 1;
    case GR_Bezier2d::TwoInflections:
        return 2;
    default:
        return 0;
    }
}

template class CurveList<Bezier, GR_Bezier2d>;

} // namespace OMC
