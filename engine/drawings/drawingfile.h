#pragma once

#include "engine/drawings/drawingvalue.h"

#include <QByteArray>
#include <QString>

namespace brindle::engine {

/// The file of a vector drawing (".pnt", ".bvg"): a line of text that says what it is, and a binary body.
///
///     brindle-drawing 1
///
/// The line has the version and ends with a line feed. Behind it stand the body's size in bytes (8 bytes), its CRC-32
/// (4 bytes) and the body. Equal drawings give equal bytes.
///
/// Numbers of the body are little endian. A *count* or an *index* is a number of 0 or more in groups of 7 bits, the
/// lowest first, each in a byte whose highest bit says that another one follows. A *number* is a double of 8 bytes, a
/// *point* two of them, a *matrix* six: x axis, y axis, origin. An *identity* has 8 bytes, a *text* a count and as many
/// bytes of UTF-8. All numbers are finite.
///
/// | part | what it has |
/// |---|---|
/// | drawing | 1 byte: 1 with a pivot; the pivot's point, if any; the field size (a count, 2 n, or -2 n - 1 for one
/// below 0); the point quantum; the highest id that a layer has had, and that a stroke has had (counts) | | colours | a
/// count, and for each: identity, matrix, identity of the texture (0 without one), the texture's matrix | | line styles
/// | a count, and for each: type (count), 1 byte: 1 tiled + 2 opacity tiled + 4 wrap at the tip; thickness; identities
/// of colour and opacity texture; scaling and offset of the texture and of the opacity texture (points) | | thickness
/// paths | a count, and for each: 1 byte: 1 closed; the curves of both tips, each a degree (count) and its points; a
/// count of keys, and for each its position and, left and right, thickness, the two numbers of the handle towards the
/// start, those of the one towards the end (value, then position) | | art layers | four times 1 byte: 1 where the
/// drawing has it; then a count of layers, bottom first, and the layers | | layer | id and type (counts), and by its
/// type strokes, a text or a picture | | strokes | a count, and for each: id (count); 1 byte: 1 cut at the tail + 2 cut
/// at the head + 4 the part of the thickness path isn't the whole without tangents; the tips at tail and head (counts);
/// one more than the index of the colour at the right and at the left, of the line style without any addition, one more
/// than that of the thickness path (counts; 0 for none); the part, if it is told: start, stop, the tangents at start
/// left and right, at stop left and right; a count of curves, and the points: the first one, and three for each curve |
/// | text | text; font (text); size; one more than the index of the colour (count); matrix; width; fixed width;
/// alignment (count); margins left and right, indent and line space (as the field size is told); the selection's ends
/// (counts) | | picture | matrix; a count of bytes, and as many: a PNG of 8 bits a channel with alpha; none for a
/// picture without pixels |
///
/// Strokes share a thickness path where they have one index. With a point quantum, points of strokes are rounded to it.
QByteArray drawingFileBytes(const DrawingValue& drawing);

/// Throws `FolderFailure` with one sentence for anything that isn't a whole file of a version up to the present one;
/// `path` is how the sentence names it; an empty one stands for bytes of no file. It takes no more memory than the
/// bytes can stand for.
DrawingPointer readDrawingFile(const QString& path, const QByteArray& bytes);

inline constexpr int drawingFileVersion = 1;

} // namespace brindle::engine
