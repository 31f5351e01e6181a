#pragma once

#include "core/host/dd_dragdrop.h"
#include "core/host/export.h"
#include "core/host/ut_path.h"

#include <QString>

#include <memory>

class SC_SceneCommon;
class SC_SessionContext;
class SL_Selection;
class TUGroup;
class TUScene;

/// Copied nodes as a scene: the content of a drag object, and the name of the camera that it is seen through. A value
/// that shares the content.
class BRINDLE_HOST_EXPORT DD_DragSceneOld {
public:
    DD_DragSceneOld(const DD_DragObject& content, const QString& camera) : m_content(content), m_camera(camera) {}

    const DD_DragObject& content() const { return m_content; }
    int numFrames() const { return m_content.numFrames(); }
    /// The name of a camera, which need not be among the copied nodes; empty for none.
    const QString& defaultCameraName() const { return m_camera; }
    void SetDefaultCameraName(const QString& name) { m_camera = name; }

private:
    DD_DragObject m_content;
    QString m_camera;
};

/// What is told of a drag object.
struct DD_DragInfo {
    int numFrames = 0;
};

namespace DD_DragUtil {

/// False for an invalid drag object, and for one of nodes that are moved.
BRINDLE_HOST_EXPORT bool GetDragInfo(SC_SessionContext* session, const DD_DragObject& object, DD_DragInfo& info,
                                     std::shared_ptr<DD_DragSceneOld>& scene);

} // namespace DD_DragUtil

/// A template is a project's folder, by its name of the ending ".tpl", whose first scene has the copied nodes and
/// columns. It is read as a project is: files of older versions are, damaged ones are refused, and the log says why.
namespace DD_TplUtil {

/// Whether the path is the folder of a template, or of a project. `file` is then its "project.json".
BRINDLE_HOST_EXPORT bool GetValidSceneFile(const QString& path, UT_Path& file);

/// Reads a template whole, so that its folder is needed no longer; null where that fails. The last argument is always
/// false.
BRINDLE_HOST_EXPORT std::shared_ptr<DD_DragSceneOld> LoadTemplate(SC_SessionContext* session, const QString& path,
                                                                  bool);

/// Writes a new template at a path. It gets the ending where it has none, and a number behind its name where something
/// has that already; `path` is then the one that was written. Folders that are missing are made. False, and nothing is
/// left on disk, where it can't be written; the log says why.
BRINDLE_HOST_EXPORT bool SaveDragObjectAsNewTemplate(SC_SessionContext* session, const DD_DragSceneOld& scene,
                                                     UT_Path& path);

} // namespace DD_TplUtil

/// Copying and pasting, as other programs and scripts ask for it. A drag object that is made here holds its own data:
/// nodes with their attributes, ports and the cables among them, columns with keys, elements with drawings and the
/// contents of their files, and palettes. What it was made from may change or go.
///
/// A paste is one entry of the undo list, or, where it fails, leaves the project and the disk as they were.
namespace DD_SystemExternalAPI {

/// Copies the selected nodes, with what is in selected groups, and the frames of the selection's range, which become
/// the frames from 1 on: keys at its ends hold the values that columns have there. A range of no frames is all of the
/// scene's. `addModellingDir` takes the files of the project's folder "modelling" along, `addScanFiles` those in the
/// folders "scan" of the elements. Invalid where nothing is selected, or a file can't be read; the log says why.
BRINDLE_HOST_EXPORT DD_DragObject CreateDragObjectFromSelection(SC_SceneCommon* scene, const SL_Selection* selection,
                                                                bool addModellingDir, bool addScanFiles);

/// The same of all that a template has.
BRINDLE_HOST_EXPORT DD_DragObject CreateDragObjectFromTemplate(SC_SessionContext* session, const QString& path,
                                                               int startFrame, int numFrames, bool addModellingDir,
                                                               bool addScanFiles);

/// Copies the selected nodes of the project into a new template in a folder, and gives its file name; empty where it
/// fails. `name` is as SaveDragObjectAsNewTemplate has it in the end. With `includeDefaultCamera` the template tells
/// the name of the scene's default camera.
BRINDLE_HOST_EXPORT QString CreateTemplateFromSelection(SC_SessionContext* session, SC_SceneCommon* scene,
                                                        QString& name, const QString& folder, bool addModellingDir,
                                                        bool addScanFiles, bool includeDefaultCamera);

/// Pastes over the selected nodes, from frame `startFrame` on: what drives an attribute of a copied node comes to drive
/// the same attribute of its target, on up to `numFrames` frames. Groups are gone through, by the names in them. With
/// selected columns, only attributes that these drive are pasted over. `pasted`, which may be null, gets the nodes that
/// were pasted over.
///
/// False where no node goes with another, and where the first frame is beyond the end of a scene that isn't extended.
BRINDLE_HOST_EXPORT bool PasteIntoScene(SC_SessionContext* session, SC_SceneCommon* scene, const SL_Selection& targets,
                                        const DD_DragObject& object, const DD_DropMode& mode,
                                        const DD_SelectionUtil::CompositionOptions& options, SL_Selection* pasted,
                                        int startFrame, int numFrames);

/// The same of a template over the project's selection, from a frame on, all of its frames that the mode names. Where
/// nothing is selected, and the mode makes new columns, it is pasted as new nodes in the root group. An `action` goes
/// to nodes of the same names only, and with nothing selected to all of the scene.
BRINDLE_HOST_EXPORT bool PasteTemplateIntoScene(TUScene* timedValues, SC_SessionContext* session, SC_SceneCommon* scene,
                                                const QString& path, int frame, const DD_DropMode& mode,
                                                const DD_SelectionUtil::CompositionOptions& options, bool action);

/// Pastes a template as new nodes of a group, from a frame on. The last argument is always 0.
BRINDLE_HOST_EXPORT bool PasteTemplateIntoGroup(TUScene* timedValues, SC_SessionContext* session, SC_SceneCommon* scene,
                                                TUGroup* group, const QString& path, int frame, const DD_DropMode& mode,
                                                int);

} // namespace DD_SystemExternalAPI
