#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace app {

/// Frames as a person lists them: "1-60,72,80-70" is 1 to 60, 72, and 70 to 80 backwards. None for another text, for a
/// frame below 1 or above `last`, and for more than a million frames; `error` then tells why.
std::optional<std::vector<int>> framesOf(const QString& text, int last, QString& error);

/// The path of a frame's file: "%d" or "%04d" in the pattern stand for its number; "%%" for a per cent sign.
QString framePath(const QString& pattern, int frame);
/// Whether a pattern has exactly one place for the number, and nothing else behind a per cent sign.
bool isFramePattern(const QString& pattern);

} // namespace app
