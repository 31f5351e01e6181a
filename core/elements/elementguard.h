#pragma once

#include "core/frame/export.h"
#include "core/frame/weakhandle.h"

class CO_CommandManager;
class EM_ElementInfo;
class SC_ProjectCommon;
class TUElementMgr;

namespace OMC {

/// The way from a wrapper that holds an element by its number to the elements of the project in which it was made. Once
/// that is closed each function throws "Object is no longer valid.", also where another project has such a number.
class BRINDLE_CORE_EXPORT ElementGuard {
public:
    ElementGuard(); ///< For the open project.

    /// The project and its elements. Throws where the thread may not go on, too.
    SC_ProjectCommon& project() const;
    TUElementMgr& manager() const;
    CO_CommandManager& commands() const; ///< To be asked for once the manager has been.
    /// The drawings of an element, and that it is there.
    EM_ElementInfo& info(int id) const;

    /// The project, or null once it is closed; throws nothing and checks no thread.
    SC_ProjectCommon* findProject() const;

private:
    WeakHandle<SC_ProjectCommon> m_project;
};

} // namespace OMC
