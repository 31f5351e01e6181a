#pragma once

#include "core/host/at_attr.h"

namespace OMC {

/// The attribute as one of class T, or null: a dynamic_cast that asks the attribute itself. A visit is two calls, where
/// the cast compares names from class to class, at each use of each attribute.
template <typename T>
T* attributeCast(AT_Attr* attribute)
{
    class Visitor final : public AT_AttrVisitor {
    public:
        using AT_AttrVisitor::visit;
        void visit(T& found) override { result = &found; }

        T* result = nullptr;
    };
    Visitor visitor;
    if (attribute)
        attribute->accept(visitor);
    return visitor.result;
}

} // namespace OMC
