#pragma once

#include "core/nodes/inport.h"
#include "core/nodes/outport.h"

#include <memory>

namespace OMC {

/// The two port wrappers of a cable: copies of its own, owned by native code, so that a handle never takes one. They go
/// with this record.
class CableEnds {
public:
    /// The view that a cable takes of its link: what gives the source of its in-port, and the class that speaks.
    struct View {
        MO_Port* (MO_Port::*source)() const;
        const QMetaObject& texts;
    };

    CableEnds(const OutPort* source, const InPort* destination); ///< Null gives an end that is never valid.
    CableEnds(const CableEnds& other);
    CableEnds& operator=(const CableEnds&) = delete;

    bool areSet() const { return m_source && m_destination; }
    OutPort& source() const { return *m_source; }
    InPort& destination() const { return *m_destination; }
    void setSource(const OutPort& source);
    void setDestination(const InPort& destination);

    /// Throws when an end is gone, or the in-port's source isn't the out-port any more.
    void validate(const View& view) const;

    Obj sourceNode(const View& view) const;
    Obj destinationNode(const View& view) const;
    std::string text() const; ///< "Cable(%1, %2, %3, %4)": path and port id of the source, then of the destination.

private:
    std::unique_ptr<OutPort> m_source;
    std::unique_ptr<InPort> m_destination;
};

} // namespace OMC
