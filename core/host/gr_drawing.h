#pragma once

#include "core/host/export.h"
#include "core/host/gr_layer.h"
#include "core/host/math_box2d.h"
#include "core/host/ut_sharebase.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

class CM_PaletteList;
class GR_CompositeVectorDrawingObj;

/// The palettes that a drawing's colours are found in. Drawings work without it: a colour that no palette knows stays
/// an id.
class BRINDLE_HOST_EXPORT GR_ColorDict {
public:
    using PaletteInfo = std::shared_ptr<const std::vector<CM_PaletteList*>>;

    void attachPaletteInfo(const PaletteInfo& info) { m_info = info; } ///< Null detaches it.
    const PaletteInfo& paletteInfo() const { return m_info; }

private:
    PaletteInfo m_info;
};

/// What may stand in an art layer. Its drawing holds it counted, as all others do: one that has a single holder left is
/// in no drawing.
class BRINDLE_HOST_EXPORT GR_DrawingBase : public UT_ShareBase {
public:
    virtual GR_CompositeVectorDrawingObj* GetComposite() const = 0; ///< The drawing; null once that is gone.
};

/// The vector drawing of one art layer: layers in an order, bottom first.
class BRINDLE_HOST_EXPORT GR_VectorDrawingObj : public GR_DrawingBase {
public:
    /// Grows with each change of the composite drawing that this one is part of, undo and redo included, and never
    /// comes back to an earlier value. Never -1.
    virtual int GetRevision() const = 0;

    virtual const UT_Node* GetRootnode() const = 0;
    virtual UT_Node* GetNonConstRootnode() = 0;
    virtual bool
    HasLeaf(const UT_Node* leaf) const = 0; ///< Whether a leaf of the composite drawing hangs in this tree.

    virtual bool IsEmpty() const = 0; ///< It has no stroke, text or picture; layers without content don't count.
    virtual Math::Box2d GetWorldBBox() const = 0;        ///< Of all layers, without thickness.
    virtual Math::Box2d GetVisibleWorldBBox() const = 0; ///< Of all that is painted.
    virtual double GetMaxThickness() const = 0;          ///< The largest full width of a line; 0 without lines.
    /// The contours of all layers that hold a point, top layer first, and in a layer from the innermost outwards.
    virtual std::vector<const GR_Contour*> FindContainingContours(const Math::Point2d& point) const = 0;
};

/// What is noted about a composite drawing as a whole.
class BRINDLE_HOST_EXPORT GR_CompositeDrawingInfo {
public:
    bool IsPivotPointDefined() const { return m_isPivotDefined; }
    const Math::Point2d& GetPivotPoint() const { return m_pivot; }
    void SetPivotPoint(const Math::Point2d& point)
    {
        m_pivot = point;
        m_isPivotDefined = true;
    }
    void UnsetPivotPoint() { m_isPivotDefined = false; }

    int fieldSize = 12;      ///< The number of fields across the drawing.
    double pointQuantum = 0; ///< The grid that a file keeps points on; 0: they are kept as they are.

    bool operator==(const GR_CompositeDrawingInfo&) const = default;

private:
    bool m_isPivotDefined = false;
    Math::Point2d m_pivot;
};

/// A drawing: four art layers, in the order underlay, colour, line, overlay. What it holds is reached here; only
/// GR_DrawingAccess changes it.
class BRINDLE_HOST_EXPORT GR_CompositeVectorDrawingObj : public UT_ShareBase {
public:
    static constexpr int kArtCount = 4;
    enum Art : int { kUnderlay = 0, kColour = 1, kLine = 2, kOverlay = 3 };

    /// An empty drawing in no element, with all four art layers. The dictionary is the caller's and outlives the
    /// drawing; null stands for one of the drawing's own.
    static QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> Create(GR_ColorDict* dict);

    virtual GR_DrawingBase* GetArt(int index) const = 0; ///< Null where the drawing lacks it.
    /// Null where nothing is noted. What is set here counts as a change of the drawing once it was told by
    /// InfoChanged().
    virtual GR_CompositeDrawingInfo* GetDrawingInfo() = 0;
    /// Throws std::invalid_argument, and sets back what was set, for a pivot or a point quantum that is not finite, and
    /// a quantum below 0.
    virtual void InfoChanged() = 0;
    virtual GR_ColorDict::PaletteInfo GetPaletteInfo() const = 0;

    /// Whether it was taken out of its project: the project was closed, or the drawing left its element. False for one
    /// that is in no element.
    virtual bool IsGone() const = 0;
    virtual bool IsEmpty() const = 0;
    virtual bool IsDrawingModified() const = 0; ///< Since the project was saved or opened.
    virtual double GetMaxThickness() const = 0;
    virtual Math::Box2d GetWorldBBox() const = 0;
    virtual Math::Box2d GetVisibleWorldBBox() const = 0;
    /// From the units of drawings to OpenGL units (see SC_SceneMetrics), and back. 1200 units of a drawing of 12 fields
    /// are one OpenGL unit, which makes 100 of the field that a chart of 12 fields has; the element's field chart and
    /// the drawing's scale factor multiply the size at which the drawing is shown.
    virtual Math::Matrix2x3 GetImplicitScalingMatrix() const = 0;
    virtual Math::Matrix2x3 GetImplicitScalingMatrixInverse() const = 0;
};
