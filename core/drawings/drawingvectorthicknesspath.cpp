#include "core/drawings/drawingvectorthicknesspath.h"

#include "core/drawings/drawingvectorthicknesspathpoint.h"
#include "core/frame/refused.h"
#include "core/geometry/bezier.h"
#include "core/geometry/point2d.h"
#include "core/geometry/strictpoint.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace OMC {

namespace {

using Key = GR_ThicknessPath::ThicknessKey;

Key keyFrom(const QVariant& value)
{
    if (const auto* point = objectFrom<DrawingVectorThicknessPathPoint>(value))
        return point->key();
    // A position without a thickness leaves this one, which no key has.
    double position = 0;
    double thickness = std::numeric_limits<double>::quiet_NaN();
    try {
        Point2d::ConvertQVariant(value, position, thickness);
    } catch (const Exception&) {
        BaseObject::throwUnexpected();
    }
    return {position, thickness};
}

int insertThicknessQVariant(GR_ThicknessPath& path, const QVariant& value)
{
    const Key key = keyFrom(value);
    if (!key.isUsable())
        BaseObject::throwUnexpected();
    return path.insertThicknessKey(key);
}

void removeThicknessQVariant(GR_ThicknessPath& path, const QVariant& value)
{
    if (const auto* point = objectFrom<DrawingVectorThicknessPathPoint>(value)) {
        for (int index = path.numThicknessKeys() - 1; index >= 0; --index) {
            if (path.thicknessKey(index) == point->key())
                path.eraseThicknessKey(index);
        }
        return;
    }
    bool isIndex = false;
    const int index = value.toInt(&isIndex);
    if (!isIndex)
        BaseObject::throwUnexpected();
    if (index < 0 || index >= path.numThicknessKeys())
        ListQVar::throwIndexOutOfRange();
    path.eraseThicknessKey(index);
}

/// Refuses a position that would bring a key past its neighbours.
void requirePlace(const GR_ThicknessPath& path, int index, double position)
{
    const bool isFirst = index == 0;
    const bool isLast = index + 1 == path.numThicknessKeys();
    const double before = isFirst ? 0 : path.thicknessT(index - 1);
    const double after = isLast ? 0 : path.thicknessT(index + 1);
    if (isFirst && isLast)
        return;
    if (isFirst && !(position < after))
        throw Exception(DrawingVectorThicknessPath::tr("Unable to replace thickness value --  the provided position "
                                                       "is %1, but must be below %2.")
                            .arg(position)
                            .arg(after));
    if (isLast && !(position > before))
        throw Exception(DrawingVectorThicknessPath::tr("Unable to replace thickness value --  the provided position "
                                                       "is %1, but must be above %2.")
                            .arg(position)
                            .arg(before));
    if (!isFirst && !isLast && !(position > before && position < after))
        throw Exception(DrawingVectorThicknessPath::tr("Unable to replace thickness value --  the provided position "
                                                       "is %1, but value must be between %2 and %3.")
                            .arg(position)
                            .arg(before)
                            .arg(after));
}

GR_Bezier2d tipFrom(const QVariant& value)
{
    if (const auto* curve = objectFrom<Bezier>(value))
        return curve->getBezier();
    if (!value.isValid())
        return Bezier().getBezier();
    std::vector<GR_Bezier2d> curves;
    Bezier::getBezierFromQVariant(value, curves, GR_Bezier2d::maxDegree);
    if (curves.empty())
        BaseObject::throwInvalidArgument(0);
    return curves.front();
}

} // namespace

/// Runs a change on a copy, which becomes the path once it succeeded: others hold the path that there was.
template <typename Edit>
auto DrawingVectorThicknessPath::edit(const Edit& edit)
{
    auto changed = std::make_shared<GR_ThicknessPath>(*m_path);
    if constexpr (std::is_void_v<std::invoke_result_t<const Edit&, GR_ThicknessPath&>>) {
        edit(*changed);
        m_path = std::move(changed);
    } else {
        auto result = edit(*changed);
        m_path = std::move(changed);
        return result;
    }
}

DrawingVectorThicknessPath::DrawingVectorThicknessPath() : m_path(std::make_shared<const GR_ThicknessPath>()) {}

DrawingVectorThicknessPath::DrawingVectorThicknessPath(const DrawingVectorThicknessPath& other) = default;

DrawingVectorThicknessPath::DrawingVectorThicknessPath(const GR_ThicknessPath* path)
    : m_path(path ? std::make_shared<const GR_ThicknessPath>(*path) : std::make_shared<const GR_ThicknessPath>())
{}

DrawingVectorThicknessPath::DrawingVectorThicknessPath(Shared, GR_ThicknessPathPtr path) : m_path(std::move(path)) {}

DrawingVectorThicknessPath& DrawingVectorThicknessPath::operator=(const DrawingVectorThicknessPath& other)
{
    m_path = other.m_path;
    setPosition(0);
    return *this;
}

DrawingVectorThicknessPath* DrawingVectorThicknessPath::createShared(GR_ThicknessPathPtr path)
{
    return path ? new DrawingVectorThicknessPath(Shared(), std::move(path)) : new DrawingVectorThicknessPath;
}

