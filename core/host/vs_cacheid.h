#pragma once

#include "core/host/export.h"

#include <QtGlobal>

#include <atomic>

/// Tells one computation from all others, so that what is kept of it is never taken for that of another.
class BRINDLE_HOST_EXPORT VS_CacheId {
public:
    VS_CacheId() : m_id(next_cache_id++) {} ///< One that nobody has had.

    bool operator==(const VS_CacheId&) const = default;
    quint64 value() const { return m_id; }

    static std::atomic<quint64> next_cache_id;

private:
    quint64 m_id;
};
