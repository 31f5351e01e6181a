#pragma once

#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"
#include "engine/curves/columnreaders.h"

#include <memory>

namespace brindle::engine {

/// The columns of a scene: kept in order, found by name in constant time. It belongs to the scene.
///
/// A column that is taken out has its weak pointers expired; the undo list may put the same one back.
class ColumnList {
public:
    explicit ColumnList(SC_SceneCommon& scene);
    ColumnList(const ColumnList&) = delete;
    ColumnList& operator=(const ColumnList&) = delete;
    ~ColumnList();

    /// The list of a scene whose SC_SceneCommon, or TUScene, is a ColumnListOwner; null for null and other scenes.
    static ColumnList* of(const SC_SceneCommon* scene);

    SC_TimedValueListInterface::Iterator begin() const;
    SC_TimedValueListInterface::Iterator end() const;
    TUTimedValue* find(const QString& name) const;
    int placeOf(const TUTimedValue* column) const; ///< -1 when it is not in the list.

    /// Puts a column at a place (-1 is the end); false, and the pointer is left alone, when its name is taken or empty,
    /// the place doesn't exist, or the column isn't one of this engine's.
    bool insert(std::unique_ptr<TUTimedValue>& column, int position);
    /// Takes a column out and tells where it was; null when it is not in the list. Quickest from the end forwards. A
    /// column that is still linked keeps its links: cut them first.
    std::unique_ptr<TUTimedValue> take(TUTimedValue* column, int& position);
    bool rename(TUTimedValue* column, const QString& name); ///< False when the name is taken or empty.
    /// A name that no column has, and that it gave to nobody before: the prefix and a number ("ATV-0001").
    QString freeName(const QString& prefix) const;

    ColumnReaders& readers();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// A scene of the open engine derives from it, so that the commands on columns find the list.
class ColumnListOwner {
public:
    virtual ColumnList& columnList() = 0;

protected:
    ~ColumnListOwner() = default;
};

} // namespace brindle::engine
