#pragma once

#include "core/host/mo_node.h"

#include <QRgb>
#include <QStringView>

#include <array>
#include <span>

namespace brindle::engine {

/// The kind of data that flows through a port.
enum class PortKind { Image, Peg };

QStringView portKindName(PortKind kind); ///< "IMAGE" or "PEG".

struct PortSpec {
    PortKind kind = PortKind::Image;
    bool matte = false; ///< Its image cuts what the node shows.
};

/// The host class that nodes of a type have.
enum class NodeClass { Module, Peg, Camera, Display, Element, MultiPortIn, MultiPortOut, Group };

/// The facts of a type of node.
struct NodeType {
    QStringView name;        ///< "PEG", "READ", ...
    QStringView defaultName; ///< The name of a node that is given none.
    QStringView purpose;     ///< The purpose, in one sentence.
    QStringView effect = {}; ///< What it does to a picture; empty for a type that no picture shows.
    NodeClass nodeClass = NodeClass::Module;
    MO_PortMode portMode = MO_FixedPorts;
    bool makesInPorts = false;   ///< Has a command of its own for a new in-port (MO_AutoInPortsModule).
    bool imagePortsOnly = false; ///< Refuses ports of another kind.
    int inPortCount = 0;         ///< Ports of a new node.
    std::array<PortSpec, 2> inPorts = {};
    int outPortCount = 0;
    std::array<PortSpec, 1> outPorts = {};
    int handleCount = 0; ///< Handles of the gizmo that a person can pick; 0 for a type without a gizmo.

    bool takesInPorts() const
    {
        return portMode == MO_DynamicInPorts || portMode == MO_DynamicInPortsOnly || portMode == MO_DynamicPorts;
    }
    bool takesOutPorts() const { return portMode == MO_DynamicOutPortsOnly || portMode == MO_DynamicPorts; }
};

/// The colours of node classes in the node view: by purpose, so that a graph can be read from afar.
QRgb nodeColour(NodeClass nodeClass);

/// All types of nodes.
std::span<const NodeType> allNodeTypes();
/// The type of that name, or null.
const NodeType* findNodeType(QStringView name);

/// The only types of their node classes.
const NodeType& groupNodeType();
const NodeType& multiPortInNodeType();
const NodeType& multiPortOutNodeType();

/// A text of the tables as a QString that shares it.
QString sharedText(QStringView text);

} // namespace brindle::engine
