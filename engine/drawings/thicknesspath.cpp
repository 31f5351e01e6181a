#include "core/host/gr_thicknesspath.h"
#include "engine/drawings/thicknessspan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

using brindle::engine::ThicknessSpan;

namespace {

using Key = GR_ThicknessPath::ThicknessKey;
using Side = GR_ThicknessPath::Side;

constexpr Side Key::*bothSides[] = {&Key::left, &Key::right};

bool isFinite(const Side& side)
{
    return std::isfinite(side.thickness) && std::isfinite(side.fromControl) &&
           std::isfinite(side.fromControlPosition) && std::isfinite(side.toControl) &&
           std::isfinite(side.toControlPosition);
}

bool isBefore(const Key& key, double position)
{
    return key.position < position;
}

/// By their positions; of keys at one position, the last stays.
std::vector<Key> ordered(std::vector<Key> keys)
{
    std::ranges::stable_sort(keys, {}, &Key::position);
    const auto kept = std::unique(keys.rbegin(), keys.rend(),
                                  [](const Key& one, const Key& other) { return one.position == other.position; });
    keys.erase(keys.begin(), kept.base());
    return keys;
}

Side moved(Side side, double factor, double offset)
{
    side.fromControlPosition = side.fromControlPosition * factor + offset;
    side.toControlPosition = side.toControlPosition * factor + offset;
    return side;
}

Key moved(const Key& key, double factor, double offset)
{
    Key result = key;
    result.position = key.position * factor + offset;
    result.left = moved(key.left, factor, offset);
    result.right = moved(key.right, factor, offset);
    return result;
}

GR_HalfWidths widthsOf(const Key& key)
{
    return {key.left.thickness, key.right.thickness};
}

/// Where the width is constant ahead of or behind a key, a handle that reaches out there must not bend what is put
/// beside it.
Key levelledAt(const Key& key, double position)
{
    return {position, key.left.thickness, key.right.thickness};
}

/// Makes a key at a position without changing the widths anywhere; where one stands, nothing.
void makeKey(std::vector<Key>& keys, double position)
{
    const auto after = std::ranges::lower_bound(keys, position, {}, &Key::position);
    if (after != keys.end() && after->position == position)
        return;
    if (after == keys.begin()) {
        for (Side Key::*side : bothSides) {
            (*after.*side).fromControl = (*after.*side).thickness;
            (*after.*side).fromControlPosition = after->position;
        }
        keys.insert(after, levelledAt(*after, position));
        return;
    }
    if (after == keys.end()) {
        Key& last = keys.back();
        for (Side Key::*side : bothSides) {
            (last.*side).toControl = (last.*side).thickness;
            (last.*side).toControlPosition = last.position;
        }
        keys.push_back(levelledAt(last, position));
        return;
    }
    const auto before = after - 1;
    Key made;
    made.position = position;
    for (Side Key::*side : bothSides) {
        const ThicknessSpan::Parts parts = ThicknessSpan(*before, *after, side).split(position);
        (*before).*side = parts.from;
        made.*side = parts.middle;
        (*after).*side = parts.to;
    }
    keys.insert(after, made);
}

void requireUsable(const Key& key)
{
    if (!key.isUsable())
        throw std::invalid_argument("A thickness key has finite numbers, and thicknesses of 0 or more.");
}

void requireFinite(const GR_Bezier2d& curve)
{
    for (unsigned int index = 0; index <= curve.GetDegree(); ++index) {
        const Math::Point2d& point = curve.GetPoint(index);
        if (!std::isfinite(point.x) || !std::isfinite(point.y))
            throw std::invalid_argument("The curve of a tip has finite points.");
    }
}

bool isPlace(const GR_Bezier2d& curve)
{
    for (unsigned int index = 1; index <= curve.GetDegree(); ++index) {
        if (curve.GetPoint(index) != curve.GetPoint(0))
            return false;
    }
    return true;
}

/// The curve of a tip for the line that runs the other way: the sides change places, and it still runs from the left.
GR_Bezier2d mirrored(const GR_Bezier2d& tip)
{
    GR_Bezier2d result = tip;
    result *= Math::Matrix2x3({1, 0}, {0, -1}, {0, 0});
    result.Reverse();
    return result;
}

/// Calls `visit(from, to)` for each two neighbouring keys, also across the ends of a closed path.
template <typename Visit>
void visitSpans(const GR_ThicknessPath& path, Visit visit)
{
    const auto& keys = path.thicknessKeys();
    for (std::size_t index = 1; index < keys.size(); ++index)
        visit(keys[index - 1], keys[index]);
    if (path.isClosed() && keys.size() > 1 && keys.back().position < keys.front().position + 1)
        visit(keys.back(), moved(keys.front(), 1, 1));
}

} // namespace

// --- Keys -----------------------------------------------------------------------------------------------------------

GR_ThicknessPath::ThicknessKey::ThicknessKey(double keyPosition, double leftThickness, double rightThickness)
    : position(keyPosition),
      left{leftThickness, leftThickness, keyPosition, leftThickness, keyPosition},
      right{rightThickness, rightThickness, keyPosition, rightThickness, keyPosition}
{}

