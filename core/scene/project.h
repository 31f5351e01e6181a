#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

class SC_ProjectCommon;

namespace OMC {

/// The open project: whether it has changed, its undo history, its resolution and its palettes. Invalid once the
/// project is closed.
class BRINDLE_CORE_EXPORT Project : public EngineView<SC_ProjectCommon> {
    Q_OBJECT
    BRINDLE_COPYABLE(Project)
    Q_PROPERTY(bool dirty READ getDirty)
    Q_PROPERTY(bool dirty_previously READ getDirtyPreviously)
    Q_PROPERTY(OMC::Obj history READ getHistory)
    Q_PROPERTY(OMC::Obj resolution READ getResolution)
    Q_PROPERTY(OMC::Obj palette_lists READ getPaletteLists)
    Q_PROPERTY(OMC::Obj palettes READ getPalettes)

public:
    explicit Project(SC_ProjectCommon* project);

    std::string __str__() const override;

    virtual bool getDirty() const;           ///< Whether the project differs from what was last saved.
    virtual bool getDirtyPreviously() const; ///< Whether the undo list has anything to undo.
    virtual Obj getHistory() const;          ///< The undo list.
    virtual Obj getResolution() const;       ///< The size of the picture.
    virtual Obj getPaletteLists() const;     ///< The palette lists: the project's own, and those of elements.
    virtual Obj getPalettes() const;         ///< The project's palettes.
};

} // namespace OMC
