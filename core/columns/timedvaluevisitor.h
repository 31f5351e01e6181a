#pragma once

#include "core/columns/columnclasses.h"

#include <memory>

namespace OMC {

/// Makes the wrapper for the class of the column that it visits, and keeps it.
class ColumnMaker : public AT_TimedValueVisitor {
public:
    /// The wrapper made last; the caller owns it.
    Column* take() { return m_wrapper.release(); }

protected:
    template <typename Class>
    void found(typename Class::TimedValue& column)
    {
        m_wrapper = std::make_unique<typename Class::Wrapper>(&column);
    }

private:
    std::unique_ptr<Column> m_wrapper;
};

/// Chooses the wrapper class for an engine column. A kind without a class of its own gets the general one.
using TimedValueVisitor = VisitColumnClasses<ColumnMaker>;

} // namespace OMC