std::string DrawingVectorThicknessPath::__str__() const
{
    return "DrawingVectorThicknessPath()";
}

// --- The list -------------------------------------------------------------------------------------------------------

std::size_t DrawingVectorThicknessPath::size() const
{
    return static_cast<std::size_t>(m_path->numThicknessKeys());
}

QVariant DrawingVectorThicknessPath::get(int index) const
{
    requireIndex(index);
    return toVariant(new DrawingVectorThicknessPathPoint(m_path->thicknessKey(index)));
}

void DrawingVectorThicknessPath::set(int index, const QVariant& value)
{
    requireIndex(index);
    Key key;
    if (const auto* point = objectFrom<DrawingVectorThicknessPathPoint>(value)) {
        requirePlace(*m_path, index, point->getPosition());
        key = point->key();
    } else {
        bool isNumber = false;
        const double thickness = value.toDouble(&isNumber);
        key = Key(m_path->thicknessT(index), thickness);
        if (!isNumber || !key.isUsable())
            throwUnexpected();
    }
    edit([&](GR_ThicknessPath& path) {
        path.eraseThicknessKey(index);
        path.insertThicknessKey(key);
    });
}

QList<QVariant> DrawingVectorThicknessPath::list() const
{
    QList<QVariant> points;
    points.reserve(m_path->numThicknessKeys());
    for (const Key& key : m_path->thicknessKeys())
        points.append(toVariant(new DrawingVectorThicknessPathPoint(key)));
    return points;
}

bool DrawingVectorThicknessPath::contains(const QVariant& value) const
{
    const auto* point = objectFrom<DrawingVectorThicknessPathPoint>(value);
    return point && std::ranges::find(m_path->thicknessKeys(), point->key()) != m_path->thicknessKeys().end();
}

QVariant DrawingVectorThicknessPath::insert(const QVariant& points)
{
    const QVariantList list = points.toList();
    const bool isPair = list.size() == 2 && isStrictNumber(list.front()) && isStrictNumber(list.back());
    return edit([&](GR_ThicknessPath& path) -> QVariant {
        if (points.typeId() != QMetaType::QVariantList || isPair)
            return insertThicknessQVariant(path, points);
        QVariantList indices;
        for (const QVariant& point : list)
            indices.append(insertThicknessQVariant(path, point));
        return indices;
    });
}

void DrawingVectorThicknessPath::remove(const QVariant& point)
{
    edit([&](GR_ThicknessPath& path) { removeThicknessQVariant(path, point); });
}

// --- Other paths ----------------------------------------------------------------------------------------------------

Obj DrawingVectorThicknessPath::clone() const
{
    return Obj(new DrawingVectorThicknessPath(m_path.get()));
}

Obj DrawingVectorThicknessPath::reverse() const
{
    auto reversed = std::make_shared<GR_ThicknessPath>(*m_path);
    reversed->reverse();
    return Obj(createShared(std::move(reversed)));
}

Obj DrawingVectorThicknessPath::truncate(double from, double to) const
{
    auto stretch = std::make_shared<GR_ThicknessPath>(*m_path);
    orRefused([&] { stretch->truncate(from, to); });
    return Obj(createShared(std::move(stretch)));
}

void DrawingVectorThicknessPath::transform(double factor, double offset)
{
    orRefused([&] { edit([&](GR_ThicknessPath& path) { path.transform(factor, offset); }); });
}

// --- Properties -----------------------------------------------------------------------------------------------------

bool DrawingVectorThicknessPath::getEmpty() const
{
    return m_path->isEmpty();
}

bool DrawingVectorThicknessPath::getThicknessConstant() const
{
    return m_path->isConstant();
}

bool DrawingVectorThicknessPath::getClosed() const
{
    return m_path->isClosed();
}

void DrawingVectorThicknessPath::setClosed(bool closed)
{
    edit([closed](GR_ThicknessPath& path) { path.setClosed(closed); });
}

double DrawingVectorThicknessPath::getMinThickness() const
{
    return m_path->minThickness();
}

double DrawingVectorThicknessPath::getMinThicknessInner() const
{
    return m_path->minThicknessInner();
}

double DrawingVectorThicknessPath::getMaxThickness() const
{
    return m_path->maxThickness();
}

double DrawingVectorThicknessPath::getMaxThicknessInner() const
{
    return m_path->maxThicknessInner();
}

QVariant DrawingVectorThicknessPath::getTipFromBezier() const
{
    return QVariant::fromValue(Bezier(m_path->tipFromBezier()));
}

void DrawingVectorThicknessPath::setTipFromBezier(const QVariant& curve)
{
    orRefused([&] { edit([&](GR_ThicknessPath& path) { path.setTipFromBezier(tipFrom(curve)); }); });
}

QVariant DrawingVectorThicknessPath::getTipToBezier() const
{
    return QVariant::fromValue(Bezier(m_path->tipToBezier()));
}

void DrawingVectorThicknessPath::setTipToBezier(const QVariant& curve)
{
    orRefused([&] { edit([&](GR_ThicknessPath& path) { path.setTipToBezier(tipFrom(curve)); }); });
}

void DrawingVectorThicknessPath::requireIndex(int index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
}

} // namespace OMC
