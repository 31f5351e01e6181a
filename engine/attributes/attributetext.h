#pragma once

#include <QString>

namespace brindle::engine::attribute_text {

/// How values are written as text, the same in every locale: "true" and "false", whole numbers, and numbers in the
/// fewest digits that give them back.
QString write(bool value);
QString write(int value);
QString write(double value);

/// Reads what `write` writes, with blanks around it; a number may also be written as in C. False, and the value is left
/// alone, for another text and for a number that is not finite.
bool read(const QString& text, bool& value); ///< In any case; also "1" and "0".
bool read(const QString& text, int& value);
bool read(const QString& text, double& value);

} // namespace brindle::engine::attribute_text
