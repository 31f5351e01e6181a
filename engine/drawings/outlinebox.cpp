#include "engine/drawings/outline.h"
#include "engine/drawings/outlineshape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace brindle::engine {

namespace {

/// Grows the box by the edges of the line within a span: by the cuts at some places, and by the places that a
/// coordinate of an edge turns back at. Each of those is between three cuts; where it may leave the box, it is looked
/// for by the golden section.
class SpanBox {
public:
    SpanBox(const LineSections& sections, int span, Math::Box2d& box) : m_sections(sections), m_span(span), m_box(box)
    {
        for (std::size_t i = 0; i < m_cuts.size(); ++i) {
            m_cuts[i] = m_sections.at(m_span, static_cast<double>(i) / (cutCount - 1));
            m_box.AddClosed(m_cuts[i].left());
            m_box.AddClosed(m_cuts[i].right());
        }
    }

    /// Quick when the box has the cuts of all spans.
    void growByTurns()
    {
        for (const auto edge : {&LineSection::left, &LineSection::right}) {
            for (double Math::Point2d::*coordinate : {&Math::Point2d::x, &Math::Point2d::y}) {
                growBy(edge, coordinate, 1);
                growBy(edge, coordinate, -1);
            }
        }
    }

private:
    using Edge = Math::Point2d (LineSection::*)() const;
    static constexpr std::size_t cutCount = 9;

    void growBy(Edge edge, double Math::Point2d::*coordinate, int sign)
    {
        const auto reach = [&](const LineSection& section) { return sign * ((section.*edge)().*coordinate); };
        const double border = sign * ((sign > 0 ? m_box.max() : m_box.min()).*coordinate);
        for (std::size_t i = 1; i + 1 < cutCount; ++i) {
            const double before = reach(m_cuts[i - 1]);
            const double here = reach(m_cuts[i]);
            const double behind = reach(m_cuts[i + 1]);
            // Between the cuts, a smooth edge goes no further beyond them than they differ.
            const bool mayLeave = here + std::max(here - before, here - behind) > border;
            if (here >= before && here >= behind && mayLeave)
                addFarthest(edge, reach, static_cast<double>(i - 1) / (cutCount - 1),
                            static_cast<double>(i + 1) / (cutCount - 1));
        }
        // The first and the last part may have their extremum beside the end.
        constexpr double part = 1.0 / (cutCount - 1);
        if (2 * reach(m_cuts[0]) - reach(m_cuts[1]) > border)
            addFarthest(edge, reach, 0, part);
        if (2 * reach(m_cuts[cutCount - 1]) - reach(m_cuts[cutCount - 2]) > border)
            addFarthest(edge, reach, 1 - part, 1);
    }

    template <typename Reach>
    void addFarthest(Edge edge, const Reach& reach, double low, double high)
    {
        constexpr double golden = 0.6180339887498949;
        constexpr int steps = 40;
        const auto at = [this](double t) { return m_sections.at(m_span, t); };
        double left = high - golden * (high - low);
        double right = low + golden * (high - low);
        double atLeft = reach(at(left));
        double atRight = reach(at(right));
        for (int step = 0; step < steps; ++step) {
            if (atLeft > atRight) {
                high = right;
                right = left;
                atRight = atLeft;
                left = high - golden * (high - low);
                atLeft = reach(at(left));
            } else {
                low = left;
                left = right;
                atLeft = atRight;
                right = low + golden * (high - low);
                atRight = reach(at(right));
            }
        }
        m_box.AddClosed((at((low + high) / 2).*edge)());
    }

    const LineSections& m_sections;
    int m_span;
    Math::Box2d& m_box;
    std::array<LineSection, cutCount> m_cuts;
};

void addSector(const CornerSector& sector, Math::Box2d& box)
{
    const double radius = sector.from.length();
    for (const Math::Vector2d& axis : {Math::Vector2d{1, 0}, {0, 1}, {-1, 0}, {0, -1}}) {
        const double angle = std::atan2(sector.from.cross(axis), sector.from.dot(axis));
        if (angle * sector.angle >= 0 && std::abs(angle) <= std::abs(sector.angle))
            box.AddClosed(sector.centre + axis * radius);
    }
}

} // namespace

Math::Box2d outlineBox(const LineForm& form)
{
    const LineSections sections(form);
    Math::Box2d box;
    if (form.largestHalfWidth() == 0 || form.path->IsEmpty())
        return box;
    const int count = sections.spanCount();
    if (count == 0) {
        box.AddClosed(startTip(form, placeSection(form, 0)).GetBox());
        box.AddClosed(endTip(form, placeSection(form, 1)).GetBox());
        return box;
    }
    const auto addCorner = [&](int before, int behind) {
        for (const CornerSector& sector : cornerSectors(sections.at(before, 1), sections.at(behind, 0)))
            addSector(sector, box);
    };
    for (int span = 0; span + 1 < count; ++span)
        addCorner(span, span + 1);
    if (form.isClosed()) {
        addCorner(count - 1, 0);
    } else {
        box.AddClosed(startTip(form, sections.at(0, 0)).GetBox());
        box.AddClosed(endTip(form, sections.at(count - 1, 1)).GetBox());
    }
    std::vector<SpanBox> spans;
    spans.reserve(static_cast<std::size_t>(count));
    for (int span = 0; span < count; ++span)
        spans.emplace_back(sections, span, box);
    for (SpanBox& span : spans)
        span.growByTurns();
    return box;
}

} // namespace brindle::engine
