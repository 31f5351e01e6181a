#include "core/host/at_dynamicattr.h"
#include "engine/attributes/addedattribute.h"
#include "engine/attributes/attributeset.h"
#include "engine/graph/node.h"

#include <utility>

namespace {

using brindle::engine::AddedAttribute;
using brindle::engine::engineNode;
using brindle::engine::Node;

/// Where attributes are added: to a group, or to the top level of a node for null.
struct Place {
    Node* node;
    AT_DynGroupAttr* group;

    bool isThere() const { return node && node->graph(); }
    bool isFree(const QString& keyword) const
    {
        const AT_Attr* taken = group ? group->memberNamed(keyword) : node->attributes().findTop(keyword);
        return !taken;
    }
};

Place placeOf(MO_Node* node)
{
    return {engineNode(node), nullptr};
}

Place placeOf(AT_DynGroupAttr* group)
{
    return {group ? engineNode(group->node()) : nullptr, group};
}

class CreateAttribute final : public CO_Command {
public:
    CreateAttribute(Place place, const AT_AttrMeta& meta, const QString& type, bool linkable) : m_place(place)
    {
        const brindle::engine::AttributeSpec* spec = brindle::engine::findAddedType(type);
        const auto* group = place.group ? &brindle::engine::metaOf(*place.group) : nullptr;
        if (spec && place.node && brindle::engine::canAdd(meta.keyword(), group))
            m_attribute = std::make_unique<AddedAttribute>(place.node->host(), *spec, meta, linkable, group);
    }

    Status execute() override
    {
        if (!m_attribute || !m_place.isThere() || !m_place.isFree(m_attribute->meta().keyword()))
            return kFail;
        m_attr = &m_attribute->attr();
        m_place.node->attributes().insert(m_place.group, std::move(m_attribute), m_at);
        m_place.node->announceChange();
        return kOk;
    }

    Status unexecute() override
    {
        m_attribute = m_place.node->attributes().take(m_place.group, *m_attr, m_at);
        m_place.node->announceChange();
        return kOk;
    }

private:
    Place m_place;
    std::unique_ptr<AddedAttribute> m_attribute; ///< The attribute while it is not on the node.
    AT_Attr* m_attr = nullptr;
    int m_at = -1; ///< Behind the others; a redo takes the same place.
};

class RemoveAttribute final : public CO_Command {
public:
    RemoveAttribute(Place place, AT_Attr* attr) : m_place(place), m_attr(attr) {}

    Status execute() override
    {
        if (!m_attr || !m_place.isThere() || !isAdded())
            return kFail;
        if (m_cuts.size() == 0)
            planCuts();
        if (m_cuts.execute() == kFail)
            return kFail;
        m_attribute = m_place.node->attributes().take(m_place.group, *m_attr, m_at);
        m_place.node->announceChange();
        return kOk;
    }

    Status unexecute() override
    {
        m_place.node->attributes().insert(m_place.group, std::move(m_attribute), m_at);
        m_cuts.unexecute();
        m_place.node->announceChange();
        return kOk;
    }

private:
    bool isAdded() const
    {
        const brindle::engine::AddedLevel* level =
            m_place.group ? &static_cast<brindle::engine::GroupAttribute*>(m_place.group)->level()
                          : m_place.node->attributes().added();
        const AddedAttribute* found = level ? level->find(m_attr->meta().keyword()) : nullptr;
        return found && &found->attr() == m_attr;
    }

    void planCuts()
    {
        std::vector<AT_AttrDesc> leaving{{m_attr, QString()}};
        m_attr->getFullAttrList(leaving);
        for (const AT_AttrDesc& desc : leaving) {
            TUTvSocket* socket = desc.attr->socket();
            if (socket && socket->isLinked())
                m_cuts.add(new tu_tv_socket::UnlinkCmd(socket, 0));
        }
    }

    Place m_place;
    AT_Attr* m_attr;
    CO_AndCommand m_cuts; ///< Of the links to columns.
    std::unique_ptr<AddedAttribute> m_attribute;
    int m_at = -1;
};

} // namespace

namespace tu_node {

CreateAttrCmd::CreateAttrCmd(MO_Node* node, const AT_AttrMeta& meta, const QString& type, bool linkable)
    : CO_EngineCommand(std::make_unique<CreateAttribute>(placeOf(node), meta, type, linkable))
{}

RemoveAttrCmd::RemoveAttrCmd(MO_Node* node, AT_Attr* attr)
    : CO_EngineCommand(std::make_unique<RemoveAttribute>(placeOf(node), attr))
{}

} // namespace tu_node

namespace Attr::DynGroup {

CreateAttrCmd::CreateAttrCmd(AT_DynGroupAttr* group, const AT_AttrMeta& meta, const QString& type, bool linkable)
    : CO_EngineCommand(std::make_unique<CreateAttribute>(placeOf(group), meta, type, linkable))
{}

RemoveAttrCmd::RemoveAttrCmd(AT_DynGroupAttr* group, AT_Attr* attr)
    : CO_EngineCommand(std::make_unique<RemoveAttribute>(placeOf(group), attr))
{}

} // namespace Attr::DynGroup
