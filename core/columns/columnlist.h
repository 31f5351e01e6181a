#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QStringList>

#include <vector>

class TUScene;
class TUTimedValue;

namespace OMC {

class Column;

/// The columns of a scene, in the order of the exposure sheet. list["name"] finds a column by its name, in constant
/// time. A loop over a scene without columns fails.
///
/// It keeps no columns and asks the scene at each call. Several operations take a selector: a column, an index from 0,
/// a name, or a list of names, which gives the columns in the order of the scene.
class BRINDLE_CORE_EXPORT ColumnList : public FlaggedList<EngineView<TUScene, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(ColumnList)

public:
    explicit ColumnList(TUScene* scene);

    std::string __str__() const override;

    std::size_t size() const override;
    /// By name, null when there is none; by index, which throws beyond either end.
    Obj get(const QString& name) const override;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is none.
    Column* newItem(const QString& name) const;
    Column* newItem(int index) const;
    virtual Obj operator()(const QString& pattern) const; ///< The first column whose name a wildcard pattern matches.
    virtual std::vector<Obj>
    find(const QString& pattern) const; ///< All columns whose names a wildcard pattern matches.

    /// Makes a column: of type "DRAWING", "SOUND", "3D_PATH", "BEZIER", "EASE", "EXPR", "TIMING", "VELOBASED",
    /// "QUATERNION_PATH", "ANNOTATION" or "FILE_LIBRARY", in any case of letters. Without a name it is anonymous. The
    /// options are read for a drawing column alone, which gets an element of its own: {"scanType": "COLOR",
    /// "GRAY_SCALE" or "BW", "fieldChart": a number, "pixmapFormat": a format's name, "vectorType": a text
    /// that changes nothing, "createNode": whether a node shows it}. The element holds vector drawings, and images once
    /// its `vector_type` is set to "".
    virtual Obj create(const QString& type, const QString& name, const QVariant& options);
    /// Removes columns, all or none. One that is still linked is refused, and so are those of annotations and
    /// libraries.
    virtual void remove(const QVariant& selector);

    virtual bool contains(const QVariant& selector) const; ///< Whether one of the columns is in the scene.
    /// The nodes that the columns drive, those of each column.
    virtual QList<QVariant> linkedNodes(const QVariant& selector) const;
    /// The attributes that the columns drive, as often as they are linked; drawing columns tell none.
    virtual QList<QVariant> linkedAttributes(const QVariant& selector) const;

    /// Adds the columns that a selector tells, and a sentence for each that is not there. What is no selector adds
    /// nothing.
    static void QVariantToTimedValueList(const QVariant& selector, TUScene& scene, std::vector<TUTimedValue*>& columns,
                                         QStringList& errors);

private:
    void startIteration() override { setAtEnd(false); }
    void throwNoMoreItems() const override;
    bool stopsAtEnd() const override { return true; }

    TUTimedValue* columnAt(int index) const;
    std::vector<TUTimedValue*> selected(const QVariant& selector) const;
};

} // namespace OMC
