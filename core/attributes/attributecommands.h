#pragma once

#include "core/frame/export.h"
#include "core/host/at_attr.h"
#include "core/host/co_command.h"
#include "core/host/tu_timedvalue.h"

#include <memory>
#include <utility>

/// Undoable changes of attribute values, for each kind of attribute that holds one. The attribute belongs to its node,
/// which lives as long as the undo list can reach the command.
namespace tu_attr {

/// The place in a column that a new value goes to: with a key there, where the kind has keys, and brought back as it
/// was.
class BRINDLE_CORE_EXPORT ValueKey {
public:
    ValueKey() = default;
    /// Remembers what the column has there and makes a key. Null, and a column without values at frames, has none.
    ValueKey(TUTimedValue* column, double frame);

    bool exists() const { return m_memo != nullptr; }
    /// Takes the key away that was made, and brings back what the column had.
    void restore();

private:
    std::unique_ptr<TUCellMemo> m_memo;
    TUTimedValue* m_column = nullptr;
    double m_frame = 0;
    bool m_made = false; ///< There was no key at the frame before.
};

/// Tell of a changed value whoever shows the node.
BRINDLE_CORE_EXPORT void setDirtyIfAsked(const AT_Attr& attr);
BRINDLE_CORE_EXPORT void emitChanged(const AT_Attr& attr);
/// Whether the column takes values; says so in the host's log when it doesn't.
BRINDLE_CORE_EXPORT bool takesValues(const TUTimedValue* column);

/// Sets the local value. The old and the new value change places, so that undoing and redoing are the same step.
template <typename T>
class SetLocalValueCmd final : public CO_Command {
public:
    using Value = typename T::ValueType;

    SetLocalValueCmd(T& attr, Value value) : m_attr(attr), m_value(std::move(value)) {}

    Status execute() override
    {
        Value previous = m_attr.localValue();
        if (!m_attr.setLocalValue(m_value))
            return kNoop;
        m_value = std::move(previous);
        emitChanged(m_attr);
        setDirtyIfAsked(m_attr);
        return kOk;
    }

    Status unexecute() override { return execute(); }

private:
    T& m_attr;
    Value m_value;
};

/// Sets the value at a frame: of the linked column, with a key there, else the local value. Refused where the column is
/// an expression, or can't have a key at the frame.
template <typename T>
class SetValueCmd final : public CO_Command {
public:
    using Value = typename T::ValueType;

    /// `constantSegment`: the key holds its value up to the next one. `force`: also when the value is there already.
    SetValueCmd(T& attr, double frame, Value value, bool constantSegment, bool force)
        : m_attr(attr),
          m_frame(frame),
          m_value(std::move(value)),
          m_constantSegment(constantSegment),
          m_force(force)
    {}

    Status execute() override
    {
        m_done = false;
        TUTimedValue* column = linkedColumn();
        if (!takesValues(column))
            return kFail;
        m_key = ValueKey(column, m_frame);
        if (!m_key.exists())
            m_previous = m_attr.value(m_frame);
        if (!m_attr.setValue(m_frame, m_value, m_constantSegment, m_force)) {
            m_key.restore();
            return column && m_force ? kFail : kNoop;
        }
        m_done = true;
        announce(column);
        return kOk;
    }

    Status unexecute() override
    {
        if (!m_done)
            return kNoop;
        if (m_key.exists())
            m_key.restore();
        else
            m_attr.setValue(m_frame, m_previous, false, m_force);
        announce(linkedColumn());
        return kOk;
    }

private:
    TUTimedValue* linkedColumn() const
    {
        const TUTvSocket* socket = m_attr.socket();
        return socket ? socket->linkedTimedValue() : nullptr;
    }

    void announce(TUTimedValue* column) const
    {
        setDirtyIfAsked(m_attr);
        emitChanged(m_attr);
        if (column)
            column->endModif(m_frame);
    }

    T& m_attr;
    double m_frame;
    Value m_value;
    Value m_previous{};
    ValueKey m_key;
    bool m_constantSegment;
    bool m_force;
    bool m_done = false;
};

} // namespace tu_attr
