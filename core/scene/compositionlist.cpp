#include "core/scene/compositionlist.h"

namespace OMC {

BaseObject* CompositionList::copy() const
{
    return new CompositionList(*this);
}

std::size_t CompositionList::size() const
{
    return 0;
}

Obj CompositionList::__iterItem__() const
{
    return get(static_cast<int>(m_position));
}

void CompositionList::operator++()
{
    if (m_position < size())
        ++m_position;
}

void CompositionList::operator--()
{
    if (m_position > 0)
        --m_position;
}

bool CompositionList::__atend__() const
{
    return m_position == size();
}

Obj CompositionList::__iter__() const
{
    auto* iterator = new CompositionList(*this);
    iterator->m_position = 0;
    return Obj(iterator);
}

} // namespace OMC
