#pragma once

#include "core/host/at_attr.h"

#include <QString>

#include <concepts>
#include <cstddef>
#include <new>
#include <variant>

namespace brindle::engine {

class AttributeMeta;
struct AttributeSpec;

/// The local value of an attribute as a project file and a copy of the node keep it. An attribute whose values are all
/// in its members has none of its own.
using AttributeValue = std::variant<std::monostate, bool, int, double, QString>;

/// What kind of values a column gives that drives an attribute of a kind.
enum class DrivenBy { Nothing, Numbers, Positions, Rotations, Drawings, Timings };

/// The attributes inside an attribute. They are made after it.
struct AttributeMembers {
    AT_ComplexAttr::AttrIterator first = nullptr;
    int count = 0;
};

/// The operations that the class of a kind of attribute has beside those of its host class.
template <typename Class>
concept KindOfAttribute = requires(Class& attr, const Class& present, const AttributeSpec& spec,
                                   const AttributeValue& value)
{
    {
        Class::newValue(spec)
        } -> std::same_as<AttributeValue>; // in a new node
    {
        present.stored()
        } -> std::same_as<AttributeValue>;
    {attr.store(value)}; // leaves the attribute alone when it can't have the value
};

/// How an attribute of one kind is made, saved, copied, read and reset, for code that treats all kinds alike. Its one
/// source is the class: a class that lacks an operation has no AttributeKind, and the tables of the node types can't
/// name it.
struct AttributeKind {
    std::size_t size;
    std::size_t alignment;
    DrivenBy drivenBy; ///< An attribute itself may still refuse columns (AttributeMeta::isLinkable).
    bool isSwitch;     ///< On or off. A column that drives nothing else holds each value up to the next key.
    AT_Attr* (*make)(void* place, MO_Node& node, const AttributeMeta& meta, const AttributeMembers& members);
    AttributeValue (*newValue)(const AttributeSpec& spec);
    AttributeValue (*stored)(const AT_Attr& attr);
    bool (*isNew)(const AT_Attr& attr); ///< Whether it stores the value of a new node.
    void (*store)(AT_Attr& attr, const AttributeValue& value);
};

template <KindOfAttribute Class>
inline constexpr AttributeKind attributeKind{
    .size = sizeof(Class),
    .alignment = alignof(Class),
    .drivenBy =
        [] {
            if constexpr (requires { Class::drivenBy; })
                return Class::drivenBy;
            else
                return DrivenBy::Nothing;
        }(),
    .isSwitch = std::derived_from<Class, AT_BoolAttr>,
    .make = [](void* place, MO_Node& node, const AttributeMeta& meta, const AttributeMembers& members) -> AT_Attr* {
        if constexpr (std::derived_from<Class, AT_ComplexAttr>)
            return new (place) Class(node, meta, members);
        else
            return new (place) Class(node, meta);
    },
    .newValue = [](const AttributeSpec& spec) { return Class::newValue(spec); },
    .stored = [](const AT_Attr& attr) { return static_cast<const Class&>(attr).stored(); },
    .isNew =
        [](const AT_Attr& attr) {
            const auto& present = static_cast<const Class&>(attr);
            if constexpr (requires { present.localValue() == present.defaultValue(); })
                return present.localValue() == present.defaultValue();
            else
                return present.stored() == present.meta().newValue();
        },
    .store = [](AT_Attr& attr, const AttributeValue& value) { static_cast<Class&>(attr).store(value); },
};

} // namespace brindle::engine
