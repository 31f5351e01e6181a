#pragma once

#include "core/nodes/portlist.h"

namespace OMC {

/// The ports of a node whose ports come and go: each port made or removed is one undo entry.
///
/// The type of a new port is "image", or "peg" (also "matrix", "transform"), in any case; a null string lets the node
/// decide. Ports behind a new or a removed one change their places and keep their ids.
class BRINDLE_CORE_EXPORT MultiPortList : public PortList {
    Q_OBJECT
    BRINDLE_COPYABLE(MultiPortList)

public:
    MultiPortList(MO_Node* node, bool isInPort);

    bool getDynamic() const override;

    /// Makes a port at the end, at an index, or before or behind another port; its type is "image" or "peg", or null
    /// for the node to decide. Null when the node takes none or refuses.
    Obj create(unsigned int index, const QString& type = QString());
    Obj create(const QString& type = QString());
    Obj create(const Obj& port, bool before, const QString& type);

    void remove(unsigned int index); ///< Cuts the port's links and takes it away.
    void remove(const Obj& port);

private:
    static void removeInPort(MO_Node* node, unsigned int index);
    static void removeOutPort(MO_Node* node, unsigned int index);

    std::unique_ptr<MO_Port> newPort(const QString& type) const;
};

/// The in-ports of a node whose in-ports come and go.
class BRINDLE_CORE_EXPORT MultiInPortList : public MultiPortList {
    Q_OBJECT
    BRINDLE_COPYABLE(MultiInPortList)
    Q_PROPERTY(OMC::Obj matte_port READ getMattePort)

public:
    explicit MultiInPortList(MO_Node* node);

    virtual Obj getMattePort() const; ///< The last matte port; null when there is none.
};

} // namespace OMC
