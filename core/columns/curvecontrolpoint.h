#pragma once

#include "core/columns/columncast.h"
#include "core/columns/controlpoint.h"
#include "core/frame/weakhandle.h"

namespace OMC {

/// A control point of a curve of numbers: the column, held weakly, and which point it is. Invalid once the point is
/// gone, also when another takes its frame.
template <typename Timed>
class CurveControlPoint : public ControlPoint {
public:
    using Point = decltype(std::declval<const Timed&>().point(0));

    CurveControlPoint(Timed* timedValue, double frame) : ControlPoint(frame), m_timedValue(timedValue)
    {
        Point point;
        if (timedValue && timedValue->pointAt(frame, point))
            m_identity = point.identity;
    }
    /// A point that stands there.
    CurveControlPoint(Timed& timedValue, const Point& point)
        : ControlPoint(point.frame),
          m_timedValue(&timedValue),
          m_identity(point.identity)
    {}

protected:
    void validate() const override { controlPoint(); }

    /// Checked to be the very one.
    Point controlPoint() const
    {
        TUTimedValue* timedValue = m_timedValue.get();
        if (!timedValue)
            throwInvalid();
        validateThreadLock();
        const auto* column = columnCast<Timed>(timedValue);
        Point point;
        if (!column || !column->pointAt(pointFrame(), point) || point.identity != m_identity)
            throwInvalid();
        return point;
    }
    /// The column of a point that was checked.
    Timed& column() const { return static_cast<Timed&>(*m_timedValue.get()); }

    std::string described(const QString& pattern) const
    {
        const double frame = controlPoint().frame;
        return pattern.arg(column().getName(), QString::number(frame)).toStdString();
    }

    /// A new `Wrapper` for the point at a place, or at a frame; null where there is none.
    template <typename Wrapper>
    static Wrapper* wrapperAt(Timed& timedValue, quint64 index)
    {
        if (index >= static_cast<quint64>(timedValue.pointCount()))
            return nullptr;
        return new Wrapper(timedValue, timedValue.point(static_cast<int>(index)));
    }
    template <typename Wrapper>
    static Wrapper* wrapperAt(Timed& timedValue, double frame)
    {
        Point point;
        return timedValue.pointAt(frame, point) ? new Wrapper(timedValue, point) : nullptr;
    }

private:
    WeakHandle<TUTimedValue> m_timedValue;
    unsigned long long m_identity = 0;
};

} // namespace OMC
