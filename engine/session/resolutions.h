#pragma once

#include "core/host/tu_dbscenedata.h"

#include <QString>
#include <QStringView>

namespace brindle::engine {

/// A common format of film, television or the web. All show the field chart from bottom to top, in perspective.
struct NamedResolution {
    QStringView name;
    int width;
    int height;
    double fps; ///< The frame rate that goes with it.
};

/// The one that has exactly this name, or null.
const NamedResolution* findNamedResolution(QStringView name);

class PaletteStore;
class SceneManager;

/// The tables of the open engine: the named resolutions, which are the same for all projects, and where palettes lie.
class DbSceneData final : public TUDbSceneData {
public:
    /// What it tells of the project belongs to whoever has the tables.
    DbSceneData(const PaletteStore& palettes, const SceneManager& scenes, const QString& path)
        : m_palettes(palettes),
          m_scenes(scenes),
          m_path(path)
    {}

    std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const override;
    CM_LocationType getLocationRelativeToElement(const QString& folder) const override;
    QString sceneName() const override;
    QString versionName() const override { return sceneName(); } ///< A scene has one version.
    QString sceneDir() const override { return m_path; }         ///< Scenes lie in the folder of their project.
    QString projectDir() const override { return m_path; }

private:
    const PaletteStore& m_palettes;
    const SceneManager& m_scenes;
    const QString& m_path;
};

} // namespace brindle::engine
