#include "core/host/dd_clipboard.h"

#include "core/host/sl_selection.h"
#include "engine/clipboard/pasteover.h"
#include "engine/clipboard/templates.h"
#include "engine/folder/folderio.h"
#include "engine/graph/dragdrop.h"

#include <QFileInfo>

#include <limits>

using namespace brindle::engine;

namespace {

DD_DragObject dragObject(std::shared_ptr<const DragScene> content)
{
    if (!content)
        return DD_DragObject();
    auto data = std::make_shared<DD_DragObject::Private>();
    data->scene = std::move(content);
    return DD_DragObject(std::move(data));
}

/// What was copied into a drag object; null for one that moves nodes, and for an invalid one.
const DragScene* contentOf(const DD_DragObject& object)
{
    return object.isValid() ? object.data().scene.get() : nullptr;
}

/// The selected nodes that are in a scene and below its root group; none where another one is selected.
std::vector<Node*> nodesIn(const Scene& scene, const SL_Selection& selection)
{
    std::vector<Node*> nodes;
    for (MO_Node* host : SL_SelectionUtil::getNodes(selection)) {
        Node* node = engineNode(host);
        if (!node || node->scene() != &scene || !node->parent())
            return {};
        nodes.push_back(node);
    }
    return nodes;
}

std::vector<Node*> allNodes(Scene& scene)
{
    std::vector<Node*> nodes;
    forEachFrom(scene.graph().root(), [&](Node& node) {
        if (node.parent())
            nodes.push_back(&node);
    });
    return nodes;
}

/// The project's selection, or null.
SL_Selection* projectSelection(const Scene* scene)
{
    return scene && scene->projectCommon() ? scene->projectCommon()->getSelection() : nullptr;
}

void select(const std::vector<Node*>& nodes, SL_Selection* selection)
{
    if (!selection)
        return;
    const SL_Selection::BatchSelectionModeScope batch(selection);
    SL_SelectionUtil::clear(*selection);
    for (const Node* node : nodes)
        SL_SelectionUtil::addToSelection(*selection, &node->host());
}

NodeMatch matchOf(const DD_DropMode& mode)
{
    return mode.matchNodeName() ? NodeMatch::NamesAndTypes : NodeMatch::Types;
}

/// A group of the scene, or null.
Group* groupIn(Scene* scene, TUGroup* host)
{
    Group* group = engineGroup(host);
    return scene && group && group->graph() == &scene->graph() ? group : nullptr;
}

/// Behind the name of a template that is there already stands a number.
QString freeTemplatePath(const QString& path)
{
    const QString base = path.endsWith(templateEnding) ? path.chopped(templateEnding.size()) : path;
    QString free = base + templateEnding;
    for (int number = 1; folder_io::kindOf(free) != FileKind::Nothing; ++number)
        free = base + u'_' + QString::number(number) + templateEnding;
    return free;
}

} // namespace

int DD_DragObject::numFrames() const
{
    const DragScene* content = contentOf(*this);
    return content ? content->frameCount() : 0;
}

bool DD_DragUtil::GetDragInfo(SC_SessionContext*, const DD_DragObject& object, DD_DragInfo& info,
                              std::shared_ptr<DD_DragSceneOld>& scene)
{
    const DragScene* content = contentOf(object);
    if (!content)
        return false;
    info.numFrames = content->frameCount();
    scene = std::make_shared<DD_DragSceneOld>(object, content->camera);
    return true;
}

bool DD_TplUtil::GetValidSceneFile(const QString& path, UT_Path& file)
{
    UT_Path project(path);
    project.AddName(QStringLiteral("project.json"));
    if (path.isEmpty() || path.contains(QChar(0)) || !QFileInfo(project.ToString()).isFile())
        return false;
    file = project;
    return true;
}

std::shared_ptr<DD_DragSceneOld> DD_TplUtil::LoadTemplate(SC_SessionContext*, const QString& path, bool)
{
    const std::shared_ptr<const DragScene> content = readTemplate(path, {.modellingFolder = true, .scanFiles = true});
    return content ? std::make_shared<DD_DragSceneOld>(dragObject(content), content->camera) : nullptr;
}

bool DD_TplUtil::SaveDragObjectAsNewTemplate(SC_SessionContext*, const DD_DragSceneOld& scene, UT_Path& path)
{
    const DragScene* content = contentOf(scene.content());
    if (!content)
        return false;
    try {
        const QString free = freeTemplatePath(path.ToString());
        if (!writeTemplate(free, *content, scene.defaultCameraName()))
            return false;
        path = UT_Path(free);
        return true;
    } catch (const FolderFailure& failure) {
        logFailure(QStringLiteral("make the template"), failure.reason);
        return false;
    }
}

DD_DragObject DD_SystemExternalAPI::CreateDragObjectFromSelection(SC_SceneCommon* common, const SL_Selection* selection,
                                                                  bool addModellingDir, bool addScanFiles)
{
    Scene* scene = engineScene(common);
    const std::vector<Node*> nodes = scene && selection ? nodesIn(*scene, *selection) : std::vector<Node*>();
    if (nodes.empty())
        return DD_DragObject();
    try {
        return dragObject(copyContent(*scene, nodes,
                                      {.startFrame = selection->startFrame(),
                                       .frameCount = selection->frameCount(),
                                       .modellingFolder = addModellingDir,
                                       .scanFiles = addScanFiles}));
    } catch (const FolderFailure& failure) {
        logFailure(QStringLiteral("copy the nodes"), failure.reason);
        return DD_DragObject();
    }
}

