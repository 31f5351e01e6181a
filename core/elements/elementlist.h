#pragma once

#include "core/elements/elementguard.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QVariant>

namespace OMC {

class Element;

/// The elements of the project, by their numbers. An index is the number of an element, not a place in the list, and
/// list["Arm"] finds one by its name.
///
/// A deleted element counts in the size and is found by its number, but is not listed, nor found by its name.
class BRINDLE_CORE_EXPORT ElementList : public CountedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(ElementList)

public:
    ElementList() = default; ///< The list of the open project.

    std::string __str__() const override;

    std::size_t size() const override; ///< The number of elements, deleted ones included.
    /// The element of a number or of exactly this name; empty when there is none.
    Obj get(int id) const override;
    Obj get(const QString& name) const override;
    Element* newItem(int id) const;
    Element* newItem(const QString& name) const;
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;          ///< The elements that are not deleted.
    /// Whether there is such an element, deleted or not: an Element, a name or a number.
    virtual bool contains(const QVariant& element) const;
    virtual Obj operator()(const QString& name) const;

    /// Makes an element, or with a list of names one for each, sorted by name. Gives the element, or a list of them for
    /// a list. Elements of pictures have no vector type. Fails for a name that is taken, with all that is wrong.
    virtual QVariant create(const QVariant& names, const QString& scanType, double fieldChart,
                            const QString& pixmapFormat, const QString& vectorType);

    /// Removes elements: an Element, a name, a number or a list of these. With `removeFiles` they leave the project,
    /// and their files its folder with the next save; both come back with an undo, also after a save. Without it they
    /// are deleted: their files stay, and their names are free. Fails for an element that a column shows.
    virtual void remove(const QVariant& elements, bool removeFiles);

private:
    void startIteration() override;
    std::size_t iterationSize() const override { return m_snapshot.size(); }
    Obj itemAt(quint64 position) const override;
    std::vector<int> ids() const;

    ElementGuard m_guard;
    Snapshot<int> m_snapshot;
};

} // namespace OMC
