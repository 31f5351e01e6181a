#include "engine/curves/column.h"

#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/columnlist.h"

#include <unordered_set>

namespace brindle::engine {

Socket::~Socket()
{
    unlink();
}

TUTimedValue* Socket::linkedTimedValue() const
{
    return m_column ? &m_column->timedValue() : nullptr;
}

bool Socket::columnName(QString& name, int) const
{
    if (!m_column)
        return false;
    name = m_column->name();
    return true;
}

Socket::Order Socket::link(Column& column)
{
    restore(column, column.m_nextOrder);
    return m_order;
}

void Socket::restore(Column& column, Order order)
{
    unlink();
    m_column = &column;
    m_numbers = column.numbers();
    m_positions = column.positions();
    m_order = order;
    column.add(*this);
}

void Socket::unlink()
{
    if (!m_column)
        return;
    m_column->remove(*this);
    m_column = nullptr;
    m_numbers = nullptr;
    m_positions = nullptr;
}

Column::Column(TUTimedValue& self, const ColumnKind& kind, const QString& name, bool anonymous)
    : m_self(self),
      m_kind(kind),
      m_name(name),
      m_anonymous(anonymous)
{}

Column::~Column()
{
    for (const auto& [order, socket] : m_links) {
        socket->m_column = nullptr;
        socket->m_numbers = nullptr;
        socket->m_positions = nullptr;
    }
}

std::unique_ptr<TUTimedValue> Column::asTimedValue(std::unique_ptr<Column> column)
{
    return std::unique_ptr<TUTimedValue>(column ? &column.release()->m_self : nullptr);
}

void Column::add(Socket& socket)
{
    const auto place = m_links.emplace(socket.m_order, &socket).first;
    m_nextOrder = std::max(m_nextOrder, socket.m_order + 1);
    if (m_ordered.size() + 1 == m_links.size() && std::next(place) == m_links.end())
        m_ordered.push_back(&socket);
    else
        m_ordered.clear();
    if (socket.meta().kind().isSwitch)
        ++m_switches;
}

void Column::remove(Socket& socket)
{
    m_links.erase(socket.m_order);
    if (!m_ordered.empty() && m_ordered.back() == &socket)
        m_ordered.pop_back();
    else
        m_ordered.clear();
    if (socket.meta().kind().isSwitch)
        --m_switches;
}

QString Column::name() const
{
    return m_owner ? m_owner->name() + QStringLiteral(" Velocity") : m_name;
}

QString Column::displayName() const
{
    if (!m_anonymous || m_links.empty())
        return name();
    const Socket& first = *m_links.begin()->second;
    return first.attr()->node()->instanceName() + ": " + first.meta().fullKeyword();
}

AT_Attr* Column::linkedAttribute(unsigned int index) const
{
    if (index >= m_links.size())
        return nullptr;
    if (m_ordered.empty()) {
        for (const auto& [order, socket] : m_links)
            m_ordered.push_back(socket);
    }
    return m_ordered[index]->attr();
}

std::vector<MO_Node*> Column::nodes() const
{
    std::vector<MO_Node*> nodes;
    std::unordered_set<MO_Node*> known;
    for (const auto& [order, socket] : m_links) {
        MO_Node* node = socket->attr()->node();
        if (known.insert(node).second)
            nodes.push_back(node);
    }
    return nodes;
}

void Column::tellLinked() const
{
    if (m_owner)
        m_owner->tellLinked();
    tellOwnLinks();
    if (m_list)
        m_list->readers().tell(m_name);
}

void Column::tellOwnLinks() const
{
    for (const auto& [order, socket] : m_links)
        tellChanged(*socket->attr());
}

std::unique_ptr<CO_Command> Column::renameDrawingCommand(const QString&, const QString&)
{
    return nullptr;
}

void Column::expire()
{
    m_self.expireWeakPointers();
    if (Column* owned = part())
        owned->expire();
}

void tellChanged(const AT_Attr& attr)
{
    MO_Node* node = attr.node();
    if (attr.meta().isNodeDirtyOnChange())
        node->setDirty();
    if (const SC_SceneCommon* scene = attr.sceneCommon()) {
        if (TUSceneChangeManager* changes = scene->changeManager())
            changes->emitNodeChanged(node);
    }
}

} // namespace brindle::engine
