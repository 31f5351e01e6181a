#include "app/command.h"

#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>

#include <memory>
#include <vector>

namespace app {

namespace {

int usage(const char* command)
{
    return fail(QString("Usage: brindle %1 DIR").arg(command), misused);
}

QString sceneLine(const TUScene& scene)
{
    std::vector<MO_Node*> nodes;
    scene.getRootGroup()->getRecursiveSubNodeList(nodes);
    return QString("Scene \"%1\": %2 frames at %3 fps, %4 nodes, %5 columns\n")
        .arg(scene.name())
        .arg(scene.getNumberOfFrames())
        .arg(scene.frameRate().fps())
        .arg(nodes.size())
        .arg(scene.timedValueCount());
}

QString sizeLine(const QString& folder)
{
    qint64 bytes = 0;
    int files = 0;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        bytes += walk.fileInfo().size();
        ++files;
    }
    return QString("Size: %1 in %2 files\n").arg(QLocale::c().formattedDataSize(bytes)).arg(files);
}

} // namespace

int newProject(const QStringList& arguments)
{
    if (arguments.size() != 1)
        return usage("new");
    const auto session = SC_SessionContext::create();
    QString error;
    const SC_Project* project = session->projectManager()->createProject(arguments.first(), error);
    if (!project)
        return fail(error, failed);
    print(QString("Made %1\n").arg(project->path()));
    return done;
}

int projectInfo(const QStringList& arguments)
{
    if (arguments.size() != 1)
        return usage("info");
    const auto session = SC_SessionContext::create();
    QString error;
    const SC_Project* project = session->projectManager()->openProject(arguments.first(), error);
    if (!project)
        return fail(error, failed);
    QString text = QString("Project: %1\n").arg(project->path());
    for (int index = 0; index < project->sceneCount(); ++index) {
        if (const auto* scene = dynamic_cast<const TUScene*>(project->sceneAt(index)))
            text += sceneLine(*scene);
    }
    print(text + sizeLine(project->path()));
    return done;
}

} // namespace app
