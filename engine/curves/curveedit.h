#pragma once

#include "engine/curves/curvecolumn.h"

namespace brindle::engine {

/// The command that makes an edit, `CurveEdit edit(Curve&, Log&)`, of a column of a class of the open engine; one that
/// refuses for a column of another engine, and for none.
template <typename OwnColumn, typename HostColumn, typename Edit>
std::unique_ptr<CO_Command> editCommandOn(HostColumn* column,
                                          Edit edit) requires(!std::is_member_function_pointer_v<Edit>)
{
    if (auto* own = dynamic_cast<OwnColumn*>(column))
        return own->editCommand(std::move(edit));
    return std::make_unique<RefusedCommand>();
}

/// The same that calls one of the curve's edits with its arguments: `curve.method(arguments..., log)`.
template <typename OwnColumn, typename HostColumn, typename Method, typename... Arguments>
std::unique_ptr<CO_Command> editCommandOn(HostColumn* column, Method method,
                                          Arguments... arguments) requires std::is_member_function_pointer_v<Method>
{
    return editCommandOn<OwnColumn>(column, [=](auto& curve, auto& log) { return (curve.*method)(arguments..., log); });
}

/// The same that makes a key, where one is asked for.
template <typename OwnColumn, typename HostColumn>
std::unique_ptr<CO_Command> spliceCommandOn(HostColumn* column, double frame, bool makeKey, bool constantSegment)
{
    auto* own = dynamic_cast<OwnColumn*>(column);
    return editCommandOn<OwnColumn>(own, [own, frame, makeKey, constantSegment](auto& curve, auto& log) {
        return makeKey ? own->splice(curve, frame, constantSegment, log) : CurveEdit::Nothing;
    });
}

} // namespace brindle::engine
