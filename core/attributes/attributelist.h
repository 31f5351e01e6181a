#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"

#include <QStringList>

#include <memory>

class AT_Attr;
class AT_ComplexAttr;
class MO_Node;

namespace OMC {

/// The attributes of a node, or those inside one of its attributes, by index, by keyword and by dotted path.
///
///     list.get("position.x");
class BRINDLE_CORE_EXPORT AttributeList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    /// What a list holds.
    enum AttrTypeFilter : quint32 {
        AllOfLevel = 0, ///< All attributes of the level.
        Iterating = 3   ///< The objects that `__iter__` gathered.
    };

    /// The level is that of the attribute at the path; the node's top level for an empty one.
    AttributeList(MO_Node* node, const QStringList& path, AttrTypeFilter filter);
    AttributeList(const AttributeList& other);
    ~AttributeList() override;

    BaseObject* copy() const override;
    std::string __str__() const override;

protected:
    void validate() const override;

public:
    std::size_t size() const override;
    /// Empty when there is no such attribute. A keyword of the level, or a dotted path below it.
    Obj get(const QString& name) const override;
    Obj get(int index) const override;
    void set(int index, const Obj& object) override; ///< Always refused.
    std::vector<Obj> list() const override;
    /// Of a keyword or path, or of an attribute of the level. False for anything else.
    virtual bool contains(const QVariant& value) const;
    virtual Obj operator()(const QString& name) const;

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

protected:
    /// The attribute at the list's path, or null when there is none, or it holds no attributes.
    AT_ComplexAttr* getSubAttrib() const;

private:
    struct Level;
    Level level() const;
    AT_Attr* inLevel(QStringView keyword) const;
    void requireIterating() const;
    Obj wrapped(AT_Attr* attribute) const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
