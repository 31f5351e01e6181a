#pragma once

#include <QByteArray>
#include <QStringList>

namespace brindle::engine {

class JsonFile;
struct ProjectRecord;

/// The form of "project.json": JSON with these fields.
///
///     format, version  "brindle-project", 3
///     lastChange       left out when it is empty
///     resolution       width and height in pixels, fovFit "HEIGHT" or "WIDTH", fov in degrees, projection
///                      "PERSPECTIVE" or "ORTHOGONAL"; name, left out when it has none
///     colourSpace      its name
///     textureDensity   bitmap and vector: factors of the resolution
///     metrics          aspectRatio [x, y], fieldChart [x, y, z], center [x, y]
///     elements         "elements.json" (elements/elementfile.h), left out where there are no elements
///     scenes           the files of the scenes, in the project's order
///
/// Version 1 has the scenes alone; such a project gets the settings of a new one.

QByteArray projectFileText(const ProjectRecord& record, const QStringList& sceneFiles);

/// The files of the scenes, and all else in `record`. Throws `FolderFailure`.
QStringList readProjectFile(const JsonFile& file, ProjectRecord& record);

} // namespace brindle::engine
