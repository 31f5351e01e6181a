#pragma once

#include "render/graph/plan.h"

#include <QMutex>

#include <unordered_map>

namespace brindle::render {

/// Carries out plans, and remembers the pictures of steps that plans tell to keep. Any thread may ask it.
class Evaluator {
public:
    static constexpr qint64 kDefaultLimit = qint64(256) << 20;

    /// It remembers pictures of at most so many bytes; those that weren't asked for longest go first.
    explicit Evaluator(qint64 limit = kDefaultLimit) : m_limit(limit) {}

    /// The picture of a plan. Steps that need no others are shared among so many threads, the calling one with them;
    /// the bytes are the same for any number. Throws std::bad_alloc where memory doesn't suffice.
    Picture picture(const Plan& plan, int threads = 1);

    qint64 bytes() const; ///< Of the pictures that it remembers.

private:
    struct Remembered {
        Picture picture;
        quint64 lastUse;
    };

    bool find(const OperationPtr& operation, Picture& picture);
    void remember(const OperationPtr& operation, const Picture& picture);

    qint64 m_limit;
    mutable QMutex m_mutex;
    std::unordered_map<OperationPtr, Remembered> m_pictures;
    qint64 m_bytes = 0;
    quint64 m_uses = 0;
};

} // namespace brindle::render
