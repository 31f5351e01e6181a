#pragma once

#include "core/frame/obj.h"
#include "core/nodes/cableends.h"

namespace OMC {

/// A real connection through groups, read-only: from the out-port whose picture or movement arrives at the in-port.
///
/// It is valid while the in-port's real source is the out-port.
class BRINDLE_CORE_EXPORT FlatCable : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(FlatCable)
    Q_PROPERTY(OMC::Obj source READ getSource)
    Q_PROPERTY(OMC::Obj source_node READ getSourceNode)
    Q_PROPERTY(OMC::Obj destination READ getDestination)
    Q_PROPERTY(OMC::Obj destination_node READ getDestinationNode)

public:
    /// Copies both ports; null gives a cable that is never valid.
    FlatCable(const OutPort* source, const InPort* destination);

    /// "Cable(%1, %2, %3, %4)": path and port id of the source, then of the destination.
    std::string __str__() const override;

    Obj getSource() const;          ///< The out-port.
    Obj getSourceNode() const;      ///< The node that feeds.
    Obj getDestination() const;     ///< The in-port.
    Obj getDestinationNode() const; ///< The node that is fed.

protected:
    void validate() const override;

private:
    CableEnds m_ends;
};

} // namespace OMC
