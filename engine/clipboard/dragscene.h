#pragma once

#include "core/host/cm_palette.h"
#include "engine/session/project.h"
#include "engine/session/scene.h"

#include <QString>

#include <memory>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

/// Copied content: a scene of its own, in a project that is in no session and on no disk. Its root group has the copied
/// nodes, its project the elements that they show, with the contents of their files in memory. It is filled when it is
/// made, and never changes afterwards: drag objects share it.
class DragScene {
public:
    DragScene(const ProjectSettings& settings, const SceneRecord& record);

    Scene& scene() const { return m_scene; }
    Project& project() const { return m_project; }
    ElementManager& elements() const;
    int frameCount() const { return m_scene.getNumberOfFrames(); }

    /// A palette that goes along, with all that its file has.
    struct DraggedPalette {
        std::shared_ptr<CM_Palette> palette; ///< On no list. Its path is that of the original.
        int element = -1;                    ///< The element of this project whose list has it; -1 for the project's.
    };
    std::vector<DraggedPalette> palettes;

    /// A file that goes along beside those that a project knows.
    struct ExtraFile {
        int element = -1; ///< The element of this project in whose folder it stands; -1 for the project's folder.
        QString place;    ///< In that folder: "scan/1.png".
        QByteArray bytes;
    };
    std::vector<ExtraFile> files;

    QString camera; ///< The name of the default camera; empty for none that is told.

    SC_Id source;                         ///< The project that it was copied from.
    std::unordered_map<int, int> origins; ///< The ids of the elements there, by their ids here.

private:
    mutable Project m_project{QString()};
    Scene& m_scene;
};

/// The name of the entry in a template's metadata that tells the default camera.
inline constexpr QLatin1String cameraEntry("defaultCamera");

} // namespace brindle::engine
