#include "engine/drawings/strokesequence.h"

#include <algorithm>
#include <utility>

namespace brindle::engine {

bool isSame(const GR_StrokeData& first, const GR_StrokeData& second)
{
    return first.GetThicknessBinder().thicknessPath() == second.GetThicknessBinder().thicknessPath() && first == second;
}

std::size_t StrokeSequence::chunkOf(std::size_t index) const
{
    if (m_isDense)
        return index / chunkSize;
    return static_cast<std::size_t>(std::upper_bound(m_ends.begin(), m_ends.end(), index) - m_ends.begin());
}

StrokeSequence::Chunk& StrokeSequence::unshared(std::size_t chunk)
{
    auto& held = m_chunks[chunk];
    if (held.use_count() != 1) {
        auto own = std::make_shared<Chunk>();
        own->reserve(chunkSize);
        own->assign(held->begin(), held->end());
        held = std::move(own);
    }
    return *held;
}

const StrokePointer& StrokeSequence::at(std::size_t index) const
{
    const std::size_t chunk = chunkOf(index);
    return (*m_chunks[chunk])[index - startOf(chunk)];
}

void StrokeSequence::append(StrokePointer stroke)
{
    if (m_chunks.empty() || m_chunks.back()->size() >= chunkSize) {
        auto chunk = std::make_shared<Chunk>();
        chunk->reserve(m_chunks.empty() ? 8 : chunkSize);
        chunk->push_back(std::move(stroke));
        m_ends.reserve(m_ends.size() + 1);
        m_chunks.push_back(std::move(chunk));
        m_ends.push_back(startOf(m_chunks.size() - 1) + 1);
        return;
    }
    unshared(m_chunks.size() - 1).push_back(std::move(stroke));
    ++m_ends.back();
}

void StrokeSequence::set(std::size_t index, StrokePointer stroke)
{
    const std::size_t chunk = chunkOf(index);
    unshared(chunk)[index - startOf(chunk)] = std::move(stroke);
}

void StrokeSequence::erase(std::size_t index)
{
    const std::size_t chunk = chunkOf(index);
    Chunk& strokes = unshared(chunk);
    strokes.erase(strokes.begin() + static_cast<std::ptrdiff_t>(index - startOf(chunk)));
    for (std::size_t behind = chunk; behind < m_ends.size(); ++behind)
        --m_ends[behind];
    if (strokes.empty()) {
        m_chunks.erase(m_chunks.begin() + static_cast<std::ptrdiff_t>(chunk));
        m_ends.erase(m_ends.begin() + static_cast<std::ptrdiff_t>(chunk));
        m_isDense = m_isDense || m_chunks.size() <= 1;
        return;
    }
    if (chunk + 1 < m_chunks.size())
        m_isDense = false;
}

bool StrokeSequence::operator==(const StrokeSequence& other) const
{
    if (size() != other.size())
        return false;
    for (std::size_t index = 0; index < size();) {
        const std::size_t chunk = chunkOf(index);
        const std::size_t otherChunk = other.chunkOf(index);
        if (m_chunks[chunk] == other.m_chunks[otherChunk] && startOf(chunk) == other.startOf(otherChunk)) {
            index = m_ends[chunk];
            continue;
        }
        const StrokePointer& mine = at(index);
        const StrokePointer& theirs = other.at(index);
        if (mine != theirs && (mine->id != theirs->id || !isSame(mine->data, theirs->data)))
            return false;
        ++index;
    }
    return true;
}

} // namespace brindle::engine
