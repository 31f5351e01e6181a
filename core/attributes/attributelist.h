#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

#include <QStringList>

class AT_Attr;
class AT_ComplexAttr;
struct AT_AttrDesc;
class MO_Node;

namespace OMC {

class Attribute;

/// The attributes of a node, or those inside one attribute, by index, by keyword and by dotted path:
/// list["position.x"].
///
/// Scripts and people add attributes of their own ("dynamic" ones) to a node, and take them away again. They are saved
/// and copied with it.
///
///     list.get("position.x");
///     list.createDynamicAttr("meta.take", "INT", "Take", false);
class BRINDLE_CORE_EXPORT AttributeList : public CountedList<EngineView<MO_Node, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(AttributeList)

public:
    /// Which attributes a list holds.
    enum AttrTypeFilter : quint32 {
        AllOfLevel = 0,     ///< All attributes of the level.
        Timed = 1,          ///< Those at the level and below that a column can drive.
        DynamicOfLevel = 2, ///< Those of the level that were added to the node.
        Iterating = 3,      ///< The objects that `__iter__` gathered.
        Full = 4            ///< All at the level and below, each ahead of those inside it.
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

    /// Adds an attribute to the node, at the level of the list: `name` is its keyword, or a dotted path below the
    /// level, whose groups are made along with it. Types are told in any case: "BOOL", "INT", "DOUBLE", "DOUBLE_VB",
    /// "STRING", "COLOUR", "POSITION_2D", "POSITION_3D", "SCALE_3D", "ROTATION_3D" and "DYNAMIC_GROUP". `parent` is the
    /// name that people read, the keyword where it is empty. `linkable` lets a column drive it. Fails for a name that
    /// is taken.
    virtual Obj createDynamicAttr(const QString& name, const QString& type, const QString& parent, bool linkable);
    /// Takes an attribute that was added to the node away, with all that is in it: the attribute, its keyword at the
    /// list's level, or a dotted path. Its links to columns are cut.
    virtual void removeDynamicAttr(const QVariant& attribute);

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
    struct Found;
    bool isSubList() const { return !m_path.isEmpty(); }
    Level level() const;
    AT_Attr* inLevel(QStringView keyword) const;
    Found found(const QString& name) const;
    bool passes(const AT_Attr& attribute) const;
    /// What a list of another filter than all of the level holds, with the paths from the level.
    std::vector<AT_AttrDesc> filtered() const;
    bool isFiltered() const { return m_filter != AllOfLevel && m_filter != Iterating; }
    void requireIterating() const;
    Attribute* newWrapper(AT_Attr* attribute) const;
    Attribute* newWrapper(const AT_AttrDesc& desc) const;

    QString m_path; ///< Dotted; empty at the top level.
    AttrTypeFilter m_filter;
    Snapshot<Obj> m_items;
};

} // namespace OMC
