#include "core/scene/projectresolution.h"

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
    const SC_Resolution* resolution = project.resolution();
    if (!resolution)
        BaseObject::throwInvalid();
    return *resolution;
}

CO_CommandManager& managerOf(const SC_ProjectCommon& project)
{
    CO_CommandManager* manager = project.commandManager();
    if (!manager)
        BaseObject::throwInvalid();
    return *manager;
}

/// Text of this file that belongs to no class.
QString translated(const char* text)
{
    return QCoreApplication::translate("CadenceMain", text);
}

} // namespace

ProjectResolution::ProjectResolution(SC_ProjectCommon* project) : m_project(project) {}

BaseObject* ProjectResolution::copy() const
{
    return new ProjectResolution(*this);
}

// The misspelled word is required.
std::string ProjectResolution::__str__() const
{
    return QStringLiteral("ProjectResoluion(%1,%2,%3)").arg(getX()).arg(getY()).arg(getDefaultFOV()).toStdString();
}

void ProjectResolution::setX(int pixels)
{
    validate();
    const SC_Resolution& current = resolutionOf(*m_project.get());
    setSize(pixels, current.height(), tr("Set X Resolution."));
}

int ProjectResolution::getX() const
{
    validate();
    return resolutionOf(*m_project.get()).width();
}

void ProjectResolution::setY(int pixels)
{
    validate();
    const SC_Resolution& current = resolutionOf(*m_project.get());
    setSize(current.width(), pixels, tr("Set Y Resolution."));
}

int ProjectResolution::getY() const
{
    validate();
    return resolutionOf(*m_project.get()).height();
}

double ProjectResolution::getDefaultFOV() const
{
    validate();
    const SC_ProjectCommon& project = *m_project.get();
    resolutionOf(project);
    return project.defaultFov();
}

QMap<QString, Obj> ProjectResolution::getNames() const
{
    validate();
    SC_ProjectCommon* project = m_project.get();
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
    validate();
    return resolutionOf(*m_project.get()).name();
}

void ProjectResolution::setDefaultName(const QString& name)
{
    validate();
    SC_ProjectCommon* project = m_project.get();
    CO_CommandManager& manager = managerOf(*project);
    if (!isNamed(*project, name))
        throw Exception(tr("Named-resolution cannot be found."));
    undo::run(manager, new SC_ProjectCmds::SetProjectResolutionByNameCmd(project, name),
              tr("Set Default Resolution Name"), tr("Failed to set named resolution."));
}

void ProjectResolution::validate() const
{
    if (!m_project.get())
        throwInvalid();
    validateThreadLock();
}

// A negative size is a huge unsigned one, which no project takes.
void ProjectResolution::setSize(int width, int height, const QString& label)
{
    SC_ProjectCommon* project = m_project.get();
    CO_CommandManager& manager = managerOf(*project);
    undo::run(manager,
              new SC_ProjectCmds::SetProjectResolutionByValueCmd(
                  project, static_cast<unsigned int>(width), static_cast<unsigned int>(height),
                  TUDbResolution::kFitHeight, project->defaultFov(), resolutionOf(*project).projection()),
              label, tr("Failed to set resolution."));
}

struct ProjectNamedResolution::Private {
    /// The row of the table that has the name; throws when there is none.
    Row row() const
    {
        const SC_ProjectCommon* common = project.get();
        if (!common)
            unexpected::fail(unexpected::ErrorHasOccurred);
        for (const Row& row : rowsOf(*common)) {
            if (row.name() == name)
                return row;
        }
        throw Exception(translated("Unable to find named-resolution."));
    }

    WeakPointer<SC_ProjectCommon> project;
    QString name;
};

ProjectNamedResolution::ProjectNamedResolution(SC_ProjectCommon* project, const QString& name)
    : d(new Private{WeakPointer(project), name})
{}

ProjectNamedResolution::ProjectNamedResolution(const ProjectNamedResolution& other)
    : BaseObject(other),
      d(new Private(*other.d))
{}

ProjectNamedResolution::~ProjectNamedResolution() = default;

BaseObject* ProjectNamedResolution::copy() const
{
    return new ProjectNamedResolution(*this);
}

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
    return d->row().width();
}

int ProjectNamedResolution::getY() const
{
    validateThreadLock();
    return d->row().height();
}

double ProjectNamedResolution::getFOV() const
{
    validateThreadLock();
    return d->row().customFov();
}

double ProjectNamedResolution::getFramerate() const
{
    validateThreadLock();
    return d->row().fps();
}

QString ProjectNamedResolution::getName() const
{
    return d->name;
}

QString ProjectNamedResolution::getProjection() const
{
    validateThreadLock();
    switch (int(d->row().projection())) {
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
