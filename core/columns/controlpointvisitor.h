#pragma once

#include "core/columns/controlpoint.h"
#include "core/host/tu_timedvalue.h"

#include <memory>

namespace OMC {

/// Makes the object for a control point of a column, by the kind of column. Null for a kind that has none.
class ControlPointVisitor : public AT_TimedValueVisitor {
public:
    using AT_TimedValueVisitor::visit;

    /// The object made last; the caller owns it.
    ControlPoint* take() { return m_point.release(); }

protected:
    std::unique_ptr<ControlPoint> m_point;
};

/// By the point's place, from 0.
class ControlPointWrapperVisitor final : public ControlPointVisitor {
public:
    explicit ControlPointWrapperVisitor(quint64 index) : m_index(index) {}

    using ControlPointVisitor::visit;
    void visit(TUBezierTimedValue& column) override;

private:
    quint64 m_index;
};

/// By the point's frame.
class ControlPointFrameWrapperVisitor final : public ControlPointVisitor {
public:
    explicit ControlPointFrameWrapperVisitor(double frame) : m_frame(frame) {}

    using ControlPointVisitor::visit;
    void visit(TUBezierTimedValue& column) override;

private:
    double m_frame;
};

} // namespace OMC
