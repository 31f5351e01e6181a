#pragma once

#include "core/host/mo_node.h"

namespace OMC {

/// One side of a node, its in-ports or its out-ports: what differs between the two where all else is the same.
struct PortSide {
    unsigned int (MO_Node::*count)() const;
    MO_Port* (MO_Node::*at)(unsigned int index) const;
    MO_Port* (MO_Node::*withId)(unsigned int id) const;
    int (MO_Node::*place)(const MO_Port* port) const;
};

inline constexpr PortSide inPortSide{&MO_Node::nInPorts, &MO_Node::inPort, &MO_Node::inPortFromId, &MO_Node::inPortId};
inline constexpr PortSide outPortSide{&MO_Node::nOutPorts, &MO_Node::outPort, &MO_Node::outPortFromId,
                                      &MO_Node::outPortId};

constexpr const PortSide& portSide(bool isInPort)
{
    return isInPort ? inPortSide : outPortSide;
}

} // namespace OMC
