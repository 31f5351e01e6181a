#pragma once

#include "core/host/mo_framekey.h"

/// What a node is asked for: its state at a moment of the animation. The type is always 0.
class MO_BaseContext {
public:
    MO_BaseContext(const MO_FrameKey& key, int type) : m_key(key), m_type(type) {}

    const MO_FrameKey& key() const { return m_key; }
    double frame() const { return m_key.frame(); }
    int type() const { return m_type; }

private:
    MO_FrameKey m_key;
    int m_type;
};
