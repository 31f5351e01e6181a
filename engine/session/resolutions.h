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

/// The tables of the open engine: the named resolutions, which are the same for all projects, and where palettes lie.
class DbSceneData final : public TUDbSceneData {
public:
    explicit DbSceneData(const PaletteStore& palettes) : m_palettes(palettes) {}

    std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const override;
    CM_LocationType getLocationRelativeToElement(const QString& folder) const override;

private:
    const PaletteStore& m_palettes;
};

} // namespace brindle::engine
