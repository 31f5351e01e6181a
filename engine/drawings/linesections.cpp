#include "engine/drawings/linesections.h"

#include "engine/geometry2d/curveshape.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// Abscissae and weights of Gauss's quadrature with five points on [-1, 1] (Abramowitz and Stegun, table 25.4).
constexpr std::array<double, 3> gaussPlaces{0, 0.5384693101056831, 0.9061798459386640};
constexpr std::array<double, 3> gaussWeights{0.5688888888888889, 0.4786286704993665, 0.2369268850561891};

double speedAt(const PlaneCurve& slopes, double t)
{
    const Math::Point2d slope = slopes.at(t);
    return std::sqrt(slope.x * slope.x + slope.y * slope.y);
}

void appendRoots(std::span<const double> coefficients, std::vector<double>& places)
{
    for (const double root : bernsteinRoots(coefficients))
        places.push_back(root);
}

/// Where a curve turns back in a coordinate, or begins to bend the other way.
std::vector<double> turnsOf(const PlaneCurve& curve)
{
    std::vector<double> places{0, 1};
    if (curve.degree < 2)
        return places;
    const PlaneCurve slopes = curve.derivative();
    std::array<double, GR_Bezier2d::maxDegree> rise{};
    for (double Math::Point2d::*coordinate : {&Math::Point2d::x, &Math::Point2d::y}) {
        for (unsigned int i = 0; i <= slopes.degree; ++i)
            rise[i] = slopes.points[i].*coordinate;
        appendRoots({rise.data(), slopes.degree + 1}, places);
    }
    if (curve.degree == 3) {
        const auto& p = slopes.points;
        const auto cross = [](const Math::Point2d& a, const Math::Point2d& b) { return a.x * b.y - a.y * b.x; };
        const std::array<double, 3> bend{cross(p[0], p[1]), cross(p[0], p[2]) / 2, cross(p[1], p[2])};
        appendRoots(bend, places);
    }
    std::ranges::sort(places);
    const auto same = [](double one, double other) { return other - one <= 1e-9; };
    places.erase(std::unique(places.begin(), places.end(), same), places.end());
    places.back() = 1;
    return places;
}

} // namespace

LineForm LineForm::of(const GR_StrokeData& stroke)
{
    return {&stroke.GetPath(),
            stroke.GetThicknessBinder(),
            stroke.GetLineStyle().GetThickness() / 2,
            {stroke.tipType(GR_StrokeEnd::From), stroke.tipType(GR_StrokeEnd::To)}};
}

GR_HalfWidths LineForm::widthsAt(double share) const
{
    return thickness.thicknessPath() ? thickness.halfWidths(share) : GR_HalfWidths{halfWidth, halfWidth};
}

bool LineForm::hasConstantWidths() const
{
    return !thickness.thicknessPath() || thickness.thicknessPath()->isConstant();
}

double LineForm::largestHalfWidth() const
{
    return thickness.thicknessPath() ? thickness.maxThickness() : halfWidth;
}

bool LineForm::isClosed() const
{
    return path->IsClosed() && (!thickness.thicknessPath() || thickness.thicknessPath()->isClosed());
}

LineSpan::LineSpan(const PlaneCurve& curve, bool measured)
    : m_curve(curve),
      m_slopes(curve.derivative()),
      m_from(fromTangent(curve)),
      m_to(-fromTangent(curve.reversed()))
{
    if (!measured)
        return;
    constexpr double half = 0.5 / steps;
    for (int step = 0; step < steps; ++step) {
        const double middle = (2 * step + 1) * half;
        double sum = gaussWeights[0] * speedAt(m_slopes, middle);
        for (std::size_t i = 1; i < gaussPlaces.size(); ++i)
            sum += gaussWeights[i] * (speedAt(m_slopes, middle - gaussPlaces[i] * half) +
                                      speedAt(m_slopes, middle + gaussPlaces[i] * half));
        const auto at = static_cast<std::size_t>(step);
        m_lengths[at + 1] = m_lengths[at] + half * sum;
    }
    for (std::size_t step = 0; step <= steps; ++step)
        m_speeds[step] = speedAt(m_slopes, static_cast<double>(step) / steps);
}

