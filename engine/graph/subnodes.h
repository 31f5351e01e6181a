#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include <cstddef>
#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

class MO_Node;

namespace brindle::engine {

class Group;
class Node;

/// The sub-nodes of a group, which it owns: kept in the order of adding, found by name and by place in constant time.
///
/// A node that is taken out keeps its mark in the order, so that it can come back to where it was; undo brings nodes
/// back to the list that they left and to no other.
class SubNodes {
public:
    explicit SubNodes(Group& group) : m_group(group) {}
    SubNodes(const SubNodes&) = delete;
    SubNodes& operator=(const SubNodes&) = delete;
    ~SubNodes();

    std::size_t size() const { return m_nodes.size(); }
    Node& at(std::size_t place) const { return *m_nodes[place]; }
    MO_Node* const* begin() const { return m_hosts.data(); }
    MO_Node* const* end() const { return m_hosts.data() + m_hosts.size(); }
    Node* find(QStringView name) const;
    std::size_t placeOf(const Node& node) const; ///< A binary search.

    /// Adds a node of a free name behind the others.
    void append(std::unique_ptr<MO_Node> host, Node& node);
    /// Takes nodes out that are in the list, given in its order, in one pass.
    std::vector<std::unique_ptr<MO_Node>> take(const std::vector<Node*>& nodes);
    /// Puts back what `take` gave, to where it was.
    void putBack(std::vector<std::unique_ptr<MO_Node>> hosts, const std::vector<Node*>& nodes);
    void rename(Node& node, const QString& name);

    /// The name, or where it is taken the name with the lowest free number behind it: "Arm_1". `alsoTaken` may refuse
    /// names for reasons of its own.
    template <typename Taken>
    QString freeName(const QString& name, Taken alsoTaken) const
    {
        if (!find(name) && !alsoTaken(name))
            return name;
        for (const Numbers& numbers = numbersOf(name); const int number : numbers.freed) {
            const QString numbered = name + u'_' + QString::number(number);
            if (!alsoTaken(numbered))
                return numbered;
        }
        for (int number = firstNewNumber(name);; ++number) {
            const QString numbered = name + u'_' + QString::number(number);
            if (!find(numbered) && !alsoTaken(numbered))
                return numbered;
        }
    }

private:
    /// The numbers behind a base name: those below `next` are taken, apart from the freed ones.
    struct Numbers {
        int next = 1;
        std::set<int> freed;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(QStringView text) const { return qHash(text); }
    };

    Numbers& numbersOf(const QString& base) const { return m_numbers[base]; }
    int firstNewNumber(const QString& base) const;
    Numbers* numbersBehind(QStringView name, int& number) const;
    void index(Node& node);
    void unindex(Node& node);

    Group& m_group;
    std::vector<Node*> m_nodes;
    std::vector<MO_Node*> m_hosts;      ///< The same nodes, as the host lists them; owned.
    QHash<QStringView, Node*> m_byName; ///< Keys are the nodes' own names.
    mutable std::unordered_map<QString, Numbers, Hash, std::equal_to<>> m_numbers;
};

} // namespace brindle::engine
