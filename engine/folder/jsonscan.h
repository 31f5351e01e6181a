#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace brindle::engine {

/// Finds the places of things in JSON text. The text has been parsed already, so it is known to be valid; these passes
/// run to tell a person the place of a fault, which a parsed document doesn't keep.
namespace json_scan {

/// A step on the way into a document: a field of an object, or with `index` 0 and more an item of an array.
struct Step {
    QString name;
    int index = -1;
};

/// The offset of the value at the end of the steps; where a step leads nowhere, of the value before it.
qsizetype offsetOf(const QByteArray& text, const std::vector<Step>& steps);

/// How many fields all objects of the text have together.
qsizetype fieldCount(const QByteArray& text);

/// The offset of the first field that its object has a second time, with its name; -1 when there is none.
qsizetype offsetOfRepeatedField(const QByteArray& text, QString& name);

/// Line and column of an offset, both from 1; the column counts characters.
struct Position {
    qsizetype line;
    qsizetype column;
};
Position positionOf(const QByteArray& text, qsizetype offset);

} // namespace json_scan

} // namespace brindle::engine
