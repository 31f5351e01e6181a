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

/// The named resolutions of the open engine: the same for all projects.
class DbSceneData final : public TUDbSceneData {
public:
    std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const override;
};

} // namespace brindle::engine
