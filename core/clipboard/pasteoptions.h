#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

namespace OMC {

/// How copied nodes, and templates, are pasted.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT PasteOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(PasteOptions)
    Q_PROPERTY(QString element_timing_column_mode READ getValidateTimingColumnMode WRITE setValidateTimingColumnMode)
    Q_PROPERTY(QString drawing_action READ getDrawingAction WRITE setDrawingAction)
    Q_PROPERTY(QString drawing_file_mode READ getDrawingFileMode WRITE setDrawingFileMode)
    Q_PROPERTY(QString color_palette_mode READ getColorPaletteMode WRITE setColorPaletteMode)
    Q_PROPERTY(QString write_mode READ getWriteMode WRITE setWriteMode)
    Q_PROPERTY(QString delete_mode READ getDeleteMode WRITE setDeleteMode)

public:
    PasteOptions() = default;
    /// Reads a dictionary of the properties and of the fields below by their names in snake case (`extend_scene`), or a
    /// text of their values: the flags from `use_paste_special` to `camera_name_transfer`, the six properties, and
    /// `keyframe_mode`, `start_frame_src`, `num_frame_src`, `drawing_extend_exposure`, `drawing_substitution`,
    /// `action_template`. What isn't told keeps its default; a word that a property doesn't know fails.
    explicit PasteOptions(const QVariant& value);

    /// What the constructor reads, by its names. Of the three words that share one store it has the one that is there.
    QVariantMap fields() const;

    /// The fields by their positions, with two flags more than the positions that are read.
    ///
    /// Required: the text can't be read back.
    std::string __str__() const override;

    /// How drawings and timings become columns: "ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING" or "ALL_DRWGS_AS_ELEMENTS".
    /// Writing `write_mode` or `delete_mode` changes it too.
    QString getValidateTimingColumnMode() const { return m_columnMode; }
    void setValidateTimingColumnMode(const QString& mode);
    /// What becomes of exposures: "DO_NOTHING", "ADD_OR_REMOVE_EXPOSURE" or "UPDATE_PIVOT".
    QString getDrawingAction() const { return m_drawingAction; }
    void setDrawingAction(const QString& action);
    /// When files of drawings are made: "NEVER_CREATE", "SHARE", "OVERWRITE", "ONLY_CREATE_IF_DOES_NOT_EXIST",
    /// "ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE", "ALWAYS_CREATE", "ALWAYS_CREATE_AND_VERSION_IF_NECESSARY" or
    /// "REPLACE_EXISTING".
    QString getDrawingFileMode() const { return m_drawingFileMode; }
    void setDrawingFileMode(const QString& mode);
    /// What becomes of palettes: "DO_NOTHING", "REUSE_PALETTES", "COPY_AND_OVERWRITE_EXISTING_PALETTES",
    /// "COPY_AND_CREATE_NEW_PALETTES", "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER",
    /// "COPY_PALETTE_AND_MERGE_COLOURS", "COPY_PALETTE_AND_UPDATE_COLOURS", "LINK_TO_ORIGINAL",
    /// "COPY_SCENE_PALETTE_AND_MERGE_COLOURS" or "COPY_SCENE_PALETTE_AND_UPDATE_COLOURS".
    QString getColorPaletteMode() const { return m_colorPaletteMode; }
    void setColorPaletteMode(const QString& mode);
    /// "OVERWRITE", whatever is written; it takes "INSERT", "OVERWRITE" and "DO_NOTHING".
    ///
    /// Required: the word that is written goes to `element_timing_column_mode`.
    QString getWriteMode() const { return QStringLiteral("OVERWRITE"); }
    void setWriteMode(const QString& mode);
    /// "DELETE_NOTHING", whatever is written; it takes "REMOVE", "EMPTY" and "DELETE_NOTHING".
    ///
    /// Required: the word that is written goes to `element_timing_column_mode`.
    QString getDeleteMode() const { return QStringLiteral("DELETE_NOTHING"); }
    void setDeleteMode(const QString& mode);

    bool usePasteSpecial = false; ///< Whether options count at all, besides the frames of the source.
    bool extendScene = false;     ///< Whether the scene grows by what is pasted beyond its end, which else is left out.
    /// Whether attributes get new columns for what is pasted, in place of those they have.
    bool createNewColumn = false;
    bool addRemoveMotionKeyframe = true;   ///< Whether positions are pasted.
    bool addRemoveVelocityKeyframe = true; ///< Whether velocities are pasted.
    bool addRemoveAngleKeyframe = true;    ///< Whether angles and rotations are pasted.
    bool addRemoveSkewKeyframe = true;     ///< Whether skews are pasted.
    bool addRemoveScalingKeyframe = true;  ///< Whether scales are pasted.
    /// Whether the ends of the pasted frames get keys, and so do the frames beside them.
    bool forceBeginningEndKeyframe = true;
    bool offsetKeyframes = false;         ///< Whether numbers go on from what the column has at the first frame.
    bool replaceExpressionColumns = true; ///< Whether a column that computes its values gives way to a new one.
    bool tvPreserveName = false; ///< Whether columns that the engine named keep their names, where these are free.
    /// Whether nodes are pasted over those of their names; else they are paired by their types.
    bool matchNodeName = true;
    bool fullTransfer = true; ///< Whether values without a column go along, and drawings that no pasted frame shows.
    bool keyframeMode = true; ///< Read and printed; a paste does not look at it.
    bool cameraNameTransfer = false; ///< Whether the camera that a template names becomes the default one.
    bool pasteFlagA = true;          ///< Goes to the paste as it is; no key reaches it.
    bool pasteFlagB = true;          ///< Goes to the paste as it is; no key reaches it.
    int startFrameSrc = 1; ///< The first frame of the source that is pasted; 0 stands for the scene's start frame.
    /// How many frames of the source are pasted; 0 stands for all, and a paste writes the number that it used.
    int numFrameSrc = 0;
    bool drawingExtendExposure = true; ///< Whether the last drawing that is pasted holds on up to the next exposure.
    /// Whether pasted drawings take the place of those that are shown; else they fill empty cells only.
    bool drawingSubstitution = true;
    bool actionTemplate = false; ///< Read and printed; a paste does not look at it.

private:
    QString m_columnMode = QStringLiteral("ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING");
    QString m_drawingAction = QStringLiteral("ADD_OR_REMOVE_EXPOSURE");
    QString m_drawingFileMode = QStringLiteral("ALWAYS_CREATE");
    QString m_colorPaletteMode = QStringLiteral("REUSE_PALETTES");
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::PasteOptions)
