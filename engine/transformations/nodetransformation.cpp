#include "engine/transformations/nodetransformation.h"

#include "core/host/sc_metrics.h"
#include "core/host/sc_scene.h"
#include "engine/graph/node.h"

#include <algorithm>

namespace brindle::engine {

namespace {

bool isBefore(const MO_PortTransform& transform, double frame)
{
    return transform.key().frame() < frame;
}

/// The in-port through which the transformation comes, or null: the first one that is no matte, of a node that has one
/// picture or peg to pass on. That of the inside face of a group's in-ports is the group's.
const Port* carryingPort(const Node& node)
{
    if (node.type().nodeClass == NodeClass::MultiPortIn) {
        const Port* out = node.port(PortSide::Out, 0);
        return out ? out->facing() : nullptr;
    }
    if (node.type().portMode != MO_FixedPorts)
        return nullptr;
    for (std::size_t place = 0; place < node.portCount(PortSide::In); ++place) {
        const Port* in = node.port(PortSide::In, place);
        if (!in->isMattePort())
            return in;
    }
    return nullptr;
}

/// The node whose transformation a node adds to, or null.
const Node* sourceOf(const Node& node)
{
    const Port* carrying = carryingPort(node);
    const auto* source = carrying ? static_cast<const Port*>(carrying->realSrcPort()) : nullptr;
    return source ? source->owner() : nullptr;
}

TransformationMemory& memoryOf(const Node& node)
{
    std::unique_ptr<TransformationMemory>& memory = node.transformationMemory();
    if (!memory)
        memory = std::make_unique<TransformationMemory>(node);
    return *memory;
}

/// Forgets what follows from out-ports, and goes on from the nodes that had anything to forget. A node that remembers
/// nothing was not asked since its last change, and neither was any node behind it.
class Forgetting {
public:
    void behind(const Port& in)
    {
        if (const Port* out = in.facing()) {
            in.owner()->transformationMemory().reset();
            out->owner()->transformationMemory().reset();
            m_ahead.push_back(out);
        } else {
            at(*in.owner());
        }
    }

    void at(const Node& node)
    {
        std::unique_ptr<TransformationMemory>& memory = node.transformationMemory();
        if (!memory)
            return;
        memory.reset();
        for (std::size_t place = 0; place < node.portCount(PortSide::Out); ++place)
            m_ahead.push_back(node.port(PortSide::Out, place));
    }

    void goOn()
    {
        while (!m_ahead.empty()) {
            const Port* out = m_ahead.back();
            m_ahead.pop_back();
            for (std::size_t index = 0; index < out->destinationCount(); ++index)
                behind(*out->destination(index));
        }
    }

private:
    std::vector<const Port*> m_ahead;
};

} // namespace

TransformationMemory::TransformationMemory(const Node& node) : m_attributes(node), m_source(sourceOf(node)) {}

const MO_PortTransform* TransformationMemory::find(double frame, const Math::Vector3d& toOgl) const
{
    if (!(m_toOgl == toOgl))
        return nullptr;
    const auto found = std::lower_bound(m_frames.begin(), m_frames.end(), frame, isBefore);
    return found != m_frames.end() && found->key().frame() == frame ? &*found : nullptr;
}

const MO_PortTransform& TransformationMemory::remember(double frame, const Math::Vector3d& toOgl,
                                                       MO_PortTransform transform)
{
    if (!(m_toOgl == toOgl) || m_frames.size() >= mostFrames)
        m_frames.clear();
    m_toOgl = toOgl;
    const auto place = std::lower_bound(m_frames.begin(), m_frames.end(), frame, isBefore);
    return *m_frames.insert(place, std::move(transform));
}

const MO_PortTransform* transformationAt(const Node& node, double frame)
{
    const SC_SceneCommon* scene = node.graph() ? node.scene() : nullptr;
    const SC_SceneMetrics* metrics = scene ? scene->metrics() : nullptr;
    if (!metrics)
        return nullptr;
    const Math::Vector3d toOgl{metrics->toOGLFactorX(), metrics->toOGLFactorY(), metrics->toOGLFactorZ()};

    // Up to the first node that remembers, and back down. Chains may be longer than the call stack.
    const MO_PortTransform* known = nullptr;
    std::vector<const Node*> asked;
    for (const Node* above = &node; above && !known;) {
        const TransformationMemory& memory = memoryOf(*above);
        known = memory.find(frame, toOgl);
        if (!known)
            asked.push_back(above);
        above = memory.source();
    }
    for (auto next = asked.rbegin(); next != asked.rend(); ++next) {
        const Node& below = **next;
        TransformationMemory& memory = memoryOf(below);
        MO_PortTransform transform(below.port(PortSide::Out, 0), MO_FrameKey(frame));
        if (known) {
            transform.transformation() = known->transformation();
            transform.setDepth(known->depth());
        }
        if (memory.attributes().exist() && below.isEnabled())
            transform.transformation().add(memory.attributes().matrix(frame, toOgl));
        known = &memory.remember(frame, toOgl, std::move(transform));
    }
    return known;
}

void forgetTransformations(const Node& node)
{
    Forgetting forgetting;
    forgetting.at(node);
    forgetting.goOn();
}

void forgetTransformationsBehind(const Port& in)
{
    Forgetting forgetting;
    forgetting.behind(in);
    forgetting.goOn();
}

} // namespace brindle::engine
