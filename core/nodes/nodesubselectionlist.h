#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

class MO_Node;

namespace OMC {

class NodeSubselection;

/// The handles of a node's gizmo, by place and by name.
///
/// It asks the node at each call, and each answer is a new object.
class BRINDLE_CORE_EXPORT NodeSubselectionList : public CountedList<EngineView<MO_Node, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(NodeSubselectionList)

public:
    explicit NodeSubselectionList(MO_Node* node); ///< Null gives a list that is never valid.

    std::string __str__() const override; ///< NodeSubselectionList("Top/Peg")[7].

    /// The number of handles; -1 for a node without a gizmo, whose list holds nothing.
    std::size_t size() const override;
    int handleCount() const;           ///< The same with its sign.
    Obj get(int index) const override; ///< Throws beyond either end.
    /// The handle of a name. Of a type whose handles have no names, the first digits in the name are the place, and a
    /// name without digits is the first one.
    Obj get(const QString& name) const override;
    NodeSubselection* newItem(int index) const; ///< As `get`, for a caller that takes the wrapper itself.
    NodeSubselection* newItem(const QString& name) const;
    std::vector<Obj> list() const override;

protected:
    void validate() const override;
    void beforeStep() const override;
    std::size_t iterationSize() const override;
    Obj itemAt(quint64 position) const override;
};

} // namespace OMC