DD_DragObject DD_SystemExternalAPI::CreateDragObjectFromTemplate(SC_SessionContext*, const QString& path,
                                                                 int startFrame, int numFrames, bool addModellingDir,
                                                                 bool addScanFiles)
{
    return dragObject(readTemplate(path, {.startFrame = startFrame,
                                          .frameCount = numFrames,
                                          .modellingFolder = addModellingDir,
                                          .scanFiles = addScanFiles}));
}

QString DD_SystemExternalAPI::CreateTemplateFromSelection(SC_SessionContext* session, SC_SceneCommon* common,
                                                          QString& name, const QString& folder, bool addModellingDir,
                                                          bool addScanFiles, bool includeDefaultCamera)
{
    Scene* scene = engineScene(common);
    const SL_Selection* selection = projectSelection(scene);
    const DD_DragObject object = CreateDragObjectFromSelection(common, selection, addModellingDir, addScanFiles);
    if (!object.isValid())
        return QString();
    const TUCameraModule* camera = includeDefaultCamera ? scene->defaultCamera() : nullptr;
    UT_Path path(folder);
    path.AddName(name);
    if (!DD_TplUtil::SaveDragObjectAsNewTemplate(
            session, DD_DragSceneOld(object, camera ? camera->instanceName() : QString()), path))
        return QString();
    name = path.GetFileName();
    return name;
}

bool DD_SystemExternalAPI::PasteIntoScene(SC_SessionContext*, SC_SceneCommon* common, const SL_Selection& targets,
                                          const DD_DragObject& object, const DD_DropMode& mode,
                                          const DD_SelectionUtil::CompositionOptions& options, SL_Selection* pasted,
                                          int startFrame, int numFrames)
{
    Scene* scene = engineScene(common);
    const DragScene* content = contentOf(object);
    if (!scene || !content)
        return false;
    PasteTargets onto{nodesIn(*scene, targets), {}, matchOf(mode)};
    for (TUTimedValue* column : SL_SelectionUtil::getColumns(targets))
        onto.columns.insert(Column::of(column));
    const std::vector<Node*> nodes = pasteOver(*scene, *content, onto, mode, options, startFrame, numFrames);
    select(nodes, pasted);
    return !nodes.empty();
}

bool DD_SystemExternalAPI::PasteTemplateIntoScene(TUScene*, SC_SessionContext*, SC_SceneCommon* common,
                                                  const QString& path, int frame, const DD_DropMode& mode,
                                                  const DD_SelectionUtil::CompositionOptions& options, bool action)
{
    Scene* scene = engineScene(common);
    const SL_Selection* selection = projectSelection(scene);
    const std::shared_ptr<const DragScene> content =
        selection ? readTemplate(path, {.modellingFolder = true, .scanFiles = true}) : nullptr;
    if (!content)
        return false;
    PasteTargets onto{nodesIn(*scene, *selection), {}, action ? NodeMatch::Names : matchOf(mode)};
    const bool isNothingSelected = SL_SelectionUtil::getNodes(*selection).empty();
    for (TUTimedValue* column : SL_SelectionUtil::getColumns(*selection))
        onto.columns.insert(Column::of(column));
    if (isNothingSelected && mode.createNewColumn) {
        if (!action)
            return !pasteNewNodes(*scene, scene->graph().root(), *content, mode, frame).empty();
        onto.nodes = allNodes(*scene);
    }
    constexpr int all = std::numeric_limits<int>::max();
    return !pasteOver(*scene, *content, onto, mode, options, frame, all).empty();
}

bool DD_SystemExternalAPI::PasteTemplateIntoGroup(TUScene*, SC_SessionContext*, SC_SceneCommon* common, TUGroup* host,
                                                  const QString& path, int frame, const DD_DropMode& mode, int)
{
    Scene* scene = engineScene(common);
    Group* group = groupIn(scene, host);
    const std::shared_ptr<const DragScene> content =
        group ? readTemplate(path, {.modellingFolder = true, .scanFiles = true}) : nullptr;
    return content && !pasteNewNodes(*scene, *group, *content, mode, frame).empty();
}

bool DD_System::DropDragObjectNewLayer(SC_SessionContext*, SC_SceneCommon* common, TUGroup* host,
                                       const DD_DragObject& object, const DD_DropMode& mode, DD_Selection& dropped, int,
                                       int, int, int, SL_Selection& selected)
{
    Scene* scene = engineScene(common);
    Group* group = groupIn(scene, host);
    const DragScene* content = contentOf(object);
    if (!group || !content || !mode.makesNodes())
        return false;
    constexpr int firstFrame = 1;
    const std::vector<Node*> nodes = pasteNewNodes(*scene, *group, *content, mode, firstFrame);
    dropped.data() = {};
    for (const Node* node : nodes)
        dropped.data().nodes.push_back(&node->host());
    select(nodes, &selected);
    return !nodes.empty();
}
