#pragma once

#include "core/host/export.h"
#include "core/host/gr_drawing.h"

#include <memory>
#include <vector>

class GR_DrawingAccess;

/// Is told what happens in an edit session.
class BRINDLE_HOST_EXPORT GR_DrawingAccessListener {
public:
    virtual ~GR_DrawingAccessListener() = default;

    virtual void nodeCreated(UT_Node*) {}          ///< A leaf came into the tree.
    virtual void nodeAboutToBeRemoved(UT_Node*) {} ///< A leaf is about to leave the tree.
    virtual void drawingAboutToChange() {}         ///< Before the first change of a drawing in the session.
};

/// Collects the leaves that come and go, while it is attached.
class BRINDLE_HOST_EXPORT GR_LayerSetListener : public GR_DrawingAccessListener {
public:
    explicit GR_LayerSetListener(GR_DrawingAccess* access) : m_access(access) {}

protected:
    GR_DrawingAccess* access() const { return m_access; }

private:
    GR_DrawingAccess* m_access;
};

/// Collects the leaves that were made, in their order.
class BRINDLE_HOST_EXPORT GR_NewLayerSetListener : public GR_DrawingAccessListener {
public:
    void nodeCreated(UT_Node* node) override { m_nodes.push_back(node); }
    void nodeAboutToBeRemoved(UT_Node* node) override { std::erase(m_nodes, node); }
    const std::vector<UT_Node*>& nodes() const { return m_nodes; }

private:
    std::vector<UT_Node*> m_nodes;
};

class BRINDLE_HOST_EXPORT GR_DrawingAccessBase {
public:
    GR_DrawingAccessBase();
    GR_DrawingAccessBase(const GR_DrawingAccessBase&) = delete;
    GR_DrawingAccessBase& operator=(const GR_DrawingAccessBase&) = delete;
    virtual ~GR_DrawingAccessBase();

    /// The listener belongs to the caller, and must be removed or outlive the access. Adding it again changes nothing.
    void AddListener(GR_DrawingAccessListener* listener);
    void RemoveListener(GR_DrawingAccessListener* listener);

protected:
    const std::vector<GR_DrawingAccessListener*>& listeners() const { return m_listeners; }

private:
    std::vector<GR_DrawingAccessListener*> m_listeners;
};

/// The edits of a drawing. It works on the art layer that it is given, and takes layers and strokes of any art layer of
/// the same composite drawing as targets, and of any drawing as sources of copies.
///
/// Each operation is whole when it returns: it succeeded, or it changed nothing and threw std::invalid_argument (a
/// source or target that is not there or of the wrong kind, numbers that are not finite), std::length_error (more than
/// the drawing can hold) or std::bad_alloc. Each change makes the drawing's revision grow, so pointers to strokes and
/// contours that a caller holds are good up to the next change only; ids last.
///
/// Operations are allowed between BeginOperations() and EndOperations(), in command mode; outside of it they begin and
/// end by themselves. It only groups changes for listeners: what is undone as one step is what one listener
/// (DT_UndoListener) has collected.
class BRINDLE_HOST_EXPORT GR_DrawingAccess : public GR_DrawingAccessBase {
public:
    explicit GR_DrawingAccess(GR_DrawingAccessListener* changes = nullptr);
    ~GR_DrawingAccess() override;

    virtual void SetDrawing(GR_VectorDrawingObj* drawing);
    GR_VectorDrawingObj* GetDrawing() const;

    void BeginOperations(int);
    /// `finish` joins and tidies what can be computed lazily otherwise; what the drawing holds is the same.
    void EndOperations(bool finish);
    bool commandModeOn() const;
    GR_ColorDict* GetColorDict() const; ///< That of the drawing; never null while there is one.
    /// Whether strokes keep the colours that they have where a contour's colour is set and a side of it is marked as
    /// sticky by having the eraser colour: then that side stays.
    void SetRespectSticky(bool respect);

