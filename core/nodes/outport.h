#pragma once

#include "core/nodes/port.h"

class CO_CommandManager;

namespace OMC {

/// A port that gives what its node makes to any number of in-ports.
///
/// "destinations" are the direct ones in the order of linking; "flat" looks through groups to the ports that are really
/// fed. A node that two links reach is listed twice.
class BRINDLE_CORE_EXPORT OutPort : public Port {
    Q_OBJECT
    BRINDLE_COPYABLE(OutPort)
    Q_PROPERTY(OMC::Obj cables READ getCables)
    Q_PROPERTY(OMC::Obj cables_flat READ getCablesFlat)
    Q_PROPERTY(QVariant destinations READ getDst)
    Q_PROPERTY(QVariant destination_nodes READ getDstNodes)
    Q_PROPERTY(QVariant destinations_flat READ getDstFlat)
    Q_PROPERTY(QVariant destination_nodes_flat READ getDstNodesFlat)

public:
    OutPort(MO_Node* node, unsigned int id);

    /// Links the port to a node, a path, an in-port or [node or path, index], in place of that port's source, and gives
    /// the cable.
    virtual Obj link(const QVariant& value);
    /// Cuts links: to an in-port, to a node, at a place in the list, or to the nodes of a name, a path or a list of
    /// these.
    virtual void unlink(const QVariant& value);

    virtual QVariant getDst() const;          ///< The in-ports that the port feeds.
    virtual QVariant getDstNodes() const;     ///< The nodes that the port feeds, one for each link.
    virtual QVariant getDstFlat() const;      ///< The in-ports that the port really feeds, through groups.
    virtual QVariant getDstNodesFlat() const; ///< The nodes that the port really feeds, through groups.

    Obj getCables() const;     ///< The links from the port.
    Obj getCablesFlat() const; ///< The real connections from the port, through groups.

    /// The Transformation at a frame of what the port gives, in OpenGL units: that of its node behind those above it.
    /// Of a group, that of the node inside which feeds the port. Fails for another port than its node's first one.
    Obj transformation(int frame) const;

    /// The ports of one node that this port feeds, in the order of the node's in-ports.
    std::vector<MO_Port*> destinationsOn(const MO_Node& node) const;

private:
    MO_Port* requiredPort() const;
    std::vector<MO_Port*> destinations() const;
    void unlinkObject(const QObject* object, CO_CommandManager& manager);
    void unlinkAt(int index);
    void unlinkNamed(const QStringList& names, CO_CommandManager& manager);
};

} // namespace OMC
