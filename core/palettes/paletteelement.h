#pragma once

#include <QVariant>

#include <optional>

namespace OMC {

class Element;

namespace palettelocation {

/// A new wrapper of the element of an id; null for -1.
Element* newElement(int id);
/// The id of a wrapped element, which has to be in the project; none for any other value.
std::optional<int> elementIn(const QVariant& value);

} // namespace palettelocation

} // namespace OMC