double LineSpan::lengthUntil(double t) const
{
    // The cubic with the lengths and speeds at both steps beside t.
    const double place = std::clamp(t, 0.0, 1.0) * steps;
    const auto step = static_cast<std::size_t>(std::min(std::floor(place), steps - 1.0));
    const double s = place - static_cast<double>(step);
    const double rest = 1 - s;
    const double rise = m_lengths[step + 1] - m_lengths[step];
    const double atStart = m_speeds[step] / steps;
    const double atEnd = m_speeds[step + 1] / steps;
    const double gone = rise * s * s * (3 - 2 * s) + s * rest * (atStart * rest - atEnd * s);
    return m_lengths[step] + std::clamp(gone, 0.0, rise);
}

double LineSpan::parameterAt(double length) const
{
    constexpr int halvings = 52;
    double low = 0;
    double high = 1;
    for (int i = 0; i < halvings; ++i) {
        const double middle = (low + high) / 2;
        (lengthUntil(middle) < length ? low : high) = middle;
    }
    return high;
}

Math::Vector2d LineSpan::along(double t) const
{
    if (t <= 0)
        return m_from;
    if (t >= 1)
        return m_to;
    const Math::Point2d slope = m_slopes.at(t);
    const double square = slope.x * slope.x + slope.y * slope.y;
    if (std::isnormal(square))
        return Math::Vector2d{slope.x, slope.y} * (1 / std::sqrt(square));
    const Math::Vector2d way = direction({}, slope);
    return way == Math::Vector2d{} ? m_from : way;
}

LineSections::LineSections(const LineForm& form, bool measured)
    : m_form(form),
      m_measured(measured || !form.hasConstantWidths())
{
    for (unsigned int i = 0; i < form.path->GetNumBezier(); ++i)
        addCurve(planeCurve(form.path->GetBezier(i)));
    if (!form.hasConstantWidths())
        cutAtKeys();
    measure();
}

void LineSections::addCurve(const PlaneCurve& curve)
{
    requireFinite(curve);
    if (curve.isPoint())
        return;
    const std::vector<double> places = turnsOf(curve);
    for (std::size_t i = 1; i < places.size(); ++i) {
        const PlaneCurve part = places.size() == 2 ? curve : curve.stretch(places[i - 1], places[i]);
        if (!part.isPoint())
            m_spans.emplace_back(part, m_measured);
    }
}

void LineSections::measure()
{
    m_before.clear();
    m_length = 0;
    for (const LineSpan& span : m_spans) {
        m_before.push_back(m_length);
        m_length += span.length();
    }
}

std::vector<double> LineSections::keyShares() const
{
    // Of a path that repeats so often that this is more, the widths are read where the line is cut anyway.
    constexpr double most = 4096;
    const GR_ThicknessPath& path = *m_form.thickness.thicknessPath();
    const double start = m_form.thickness.startPosition;
    const double way = m_form.thickness.stopPosition - start;
    std::vector<double> shares;
    const auto consider = [&](double position) {
        const double share = (position - start) / way;
        if (share > 0 && share < 1)
            shares.push_back(share);
    };
    const double low = std::min(start, start + way);
    const double high = std::max(start, start + way);
    for (const auto& key : path.thicknessKeys()) {
        if (!path.isClosed()) {
            consider(key.position);
            continue;
        }
        if ((high - low + 2) * path.numThicknessKeys() > most)
            return {};
        for (double position = key.position + std::ceil(low - key.position); position <= high; ++position)
            consider(position);
    }
    std::ranges::sort(shares);
    return shares;
}

void LineSections::cutAtKeys()
{
    measure();
    const std::vector<double> shares = keyShares();
    std::vector<LineSpan> cut;
    auto next = shares.begin();
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        const LineSpan& span = m_spans[i];
        double from = 0;
        for (; next != shares.end() && *next * m_length < m_before[i] + span.length(); ++next) {
            const double to = span.parameterAt(*next * m_length - m_before[i]);
            if (to - from <= 1e-9 || 1 - to <= 1e-9)
                continue;
            cut.emplace_back(span.curve().stretch(from, to), true);
            from = to;
        }
        if (from == 0)
            cut.push_back(span);
        else
            cut.emplace_back(span.curve().stretch(from, 1), true);
    }
    m_spans = std::move(cut);
}

double LineSections::lengthUntil(int span, double t) const
{
    const auto index = static_cast<std::size_t>(span);
    return m_before[index] + m_spans[index].lengthUntil(t);
}

LineSection LineSections::at(int span, double t) const
{
    const auto index = static_cast<std::size_t>(span);
    const LineSpan& on = m_spans[index];
    double share = 0;
    if (m_measured && m_length > 0)
        share = std::min(1.0, lengthUntil(span, t) / m_length);
    return {on.curve().at(t), on.along(t), m_form.widthsAt(share)};
}

} // namespace brindle::engine
