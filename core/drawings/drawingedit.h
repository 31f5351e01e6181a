#pragma once

#include "core/drawings/drawingaccessimpl.h"
#include "core/frame/baseobject.h"

#include <exception>
#include <type_traits>
#include <utility>

/// How wrappers change a drawing: in the session that is open on it, or in one of their own.
namespace OMC::drawingedit {

/// Calls the host. What it refuses with an exception becomes "An unexpected error has occurred."; failures of the
/// object model go on as they are.
template <typename Call>
decltype(auto) onHost(Call&& call)
{
    try {
        return std::forward<Call>(call)();
    } catch (const Exception&) {
        throw;
    } catch (const std::exception&) {
        BaseObject::throwUnexpected();
    }
}

/// One edit, between two groups of operations of a session. An own session ends with it, as one entry of the undo list;
/// one that was open stays open. Where the edit fails, an own session is taken back without a trace; of one that was
/// open, what was done stays in it.
class BRINDLE_CORE_EXPORT Step {
public:
    /// Works on the art layer, also where the session was opened for another one of its drawing. Throws as
    /// DrawingAccessImpl::vectorBegin does.
    Step(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key);
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step();

    GR_DrawingAccess& access() const { return *m_access; }
    /// Ends the edit, which succeeded.
    void finish();

private:
    void restoreArtLayer();

    GR_DrawingAccess* m_access = nullptr;
    bool m_isOwn = false;
    bool m_isFinished = false;
};

/// Runs `edit(GR_DrawingAccess&)` as one Step, and gives its result. Arguments are read ahead of it, so that bad ones
/// change nothing. Strokes that the edit makes are wrapped in it: their pointers are good until the next change.
template <typename Edit>
auto run(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key, Edit&& edit)
{
    return onHost([&] {
        Step step(drawing, key);
        if constexpr (std::is_void_v<std::invoke_result_t<Edit, GR_DrawingAccess&>>) {
            edit(step.access());
            step.finish();
        } else {
            auto result = edit(step.access());
            step.finish();
            return result;
        }
    });
}

} // namespace OMC::drawingedit
