#include "core/host/cm_color.h"

#include <algorithm>
#include <cmath>

namespace {

bool isBefore(const CM_GradientData& one, const CM_GradientData& other)
{
    return one.position < other.position;
}

/// Positions lie from 0 to 1; what is no number counts as 0.
CM_GradientData held(CM_GradientData marker)
{
    marker.position = std::isnan(marker.position) ? 0 : std::clamp(marker.position, 0., 1.);
    return marker;
}

CM_Rgba between(const CM_Rgba& one, const CM_Rgba& other, double share)
{
    const auto channel = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {channel(one.red(), other.red()), channel(one.green(), other.green()), channel(one.blue(), other.blue()),
            channel(one.alpha(), other.alpha())};
}

quint64 renameCount = 0;

} // namespace

void CM_BaseColorObj::Rename(const QString& name)
{
    m_name = name;
    ++renameCount;
}

quint64 CM_BaseColorObj::RenameCount()
{
    return renameCount;
}

std::shared_ptr<CM_Color> CM_CastToColor(const std::shared_ptr<CM_BaseColorObj>& entry)
{
    return entry && entry->GetKind() == CM_BaseColorObj::kColour ? std::static_pointer_cast<CM_Color>(entry) : nullptr;
}

std::shared_ptr<CM_Texture> CM_CastToTexture(const std::shared_ptr<CM_BaseColorObj>& entry)
{
    return entry && entry->GetKind() == CM_BaseColorObj::kTexture ? std::static_pointer_cast<CM_Texture>(entry)
                                                                  : nullptr;
}

CM_Color::CM_Color(Type type, const QString& name) : CM_Color(type, name, UT_Id::Generate()) {}

CM_Color::CM_Color(Type type, const QString& name, const UT_Id& id) : CM_BaseColorObj(id, name), m_type(type) {}

std::shared_ptr<CM_BaseColorObj> CM_Color::Clone(bool newId) const
{
    auto clone = std::make_shared<CM_Color>(*this);
    if (newId)
        clone->m_id = UT_Id::Generate();
    return clone;
}

void CM_Color::ChangeColorType(Type type)
{
    if ((type == kSolid) != (m_type == kSolid)) {
        const CM_Rgba first = GetGradientColor(0);
        m_markers = {{0, first}};
        if (type != kSolid)
            m_markers.push_back({1, CM_Rgba(first.red(), first.green(), first.blue(), 0)});
    }
    m_type = type;
}

void CM_Color::setGradientDataCol(const CM_GradientDataCol& markers)
{
    m_markers.clear();
    m_markers.reserve(markers.size());
    std::transform(markers.begin(), markers.end(), std::back_inserter(m_markers), held);
    std::stable_sort(m_markers.begin(), m_markers.end(), isBefore);
}

CM_GradientData CM_Color::GetColorMarker(int index) const
{
    return m_markers[static_cast<std::size_t>(index)];
}

int CM_Color::AddColorMarker(const CM_GradientData& given)
{
    const CM_GradientData marker = held(given);
    const auto place = m_markers.insert(std::upper_bound(m_markers.begin(), m_markers.end(), marker, isBefore), marker);
    return static_cast<int>(place - m_markers.begin());
}

void CM_Color::RemoveColorMarker(int index)
{
    m_markers.erase(m_markers.begin() + index);
}

CM_Rgba CM_Color::GetGradientColor(double position) const
{
    if (m_markers.empty())
        return {0, 0, 0, 255};
    const CM_GradientData wanted = held({position, m_markers.front().rgba});
    const auto next = std::upper_bound(m_markers.begin(), m_markers.end(), wanted, isBefore);
    if (next == m_markers.begin())
        return m_markers.front().rgba;
    if (next == m_markers.end())
        return m_markers.back().rgba;
    const CM_GradientData& last = *std::prev(next);
    return between(last.rgba, next->rgba, (wanted.position - last.position) / (next->position - last.position));
}

void CM_Color::ModifyColor(const CM_Color& other)
{
    m_type = other.m_type;
    m_markers = other.m_markers;
}
