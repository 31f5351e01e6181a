#pragma once

#include <QStringList>

namespace brindle::engine {

/// The files of scenes in the project's folder, "scenes/Scene-1.json", from the scenes' names alone (safenames.h).
QStringList sceneFileNames(const QStringList& sceneNames);

/// Whether a path may be the file of a scene: a name right in "scenes" that ends in ".json".
bool isSceneFileName(const QString& path);

} // namespace brindle::engine
