#include "engine/session/resolutions.h"

#include "core/host/sc_session.h"
#include "engine/session/projectsettings.h"
#include "engine/session/scene.h"
#include "engine/session/scenemanager.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr NamedResolution namedResolutionTable[] = {
    {u"HD_1080", 1920, 1080, 24.0},
    {u"HD_720", 1280, 720, 24.0},
    {u"UHD_4K", 3840, 2160, 24.0},
    {u"UHD_8K", 7680, 4320, 24.0},
    {u"DCI_2K", 2048, 1080, 24.0},
    {u"DCI_2K_FLAT", 1998, 1080, 24.0},
    {u"DCI_2K_SCOPE", 2048, 858, 24.0},
    {u"DCI_4K", 4096, 2160, 24.0},
    {u"DCI_4K_FLAT", 3996, 2160, 24.0},
    {u"DCI_4K_SCOPE", 4096, 1716, 24.0},
    {u"FILM_2K", 2048, 1556, 24.0},
    {u"FILM_4K", 4096, 3112, 24.0},
    {u"NTSC", 720, 486, 30000.0 / 1001.0},
    {u"NTSC_DV", 720, 480, 30000.0 / 1001.0},
    {u"PAL", 720, 576, 25.0},
    {u"HD_1080_PAL", 1920, 1080, 25.0},
    {u"HD_1080_NTSC", 1920, 1080, 30000.0 / 1001.0},
    {u"VGA", 640, 480, 30.0},
    {u"SQUARE_1080", 1080, 1080, 30.0},
    {u"VERTICAL_1080", 1080, 1920, 30.0},
};

} // namespace

const NamedResolution* findNamedResolution(QStringView name)
{
    const auto found = std::find_if(std::begin(namedResolutionTable), std::end(namedResolutionTable),
                                    [name](const NamedResolution& row) { return row.name == name; });
    return found == std::end(namedResolutionTable) ? nullptr : found;
}

std::vector<TUDbResolution::UsaResolutionTable> DbSceneData::namedResolutions() const
{
    std::vector<TUDbResolution::UsaResolutionTable> rows;
    for (const NamedResolution& row : namedResolutionTable)
        rows.emplace_back(row.name.toString(), row.width, row.height, row.fps, Picture::standardFov);
    return rows;
}

QString DbSceneData::sceneName() const
{
    const Scene* first = m_scenes.at(0);
    return first ? first->name() : QString();
}

} // namespace brindle::engine

std::list<TUDbResolution::UsaResolutionTable> TUDbResolution::getResolutions(TUDbSceneData& data, bool sorted)
{
    std::vector<UsaResolutionTable> rows = data.namedResolutions();
    if (sorted)
        std::stable_sort(rows.begin(), rows.end(),
                         [](const UsaResolutionTable& a, const UsaResolutionTable& b) { return a.name() < b.name(); });
    return {rows.begin(), rows.end()};
}

bool TUDbResolution::findResolution(TUDbSceneData& data, QString name, int& width, int& height, FovFit& fovFit,
                                    double& fov, Projection& projection)
{
    for (const UsaResolutionTable& row : data.namedResolutions()) {
        if (row.name() != name)
            continue;
        width = row.width();
        height = row.height();
        fovFit = row.fovFit();
        fov = row.customFov();
        projection = row.projection();
        return true;
    }
    return false;
}

SC_Resolution SC_Resolution::projectResolution(const SC_ProjectCommon* project)
{
    const SC_Resolution* current = project ? project->resolution() : nullptr;
    return current ? *current : SC_Resolution();
}
