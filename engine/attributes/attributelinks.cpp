#include "engine/attributes/attributelinks.h"

#include "engine/attributes/attributeset.h"
#include "engine/curves/columnlist.h"

#include <algorithm>

namespace engine {

void AttributeLinks::cut(const AttributeSet& attributes)
{
    for (const AttributeLeaf& leaf : attributes.leaves()) {
        Socket* socket = leaf.socket();
        if (!socket || !socket->column())
            continue;
        m_cuts.push_back({socket, socket->column(), socket->order()});
        socket->unlink();
    }
}

void AttributeLinks::restore()
{
    for (; !m_cuts.empty(); m_cuts.pop_back()) {
        const auto& [socket, column, order] = m_cuts.back();
        socket->restore(*column, order);
    }
}

std::vector<TUTimedValue*> AttributeLinks::freedColumns() const
{
    std::vector<Column*> columns;
    for (const auto& [socket, column, order] : m_cuts) {
        if (column->linkCount() == 0)
            columns.push_back(column);
    }
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    std::sort(columns.begin(), columns.end(), [](const Column* one, const Column* other) {
        return one->lastPlace() > other->lastPlace();
    });
    std::vector<TUTimedValue*> freed;
    for (const Column* column : columns)
        freed.push_back(&column->timedValue());
    return freed;
}

} // namespace engine
