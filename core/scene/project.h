#pragma once

#include "core/frame/obj.h"
#include "core/frame/weakhandle.h"

class SC_ProjectCommon;

namespace OMC {

/// The open project: whether it has changed, its undo history and its resolution. Invalid once the project is closed.
class BRINDLE_CORE_EXPORT Project : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(bool dirty READ getDirty)
    Q_PROPERTY(bool dirty_previously READ getDirtyPreviously)
    Q_PROPERTY(OMC::Obj history READ getHistory)
    Q_PROPERTY(OMC::Obj resolution READ getResolution)

public:
    explicit Project(SC_ProjectCommon* project);

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual bool getDirty() const;           ///< Whether it differs from what was last saved.
    virtual bool getDirtyPreviously() const; ///< Whether there is anything to undo.
    virtual Obj getHistory() const;
    virtual Obj getResolution() const; ///< A ProjectResolution.

protected:
    void validate() const override;

private:
    WeakHandle<SC_ProjectCommon> m_project;
};

} // namespace OMC
