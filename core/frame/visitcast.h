#pragma once

namespace OMC {

/// The engine object as one of class T, or null: a dynamic_cast that asks the object itself. A visit is two calls,
/// where the cast compares names from class to class, at each use of each object.
template <typename T, typename Visitor, typename Object>
T* visitCast(Object* object)
{
    class Finder final : public Visitor {
    public:
        using Visitor::visit;
        void visit(T& found) override { result = &found; }

        T* result = nullptr;
    };
    Finder finder;
    if (object)
        object->accept(finder);
    return finder.result;
}

} // namespace OMC
