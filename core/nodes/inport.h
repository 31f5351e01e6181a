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

    /// Links the out-port that the value names (Port::QVariantToOutPort) to this port, in place of its source, and
    /// gives the cable. Null and false leave the link as it is: `unlink` cuts it.
    virtual Obj link(const QVariant& value);
    virtual void unlink();

    virtual Obj getCable() const; ///< Empty when there is no source.
    virtual Obj getCableFlat() const;
    virtual QVariant getSrc() const;
    virtual void setSrc(const QVariant& value); ///< As `link`.
    virtual QVariant getSrcNode() const;
    virtual void setSrcNode(const QVariant& value); ///< As `link`.
    virtual QVariant getSrcFlat() const;
    virtual QVariant getSrcNodeFlat() const;

    bool getLinked() const;
    bool getMattePort() const;

private:
    MO_Port* portOr(const char* failure) const; ///< The port; throws the sentence when there is none.
};

} // namespace OMC
