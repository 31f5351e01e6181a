#pragma once

#include "core/host/gr_thicknesspath.h"
#include "engine/curves/beziersegment.h"

namespace brindle::engine {

/// The width of one side between two neighbouring keys of a thickness path: the cubic that GR_ThicknessPath tells.
class ThicknessSpan {
public:
    using Key = GR_ThicknessPath::ThicknessKey;
    using Side = GR_ThicknessPath::Side;

    /// `side` is &Key::left or &Key::right; `from` lies ahead of `to`.
    ThicknessSpan(const Key& from, const Key& to, Side Key::*side)
        : m_from{from.position, from.*side},
          m_to{to.position, to.*side}
    {}

    /// At a position between the keys.
    double widthAt(double position) const;
    /// The least and the greatest width.
    std::pair<double, double> range() const;
    bool isConstant() const;

    /// What both keys and a new one between them have when the curve is cut there and keeps its shape.
    struct Parts {
        Side from, middle, to;
    };
    Parts split(double position) const;

private:
    struct End {
        double position;
        Side side;
    };

    /// Handles at their keys: the parameter of the cubic cancels, and what is left is a straight line.
    bool isStraight() const
    {
        return m_from.side.toControlPosition == m_from.position && m_from.side.toControl == m_from.side.thickness &&
               m_to.side.fromControlPosition == m_to.position && m_to.side.fromControl == m_to.side.thickness;
    }
    BezierSegment curve() const;

    End m_from;
    End m_to;
};

} // namespace brindle::engine
