#pragma once

#include <QMetaObject>

#include <span>
#include <string_view>

/// The texts of the headers about classes and members, under the names that scripts have for them. The source of the
/// table is written by cmake/header_texts.py as part of the build.
namespace brindle::python {

struct MemberText {
    const char* name;
    const char* text;   ///< Null where the header says nothing.
    const char* place;  ///< The place of the declaration: "core/nodes/node.h:51".
    const char* getter; ///< The script name of the function that reads a property.
    const char* setter; ///< The same of the function that writes it; null for a property that is only read.
};

struct ClassText {
    const char* name; ///< "OMC::Node"
    const char* text;
    const char* place;
    const MemberText* members; ///< Sorted by name.
    std::size_t count;
};

/// Sorted by name.
std::span<const ClassText> allClassTexts();

/// The text of a class; null for one without a header of ours.
const ClassText* textsOf(const QMetaObject* metaObject);

/// The text of a member in its class, or by the nearest base class that says something; where none does, its
/// declaration without a text, or null.
const MemberText* textOf(const QMetaObject* metaObject, std::string_view member);

} // namespace brindle::python
