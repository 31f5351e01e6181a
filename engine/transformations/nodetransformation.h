#pragma once

#include "core/host/math_point.h"
#include "core/host/mo_porttransform.h"
#include "engine/transformations/localtransformation.h"

#include <vector>

namespace brindle::engine {

class Node;
class Port;

/// What a node remembers of the transformations at its out-port, by frame. It belongs to the node, which has one while
/// it, or a node behind it, may have been asked since something above it changed.
class TransformationMemory {
public:
    explicit TransformationMemory(const Node& node);

    const TransformationAttributes& attributes() const { return m_attributes; }
    const Node* source() const { return m_source; } ///< The node whose transformation this one adds to, or null.

    /// What is remembered of a frame, or null. `toOgl` tells of the field chart: with another one nothing is.
    const MO_PortTransform* find(double frame, const Math::Vector3d& toOgl) const;
    const MO_PortTransform& remember(double frame, const Math::Vector3d& toOgl, MO_PortTransform transform);

private:
    /// More are forgotten at once: a walk over all frames of a long scene doesn't fill the memory.
    static constexpr std::size_t mostFrames = 256;

    TransformationAttributes m_attributes;
    const Node* m_source;
    Math::Vector3d m_toOgl;
    std::vector<MO_PortTransform> m_frames; ///< By frame.
};

/// The transformation at the first out-port of a node at a frame: the node's own behind that of what feeds it. Null for
/// a node in no scene.
///
/// It goes down the graph through groups: pegs, cameras and the nodes that show drawings add theirs, a node that
/// changes one picture passes that of the picture on, and one that makes a picture of its own, or of several, has none.
/// A disabled node passes on what it gets. A node remembers what it was asked for until something above it changes; a
/// change leaves the other branches as they are. The result stays until the next change or question.
const MO_PortTransform* transformationAt(const Node& node, double frame);

/// The node's values changed: it and what hangs on it forget.
void forgetTransformations(const Node& node);
/// What feeds an in-port changed.
void forgetTransformationsBehind(const Port& in);

} // namespace brindle::engine
