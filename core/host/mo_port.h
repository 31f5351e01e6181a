#pragma once

#include "core/host/export.h"

#include <QString>

#include <memory>
#include <vector>

class CO_Command;
class MO_Node;

/// A connection point of a node. An in-port has at most one source; an out-port feeds any number of in-ports. It
/// belongs to its node. Its id stays while its place changes with the ports before it.
class BRINDLE_HOST_EXPORT MO_Port {
public:
    virtual ~MO_Port() = default;

    virtual unsigned int id() const = 0;
    virtual MO_Node* node() const = 0;    ///< Null while the port is on no node.
    virtual QString typeName() const = 0; ///< "IMAGE" or "PEG".
    virtual bool isMattePort() const = 0;
    virtual std::unique_ptr<MO_Port> clone() const = 0; ///< A new port of the same type, without links.

    /// Whether a link to the other port could stand: opposite directions, one type, two nodes, no circle.
    virtual bool isLinkable(const MO_Port* other) const = 0;

    virtual MO_Port* srcPort() const = 0; ///< The direct source of an in-port, or null.
    using PortIterator = MO_Port* const*;
    virtual PortIterator dstPortsBegin() const = 0; ///< The in-ports that an out-port feeds, in the order of linking.
    virtual PortIterator dstPortsEnd() const = 0;
    unsigned int nDstPorts() const { return static_cast<unsigned int>(dstPortsEnd() - dstPortsBegin()); }

    /// The same ends through groups and multi-port nodes.
    virtual MO_Port* realSrcPort() const = 0;
    virtual MO_Node* realSrcNode() const = 0;
    virtual void realDstPorts(std::vector<MO_Port*>& ports) const = 0;

    /// New ports of the two kinds that a dynamic node takes.
    static std::unique_ptr<MO_Port> createImagePort();
    static std::unique_ptr<MO_Port> createMatrixPort();
};

/// A node that makes its own in-ports.
class BRINDLE_HOST_EXPORT MO_AutoInPortsModule {
public:
    virtual ~MO_AutoInPortsModule() = default;

    /// The node as such a module, or null.
    static MO_AutoInPortsModule* castTo(MO_Node* node);
    /// The command that adds an in-port at a place; the caller owns it.
    virtual CO_Command* addInPortCommand(unsigned int index) = 0;
};
