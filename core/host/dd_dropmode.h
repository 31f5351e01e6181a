#pragma once

#include "core/host/export.h"

/// How what is dragged or copied is dropped or pasted, and which frames a deletion takes.
class BRINDLE_HOST_EXPORT DD_DropMode {
public:
    /// What becomes of the drawings of an element. New nodes get an element of their own, with all of its drawings,
    /// under every mode but kNeverCreate and kShare. Over a column that is there, the modes differ in what they do
    /// where the column's element has a drawing of the same name.
    enum DrawingMode {
        kAlwaysCreateAndVersion = 0, ///< Another content becomes a new version of that drawing, which shows it.
        kAlwaysCreate = 1,           ///< Each drawing is made anew, under a number behind its name.
        kOverwrite = 2,              ///< The drawing gets the content, at its present version.
        kNeverCreate = 3,            ///< No drawing is made: only those that are there are exposed.
        kShare = 4,                  ///< Shows the very element of the source where it is in the project, else as 5.
        kOnlyCreateIfMissing = 5,    ///< The drawing is exposed as it is.
        kOnlyCreateIfMissingAndMerge = 6, ///< The same; files of layers and versions that it lacks are added to it.
        kReplaceExisting = 7              ///< The drawing becomes the pasted one, with all layers and versions.
    };

    /// What becomes of palettes, each known by its identity. A copy keeps the identities of its colours, by which
    /// drawings are painted.
    enum PaletteMode {
        kNoPalettes = 0,             ///< None is pasted.
        kLinkToOriginal = 1,         ///< The list names the original file, where that is still there.
        kReusePalettes = 2,          ///< One that the project has is used; others are copied.
        kCopyAndOverwrite = 3,       ///< One that the project has becomes the copied one.
        kCopyAndCreate = 4,          ///< Each is copied as a new palette.
        kCopyAndCreateInElement = 5, ///< The same, on the lists of the elements that are made with it.
        kCopyAndMerge = 6,           ///< One that the project has gets the colours that it lacks.
        kCopyAndUpdate = 7,          ///< The same, and its other colours become those of the copy.
        kCopySceneAndMerge = 8,      ///< As 6 for palettes of the project's list, as 2 for those of elements.
        kCopySceneAndUpdate = 9      ///< As 7 for palettes of the project's list, as 2 for those of elements.
    };

    /// How new nodes that show drawings get at them.
    enum ElementMode {
        kElementAsElement = 1, ///< As the copied ones do.
        kAllThroughTiming = 2, ///< By a timing column each.
        kAllAsElements = 3     ///< By a drawing column each.
    };

    /// What becomes of the values that a column has on the frames that are pasted over.
    enum WriteMode {
        kInsert = 1, ///< They move behind what is pasted, with all that follows.
        kOverwriteKeys = 2,
        kWriteNothing = 3 ///< They stay: only attributes without a column get values.
    };

    /// What is done to those frames of a column ahead of the paste.
    enum DeleteMode {
        kRemove = 0, ///< They go, and what lies behind moves up.
        kEmpty = 1,  ///< What lies on them goes.
        kDeleteNothing = 2
    };

    DD_DropMode() = default;
    /// `makesNodes`: what is dropped becomes new nodes. `takesDefaultCamera`: the scene's default camera is among the
    /// nodes, and the one that is dropped for it becomes the default camera.
    explicit DD_DropMode(bool makesNodes, bool takesDefaultCamera = false)
        : m_makesNodes(makesNodes),
          m_takesDefaultCamera(takesDefaultCamera)
    {}

    /// As a person pastes who chooses nothing.
    static DD_DropMode GetDragDropDefault() { return DD_DropMode(true); }

