#pragma once

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"

#include <unordered_map>
#include <vector>

namespace brindle::engine {

class JsonPlace;
class JsonWriter;
class Node;

/// The attributes that are driven by each column, in the order of the graph and the nodes' attributes.
using DrivenAttributes = std::unordered_map<const TUTimedValue*, std::vector<AT_Attr*>>;

/// Writes the attributes of nodes, each in three fields: "added", those that were added to the node, each group ahead
/// of its content; "values", the local values by dotted path ("position.x"); and "columns", the names of the linked
/// columns by path. Values that a new node of the type has are left out, an option is kept as its text.
class NodeAttributeWriter {
public:
    void write(JsonWriter& json, const Node& node);
    const DrivenAttributes& driven() const { return m_driven; } ///< By the nodes written so far.

private:
    std::vector<AT_Attr*> m_linked; ///< The attributes with a column of the node that is being written.
    DrivenAttributes m_driven;
};

/// Reads what NodeAttributeWriter writes. The columns must be in the scene already; they are linked by the caller,
/// since the order of a column's links goes across nodes.
class NodeAttributeReader {
public:
    explicit NodeAttributeReader(const SC_SceneCommon& scene) : m_scene(scene) {}

    void read(const JsonPlace& place, Node& node);
    const DrivenAttributes& driven() const { return m_driven; }

private:
    const SC_SceneCommon& m_scene;
    DrivenAttributes m_driven;
};

} // namespace brindle::engine
