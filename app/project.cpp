#include "app/arguments.h"

#include "core/host/cm_palettemanager.h"
#include "core/host/dd_clipboard.h"
#include "core/host/mo_node.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_scenemarker.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"
#include "engine/engine.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>

#include <memory>
#include <optional>
#include <vector>

namespace app {

namespace {

/// The one folder that a command takes; none where there is only help or a failure to tell, with the exit code.
std::optional<QString> takeFolder(const Usage& usage, const QList<QByteArray>& given, int& code)
{
    std::optional<QString> folder;
    Arguments arguments(usage, given);
    while (arguments.next()) {
        if (arguments.isOption())
            arguments.refuse();
        else if (folder)
            arguments.misfit();
        else
            folder = arguments.folder();
    }
    code = done;
    if (arguments.isHelpAsked()) {
        print(helpOf(usage));
        return std::nullopt;
    }
    if (!folder)
        arguments.misfit();
    if (!arguments.error().isEmpty()) {
        code = fail(arguments.error(), misused);
        return std::nullopt;
    }
    return folder;
}

struct Counts {
    std::size_t frames = 0;
    std::size_t nodes = 0;
    std::size_t columns = 0;
    std::size_t markers = 0;

    void add(const Counts& other)
    {
        frames += other.frames;
        nodes += other.nodes;
        columns += other.columns;
        markers += other.markers;
    }
};

Counts countsOf(const TUScene& scene)
{
    std::vector<MO_Node*> nodes;
    scene.getRootGroup()->getRecursiveSubNodeList(nodes);
    return {static_cast<std::size_t>(scene.getNumberOfFrames()), nodes.size(),
            static_cast<std::size_t>(scene.timedValueCount()), scene.sceneCommon()->sceneMarkers().size()};
}

QString counted(std::size_t count, const char* what)
{
    return QString("%1 %2%3").arg(QString::number(count), what, count == 1 ? "" : "s");
}

QString contents(const Counts& counts)
{
    return counted(counts.nodes, "node") + ", " + counted(counts.columns, "column") + ", " +
           counted(counts.markers, "marker");
}

QString sceneLine(const TUScene& scene, const Counts& counts)
{
    const SC_SceneCommon& common = *scene.sceneCommon();
    return QString("Scene \"%1\": %2 (%3 to %4) at %5 fps, %6\n")
        .arg(brindle::engine::shown(scene.name()), counted(counts.frames, "frame"),
             QString::number(common.getStartFrame()), QString::number(common.getStopFrame()),
             QString::number(scene.frameRate().fps()), contents(counts));
}

QString resolutionLine(const SC_ProjectCommon& project)
{
    const SC_Resolution* resolution = project.resolution();
    if (!resolution)
        return QString("Resolution: none\n");
    const QString name = resolution->name().isEmpty() ? QString() : resolution->name() + ", ";
    return QString("Resolution: %1%2 x %3\n")
        .arg(name, QString::number(resolution->width()), QString::number(resolution->height()));
}

QString elementsLine(const SC_ProjectCommon& project)
{
    const TUElementMgr* manager = project.elementManager();
    std::size_t elements = 0;
    std::size_t deleted = 0;
    std::size_t drawings = 0;
    for (auto element = manager->elementBegin(); element != manager->elementEnd(); ++element) {
        ++((*element)->isDeleted() ? deleted : elements);
        if (!(*element)->isDeleted())
            drawings += manager->getElementDrawingInfoById((*element)->id())->getMap().size();
    }
    return QString("Elements: %1 with %2%3\n")
        .arg(QString::number(elements), counted(drawings, "drawing"),
             deleted > 0 ? QString(", and %1 deleted").arg(deleted) : QString());
}

/// The size of the project's files; hidden ones are no part of it.
QString sizeLine(const QString& folder)
{
    qint64 bytes = 0;
    std::size_t files = 0;
    QDirIterator walk(folder, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        bytes += walk.fileInfo().size();
        ++files;
    }
    return QString("Size: %1 in %2\n").arg(QLocale::c().formattedDataSize(bytes), counted(files, "file"));
}

QString projectText(const SC_Project& project)
{
    const SC_ProjectCommon& common = *project.projectCommon();
    QString text = QString("Project: %1\n").arg(brindle::engine::shown(project.path())) + resolutionLine(common) +
                   QString("Colour space: %1\n").arg(common.projectColorSpace());
    Counts total;
    for (int index = 0; index < project.sceneCount(); ++index) {
        if (const auto* scene = dynamic_cast<const TUScene*>(project.sceneAt(index))) {
            const Counts counts = countsOf(*scene);
            text += sceneLine(*scene, counts);
            total.add(counts);
        }
    }
    if (project.sceneCount() > 1)
        text += QString("All %1 scenes: %2, %3\n")
                    .arg(QString::number(project.sceneCount()), counted(total.frames, "frame"), contents(total));
    const QString last = brindle::engine::shown(project.lastChange().simplified());
    return text + QString("Last change: %1\n").arg(last.isEmpty() ? QString("none") : last);
}

/// The nodes that a paste makes, a line each, with what they are seen with.
QString templateText(SC_SessionContext& session, const SC_Project& project)
{
    const QString path = brindle::engine::shown(project.path());
    QString text = QString("Template: %1\n").arg(path);
    if (const auto* scene = dynamic_cast<const TUScene*>(project.sceneAt(0))) {
        const Counts counts = countsOf(*scene);
        text += QString("Frames: %1 at %2 fps\nNodes: %3 in all, %4\n")
                    .arg(QString::number(counts.frames), QString::number(scene->frameRate().fps()),
                         QString::number(counts.nodes), counted(counts.columns, "column"));
        const TUGroup& top = *scene->getRootGroup();
        for (auto node = top.subNodesBegin(); node != top.subNodesEnd(); ++node)
            text += QString("  %1 (%2)\n").arg(brindle::engine::shown((*node)->instanceName()), (*node)->typeName());
    }
    const auto content = DD_TplUtil::LoadTemplate(&session, project.path(), false);
    const QString camera = content ? brindle::engine::shown(content->defaultCameraName()) : QString();
    return text + QString("Default camera: %1\n").arg(camera.isEmpty() ? QString("none") : camera);
}

QString palettesLine()
{
    QStringList names;
    for (const auto& list : CM_PaletteManager::GetInstance()->paletteLists()) {
        for (const auto& palette : list->palettes())
            names.append(brindle::engine::shown(palette->GetName()));
    }
    return QString("Palettes: %1\n").arg(names.isEmpty() ? QString("none") : names.join(", "));
}

} // namespace

int newProject(const QList<QByteArray>& arguments)
{
    int code = done;
    const std::optional<QString> folder = takeFolder(newUsage, arguments, code);
    if (!folder)
        return code;
    const auto session = SC_SessionContext::create();
    QString error;
    const SC_Project* project = session->projectManager()->createProject(*folder, error);
    if (!project)
        return fail(error, failed);
    print(QString("Made %1\n").arg(brindle::engine::shown(project->path())));
    return done;
}

int projectInfo(const QList<QByteArray>& arguments)
{
    int code = done;
    const std::optional<QString> folder = takeFolder(infoUsage, arguments, code);
    if (!folder)
        return code;
    const auto session = SC_SessionContext::create();
    QString error;
    const SC_Project* project = session->projectManager()->openProjectReadOnly(*folder, error);
    if (!project)
        return fail(error, failed);
    const bool isTemplate = QFileInfo(project->path()).suffix() == "tpl";
    print((isTemplate ? templateText(*session, *project) : projectText(*project)) +
          elementsLine(*project->projectCommon()) + (isTemplate ? palettesLine() : QString()) +
          sizeLine(project->path()));
    return done;
}

} // namespace app