    bool fullTransfer = true; ///< Local values go along, and drawings that no pasted frame shows.
    bool forceBeginningEndKeyframe =
        true; ///< The ends of the pasted frames get keys, and so do the frames beside them.
    WriteMode writeMode = kOverwriteKeys;
    DeleteMode deleteMode = kDeleteNothing;
    bool extendScene = false;        ///< The scene grows by what is pasted beyond its end, which else is left out.
    bool cameraNameTransfer = false; ///< The camera that the template names becomes the default one.
    bool exposureAdd = true;         ///< Exposures and drawings are pasted.
    bool updatePivot = false;        ///< Of nodes with drawings, only the pivots are pasted.
    bool createNewColumn = false;    ///< An attribute gets a new column for what is pasted, in place of the one it has.
    bool addRemoveMotionKeyframe = true;   ///< Positions are pasted.
    bool addRemoveVelocityKeyframe = true; ///< Columns of velocities are pasted.
    bool addRemoveAngleKeyframe = true;    ///< Angles and rotations are pasted.
    bool addRemoveSkewKeyframe = true;     ///< Skews are pasted.
    bool addRemoveScalingKeyframe = true;  ///< Scales are pasted.
    bool offsetKeyframes = false; ///< Numbers are moved by what the column had at the first frame, less what is pasted.
    bool replaceExpressionColumns = true; ///< A column that computes its values gives way to a new one.
    bool tvPreserveName = false;          ///< Columns that the engine named keep their names where these are free.

    bool useSpecial = false; ///< The engine doesn't look at these four.
    bool keepFlag = true;
    bool pasteFlagA = true;
    bool pasteFlagB = true;

    DrawingMode drawingMode() const { return m_drawingMode; }
    void setDrawingMode(DrawingMode mode) { m_drawingMode = mode; }
    PaletteMode paletteMode() const { return m_paletteMode; }
    void setPaletteMode(PaletteMode mode) { m_paletteMode = mode; }
    ElementMode elementMode() const { return m_elementMode; }
    void setElementMode(ElementMode mode) { m_elementMode = mode; }

    /// `extends`: the last drawing that is pasted holds on up to the next exposure. `substitutes`: drawings that are
    /// shown on the frames give way to pasted ones; without, only frames that show nothing get one.
    void setExposureMode(bool extends, bool substitutes)
    {
        m_extendsExposure = extends;
        m_substitutesDrawings = substitutes;
    }
    bool extendsExposure() const { return m_extendsExposure; }
    bool substitutesDrawings() const { return m_substitutesDrawings; }

    /// Whether a node is pasted over the one of its name. Without, and for nodes whose names nothing has, they are
    /// paired by their types, in their order.
    bool matchNodeName() const { return m_matchNodeName; }
    void setMatchNodeName(bool matches) { m_matchNodeName = matches; }

    /// The frames of the source that are pasted: `numFramesSrc` of them from `startFrameSrc` on. A count of 0 is all
    /// that there are. A deletion takes as many frames as the count says.
    int startFrameSrc() const { return m_startFrameSrc; }
    void SetStartFrameSrc(int frame) { m_startFrameSrc = frame; }
    int numFramesSrc() const { return m_numFramesSrc; }
    void SetNumFramesSrc(int count) { m_numFramesSrc = count; }

    /// The frame behind which a deletion takes its frames.
    int startDeleteFrame() const { return m_startDeleteFrame; }
    void SetStartDeleteFrame(int frame) { m_startDeleteFrame = frame; }

    bool makesNodes() const { return m_makesNodes; }
    bool takesDefaultCamera() const { return m_takesDefaultCamera; }

private:
    bool m_makesNodes = true;
    bool m_takesDefaultCamera = false;
    DrawingMode m_drawingMode = kOnlyCreateIfMissing;
    PaletteMode m_paletteMode = kReusePalettes;
    ElementMode m_elementMode = kElementAsElement;
    bool m_extendsExposure = true;
    bool m_substitutesDrawings = true;
    bool m_matchNodeName = true;
    int m_startFrameSrc = 1;
    int m_numFramesSrc = 0;
    int m_startDeleteFrame = 0;
};
