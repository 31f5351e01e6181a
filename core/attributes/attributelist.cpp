#include "core/attributes/attributelist.h"

#include "core/attributes/attribute.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/at_dynamicattr.h"
#include "core/host/mo_node.h"

#include <algorithm>

namespace OMC {

namespace {

/// The place of the first point in a dotted path; its size when there is none.
qsizetype pointIn(QStringView path)
{
    return std::find(path.begin(), path.end(), QLatin1Char('.')) - path.begin();
}

QString joined(const QString& path, const QString& keyword)
{
    return path.isEmpty() ? keyword : path + QLatin1Char('.') + keyword;
}

/// The name of a type of dynamic attributes as the engine spells it.
QString knownType(const QString& type)
{
    const auto& factories = AT_AttrFactorySingleton();
    const QString wanted = type.toUpper();
    for (auto known = factories.keyBegin(); known != factories.keyEnd(); ++known) {
        if (known->toUpper() == wanted)
            return *known;
    }
    const QStringList names = factories.keys();
    throw Exception(BaseObject::tr("Attribute type is not valid. Available types include : %1")
                        .arg(names.join(QLatin1String(", "))));
}

/// The place where a dynamic attribute is added: the top level of a node, or a group on the way down from there.
class DynamicLevel {
public:
    DynamicLevel(MO_Node& node, CO_CommandManager& manager) : m_node(node), m_manager(manager) {}

    /// Goes to the group of that keyword, which is made where there is none.
    void enter(const QString& keyword, bool linkable)
    {
        AT_Attr* level = attribute(keyword);
        if (!level) {
            // Required: the flags of a group at the top level have what the attribute is asked for added.
            const bool asked = !m_group && linkable;
            create(AT_AttrMeta(keyword, QString(), m_group ? flags : flags + (linkable ? 1 : 0)),
                   AT_DynGroupAttr::TypeString(), asked);
            level = attribute(keyword);
        }
        auto* group = attributeCast<AT_DynGroupAttr>(level);
        if (!group)
            throw Exception(m_group ? BaseObject::tr("Attribute path does not support sub attributes.")
                                    : BaseObject::tr("Parent attribute does not support sub attributes."));
        m_group = group;
        m_path = joined(m_path, keyword);
    }

    /// The wrapper of a new attribute.
    Attribute* create(const QString& keyword, const QString& type, const QString& title, bool linkable)
    {
        create(AT_AttrMeta(keyword, title, flags), type, linkable);
        return Attribute::getWrappedBelow(attribute(keyword), m_path);
    }

private:
    static constexpr unsigned int flags = 13; ///< Of every dynamic attribute.

    AT_Attr* attribute(const QString& keyword) const
    {
        return m_group ? m_group->memberNamed(keyword) : m_node.findAttributeByKeyword(keyword);
    }

    void create(const AT_AttrMeta& meta, const QString& type, bool linkable)
    {
        CO_Command* command = nullptr;
        if (m_group)
            command = new Attr::DynGroup::CreateAttrCmd(m_group, meta, type, linkable);
        else
            command = new tu_node::CreateAttrCmd(&m_node, meta, type, linkable);
        undo::run(m_manager, command, QString(), BaseObject::tr("Failed to create the attribute."));
    }

    MO_Node& m_node;
    CO_CommandManager& m_manager;
    AT_DynGroupAttr* m_group = nullptr;
    QString m_path;
};

} // namespace

/// An attribute, with the dotted path of the one that it is in.
struct AttributeList::Found {
    AT_Attr* attribute = nullptr;
    QString parentPath;
};

/// The attributes of the list's level, in order.
struct AttributeList::Level {
    MO_Node::AttrIterator first;
    MO_Node::AttrIterator last;

