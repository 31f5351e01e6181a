#pragma once

#include "core/host/cc_transformation.h"
#include "core/host/export.h"
#include "core/host/mo_framekey.h"

class MO_Port;

/// The transformation at a port at a frame, with its depth among those that are drawn. It is a value: it stays as it
/// was computed, and changing it changes no port. With a null port it is detached and starts as the identity.
class BRINDLE_HOST_EXPORT MO_PortTransform {
public:
    MO_PortTransform(const MO_Port* port, const MO_FrameKey& key) : m_port(port), m_key(key) {}

    CC_Transformation& transformation() { return m_transformation; }
    const CC_Transformation& transformation() const { return m_transformation; }
    /// Whether the transformation was given, be it as the identity.
    bool isTransformationSet() const { return m_transformation.isSet(); }
    void clear(); ///< The identity, without deformations and not set, at depth 0.

    int depth() const { return m_depth; }
    void setDepth(int depth) { m_depth = depth; }

    const MO_FrameKey& key() const { return m_key; }
    bool isAt(const MO_Port* port) const { return m_port == port; }
    /// The same port and frame, depth, matrix and deformations.
    bool operator==(const MO_PortTransform&) const = default;

private:
    const MO_Port* m_port; ///< Which one it was, only to tell it from others: it may be gone.
    MO_FrameKey m_key;
    CC_Transformation m_transformation;
    int m_depth = 0;
};
