#include "core/host/at_attr.h"
#include "engine/curves/column.h"
#include "engine/curves/columnlist.h"

#include <optional>

namespace {

using brindle::engine::Column;
using brindle::engine::ColumnList;
using brindle::engine::Socket;

/// Puts a link in place of the one that a socket has, or just cuts that one.
class SetLink final : public CO_Command {
public:
    SetLink(TUTvSocket* socket, TUTimedValue* timedValue, bool links)
        : m_socket(dynamic_cast<Socket*>(socket)),
          m_column(Column::of(timedValue)),
          m_links(links)
    {}

    Status execute() override
    {
        if (!m_socket || (m_links && !canLink()))
            return kFail;
        m_before = m_socket->column();
        if (m_before == m_column)
            return kNoop;
        m_orderBefore = m_socket->order();
        if (m_order)
            m_socket->restore(*m_column, *m_order);
        else if (m_column)
            m_order = m_socket->link(*m_column);
        else
            m_socket->unlink();
        brindle::engine::tellChanged(*m_socket->attr());
        return kOk;
    }

    Status unexecute() override
    {
        if (m_before == m_column)
            return kNoop;
        if (m_before)
            m_socket->restore(*m_before, m_orderBefore);
        else
            m_socket->unlink();
        brindle::engine::tellChanged(*m_socket->attr());
        return kOk;
    }

private:
    bool canLink() const
    {
        return m_column && m_column->scene() && m_column->scene() == m_socket->attr()->sceneCommon() &&
               m_column->fits(m_socket->meta());
    }

    Socket* m_socket;
    Column* m_column; // null for a cut
    bool m_links;
    std::optional<Socket::Order> m_order; ///< Given by the first execution; a redo takes the same place.
    Column* m_before = nullptr;
    Socket::Order m_orderBefore = 0;
};

class Rename final : public CO_Command {
public:
    Rename(TUTimedValue* timedValue, const QString& name) : m_column(Column::of(timedValue)), m_name(name) {}

    Status execute() override
    {
        ColumnList* list = m_column ? ColumnList::of(m_column->scene()) : nullptr;
        if (!list)
            return kFail;
        if (m_column->name() == m_name)
            return kNoop;
        return exchange(*list);
    }
    Status unexecute() override
    {
        if (m_column->name() == m_name)
            return kNoop;
        return exchange(*ColumnList::of(m_column->scene()));
    }

private:
    Status exchange(ColumnList& list)
    {
        const QString before = m_column->name();
        if (!list.rename(&m_column->timedValue(), m_name))
            return kFail;
        m_name = before;
        return kOk;
    }

    Column* m_column;
    QString m_name; // that it gets next
};

class SetAnonymousWork final : public CO_Command {
public:
    SetAnonymousWork(TUTimedValue* timedValue, bool anonymous)
        : m_column(Column::of(timedValue)),
          m_anonymous(anonymous)
    {}

    Status execute() override
    {
        if (!m_column || !m_column->scene() || m_column->owner())
            return kFail;
        m_before = m_column->anonymous();
        m_column->setAnonymous(m_anonymous);
        return m_before == m_anonymous ? kNoop : kOk;
    }
    Status unexecute() override
    {
        m_column->setAnonymous(m_before);
        return kOk;
    }

private:
    Column* m_column;
    bool m_anonymous;
    bool m_before = false;
};

} // namespace

namespace tu_tv_socket {

LinkCmd::LinkCmd(TUTvSocket* socket, TUTimedValue* timedValue)
    : CO_EngineCommand(std::make_unique<SetLink>(socket, timedValue, true))
{}

UnlinkCmd::UnlinkCmd(TUTvSocket* socket, int) : CO_EngineCommand(std::make_unique<SetLink>(socket, nullptr, false)) {}

} // namespace tu_tv_socket

namespace tu_timedvalue::timedvalue {

RenameCmd::RenameCmd(TUTimedValue* timedValue, const QString& name)
    : CO_EngineCommand(std::make_unique<Rename>(timedValue, name))
{}

SetAnonymous::SetAnonymous(TUTimedValue* timedValue, bool anonymous)
    : CO_EngineCommand(std::make_unique<SetAnonymousWork>(timedValue, anonymous))
{}

} // namespace tu_timedvalue::timedvalue
