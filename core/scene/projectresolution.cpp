#include "core/scene/projectresolution.h"

#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_session.h"

#include <QCoreApplication>

#include <list>

namespace OMC {

namespace {

using Row = TUDbResolution::UsaResolutionTable;

/// The named resolutions in the table's order; none where there is no table.
std::list<Row> rowsOf(const SC_ProjectCommon& project)
{
    TUDbSceneData* data = project.dbSceneData();
    return data ? TUDbResolution::getResolutions(*data, false) : std::list<Row>();
}

bool isNamed(const SC_ProjectCommon& project, const QString& name)
{
    TUDbSceneData* data = project.dbSceneData();
    int width = 0;
    int height = 0;
    double fov = 0.0;
    auto fit = TUDbResolution::kFitHeight;
    auto projection = TUDbResolution::kPerspective;
    return data && TUDbResolution::findResolution(*data, name, width, height, fit, fov, projection);
}

const SC_Resolution& resolutionOf(const SC_ProjectCommon& project)
{
    return found(project.resolution());
}

CO_CommandManager& managerOf(const SC_ProjectCommon& project)
{
    return found(project.commandManager());
}

/// Text of this file that belongs to no class.
QString translated(const char* text)
{
    return QCoreApplication::translate("CadenceMain", text);
}

/// The row of the table that has the name; throws when there is none.
Row rowNamed(const QString& name, const SC_ProjectCommon* project)
{
    for (const Row& row : rowsOf(found(project, unexpected::ErrorHasOccurred))) {
        if (row.name() == name)
            return row;
    }
    throw Exception(translated("Unable to find named-resolution."));
}

} // namespace

ProjectResolution::ProjectResolution(SC_ProjectCommon* project) : EngineView(project) {}

// The misspelled word is required.
std::string ProjectResolution::__str__() const
{
    return QStringLiteral("ProjectResoluion(%1,%2,%3)").arg(getX()).arg(getY()).arg(getDefaultFOV()).toStdString();
}

void ProjectResolution::setX(int pixels)
{
    const SC_Resolution& current = resolutionOf(target());
    setSize(pixels, current.height(), tr("Set X Resolution."));
}

int ProjectResolution::getX() const
{
    return resolutionOf(target()).width();
}

void ProjectResolution::setY(int pixels)
{
    const SC_Resolution& current = resolutionOf(target());
    setSize(current.width(), pixels, tr("Set Y Resolution."));
}

int ProjectResolution::getY() const
{
    return resolutionOf(target()).height();
}

double ProjectResolution::getDefaultFOV() const
{
    const SC_ProjectCommon& project = target();
    resolutionOf(project);
    return project.defaultFov();
}

QMap<QString, Obj> ProjectResolution::getNames() const
{
    SC_ProjectCommon* project = &target();
    QMap<QString, Obj> objects;
    for (const Row& row : rowsOf(*project)) {
        // A second row of a name has the same object, and a handle that holds one takes no other.
        if (!objects.contains(row.name()))
            objects.insert(row.name(), Obj(new ProjectNamedResolution(project, row.name())));
    }
    return objects;
}

QString ProjectResolution::getDefaultName() const
{
    return resolutionOf(target()).name();
}

void ProjectResolution::setDefaultName(const QString& name)
{
    SC_ProjectCommon* project = &target();
    CO_CommandManager& manager = managerOf(*project);
    if (!isNamed(*project, name))
        throw Exception(tr("Named-resolution cannot be found."));
    undo::run(manager, new SC_ProjectCmds::SetProjectResolutionByNameCmd(project, name),
              tr("Set Default Resolution Name"), tr("Failed to set named resolution."));
}

// A negative size is a huge unsigned one, which no project takes.
void ProjectResolution::setSize(int width, int height, const QString& label)
{
    SC_ProjectCommon* project = findTarget();
    CO_CommandManager& manager = managerOf(*project);
    undo::run(manager,
              new SC_ProjectCmds::SetProjectResolutionByValueCmd(
                  project, static_cast<unsigned int>(width), static_cast<unsigned int>(height),
                  TUDbResolution::kFitHeight, project->defaultFov(), resolutionOf(*project).projection()),
              label, tr("Failed to set resolution."));
}

ProjectNamedResolution::ProjectNamedResolution(SC_ProjectCommon* project, const QString& name)
    : EngineView(project),
      m_name(name)
{}

std::string ProjectNamedResolution::__str__() const
{
    return QStringLiteral("ProjectNamedResolution(%1,%2,%3,%4,%5)")
        .arg(getName(), QString::number(getX()), QString::number(getY()), QString::number(getFOV()),
             QString::number(getFramerate()))
        .toStdString();
}

int ProjectNamedResolution::getX() const
{
    validateThreadLock();
    return rowNamed(m_name, findTarget()).width();
}

int ProjectNamedResolution::getY() const
{
    validateThreadLock();
    return rowNamed(m_name, findTarget()).height();
}

double ProjectNamedResolution::getFOV() const
{
    validateThreadLock();
    return rowNamed(m_name, findTarget()).customFov();
}

double ProjectNamedResolution::getFramerate() const
{
    validateThreadLock();
    return rowNamed(m_name, findTarget()).fps();
}

QString ProjectNamedResolution::getName() const
{
    return m_name;
}

QString ProjectNamedResolution::getProjection() const
{
    validateThreadLock();
    switch (int(rowNamed(m_name, findTarget()).projection())) {
    case TUDbResolution::kPerspective:
        return translated("Perspective");
    case TUDbResolution::kOrthogonal:
        return translated("Orthogonal");
    default:
        return QStringLiteral("NONE");
    }
}

// Each getter asks for itself, so that the name can be told at any time.
void ProjectNamedResolution::validate() const {}

} // namespace OMC
