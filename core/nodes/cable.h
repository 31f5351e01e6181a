#pragma once

#include "core/frame/obj.h"
#include "core/nodes/cableends.h"

class CO_CommandManager;

namespace OMC {

/// A link between an out-port and an in-port, which can be moved to other ends, split by a node, or cut; invalid once
/// the two are no longer linked.
///
/// There is no engine object behind it: it is a pair of ports, and it is valid while the in-port's direct source is the
/// out-port. A cable that no longer matches says so at its next use.
class BRINDLE_CORE_EXPORT Cable : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Cable)
    Q_PROPERTY(QVariant source READ getSource WRITE setSource)
    Q_PROPERTY(QVariant source_node READ getSourceNode WRITE setSourceNode)
    Q_PROPERTY(QVariant destination READ getDestination WRITE setDestination)
    // Required: writing the destination's node changes the source; scripts that set it depend on where it leads.
    Q_PROPERTY(QVariant destination_node READ getDestinationNode WRITE setSourceNode)
    Q_PROPERTY(OMC::Obj source_flat_node READ getSourceFlatNode)
    Q_PROPERTY(OMC::Obj source_flat READ getSourceFlat)

public:
    /// Copies both ports; null gives a cable that is never valid.
    Cable(const OutPort* source, const InPort* destination);

    /// "Cable(%1, %2, %3, %4)": path and port id of the source, then of the destination.
    std::string __str__() const override;

    MO_Port* getOutPort() const;
    MO_Port* getInPort() const;

    /// Puts a node into the cable, source to node and node to destination, and gives the cable to the node; this one is
    /// no longer connected. `inPort`, an in-port or an index, takes the source; null lets the node choose. With
    /// `outPort` null the node chooses its out-port too; otherwise `inPort` says it as well.
    Obj insert(const Obj& node, const QVariant& inPort = QVariant(), const QVariant& outPort = QVariant());
    void unlink(); ///< Cuts the link.

    QVariant getSource() const; ///< The out-port; writing links another one.
    void setSource(const QVariant& value);
    QVariant getSourceNode() const; ///< The node that feeds; writing links another one.
    void setSourceNode(const QVariant& value);
    QVariant getDestination() const; ///< The in-port; writing moves the cable's end.
    void setDestination(const QVariant& value);
    QVariant getDestinationNode() const; ///< The node that is fed; writing it changes the source.
    Obj getSourceFlatNode() const;       ///< The node that really feeds, through groups.
    Obj getSourceFlat() const;           ///< The out-port that really feeds, through groups.

protected:
    void validate() const override;

private:
    CO_CommandManager& commandManager() const;
    MO_Port* destinationPort() const;

    CableEnds m_ends;
};

} // namespace OMC
