#pragma once

#include "core/columns/columncast.h"
#include "core/columns/columnvalue.h"
#include "core/frame/weakhandle.h"

namespace OMC {

/// A value object of a column with keyframes: the column, held weakly, and the frame. Threads are the column's care.
template <typename Timed>
class FramedValue : public ColumnValue {
public:
    FramedValue(TUTimedValue* timedValue, double frame) : m_timedValue(timedValue), m_frame(frame) {}

protected:
    static auto pointType()
    {
        if constexpr (requires(const Timed& column) { column.point(0); })
            return decltype(std::declval<const Timed&>().point(0))();
        else
            return decltype(std::declval<const Timed&>().path(0))();
    }
    using Point = decltype(pointType());

    /// The column, and its last keyframe at or before the frame.
    struct Place {
        Timed& column;
        Point point;
        bool hasPoint;
        bool isKey; ///< The keyframe stands at the frame.
    };

    /// Throws when the column is gone, or of another class.
    Timed& column() const
    {
        TUTimedValue* timedValue = m_timedValue.get();
        if (!timedValue)
            throwInvalid();
        auto* column = columnCast<Timed>(timedValue);
        if (!column)
            throwUnexpected();
        return *column;
    }
    Place place() const
    {
        Place here{column(), {}, false, false};
        here.hasPoint = before(here.column, here.point);
        here.isKey = here.hasPoint && here.point.frame == m_frame;
        return here;
    }
    /// The same on a keyframe; throws the sentence elsewhere.
    Place keyPlace(const QString& sentence) const
    {
        const Place here = place();
        if (!here.isKey)
            throw Exception(sentence);
        return here;
    }
    /// The keyframe that holds at the frame; throws where there is none.
    Point governingPoint() const
    {
        const Place here = place();
        if (!here.hasPoint)
            throwUnexpected();
        return here.point;
    }

    double frame() const { return m_frame; }

    /// Required: on a keyframe it is that keyframe itself, and never steps further back.
    template <typename Value>
    static Obj previousOf(const Value& value)
    {
        const Place here = value.place();
        if (!here.hasPoint)
            return {};
        return here.isKey ? Obj(value.copy()) : Obj(new Value(&here.column, here.point.frame));
    }
    /// Required: ahead of the first keyframe there is none.
    template <typename Value>
    static Obj nextOf(const Value& value)
    {
        const Place here = value.place();
        Point next;
        if (!here.hasPoint || !after(here.column, here.point.frame, next))
            return {};
        return Obj(new Value(&here.column, next.frame));
    }

private:
    bool before(const Timed& column, Point& point) const
    {
        if constexpr (requires { column.pointBefore(m_frame, point); })
            return column.pointBefore(m_frame, point);
        else
            return column.keyBefore(m_frame, point);
    }
    static bool after(const Timed& column, double frame, Point& point)
    {
        if constexpr (requires { column.pointAfter(frame, point); })
            return column.pointAfter(frame, point);
        else
            return column.keyAfter(frame, point);
    }

    WeakHandle<TUTimedValue> m_timedValue;
    double m_frame;
};

} // namespace OMC
