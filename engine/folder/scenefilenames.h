#pragma once

#include <QStringList>

namespace brindle::engine {

/// The files of scenes in the project's folder, "scenes/Scene-1.json", from the scenes' names alone.
///
/// A name keeps its letters, digits, "-", "_", "." and spaces; other characters, and a "." at the beginning, become
/// "_". It is cut where it is too long. Names that would be one on a file system that doesn't tell capital letters
/// apart get a number behind them: "scenes/Walk-2.json".
QStringList sceneFileNames(const QStringList& sceneNames);

/// Whether a path may be the file of a scene: a name right in "scenes" that ends in ".json".
bool isSceneFileName(const QString& path);

} // namespace brindle::engine
