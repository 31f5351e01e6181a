#include "engine/drawings/linecuts.h"

#include "engine/drawings/linepieces.h"
#include "engine/drawings/outlineshape.h"

#include <algorithm>
#include <numbers>

namespace brindle::engine {

namespace {

/// Makes the cuts of one line with one tolerance.
class CutMaker {
public:
    CutMaker(const LineForm& form, const LineSections& sections, double tolerance)
        : m_form(form),
          m_sections(sections),
          m_pieces(sections, tolerance)
    {}

    /// False when there are too many.
    bool make(GR_LineCuts& to)
    {
        m_to = &to;
        m_to->cuts.clear();
        const int count = m_sections.spanCount();
        if (count == 0) {
            const LineSection start = placeSection(m_form, 0);
            const LineSection end = placeSection(m_form, 1);
            addTip(startTip(m_form, start), start, -1);
            add(start, 0);
            add(end, 0);
            addTip(endTip(m_form, end), end, 1);
            return true;
        }
        const LineSection first = m_sections.at(0, 0);
        if (!m_form.isClosed())
            addTip(startTip(m_form, first), first, -1);
        add(first, 0);
        LineSection last = first;
        for (int span = 0; span < count && !isFull(); ++span) {
            const LineSection start = m_sections.at(span, 0);
            addCorner(last, start, m_sections.lengthUntil(span, 0));
            last = m_sections.at(span, 1);
            m_pieces.cut(span, start, last, [this, span](const LineCut&, const LineCut& end) {
                add(end.section, m_sections.lengthUntil(span, end.t));
                return !isFull();
            });
        }
        if (m_form.isClosed())
            addCorner(last, first, m_sections.length());
        else
            addTip(endTip(m_form, last), last, 1);
        return !isFull();
    }

private:
    bool isFull() const
    {
        constexpr std::size_t most = 65536;
        return m_to->cuts.size() > most + 2 * static_cast<std::size_t>(m_sections.spanCount());
    }

    void add(const LineSection& section, double distance, double overhang = 0)
    {
        m_to->cuts.push_back({section.right(), section.left(), distance, overhang});
    }

    /// Turns from one section to another at a corner of the path.
    void addCorner(const LineSection& before, const LineSection& behind, double distance)
    {
        constexpr double step = std::numbers::pi / 12;
        const double angle = cornerAngle(before, behind);
        const int count = static_cast<int>(std::ceil(std::abs(angle) / step));
        for (int i = 1; i <= count; ++i) {
            const double share = static_cast<double>(i) / count;
            const double turned = angle * share;
            const Math::Vector2d& way = before.along;
            const Math::Vector2d along{way.x * std::cos(turned) - way.y * std::sin(turned),
                                       way.x * std::sin(turned) + way.y * std::cos(turned)};
            add({before.place,
                 along,
                 {std::lerp(before.widths.left, behind.widths.left, share),
                  std::lerp(before.widths.right, behind.widths.right, share)}},
                distance);
        }
    }

    /// Adds a cut where a tip ends; `side` is -1 at the start of the path and 1 at its end.
    void addTip(const GR_BezierPath2d& tip, LineSection section, int side)
    {
        double reach = 0;
        double overhang = 0;
        for (unsigned int i = 0; i < tip.GetNumPoints(); ++i) {
            const Math::Vector2d from = tip.GetPoint(i) - section.place;
            reach = std::max(reach, side * from.dot(section.along));
            const double across = from.dot(section.toLeft());
            overhang = std::max({overhang, across - section.widths.left, -across - section.widths.right});
        }
        section.place = section.place + section.along * (side * reach);
        if (reach > 0)
            add(section, side < 0 ? -reach : m_sections.length() + reach, overhang);
    }

    const LineForm& m_form;
    const LineSections& m_sections;
    LinePieces m_pieces;
    GR_LineCuts* m_to = nullptr;
};

} // namespace

GR_LineCuts lineCuts(const LineForm& form, double tolerance)
{
    GR_LineCuts cuts;
    const LineSections sections(form, true);
    cuts.length = sections.length();
    cuts.width = 2 * form.largestHalfWidth();
    withTolerance(form, tolerance, [&](double possible) { return CutMaker(form, sections, possible).make(cuts); });
    return cuts;
}

} // namespace brindle::engine
