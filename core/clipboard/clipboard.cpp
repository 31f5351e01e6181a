#include "core/clipboard/clipboard.h"

#include "core/clipboard/copyobject.h"
#include "core/clipboard/copyoptions.h"
#include "core/clipboard/dropmode.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"
#include "core/columns/columnlist.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/frame/optionfields.h"
#include "core/frame/undo.h"
#include "core/host/dd_clipboard.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_timedvalue.h"
#include "core/host/ut_path.h"
#include "core/nodes/node.h"
#include "core/nodes/nodelist.h"

#include <memory>

namespace OMC {

using DD_SelectionUtil::CompositionOptions;

namespace {

/// Frames of a scene: so many from the first one on.
struct Frames {
    int start;
    int count;
};

Frames settled(Frames frames, const TUScene& scene)
{
    return {frames.start == 0 ? found(scene.sceneCommon()).getStartFrame() : frames.start,
            frames.count == 0 ? scene.getNumberOfFrames() : frames.count};
}

/// The options of a copy. Required: without any, no files go along, unlike with options that nobody changed.
CopyOptions copyOptions(const Obj& handle)
{
    if (const auto* options = options::in<CopyOptions>(
            handle, [] { return Clipboard::tr("Invalid Copy_Options object provided in options argument."); }))
        return *options;
    CopyOptions none;
    none.addModellingDir = false;
    none.addScanFiles = false;
    return none;
}

const CopyObject& copyIn(const Obj& handle)
{
    return found(objectIn<const CopyObject>(handle), [] { return Clipboard::tr("Invalid copy object provided."); });
}

std::vector<MO_Node*> nodesIn(const QVariant& value, TUScene& scene)
{
    std::vector<MO_Node*> nodes;
    NodeList(&scene, false).nodesFromQVariant(value, nodes);
    return nodes;
}

std::vector<MO_Node*> nodesToCopy(const QVariant& value, TUScene& scene)
{
    std::vector<MO_Node*> nodes = nodesIn(value, scene);
    if (nodes.empty())
        throw Exception(Clipboard::tr("Unable to identify any nodes to copy."));
    return nodes;
}

void select(SL_Selection& selection, const std::vector<MO_Node*>& nodes)
{
    const SL_Selection::BatchSelectionModeScope batch(&selection);
    for (MO_Node* node : nodes)
        SL_SelectionUtil::addToSelection(selection, node);
}

/// The first group among nodes.
TUGroup& groupToPasteInto(const std::vector<MO_Node*>& nodes)
{
    for (MO_Node* node : nodes) {
        if (TUGroup* group = node->group())
            return *group;
    }
    throw Exception(Clipboard::tr("Failed to identify target group."));
}

SC_SessionContext& sessionContext()
{
    return found(Global::sessionContext(), &BaseObject::throwUnexpected);
}

SC_SceneCommon& commonOf(const TUScene& scene)
{
    return found(scene.sceneCommon(), &BaseObject::throwUnexpected);
}

SL_Selection& currentSelection(const TUScene& scene)
{
    const SC_ProjectCommon& project = found(scene.projectCommon(), &BaseObject::throwUnexpected);
    return found(project.getSelection(), &BaseObject::throwUnexpected);
}

CO_CommandManager& managerOf(const TUScene& scene)
{
    return found(scene.commandManager(), &BaseObject::throwUnexpected);
}

/// The object that a script gets for a copy.
Obj copyObject(const DD_DragObject& object)
{
    // Required: the sentence speaks of a template, also where nodes of the scene are copied.
    if (!object.isValid())
        throw Exception(Clipboard::tr("Failed to copy from template."));
    return Obj(new CopyObject(object));
}

Obj copied(TUScene& scene, const std::vector<MO_Node*>& nodes, Frames told, const CopyOptions& options)
{
    const Frames frames = settled(told, scene);
    SL_Selection selection(scene.changeManager());
    select(selection, nodes);
    selection.setFrameRange(frames.start, frames.count);
    return copyObject(DD_SystemExternalAPI::CreateDragObjectFromSelection(
        &commonOf(scene), &selection, options.addModellingDir, options.addScanFiles));
}

/// A template's name is one part of a path.
QString fileNameOf(QString name)
{
    return name.replace(u'/', u'_');
}

/// Whether a paste without anything to paste on makes columns of its own.
bool makesColumns(const PasteOptions* options)
{
    return options && options->createNewColumn;
}

} // namespace

Clipboard::Clipboard(TUScene* scene) : EngineView(scene) {}

std::string Clipboard::__str__() const
{
    return "Clipboard()";
}

bool Clipboard::filterDir(std::string&) const
{
    return false;
}

Obj Clipboard::copy(const QVariant& nodes, const Obj& options) const
{
    TUScene& scene = target();
    const std::vector<MO_Node*> told = nodesToCopy(nodes, scene);
    const CopyOptions read = copyOptions(options);
    return copied(scene, told, {read.startFrameSrc, read.numFrameSrc}, read);
}

Obj Clipboard::copy(const QVariant& nodes, int startFrame, int numFrames, const Obj& options) const
{
    TUScene& scene = target();
    const std::vector<MO_Node*> told = nodesToCopy(nodes, scene);
    return copied(scene, told, {startFrame, numFrames}, copyOptions(options));
}

Obj Clipboard::copyFromTemplate(const QString& path, int startFrame, int numFrames, const Obj& options) const
{
    const TUScene& scene = target();
    SC_SessionContext& session = sessionContext();
    UT_Path file(path);
    if (!DD_TplUtil::GetValidSceneFile(path, file) || !DD_TplUtil::LoadTemplate(&session, path, false))
        throw Exception(tr("Invalid template file provided to copy."));
    const CopyOptions read = copyOptions(options);
    const Frames frames = settled({startFrame, numFrames}, scene);
    return copyObject(DD_SystemExternalAPI::CreateDragObjectFromTemplate(&session, path, frames.start, frames.count,
                                                                         read.addModellingDir, read.addScanFiles));
}

QString Clipboard::createSelectionTemplate(const QString& name, const QString& folder, const Obj& options) const
{
    const TUScene& scene = target();
    const CopyOptions read = copyOptions(options);
    QString made = fileNameOf(name);
    return DD_SystemExternalAPI::CreateTemplateFromSelection(&sessionContext(), &commonOf(scene), made, folder,
                                                             read.addModellingDir, read.addScanFiles,
                                                             read.includeDefaultCameraName);
}

QString Clipboard::createTemplate(const Obj& copyObject, const QString& name, const QString& folder,
                                  bool includeDefaultCamera) const
{
    const TUScene& scene = target();
    const CopyObject& copy = copyIn(copyObject);
    SC_SessionContext& session = sessionContext();
    DD_DragInfo info;
    std::shared_ptr<DD_DragSceneOld> dragged;
    if (!DD_DragUtil::GetDragInfo(&session, copy.getObject(), info, dragged))
        throwUnexpected();
    if (const TUCameraModule* camera = includeDefaultCamera ? commonOf(scene).camera(false) : nullptr)
        dragged->SetDefaultCameraName(camera->instanceName());
    const QString templateName = name.isEmpty() ? tr("New Template") : name;

    const undo::Scope scope(managerOf(scene), tr("Creating template from Copy Object."));
    if (folder.isEmpty())
        return {};
    // The folder is made together with the template: where that fails, none is left behind.
    UT_Path path(folder);
    path.AddName(fileNameOf(templateName));
    return DD_TplUtil::SaveDragObjectAsNewTemplate(&session, *dragged, path) ? path.GetFileName() : QString();
}

void Clipboard::paste(const Obj& copyObject, const QVariant& nodes, int startFrame, int numFrames, const Obj& options)
{
    TUScene& scene = target();
    const CopyObject& copy = copyIn(copyObject);
    const std::vector<MO_Node*> targets = nodesIn(nodes, scene);
    if (targets.empty())
        throw Exception(tr("Unable to identify any target nodes to paste upon."));
    const Frames frames = settled({startFrame, numFrames}, scene);
    const DD_DropMode mode = dropMode(objectIn<PasteOptions>(options), scene, &copy, QString());
    SL_Selection selection(scene.changeManager());
    select(selection, targets);
    SC_SessionContext& session = sessionContext();

    const undo::Scope scope(managerOf(scene), tr("Pasting Script-Object."));
    SL_Selection pasted(scene.changeManager());
    if (!DD_SystemExternalAPI::PasteIntoScene(&session, &commonOf(scene), selection, copy.getObject(), mode,
                                              CompositionOptions::DEFAULT, &pasted, frames.start, frames.count))
        throw Exception(tr("Failed to paste."));
}

std::vector<Obj> Clipboard::pasteNewNodes(const Obj& copyObject, const QVariant& group, const Obj& options)
{
    TUScene& scene = target();
    const CopyObject& copy = copyIn(copyObject);
    TUGroup& parent = groupToPasteInto(nodesToCopy(group, scene));
    const DD_DropMode mode = dropMode(objectIn<PasteOptions>(options), scene, &copy, QString());

    const undo::Scope scope(managerOf(scene), tr("Paste Nodes from Copy Object"));
    DD_Selection dropped;
    SL_Selection pasted(scene.changeManager());
    if (!DD_System::DropDragObjectNewLayer(Global::sessionContext(), &commonOf(scene), &parent, copy.getObject(), mode,
                                           dropped, 0, 0, 0, 0, pasted))
        throw Exception(tr("Failed to paste."));
    std::vector<Obj> wrappers;
    for (MO_Node* node : SL_SelectionUtil::getNodes(pasted))
        wrappers.emplace_back(Node::getWrapped(node));
    return wrappers;
}

void Clipboard::pasteTemplate(const QString& path, int frame, const QVariant& columns, const Obj& options)
{
    TUScene& scene = target();
    std::vector<TUTimedValue*> told;
    QStringList errors;
    ColumnList::QVariantToTimedValueList(columns, scene, told, errors);
    PasteOptions* read = objectIn<PasteOptions>(options);
    const DD_DropMode mode = dropMode(read, scene, nullptr, path);

    const undo::Scope scope(managerOf(scene), tr("Pasting Template."));
    if (told.empty() && !makesColumns(read))
        throw Exception(tr("Invalid column specified."));
    // Some of several columns are no target of their own.
    if (!errors.isEmpty())
        throw Exception(errors.join(QLatin1Char('\n')));
    SL_Selection& selection = currentSelection(scene);
    SL_SelectionUtil::clear(selection);
    for (TUTimedValue* column : told) {
        SL_SelectionUtil::addToSelection(selection, column);
        if (const std::vector<MO_Node*> nodes = column->linkedNodes(); !nodes.empty())
            SL_SelectionUtil::addToSelection(selection, nodes.front());
    }
    if (!DD_SystemExternalAPI::PasteTemplateIntoScene(&scene, Global::sessionContext(), &commonOf(scene), path, frame,
                                                      mode, CompositionOptions::DEFAULT, false))
        throw Exception(tr("Failed to paste the template."));
}

void Clipboard::pasteTemplateIntoGroup(const QString& path, int frame, const QVariant& group, const Obj& options)
{
    TUScene& scene = target();
    const DD_DropMode mode = dropMode(objectIn<PasteOptions>(options), scene, nullptr, path);
    TUGroup& parent = groupToPasteInto(nodesIn(group, scene));
    // One entry whatever the engine does in its steps.
    const undo::Scope scope(managerOf(scene), tr("Pasting Template."));
    if (!DD_SystemExternalAPI::PasteTemplateIntoGroup(&scene, Global::sessionContext(), &commonOf(scene), &parent, path,
                                                      frame, mode, 0))
        throw Exception(tr("Failed to paste the template."));
}

void Clipboard::pasteActionTemplate(const QString& path, int frame, const QVariant& nodes, const Obj& actionOptions,
                                    const Obj& options)
{
    TUScene& scene = target();
    const std::vector<MO_Node*> targets = nodesIn(nodes, scene);
    SC_SessionContext& session = sessionContext();

    const undo::Scope scope(managerOf(scene), tr("Pasting Action-Template."));
    if (!targets.empty()) {
        SL_Selection& selection = currentSelection(scene);
        SL_SelectionUtil::clear(selection);
        select(selection, targets);
    }
    PasteOptions* read = objectIn<PasteOptions>(options);
    const DD_DropMode mode = dropMode(read, scene, nullptr, path);
    if (targets.empty() && !makesColumns(read))
        throw Exception(tr("Invalid column specified."));
    const auto* action = options::in<PasteActionOptions>(
        actionOptions, [] { return tr("Invalid Paste_Action_Options object provided in options argument."); });
    const CompositionOptions composition = action
                                               ? CompositionOptions(action->groups, action->effects, action->composites)
                                               : CompositionOptions(true, true, true);
    if (!DD_SystemExternalAPI::PasteTemplateIntoScene(&scene, &session, &commonOf(scene), path, frame, mode,
                                                      composition, true))
        throw Exception(tr("Failed to paste the action-template."));
}

TUScene* Clipboard::getScene() const
{
    return findTarget();
}

} // namespace OMC
