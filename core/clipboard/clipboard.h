#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <vector>

class TUScene;

namespace OMC {

/// Copies nodes of a scene, pastes copies and templates into it, and makes templates. A template is a folder on disk
/// that holds copied nodes, for any project.
///
/// It holds no copy of its own: what `copy` gives is the script's. Nodes are told as NodeList reads them: objects,
/// paths, indexes, or a list of these. Each paste is one undo entry; one that fails changes nothing. Invalid once the
/// scene is gone.
class BRINDLE_CORE_EXPORT Clipboard : public EngineView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(Clipboard)

public:
    /// Null gives an object that is invalid at its first call.
    explicit Clipboard(TUScene* scene);

    std::string __str__() const override; ///< "Clipboard()".
    /// Required: no name shows in a listing, so `dir()` of a clipboard is empty.
    bool filterDir(std::string& name) const override;

    /// Copies nodes, and what is in groups among them: the frames that the options tell (CopyOptions, or null), or
    /// `numFrames` frames from `startFrame` on, each the scene's where it is 0. Without options, all frames of the
    /// scene; and, unlike with options that nobody changed, neither the modelling folder nor scanned files. Called
    /// without arguments it gives another Clipboard of the scene.
    Obj copy(const QVariant& nodes, const Obj& options) const;
    Obj copy(const QVariant& nodes, int startFrame, int numFrames, const Obj& options) const;
    /// Loads a template as if its nodes had been copied, with `numFrames` frames from `startFrame` on, each the scene's
    /// where it is 0.
    Obj copyFromTemplate(const QString& path, int startFrame, int numFrames, const Obj& options) const;

    /// Makes a template of the selected nodes in a folder. Gives the name of what was made there; an empty text where
    /// nothing was, as when nothing is selected.
    QString createSelectionTemplate(const QString& name, const QString& folder, const Obj& options) const;
    /// Makes a template of a CopyObject in a folder, which is made too where it is missing. Without a name it is a
    /// "New Template". With `includeDefaultCamera` it names the scene's camera. Gives the name of what was made there;
    /// an empty text where it could not be made.
    QString createTemplate(const Obj& copyObject, const QString& name, const QString& folder,
                           bool includeDefaultCamera) const;

    /// Pastes what was copied over nodes of the scene, over `numFrames` frames from `startFrame` on, each the scene's
    /// where it is 0: a node takes the keys, exposures and values of the copied one that it matches. The options are
    /// PasteOptions, or null, here and in the other pastes.
    void paste(const Obj& copyObject, const QVariant& nodes, int startFrame, int numFrames, const Obj& options);
    /// Pastes what was copied as new nodes of a group, and gives them. A name that is taken gets a number.
    std::vector<Obj> pasteNewNodes(const Obj& copyObject, const QVariant& group, const Obj& options);
    /// Pastes the columns of a template over columns of the scene from a frame on: a column, its index, its name, or a
    /// list of names. Where the options say `create_new_column` there need not be any.
    void pasteTemplate(const QString& path, int frame, const QVariant& columns, const Obj& options);
    /// Pastes a template as new nodes of a group, its frames from a frame on.
    void pasteTemplateIntoGroup(const QString& path, int frame, const QVariant& group, const Obj& options);
    /// Pastes the animation of a template over nodes from a frame on: nodes of the same names take it. The action
    /// options, PasteActionOptions or null, say which kinds of nodes do. Where the options say `create_new_column`
    /// there need not be any nodes.
    void pasteActionTemplate(const QString& path, int frame, const QVariant& nodes, const Obj& actionOptions,
                             const Obj& options);

    TUScene* getScene() const; ///< The engine's scene, or null once it is gone.
};

} // namespace OMC
