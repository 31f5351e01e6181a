#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QStringList>

class AT_Attr;
class AT_ComplexAttr;
class MO_Node;

namespace OMC {

class Attribute;

/// The attributes of a node, or those inside one attribute, by index, by keyword and by dotted path:
/// list["position.x"].
///
///     list.get("position.x");
class BRINDLE_CORE_EXPORT AttributeList : public CountedList<EngineView<MO_Node, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(AttributeList)

public:
    /// Which attributes a list holds.
    enum AttrTypeFilter : quint32 {
        AllOfLevel = 0, ///< All attributes of the level.
        Iterating = 3   ///< The objects that `__iter__` gathered.
    };

    /// The level is that of the attribute at the path; the node's top level for an empty one.
    AttributeList(MO_Node* node, const QStringList& path, AttrTypeFilter filter);

    std::string __str__() const override;

    std::size_t size() const override;
    /// Empty when there is no such attribute. A keyword of the level, or a dotted path below it.
    Obj get(const QString& name) const override;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;
    /// The same as `get`, for a caller that takes the wrapper itself; null where there is none.
    Attribute* newItem(const QString& name) const;
    Attribute* newItem(int index) const;
    /// Whether an attribute of the level, or one of that keyword or path, is there; false for anything else.
    virtual bool contains(const QVariant& value) const;
    virtual Obj operator()(const QString& name) const;

    bool __atend__() const override;

protected:
    /// The attribute at the list's path, or null when there is none, or it holds no attributes.
    AT_ComplexAttr* getSubAttrib() const;

    void beforeStep() const override;
    void startIteration() override;
    std::size_t iterationSize() const override { return m_items.size(); }
    Obj itemAt(quint64 position) const override;

private:
    struct Level;
    bool isSubList() const { return !m_path.isEmpty(); }
    Level level() const;
    AT_Attr* inLevel(QStringView keyword) const;
    void requireIterating() const;
    Attribute* newWrapper(AT_Attr* attribute) const;

    QString m_path; ///< Dotted; empty at the top level.
    AttrTypeFilter m_filter;
    Snapshot<Obj> m_items;
};

} // namespace OMC