bool GR_ThicknessPath::ThicknessKey::isUsable() const
{
    return std::isfinite(position) && isFinite(left) && isFinite(right) && left.thickness >= 0 && right.thickness >= 0;
}

GR_ThicknessPath::GR_ThicknessPath(double thickness)
{
    insertThicknessKey({0, thickness});
    insertThicknessKey({1, thickness});
}

std::shared_ptr<GR_ThicknessPath> GR_ThicknessPath::CreateWith(const std::vector<ThicknessKey>& keys)
{
    auto path = std::make_shared<GR_ThicknessPath>();
    std::ranges::for_each(keys, &requireUsable);
    path->m_keys = ordered(keys);
    return path;
}

const GR_ThicknessPath::ThicknessKey& GR_ThicknessPath::thicknessKey(int index) const
{
    if (index < 0 || index >= numThicknessKeys())
        throw std::out_of_range("There is no thickness key of this index.");
    return m_keys[static_cast<std::size_t>(index)];
}

int GR_ThicknessPath::insertThicknessKey(const ThicknessKey& key)
{
    requireUsable(key);
    const auto place = std::lower_bound(m_keys.begin(), m_keys.end(), key.position, &isBefore);
    const auto index = place - m_keys.begin();
    if (place != m_keys.end() && place->position == key.position)
        *place = key;
    else
        m_keys.insert(place, key);
    return static_cast<int>(index);
}

int GR_ThicknessPath::insertThicknessKey(double position, double leftThickness, double rightThickness)
{
    return insertThicknessKey({position, leftThickness, rightThickness});
}

void GR_ThicknessPath::eraseThicknessKey(int index)
{
    thicknessKey(index);
    m_keys.erase(m_keys.begin() + index);
}

// --- Tips -----------------------------------------------------------------------------------------------------------

void GR_ThicknessPath::setTipFromBezier(const GR_Bezier2d& curve)
{
    requireFinite(curve);
    m_tipFrom = curve;
}

void GR_ThicknessPath::setTipToBezier(const GR_Bezier2d& curve)
{
    requireFinite(curve);
    m_tipTo = curve;
}

bool GR_ThicknessPath::hasTipFromBezier() const
{
    return !isPlace(m_tipFrom);
}

bool GR_ThicknessPath::hasTipToBezier() const
{
    return !isPlace(m_tipTo);
}

// --- Widths ---------------------------------------------------------------------------------------------------------

GR_HalfWidths GR_ThicknessPath::halfWidths(double position) const
{
    if (m_keys.empty())
        return {};
    if (!std::isfinite(position))
        position = 0;
    const auto between = [](const Key& from, const Key& to, double at) -> GR_HalfWidths {
        const double left = ThicknessSpan(from, to, &Key::left).widthAt(at);
        return {left, from.left == from.right && to.left == to.right
                          ? left
                          : ThicknessSpan(from, to, &Key::right).widthAt(at)};
    };
    const Key& first = m_keys.front();
    const Key& last = m_keys.back();
    if (m_closed && last.position < first.position + 1 && (position < first.position || position > last.position)) {
        const double rounds = std::floor(position - first.position);
        position = std::isfinite(rounds) ? position - rounds : first.position;
        if (position > last.position)
            return between(last, moved(first, 1, 1), position);
    }
    const auto after = std::lower_bound(m_keys.begin(), m_keys.end(), position, &isBefore);
    if (after == m_keys.end())
        return widthsOf(last);
    if (after == m_keys.begin() || after->position == position)
        return widthsOf(*after);
    return between(*(after - 1), *after, position);
}

double GR_ThicknessPath::minThickness() const
{
    double least = minThicknessInner();
    visitSpans(*this, [&least](const Key& from, const Key& to) {
        for (Side Key::*side : bothSides)
            least = std::min(least, ThicknessSpan(from, to, side).range().first);
    });
    return least;
}

double GR_ThicknessPath::maxThickness() const
{
    double greatest = maxThicknessInner();
    visitSpans(*this, [&greatest](const Key& from, const Key& to) {
        for (Side Key::*side : bothSides)
            greatest = std::max(greatest, ThicknessSpan(from, to, side).range().second);
    });
    return greatest;
}

double GR_ThicknessPath::minThicknessInner() const
{
    if (m_keys.empty())
        return 0;
    double least = m_keys.front().left.thickness;
    for (const Key& key : m_keys)
        least = std::min({least, key.left.thickness, key.right.thickness});
    return least;
}

double GR_ThicknessPath::maxThicknessInner() const
{
    double greatest = 0;
    for (const Key& key : m_keys)
        greatest = std::max({greatest, key.left.thickness, key.right.thickness});
    return greatest;
}

bool GR_ThicknessPath::isConstant() const
{
    bool isConstant = true;
    visitSpans(*this, [&isConstant](const Key& from, const Key& to) {
        for (Side Key::*side : bothSides)
            isConstant = isConstant && ThicknessSpan(from, to, side).isConstant();
    });
    return isConstant;
}

// --- Changes --------------------------------------------------------------------------------------------------------

