#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <vector>

class SC_ProjectCommon;
class TUScene;

namespace OMC {

/// The project's scenes, the first one ahead. list["name"] finds one whatever the case of its letters.
///
/// A loop goes through the scenes that were there when it began; one that went meanwhile comes as an invalid object.
class BRINDLE_CORE_EXPORT SceneList : public FlaggedList<EngineView<SC_ProjectCommon, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneList)

public:
    explicit SceneList(SC_ProjectCommon* project);

    std::string __str__() const override;

    std::size_t size() const override;
    using ListObj::get; ///< By name it is refused: use the call operator.
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;

    virtual bool contains(const Obj& object) const; ///< False for a scene that is alive.
    /// The scene of that name in any case of letters, the last one where several have it; empty when there is none.
    virtual Obj operator()(const QString& name) const;
    /// Makes every object that the list hands out.
    virtual BaseObject* createScene(TUScene* scene) const;

protected:
    void beforeIteration() const override;
    void startIteration() override;
    std::size_t iterationSize() const override;
    Obj itemAt(quint64 position) const override;
    void throwNoMoreItems() const override;
    bool staysAtEnd() const override;

private:
    std::vector<TUScene*> scenes() const;

    Snapshot<WeakHandle<TUScene>> m_scenes;
};

} // namespace OMC