    MO_Node::AttrIterator begin() const { return first; }
    MO_Node::AttrIterator end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
};

AttributeList::AttributeList(MO_Node* node, const QStringList& path, AttrTypeFilter filter)
    : CountedList(node),
      m_path(path.join(QLatin1Char('.'))),
      m_filter(filter)
{}

std::string AttributeList::__str__() const
{
    QString owner = target().qualifiedName();
    if (isSubList())
        owner = tr("%1, %2").arg(owner, m_path);
    return tr("AttributeList(%1)[%2]").arg(owner, QString::number(size())).toStdString();
}

std::size_t AttributeList::size() const
{
    validate();
    if (m_filter == Iterating)
        return m_items.size();
    return isFiltered() ? filtered().size() : level().size();
}

Obj AttributeList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj AttributeList::get(int index) const
{
    return Obj(newItem(index));
}

Attribute* AttributeList::newItem(const QString& name) const
{
    validate();
    if (m_filter == Iterating)
        throw Exception(name.contains(QLatin1Char('.'))
                            ? std::string("Getting a subattribute by name in this list-type is not supported.")
                            : BaseObject::tr("This action is not supported.").toStdString());
    const Found at = found(name);
    return at.attribute && passes(*at.attribute) ? Attribute::getWrappedBelow(at.attribute, at.parentPath) : nullptr;
}

AttributeList::Found AttributeList::found(const QString& name) const
{
    QStringView below = name;
    if (isSubList()) {
        const QString prefix = m_path + QLatin1Char('.');
        if (name.startsWith(prefix) && Attribute::memberNamed(getSubAttrib(), below.sliced(prefix.size())))
            below = below.sliced(prefix.size());
    }
    if (AT_Attr* attribute = isSubList() ? inLevel(below) : findTarget()->findAttributeByKeyword(name))
        return {attribute, m_path};

    QString parentPath = m_path;
    const AT_ComplexAttr* holder = nullptr;
    for (qsizetype point = pointIn(below); point < below.size(); point = pointIn(below)) {
        AT_Attr* attribute = holder ? Attribute::memberNamed(holder, below.first(point)) : inLevel(below.first(point));
        holder = attributeCast<AT_ComplexAttr>(attribute);
        if (!holder)
            return {};
        parentPath = joined(parentPath, attribute->meta().keyword());
        below = below.sliced(point + 1);
    }
    return {Attribute::memberNamed(holder, below), parentPath};
}

bool AttributeList::passes(const AT_Attr& attribute) const
{
    switch (m_filter) {
    case DynamicOfLevel:
        return attribute.meta().isDynamic();
    case Full: // Required: by name the full list gives only what a column can drive.
        return attribute.socket() != nullptr;
    case AllOfLevel:
    case Timed:
    case Iterating:
        break;
    }
    return true;
}

Attribute* AttributeList::newItem(int index) const
{
    validate();
    if (isFiltered()) {
        const std::vector<AT_AttrDesc> descs = filtered();
        if (index < 0 || static_cast<std::size_t>(index) >= descs.size()) {
            if (m_filter == DynamicOfLevel)
                throwIndexOutOfRange();
            throw Exception(BaseObject::tr("Index out of range."));
        }
        return newWrapper(descs[static_cast<std::size_t>(index)]);
    }
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    if (m_filter == Iterating)
        return foundAs<Attribute>(m_items[static_cast<std::size_t>(index)].get()).copy();
    return newWrapper(level().begin()[index]);
}

void AttributeList::set(int, const Obj&)
{
    throw Exception(BaseObject::tr("Attribute List cannot be set."));
}

std::vector<Obj> AttributeList::list() const
{
    validate();
    if (m_filter == Iterating)
        return {m_items.begin(), m_items.end()};
    std::vector<Obj> objects;
    if (isFiltered()) {
        for (const AT_AttrDesc& desc : filtered())
            objects.emplace_back(newWrapper(desc));
        return objects;
    }
    const Level members = level();
    objects.reserve(members.size());
    for (AT_Attr* attribute : members)
        objects.emplace_back(newWrapper(attribute));
    return objects;
}

bool AttributeList::contains(const QVariant& value) const
{
    validate();
    if (value.typeId() == QMetaType::QString)
        return get(value.toString()).get() != nullptr;
    const auto* attribute = objectFrom<Attribute>(value);
    if (!attribute || attribute->getNode() != findTarget())
        return false;
    const AT_Attr* sought = attribute->getAttr();
    if (!sought)
        return false;
    if (m_filter == Iterating)
        return std::any_of(m_items.begin(), m_items.end(), [&](const Obj& item) {
            const auto* candidate = objectIn<Attribute>(item);
            return candidate && *candidate == *attribute;
        });
    if (isFiltered()) {
        const std::vector<AT_AttrDesc> descs = filtered();
        return std::any_of(descs.begin(), descs.end(), [&](const AT_AttrDesc& desc) { return desc.attr == sought; });
    }
    const Level members = level();
    return std::find(members.begin(), members.end(), sought) != members.end();
}

Obj AttributeList::operator()(const QString& name) const
{
    return get(name);
}

Obj AttributeList::createDynamicAttr(const QString& name, const QString& type, const QString& parent, bool linkable)
{
    MO_Node& node = target();
    const QString known = knownType(type);
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    const undo::Scope scope(manager, BaseObject::tr("Create Dynamic Attribute"));
    DynamicLevel level(node, manager);
    QString keyword;
    QString rest = isSubList() ? m_path + QLatin1Char('.') + name : name;
    for (QString behind; AT_ComplexAttr::splitNames(rest, keyword, behind); rest = behind)
        level.enter(keyword, linkable);
    return Obj(level.create(rest, known, parent, linkable));
}

void AttributeList::removeDynamicAttr(const QVariant& value)
{
    MO_Node& node = target();
    AT_Attr* attribute = nullptr;
    QString path;
    if (const auto* wrapper = objectFrom<Attribute>(value)) {
        if (wrapper->getNode() == &node)
            attribute = wrapper->getAttr();
        path = wrapper->getPath().join(QLatin1Char('.'));
    } else if (value.typeId() == QMetaType::QString) {
        const Found at = found(value.toString());
        attribute = at.attribute;
        path = attribute ? joined(at.parentPath, attribute->meta().keyword()) : QString();
    }
    if (!attribute || !attribute->meta().isDynamic())
        throw Exception(BaseObject::tr("Unexpected attribute type."));

    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    const undo::Scope scope(manager, BaseObject::tr("Remove Dynamic Attribute"));
    const qsizetype point = path.lastIndexOf(QLatin1Char('.'));
    CO_Command* command = nullptr;
    if (point < 0) {
        command = new tu_node::RemoveAttrCmd(&node, attribute);
    } else {
        AT_Attr* group = Attribute::attribFromFullPath(&node, path.left(point));
        command = new Attr::DynGroup::RemoveAttrCmd(attributeCast<AT_DynGroupAttr>(group), attribute);
    }
    undo::run(manager, command, QString(), BaseObject::tr("Failed to remove the attribute."));
}

bool AttributeList::__atend__() const
{
    validate();
    return CountedList::__atend__();
}

void AttributeList::beforeStep() const
{
    validate();
    requireIterating();
}

void AttributeList::startIteration()
{
    m_items.take(list());
    m_filter = Iterating;
}

Obj AttributeList::itemAt(quint64 position) const
{
    beforeStep();
    if (position >= m_items.size())
        throw Exception(BaseObject::tr("Iterator is out of range."));
    return m_items[position];
}

AT_ComplexAttr* AttributeList::getSubAttrib() const
{
    return attributeCast<AT_ComplexAttr>(Attribute::attribFromFullPath(findTarget(), m_path));
}

AttributeList::Level AttributeList::level() const
{
    if (!isSubList())
        return {findTarget()->attrsBegin(), findTarget()->attrsEnd()};
    const AT_ComplexAttr* attribute = getSubAttrib();
    if (!attribute)
        throwInvalid();
    return {attribute->attrsBegin(), attribute->attrsEnd()};
}

AT_Attr* AttributeList::inLevel(QStringView keyword) const
{
    // The node looks the keyword up and keeps nothing of it: it needs no copy.
    return isSubList() ? Attribute::memberNamed(getSubAttrib(), keyword)
                       : findTarget()->findAttributeByKeyword(QString::fromRawData(keyword.data(), keyword.size()));
}

void AttributeList::requireIterating() const
{
    if (m_filter != Iterating)
        throw Exception(std::string("Unsupported iteration type."));
}

std::vector<AT_AttrDesc> AttributeList::filtered() const
{
    std::vector<AT_AttrDesc> descs;
    if (m_filter != DynamicOfLevel && isSubList()) {
        const AT_ComplexAttr& attribute = OMC::found(getSubAttrib());
        if (m_filter == Full)
            attribute.getFullAttrList(descs);
        else
            attribute.getTVAttrList(descs, 0, 0);
        return descs;
    }
    if (m_filter == DynamicOfLevel) {
        for (AT_Attr* attribute : level()) {
            if (attribute->meta().isDynamic())
                descs.push_back({attribute, QString()});
        }
        return descs;
    }
    findTarget()->getFullAttrList(descs);
    if (m_filter == Timed)
        std::erase_if(descs, [](const AT_AttrDesc& desc) { return !desc.attr->socket(); });
    return descs;
}

Attribute* AttributeList::newWrapper(AT_Attr* attribute) const
{
    return Attribute::getWrappedBelow(attribute, m_path);
}

Attribute* AttributeList::newWrapper(const AT_AttrDesc& desc) const
{
    const bool isOfLevel = desc.parentPath.isEmpty();
    return Attribute::getWrappedBelow(desc.attr, isOfLevel ? m_path : joined(m_path, desc.parentPath));
}

} // namespace OMC
