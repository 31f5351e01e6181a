#pragma once

#include "core/columns/columnclasses.h"

#include <memory>

namespace OMC {

/// Makes the object for a control point of a column, by the kind of column, and keeps it. Null for a kind that has
/// none. The point is named by its place (quint64), from 0, or by its frame (double).
template <typename Name>
class ControlPointMaker : public AT_TimedValueVisitor {
public:
    explicit ControlPointMaker(Name name) : m_name(name) {}

    /// The object made last; the caller owns it.
    ControlPoint* take() { return m_point.release(); }

protected:
    template <typename Class>
    void found(typename Class::TimedValue& column)
    {
        m_point.reset(Class::Points::at(column, m_name));
    }

private:
    Name m_name;
    std::unique_ptr<ControlPoint> m_point;
};

using ControlPointWrapperVisitor = VisitColumnClasses<ControlPointMaker<quint64>>;
using ControlPointFrameWrapperVisitor = VisitColumnClasses<ControlPointMaker<double>>;

} // namespace OMC
