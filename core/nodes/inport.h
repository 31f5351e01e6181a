#pragma once

#include "core/nodes/port.h"

namespace OMC {

/// A port that takes what another node gives: it has one source at most.
///
/// "source" is the direct one, as the engine stores the link; "flat" looks through groups to the node that really feeds
/// the port. A source that there isn't reads as null.
class BRINDLE_CORE_EXPORT InPort : public Port {
    Q_OBJECT
    BRINDLE_COPYABLE(InPort)
    Q_PROPERTY(bool linked READ getLinked)
    Q_PROPERTY(bool matte_port READ getMattePort)
    Q_PROPERTY(OMC::Obj cable READ getCable)
    Q_PROPERTY(OMC::Obj cable_flat READ getCableFlat)
    Q_PROPERTY(QVariant source READ getSrc WRITE setSrc)
    Q_PROPERTY(QVariant source_node READ getSrcNode WRITE setSrcNode)
    Q_PROPERTY(QVariant source_flat READ getSrcFlat)
    Q_PROPERTY(QVariant source_node_flat READ getSrcNodeFlat)

public:
    InPort(MO_Node* node, unsigned int id);

    /// Links the port to a node, a path, an out-port or [node or path, index], in place of its source, and gives the
    /// cable. Null and false leave the link as it is: `unlink` cuts it.
    virtual Obj link(const QVariant& value);
    virtual void unlink(); ///< Cuts the link.

    virtual Obj getCable() const;     ///< The cable to the direct source, or null.
    virtual Obj getCableFlat() const; ///< The cable to the real source through groups, or null.
    virtual QVariant getSrc() const;  ///< The out-port that feeds the port, or null; writing links as `link` does.
    virtual void setSrc(const QVariant& value);
    virtual QVariant getSrcNode() const; ///< The node that feeds the port, or null; writing links as `link` does.
    virtual void setSrcNode(const QVariant& value);
    virtual QVariant getSrcFlat() const;     ///< The out-port that really feeds the port, through groups, or null.
    virtual QVariant getSrcNodeFlat() const; ///< The node that really feeds the port, through groups, or null.

    bool getLinked() const;    ///< Whether the port has a source.
    bool getMattePort() const; ///< Whether the port takes a matte.

private:
    MO_Port* portOr(const char* failure) const; ///< The port; throws the sentence when there is none.
};

} // namespace OMC
