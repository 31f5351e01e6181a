#pragma once

#include "core/nodes/inport.h"
#include "core/nodes/outport.h"

#include <optional>

namespace OMC {

/// A port wrapper that is part of another wrapper, or none: a copy of its own, which native code owns, so that a handle
/// never takes it.
template <typename PortT>
class OwnPort {
public:
    explicit OwnPort(const PortT* port)
    {
        if (port)
            assign(*port);
    }
    OwnPort(const OwnPort& other) : OwnPort(other.m_port ? &*other.m_port : nullptr) {}
    OwnPort& operator=(const OwnPort&) = delete;

    void assign(const PortT& port)
    {
        const PortT copy(port); // The port may be this one.
        m_port.emplace(copy);
        m_port->setOwnership(OwnedByNative);
    }

    explicit operator bool() const { return m_port.has_value(); }
    const PortT& operator*() const { return *m_port; }
    const PortT* operator->() const { return &*m_port; }
    PortT& operator*() { return *m_port; }
    PortT* operator->() { return &*m_port; }

private:
    std::optional<PortT> m_port;
};

/// The two ends of a cable.
class CableEnds {
public:
    /// The view that a cable takes of its link: what gives the source of its in-port, and the class that speaks.
    struct View {
        MO_Port* (MO_Port::*source)() const;
        const QMetaObject& texts;
    };

    CableEnds(const OutPort* source, const InPort* destination); ///< Null gives an end that is never valid.

    bool areSet() const { return m_source && m_destination; }
    const OutPort& source() const { return *m_source; }
    OutPort& source() { return *m_source; }
    const InPort& destination() const { return *m_destination; }
    InPort& destination() { return *m_destination; }
    void setSource(const OutPort& source) { m_source.assign(source); }
    void setDestination(const InPort& destination) { m_destination.assign(destination); }

    /// Throws when an end is gone, or the in-port's source isn't the out-port any more.
    void validate(const View& view) const;

    Obj sourceNode(const View& view) const;
    Obj destinationNode(const View& view) const;
    std::string text() const; ///< "Cable(%1, %2, %3, %4)": path and port id of the source, then of the destination.

private:
    OwnPort<OutPort> m_source;
    OwnPort<InPort> m_destination;
};

} // namespace OMC
