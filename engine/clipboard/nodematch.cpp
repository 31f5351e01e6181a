#include "engine/clipboard/nodematch.h"

#include <QHash>

#include <algorithm>
#include <unordered_set>

namespace brindle::engine {

namespace {

bool takesPart(const Node& node, const DD_SelectionUtil::CompositionOptions& options)
{
    switch (node.type().nodeClass) {
    case NodeClass::Group:
        return options.groups();
    case NodeClass::Module:
        return node.type().name == u"COMPOSITE" ? options.composites() : options.effects();
    case NodeClass::MultiPortIn:
    case NodeClass::MultiPortOut:
        return false;
    default:
        return true;
    }
}

class Matcher {
public:
    Matcher(const Group& copied, const DD_SelectionUtil::CompositionOptions& options)
        : m_root(copied),
          m_options(options)
    {
        // Groups can be as deep as a script makes them.
        std::vector<const Group*> groups{&copied};
        while (!groups.empty()) {
            const SubNodes& nodes = groups.back()->subNodes();
            groups.pop_back();
            for (std::size_t place = 0; place < nodes.size(); ++place) {
                const Node& node = nodes.at(place);
                if (!takesPart(node, m_options))
                    continue;
                m_byName.insert(node.name(), &node);
                if (const Group* group = node.asGroup())
                    groups.push_back(group);
            }
        }
    }

    std::vector<NodePair> match(const std::vector<Node*>& targets, NodeMatch match)
    {
        std::vector<Node*> left;
        for (Node* target : targets) {
            const Node* source = match == NodeMatch::Types ? nullptr : named(*target);
            if (source)
                add(*source, *target);
            else
                left.push_back(target);
        }
        if (match != NodeMatch::Names)
            matchTypes(left);
        return std::move(m_pairs);
    }

private:
    /// Of several, one whose group has the name of the target's group is preferred, and then the one that comes first.
    const Node* named(const Node& target) const
    {
        const Node* best = nullptr;
        const auto [first, last] = m_byName.equal_range(target.name());
        for (auto place = first; place != last; ++place) {
            const Node* node = *place;
            if (&node->type() != &target.type())
                continue;
            const bool isInPlace =
                node->parent() != &m_root && target.parent() && node->parent()->name() == target.parent()->name();
            if (isInPlace)
                return node;
            if (!best || node->serial() < best->serial())
                best = node;
        }
        return best;
    }

    void matchTypes(const std::vector<Node*>& targets)
    {
        std::vector<const Node*> free;
        for (std::size_t place = 0; place < m_root.subNodes().size(); ++place) {
            const Node& node = m_root.subNodes().at(place);
            if (takesPart(node, m_options) && !m_sources.contains(&node))
                free.push_back(&node);
        }
        for (Node* target : targets) {
            const auto found = std::find_if(free.begin(), free.end(),
                                            [target](const Node* node) { return &node->type() == &target->type(); });
            if (found == free.end())
                continue;
            const Node* source = *found;
            free.erase(found);
            add(*source, *target);
        }
    }

    void add(const Node& source, Node& target)
    {
        std::vector<NodePair> ahead{{&source, &target}};
        while (!ahead.empty()) {
            const auto [from, to] = ahead.back();
            ahead.pop_back();
            if (!m_targets.insert(to).second)
                continue;
            m_sources.insert(from);
            m_pairs.emplace_back(from, to);
            const Group* group = from->asGroup();
            for (std::size_t left = group ? group->subNodes().size() : 0; left > 0; --left) {
                const Node& inside = group->subNodes().at(left - 1);
                Node* same = to->asGroup()->subNodes().find(inside.name());
                if (same && &same->type() == &inside.type() && takesPart(inside, m_options))
                    ahead.emplace_back(&inside, same);
            }
        }
    }

    const Group& m_root;
    const DD_SelectionUtil::CompositionOptions& m_options;
    QMultiHash<QString, const Node*> m_byName;
    std::vector<NodePair> m_pairs;
    std::unordered_set<const Node*> m_sources;
    std::unordered_set<const Node*> m_targets;
};

} // namespace

std::vector<NodePair> matchNodes(const Group& copied, const std::vector<Node*>& targets, NodeMatch match,
                                 const DD_SelectionUtil::CompositionOptions& options)
{
    return Matcher(copied, options).match(targets, match);
}

} // namespace brindle::engine
