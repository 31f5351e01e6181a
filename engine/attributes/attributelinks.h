#pragma once

#include "engine/curves/column.h"

#include <vector>

namespace engine {

class AttributeSet;

/// The links from nodes to columns while the nodes are out of the project.
///
/// The command that removes nodes keeps one: it cuts the attributes of each removed node when it takes the nodes out, and
/// restores all when it puts them back. A node that is out of the project is then linked to nothing and counts in no
/// column's list; back in, each link has its old place in that list. The nodes and columns must be there as they were.
///
///     m_links.cut(node.attributes()); // for each node that leaves; nothing to do for one without attributes yet
///     columns = m_links.freedColumns();
///     ...
///     m_links.restore();
class AttributeLinks {
public:
    void cut(const AttributeSet& attributes);
    void restore(); ///< Everything that was cut since the last time.

    /// The columns that were cut from these nodes and have no link any more, each once, in the order in which taking
    /// them out of their list is quickest: last in the list first.
    std::vector<TUTimedValue*> freedColumns() const;

private:
    struct Cut {
        Socket* socket;
        Column* column;
        Socket::Order order;
    };

    std::vector<Cut> m_cuts;
};

} // namespace engine
