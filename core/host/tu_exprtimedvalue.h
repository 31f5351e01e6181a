#pragma once

#include "core/host/tu_timedvalue.h"

/// A column whose value at a frame is computed from a text, which may read the numbers of other columns of its scene.
/// Values can't be written to it.
class BRINDLE_HOST_EXPORT TUExprTimedValue : public TUTimedValue {
public:
    virtual QString expression() const = 0;
    /// The value at a frame. Where the text can't be evaluated any more, as when a column that it reads has gone, it is
    /// 0, and the log has a line that says why.
    virtual double evaluate(double frame) const = 0;
    /// Why the column can't have a text, as one sentence with the place in it; empty for a text that it can have.
    virtual QString faultOf(const QString& text) const = 0;
};

namespace tu_timedvalue::expr {

/// Fails for a text that the column can't have.
class BRINDLE_HOST_EXPORT SetExprCmd final : public CO_EngineCommand {
public:
    SetExprCmd(TUExprTimedValue* column, const QString& text);
};

} // namespace tu_timedvalue::expr
