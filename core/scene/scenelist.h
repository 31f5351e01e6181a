#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"

#include <memory>
#include <vector>

class SC_ProjectCommon;
class TUScene;

namespace OMC {

/// The scenes of the project, the project's first scene ahead. A loop goes through the scenes that were there when it
/// began; one that went meanwhile comes as an invalid object.
class BRINDLE_CORE_EXPORT SceneList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    explicit SceneList(SC_ProjectCommon* project);
    SceneList(const SceneList& other);
    ~SceneList() override;

    BaseObject* copy() const override;
    std::string __str__() const override;

    std::size_t size() const override;
    using ListObj::get; ///< By name it is refused: use the call operator.
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always throws.
    std::vector<Obj> list() const override;

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

    virtual bool contains(const Obj& object) const;
    /// The scene of that name in any case of letters, the last one where several have it; empty when there is none.
    virtual Obj operator()(const QString& name) const;
    /// Makes every object that the list hands out.
    virtual BaseObject* createScene(TUScene* scene) const;

protected:
    void validate() const override;
    void resetIterator();

private:
    std::vector<TUScene*> scenes() const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