    // --- Layers. A reference or target is a leaf of a composite drawing; null stands for the whole art layer --------
    UT_Node* CreateLayerAbove(GR_Layer::LayerType type, UT_Node* reference);  ///< Null: at the top.
    UT_Node* CreateLayerUnder(GR_Layer::LayerType type, UT_Node* reference);  ///< Null: at the bottom.
    UT_Node* CreateLayerNodeAt(GR_Layer::LayerType type, unsigned int index); ///< From 0 to the number of layers.
    void Erase(UT_Node* layer);
    /// Copies what a layer holds to the end of another one of its kind.
    void Copy(const UT_Node* source, UT_Node* target);
    /// Moves a layer of this composite drawing, its id kept, to the place above the target; null: to the top.
    void Move(UT_Node* layer, UT_Node* target);
    /// A copy of a layer as a new one with its kind, at an index; gives its leaf.
    UT_Node* PasteNodeAt(const UT_Node* source, unsigned int index);
    /// The strokes of all of these layers in the lowest one, in their order; the others are erased. Gives its leaf, or
    /// null for none.
    UT_Node* Merge(const std::vector<UT_Node*>& layers);
    void Clear(); ///< Erases all layers of the art layer.
    /// Copies of all layers of another art layer (also of this drawing) above those that are there, transformed.
    void Paste(const GR_VectorDrawingObj& source, const Math::Matrix2x3& transform = {});
    /// Whether `left` lies under `right` in their art layer.
    static bool LayerLess(const UT_Node* left, const UT_Node* right);

    // --- Strokes. What they give is good until the next change ------------------------------------------------------
    /// A new stroke at the end of a layer of strokes. An end within 1e-4 units of a joint of the layer is moved onto
    /// it.
    GR_VectorStroke* Insert(const GR_StrokeData& data, UT_Node* layer);
    /// The same for many strokes, faster. Gives their ids.
    std::vector<quint32> Insert(const std::vector<GR_StrokeData>& data, UT_Node* layer);
    void Erase(GR_VectorStroke* stroke);
    /// A copy in a layer. Copies made in one command keep sharing the thickness paths that their originals share.
    GR_VectorStroke* Copy(const GR_VectorStroke* stroke, UT_Node* target);
    /// Moves a stroke into a layer of the composite drawing, its id kept.
    GR_VectorStroke* Move(GR_VectorStroke* stroke, UT_Node* target);
    /// Puts other data in a stroke's place, its id and its place in the order kept.
    void Replace(GR_VectorStroke* stroke, const GR_StrokeData& data);
    void SetColor(GR_VectorStroke* stroke, const GR_ColorPtr& colour, int side);
    /// Sets the colour of each (stroke, side) of a contour; with `outside` that of the other sides of its strokes.
    void SetColor(const GR_Contour* contour, const GR_ColorPtr& colour, bool outside);
    /// Sets the colour of the stroke's left side as seen when leaving the joint (inside), or of the other one.
    void SetColor(const GR_Joint& joint, const GR_ColorPtr& colour, bool outside);
    void SetLineStyle(GR_VectorStroke* stroke, const GR_LineStyle& style);
    void SetBezierPath(GR_VectorStroke* stroke, const GR_BezierPath2d& path); ///< Of degree 3, with points.
    void setTipType(GR_VectorStroke* stroke, GR_StrokeEnd end, GR_TipType type);
    void setTipTangent(GR_VectorStroke* stroke, GR_StrokeSide side, GR_StrokeEnd end, double tangent);
    /// All these strokes share one path afterwards, in their order along it by their lengths.
    void setSharedThicknessPath(const std::vector<GR_VectorStroke*>& strokes, const GR_ThicknessPathPtr& path);
    void SetThicknessBinder(GR_VectorStroke* stroke, const GR_ThicknessBinder& thickness);
    /// Cuts the strokes of a layer where they cross or touch one another or themselves, which makes joints there; the
    /// ends that are made are marked as cut. The first piece of a stroke keeps its id. Gives the number of cuts.
    int Cut(UT_Node* layer);

    // --- Texts and pictures -----------------------------------------------------------------------------------------
    void SetText(UT_Node* layer, const GR_TextLayer::Data& data);
    void SetBitmap(UT_Node* layer, const GR_BitmapLayer::Data& data);

private:
    class Private;
    std::unique_ptr<Private> d;
};
