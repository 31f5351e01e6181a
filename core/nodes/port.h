#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"
#include "core/host/mo_node.h"
#include "core/host/mo_port.h"

#include <QString>

namespace OMC {

/// A connection point of a node; its id stays while its place changes.
///
/// The wrapper remembers the node weakly and the port by its id, which stays while the port's place on the node
/// changes. It is bound to one engine port: it is invalid once its node is gone, or the id leads to another port or to
/// none.
class BRINDLE_CORE_EXPORT Port : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(Port)
    Q_PROPERTY(uint id READ getPortId)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(uint index READ getIndex)
    Q_PROPERTY(OMC::Obj node READ getWrappedNode)
    Q_PROPERTY(OMC::Obj node_related READ getRelatedNode)
    Q_PROPERTY(bool inport READ getIsInport)
    Q_PROPERTY(bool outport READ getIsOutport)
    Q_PROPERTY(OMC::Obj port_related READ getRelatedPort)

public:
    /// A null node, or an id that the node lacks, gives a wrapper that fails at its first use.
    Port(MO_Node* node, unsigned int id, bool isInPort);

    /// "InPort(%1, %2)" or "OutPort(%1, %2)": the node's path and the place on it.
    std::string __str__() const override;

    MO_Node* getNode() const; ///< The live node.
    /// The port; null when there never was one under the id. A port that is gone throws.
    MO_Port* getPort() const;
    /// The port, or null when it or its node is gone; throws nothing and checks no thread.
    MO_Port* findPort() const;

    unsigned int getPortId() const; ///< The number that stays the port's own on its node.
    unsigned int getIndex() const;  ///< The place on the node, from 0.
    bool getIsInport() const;       ///< Whether it is an in-port.
    bool getIsOutport() const;      ///< Whether it is an out-port.
    QString getType() const;        ///< "IMAGE" or "PEG".
    Obj getWrappedNode() const;     ///< The port's node.

    /// The node that faces an in-port across the border of a group; null for an out-port and away from a border. A
    /// group without an inside node for its in-ports gets one, as an undoable step.
    Obj getRelatedNode() const;
    /// The same port seen from the other side of a group's border; null away from a border. It, too, may make the
    /// inside node.
    Obj getRelatedPort() const;

    /// The in-port that a script names: a port, a node, a path, or a list of a node or path and an index. Null with the
    /// reason in `error`. `createIfNeeded` adds a port where the node takes ports and no index is given.
    MO_Port* QVariantToInPort(const QVariant& value, QString& error, bool createIfNeeded) const;
    /// The same for an out-port. On a group it always adds one.
    MO_Port* QVariantToOutPort(const QVariant& value, QString& error, bool createIfNeeded) const;

    /// The place of a port on its node; -1 when it is on none.
    static int inPortIdxFromPort(const MO_Port* port);
    static int outPortIdxFromPort(const MO_Port* port);

private:
    unsigned int m_id;
    bool m_isInPort;
    MO_Port* m_remembered; ///< The port that the id led to at first; compared, never followed.
};

} // namespace OMC
