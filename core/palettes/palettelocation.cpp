#include "core/palettes/palettelocation.h"

#include "core/host/sc_session.h"
#include "core/host/tu_dbscenedata.h"
#include "core/host/tu_elementmgr.h"

#include <algorithm>
#include <iterator>

namespace OMC::palettelocation {

namespace {

struct Location {
    const char* name;
    int number;
};

constexpr Location locations[] = {{"ENVIRONMENT", CM_Environment}, {"JOB", CM_Job},           {"SCENE", CM_Scene},
                                  {"ELEMENT", CM_Element},         {"EXTERNAL", CM_External}, {"BACKUP", CM_Backup}};

/// The id of the first element that isn't deleted and is the wanted one, or -1.
template <typename Wanted>
int firstElement(const SC_ProjectCommon& project, const Wanted& wanted)
{
    const TUElementMgr* elements = project.elementManager();
    if (!elements)
        return -1;
    const auto found = std::find_if(elements->elementBegin(), elements->elementEnd(), [&](const TUElement* element) {
        return !element->isDeleted() && wanted(*element);
    });
    return found == elements->elementEnd() ? -1 : (*found)->id();
}

} // namespace

int locationNamed(const QString& name)
{
    const auto* found = std::find_if(std::begin(locations), std::end(locations), [&name](const Location& location) {
        return name.compare(QLatin1String(location.name), Qt::CaseInsensitive) == 0;
    });
    return found == std::end(locations) ? CM_Backup : found->number;
}

QString nameOf(int number)
{
    const int shown = number == CM_ElementOther ? CM_Element : number;
    const auto* found = std::find_if(std::begin(locations), std::end(locations),
                                     [shown](const Location& location) { return location.number == shown; });
    return QString::fromLatin1(found == std::end(locations) ? "BACKUP" : found->name);
}

int locationOf(const CM_PalettePathI& path, const SC_ProjectCommon& project)
{
    const TUDbSceneData* data = project.dbSceneData();
    const int location = data ? data->getLocationRelativeToElement(path.path().ToString()) : CM_External;
    return location == CM_ElementOther ? CM_Element : location;
}

int elementOf(const CM_Palette& palette, const SC_ProjectCommon& project)
{
    if (locationOf(palette.GetPath(), project) != CM_Element)
        return -1;
    return firstElement(project, [&](const TUElement& element) {
        return palette.GetPath().isEqual(
            CM_PalettePathProject(&project, CM_Element, palette.GetDiskName(), element.id()));
    });
}

int elementOfFolder(const QString& folder, const SC_ProjectCommon& project)
{
    return firstElement(project,
                        [&](const TUElement& element) { return elementFolder(project, element.id()) == folder; });
}

QString elementFolder(const SC_ProjectCommon& project, int id)
{
    const TUElementMgr* elements = project.elementManager();
    return elements ? elements->elementFolder(id, 0).ToString() : QString();
}

} // namespace OMC::palettelocation
