#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QList>
#include <QVariant>

class TUGroup;

namespace OMC {

class Backdrop;

/// The backdrops of a group, in the order in which they were added.
///
/// It asks the group at each call, and goes invalid with it.
class BRINDLE_CORE_EXPORT BackdropList : public CountedList<EngineView<TUGroup, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(BackdropList)

public:
    explicit BackdropList(TUGroup* group); ///< Null gives a list that is never valid.

    std::string __str__() const override;

    std::size_t size() const override;
    using ListObj::get;
    Obj get(int index) const override;  ///< Throws beyond either end.
    Backdrop* newItem(int index) const; ///< The same, for a caller that takes the wrapper itself.
    std::vector<Obj> list() const override;
    virtual bool contains(const QVariant& backdrop) const; ///< Whether a Backdrop is one of the group's.

    /// Makes a backdrop, as one undo entry. A text is its title; a Backdrop gives it all its properties; any other form
    /// that a rectangle is read from gives it its place: left, top, and width and height from there. Another value is
    /// its title, written as a text. Without a value it has default properties.
    virtual Obj create(const QVariant& value);
    virtual void remove(const QVariant& backdrop); ///< Removes a Backdrop of the group, as one undo entry.

protected:
    void beforeStep() const override;
};

} // namespace OMC
