#pragma once

#include <QByteArray>

namespace brindle::engine {

class ElementManager;
class JsonFile;

/// The form of "elements.json", the database of a project's elements: JSON with these fields.
///
///     format, version  "brindle-elements", 1
///     elements         by their ids
///
/// An element:
///
///     id, name
///     folder           its physical name: its files stand in "elements/<folder>"
///     scanType         "COLOR", "GRAY_SCALE" or "BW"
///     fieldChart       in fields
///     pixmapFormat     "PNG", ...: a name of TUPixmapFormatList
///     vectorType       "PNT" or "BVG"; left out for an element of pictures
///     opacity          in percent; left out for 100
///     deleted          true; left out otherwise
///     layers           [id, name] of those that have names; left out for none
///     drawings         in the order in which they were made, a line each; left out for none
///
/// A drawing:
///
///     name
///     file             the name of its files ahead of layer, version and ending; left out where it is the one that is
///                      made of the name (safenames.h)
///     version          the one that it shows; left out for 1
///     type             "KEY", "BREAKDOWN" or "INBETWEEN"; left out for none
///     scale            its factor; left out for 1
///     files            the versions of which it has a file, [version, id of the layer] for a layer with a name; left
///                      out where it has no file yet
///
/// A file is named after these: "1.png", "1@2.png" for version 2, "1+3@2.png" for layer 3 of that. A project without
/// elements has no such file.

inline constexpr char elementFormat[] = "brindle-elements";
inline constexpr int elementVersion = 1;
inline constexpr char elementFileName[] = "elements.json";

QByteArray elementFileText(const ElementManager& elements);

/// Adds the elements of the file to a manager that has none. Throws `FolderFailure`.
void readElements(const JsonFile& file, ElementManager& elements);

} // namespace brindle::engine