void GR_ThicknessPath::reverse()
{
    const auto turned = [](const Side& side) {
        return Side{side.thickness, side.toControl, 1 - side.toControlPosition, side.fromControl,
                    1 - side.fromControlPosition};
    };
    for (Key& key : m_keys) {
        key.position = 1 - key.position;
        key.left = std::exchange(key.right, turned(key.left));
        key.left = turned(key.left);
    }
    m_keys = ordered(std::move(m_keys)); // Positions close together may have become one.
    m_tipFrom = std::exchange(m_tipTo, mirrored(m_tipFrom));
    m_tipFrom = mirrored(m_tipFrom);
}

void GR_ThicknessPath::truncate(double from, double to)
{
    if (!std::isfinite(from) || !std::isfinite(to) || from == to)
        throw std::invalid_argument("A thickness path is cut at two different finite positions.");
    if (from > to)
        std::swap(from, to);
    if (m_keys.empty())
        return;
    std::vector<Key> keys = m_keys;
    if (m_closed && keys.back().position < keys.front().position + 1) {
        keys.clear();
        for (const double round : {-1., 0., 1.}) {
            for (const Key& key : m_keys)
                keys.push_back(moved(key, 1, round));
        }
        keys = ordered(std::move(keys));
    }
    makeKey(keys, from);
    makeKey(keys, to);
    std::erase_if(keys, [from, to](const Key& key) { return key.position < from || key.position > to; });
    m_keys = std::move(keys);
    m_closed = false;
}

void GR_ThicknessPath::transform(double factor, double offset)
{
    std::vector<Key> keys;
    keys.reserve(m_keys.size());
    for (const Key& key : m_keys)
        keys.push_back(moved(key, factor, offset));
    const bool isInOrder = std::ranges::adjacent_find(keys, [](const Key& one, const Key& other) {
                               return !(one.position < other.position);
                           }) == keys.end();
    if (!(factor > 0) || !std::isfinite(factor) || !std::isfinite(offset) || !isInOrder ||
        !std::ranges::all_of(keys, &Key::isUsable))
        throw std::invalid_argument("A thickness path is stretched by a finite factor above 0.");
    m_keys = std::move(keys);
}

// --- The part that a stroke has -------------------------------------------------------------------------------------

GR_HalfWidths GR_ThicknessBinder::halfWidths(double share) const
{
    if (!m_path)
        return {};
    const GR_HalfWidths widths = m_path->halfWidths(std::lerp(startPosition, stopPosition, share));
    return startPosition <= stopPosition ? widths : GR_HalfWidths{widths.right, widths.left};
}

double GR_ThicknessBinder::maxThickness() const
{
    if (!m_path)
        return 0;
    if (startPosition == stopPosition || !std::isfinite(startPosition) || !std::isfinite(stopPosition)) {
        const GR_HalfWidths widths = halfWidths(0);
        return std::max(widths.left, widths.right);
    }
    const auto [from, to] = std::minmax(startPosition, stopPosition);
    const auto& keys = m_path->thicknessKeys();
    if (!keys.empty() && from <= keys.front().position && to >= keys.back().position)
        return m_path->maxThickness();
    GR_ThicknessPath part = *m_path;
    part.truncate(from, to);
    return part.maxThickness();
}

std::optional<GR_Bezier2d> GR_ThicknessBinder::tipFromBezier() const
{
    if (!m_path || m_path->isClosed())
        return std::nullopt;
    if (startPosition <= stopPosition)
        return startPosition <= 0 && m_path->hasTipFromBezier() ? std::optional(m_path->tipFromBezier()) : std::nullopt;
    return startPosition >= 1 && m_path->hasTipToBezier() ? std::optional(mirrored(m_path->tipToBezier()))
                                                          : std::nullopt;
}

std::optional<GR_Bezier2d> GR_ThicknessBinder::tipToBezier() const
{
    GR_ThicknessBinder turned = *this;
    turned.reverse();
    const auto tip = turned.tipFromBezier();
    return tip ? std::optional(mirrored(*tip)) : std::nullopt;
}

void GR_ThicknessBinder::reverse()
{
    std::swap(startPosition, stopPosition);
    std::swap(startTangentLeft, stopTangentRight);
    std::swap(startTangentRight, stopTangentLeft);
}

void GR_ThicknessBinder::truncate(double from, double to)
{
    const double start = startPosition;
    const double stop = stopPosition;
    if (from != 0) {
        startPosition = std::lerp(start, stop, from);
        startTangentLeft = startTangentRight = 0;
    }
    if (to != 1) {
        stopPosition = std::lerp(start, stop, to);
        stopTangentLeft = stopTangentRight = 0;
    }
}

bool GR_ThicknessBinder::operator==(const GR_ThicknessBinder& other) const
{
    const bool samePath = m_path == other.m_path || (m_path && other.m_path && *m_path == *other.m_path);
    return samePath && startPosition == other.startPosition && stopPosition == other.stopPosition &&
           startTangentLeft == other.startTangentLeft && startTangentRight == other.startTangentRight &&
           stopTangentLeft == other.stopTangentLeft && stopTangentRight == other.stopTangentRight;
}
