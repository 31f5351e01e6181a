#pragma once

#include "core/host/gr_stroke.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace brindle::engine {

/// A stroke as layers hold it: it never changes, an edit puts another record in its place.
struct StrokeRecord {
    quint32 id;
    GR_StrokeData data;
};
using StrokePointer = std::shared_ptr<const StrokeRecord>;

/// Whether both strokes are equal and have one and the same thickness path: equal paths that are two are shared with
/// different strokes.
bool isSame(const GR_StrokeData& first, const GR_StrokeData& second);

/// The strokes of a layer in their order: a value whose copies share what they have in common.
///
/// Strokes stand in chunks that copies share, so that a copy and one edit of it cost a chunk and a list of chunks,
/// however many strokes there are: what an undo list keeps of a thousand edits of one layer stays small.
class StrokeSequence {
public:
    static constexpr std::size_t chunkSize = 128;

    std::size_t size() const { return m_ends.empty() ? 0 : m_ends.back(); }
    bool isEmpty() const { return m_ends.empty(); }
    const StrokePointer& at(std::size_t index) const; ///< From 0 to below size().

    void append(StrokePointer stroke);
    void set(std::size_t index, StrokePointer stroke);
    void erase(std::size_t index);

    /// Calls a function with each stroke, in their order.
    template <typename Function>
    void forEach(Function function) const
    {
        for (const auto& chunk : m_chunks) {
            for (const StrokePointer& stroke : *chunk)
                function(stroke);
        }
    }

    /// Whether both hold the same strokes with the same ids. What they have in common isn't looked at.
    bool operator==(const StrokeSequence& other) const;

private:
    using Chunk = std::vector<StrokePointer>;

    /// The chunk that a stroke is in.
    std::size_t chunkOf(std::size_t index) const;
    std::size_t startOf(std::size_t chunk) const { return chunk == 0 ? 0 : m_ends[chunk - 1]; }
    Chunk& unshared(std::size_t chunk);

    std::vector<std::shared_ptr<Chunk>> m_chunks; ///< None is empty.
    std::vector<std::size_t> m_ends;              ///< How many strokes there are up to the end of each.
    bool m_isDense = true;                        ///< All chunks but the last are full.
};

} // namespace brindle::engine
