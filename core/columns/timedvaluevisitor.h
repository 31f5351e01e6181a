#pragma once

#include "core/host/tu_timedvalue.h"

#include <memory>

namespace OMC {

class Column;

/// Chooses the wrapper class for an engine column. A kind without a class of its own gets the general one.
class TimedValueVisitor final : public AT_TimedValueVisitor {
public:
    TimedValueVisitor();
    TimedValueVisitor(TimedValueVisitor&&) noexcept;
    TimedValueVisitor& operator=(TimedValueVisitor&&) noexcept;
    ~TimedValueVisitor() override;

    using AT_TimedValueVisitor::visit;
    void visit(TUTimedValue& column) override;
    void visit(AT_FncTimedValue& column) override;
    void visit(TUBezierTimedValue& column) override;

    /// The wrapper made last; the caller owns it.
    Column* take();

private:
    std::unique_ptr<Column> m_wrapper;
};

} // namespace OMC
