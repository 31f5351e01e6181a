#pragma once

#include "core/frame/baseobject.h"
#include "core/host/math_point.h"

#include <QMetaType>
#include <QVariantList>

#include <array>

namespace brindle::python {

/// Takes the values of a value class's state one by one, for copy and pickle (Class::value). A state that isn't of
/// the types that are asked for, or not of their number, is a bad argument.
class StateReader {
public:
    explicit StateReader(const QVariantList& state) : m_state(state) {}

    bool atEnd() const { return m_next == m_state.size(); }
    template <typename T>
    T take()
    {
        if (atEnd() || m_state[m_next].metaType() != QMetaType::fromType<T>())
            refuse();
        return m_state[m_next++].value<T>();
    }
    Math::Point2d takePoint()
    {
        const double x = take<double>();
        return {x, take<double>()};
    }
    template <std::size_t Count>
    std::array<double, Count> takeNumbers()
    {
        std::array<double, Count> numbers;
        for (double& number : numbers)
            number = take<double>();
        return numbers;
    }
    void finish() const
    {
        if (!atEnd())
            refuse();
    }
    [[noreturn]] static void refuse() { OMC::BaseObject::throwInvalidArgument(1); }

private:
    const QVariantList& m_state;
    qsizetype m_next = 0;
};

} // namespace brindle::python
