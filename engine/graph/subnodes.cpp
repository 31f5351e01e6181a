#include "engine/graph/subnodes.h"

#include "engine/graph/group.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// The number that the digits write, or 0: "Arm_01" and "Arm_ 1" are names of their own, no numbers behind "Arm".
int numberOf(QStringView digits)
{
    constexpr qsizetype longest = 9;
    if (digits.isEmpty() || digits.size() > longest || digits.front() == u'0')
        return 0;
    int number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return 0;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

} // namespace

SubNodes::~SubNodes()
{
    // Groups can be as deep as a script makes them: what is below moves up into one list before it goes.
    while (!m_nodes.empty()) {
        const std::unique_ptr<MO_Node> last(m_hosts.back());
        Group* group = m_nodes.back()->asGroup();
        m_hosts.pop_back();
        m_nodes.pop_back();
        if (group) {
            SubNodes& below = group->subNodes();
            m_hosts.insert(m_hosts.end(), below.m_hosts.begin(), below.m_hosts.end());
            m_nodes.insert(m_nodes.end(), below.m_nodes.begin(), below.m_nodes.end());
            below.m_hosts.clear();
            below.m_nodes.clear();
        }
    }
}

Node* SubNodes::find(QStringView name) const
{
    return m_byName.value(name, nullptr);
}

std::size_t SubNodes::placeOf(const Node& node) const
{
    const auto found = std::lower_bound(m_nodes.begin(), m_nodes.end(), node.m_order,
                                        [](const Node* one, std::int64_t order) { return one->m_order < order; });
    return static_cast<std::size_t>(found - m_nodes.begin());
}

void SubNodes::append(std::unique_ptr<MO_Node> host, Node& node)
{
    m_hosts.push_back(host.release());
    node.m_order = m_nodes.empty() ? 0 : m_nodes.back()->m_order + 1;
    m_nodes.push_back(&node);
    index(node);
}

std::vector<std::unique_ptr<MO_Node>> SubNodes::take(const std::vector<Node*>& nodes)
{
    std::vector<std::unique_ptr<MO_Node>> taken;
    std::vector<std::size_t> places;
    taken.reserve(nodes.size());
    places.reserve(nodes.size() + 1);
    for (Node* node : nodes) {
        places.push_back(placeOf(*node));
        taken.emplace_back(m_hosts[places.back()]);
        unindex(*node);
    }
    places.push_back(m_nodes.size());

    // Nodes that stay between two that go move as one block.
    for (std::size_t gone = 1; gone < places.size(); ++gone) {
        const auto first = static_cast<std::ptrdiff_t>(places[gone - 1] + 1);
        const auto last = static_cast<std::ptrdiff_t>(places[gone]);
        const auto to = first - static_cast<std::ptrdiff_t>(gone);
        std::copy(m_nodes.begin() + first, m_nodes.begin() + last, m_nodes.begin() + to);
        std::copy(m_hosts.begin() + first, m_hosts.begin() + last, m_hosts.begin() + to);
    }
    m_nodes.resize(m_nodes.size() - nodes.size());
    m_hosts.resize(m_nodes.size());
    return taken;
}

void SubNodes::putBack(std::vector<std::unique_ptr<MO_Node>> hosts, const std::vector<Node*>& nodes)
{
    std::vector<std::size_t> places;
    places.reserve(nodes.size());
    for (const Node* node : nodes)
        places.push_back(placeOf(*node));

    // From the end, so that what stood between two moves as one block, straight to its place.
    std::size_t end = m_nodes.size();
    m_nodes.resize(end + nodes.size());
    m_hosts.resize(m_nodes.size());
    for (std::size_t left = nodes.size(); left > 0; --left) {
        const auto first = static_cast<std::ptrdiff_t>(places[left - 1]);
        const auto last = static_cast<std::ptrdiff_t>(end);
        const auto to = last + static_cast<std::ptrdiff_t>(left);
        std::copy_backward(m_nodes.begin() + first, m_nodes.begin() + last, m_nodes.begin() + to);
        std::copy_backward(m_hosts.begin() + first, m_hosts.begin() + last, m_hosts.begin() + to);
        end = places[left - 1];
        m_nodes[end + left - 1] = nodes[left - 1];
        m_hosts[end + left - 1] = hosts[left - 1].release();
        index(*nodes[left - 1]);
    }
}

void SubNodes::rename(Node& node, const QString& name)
{
    unindex(node);
    node.m_name = name;
    index(node);
}

int SubNodes::firstNewNumber(const QString& base) const
{
    Numbers& numbers = numbersOf(base);
    while (m_byName.contains(QString(base + u'_' + QString::number(numbers.next))))
        ++numbers.next;
    return numbers.next;
}

SubNodes::Numbers* SubNodes::numbersBehind(QStringView name, int& number) const
{
    const qsizetype bar = name.lastIndexOf(u'_');
    if (bar <= 0 || m_numbers.empty())
        return nullptr;
    number = numberOf(name.mid(bar + 1));
    if (number == 0)
        return nullptr;
    const auto found = m_numbers.find(name.left(bar));
    return found == m_numbers.end() ? nullptr : &found->second;
}

void SubNodes::index(Node& node)
{
    m_byName.insert(QStringView(node.m_name), &node);
    node.m_parent = &m_group;
    int number = 0;
    if (Numbers* numbers = numbersBehind(node.m_name, number))
        numbers->freed.erase(number);
    m_group.noteMultiPort(node, true);
}

void SubNodes::unindex(Node& node)
{
    m_byName.remove(QStringView(node.m_name));
    node.m_parent = nullptr;
    int number = 0;
    if (Numbers* numbers = numbersBehind(node.m_name, number); numbers && number < numbers->next)
        numbers->freed.insert(number);
    m_group.noteMultiPort(node, false);
}

} // namespace brindle::engine
