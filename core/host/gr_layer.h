#pragma once

#include "core/host/export.h"
#include "core/host/gr_stroke.h"
#include "core/host/math_matrix2x3.h"
#include "core/host/ut_node.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The objects that a view shows on a layer, as guides or handles.
class BRINDLE_HOST_EXPORT GR_CanvasObjManager {
public:
    virtual ~GR_CanvasObjManager() = default;
    virtual void deleteAll() = 0;
};

/// A layer of strokes.
class BRINDLE_HOST_EXPORT GR_Layer {
public:
    /// What a layer is for. Only text and bitmap layers differ in what they hold.
    enum LayerType : int {
        kUndefined = 0,
        kPaint = 1,
        kBrush = 2,
        kPen = 3,
        kRectangle = 4,
        kEllipse = 5,
        kPolyline = 6,
        kStroke = 7,
        kCloseGap = 8,
        kCenterlineExtractor = 9,
        kFlash = 100,
        kIllustrator = 101,
        kBitmap = 102,
        kText = 103
    };
    using StrokeIterator = const GR_VectorStroke* const*;

    virtual ~GR_Layer() = default;

    virtual LayerType GetType() const = 0;
    /// The strokes in their order, bottom first. Good until the drawing's revision grows.
    virtual StrokeIterator GetStrokeBegin() const = 0;
    virtual StrokeIterator GetStrokeEnd() const = 0;
    virtual GR_VectorStroke* FindStroke(quint32 id) const = 0; ///< Null where the layer has none of this id.
    /// The contour at a side of a stroke of this layer; null for a degenerate stroke.
    virtual const GR_Contour* FindContour(const GR_VectorStroke* stroke, GR_StrokeSide side) const = 0;
    virtual std::vector<const GR_Contour*> GetContours() const = 0; ///< By their ids, each once.
    /// One for each joint, seen from its least (stroke id, end), in that order.
    virtual std::vector<GR_Joint> GetJoints() const = 0;

    virtual void UpdateBoxes() const = 0;            ///< Computes what the next three tell, where that isn't known.
    virtual Math::Box2d GetBox() const = 0;          ///< Of all curves, without thickness; empty without strokes.
    virtual Math::Box2d GetLineStyleBox() const = 0; ///< Of the lines alone, with their thickness.
    virtual Math::Box2d GetVisibleBox() const = 0;   ///< Of what is painted: lines, and contours with a colour.
    virtual double GetMaxThickness() const = 0;      ///< The largest full width of a line.

    /// Null where no view shows the layer.
    virtual GR_CanvasObjManager* canvasObjManager() const { return nullptr; }
};

/// A paragraph of text in one font, laid out from its matrix's origin: x to the right along the line, y up.
class BRINDLE_HOST_EXPORT GR_TextLayer {
public:
    enum Alignment : int { kLeft = 0, kCenter = 1, kRight = 2, kJustify = 3 };

    /// All that a text layer stores: a value. Lengths are in the units of the drawing.
    struct Data {
        QString text;
        QString font = QStringLiteral("DejaVu Sans"); ///< A family, as Fontconfig names it ("DejaVu Sans:bold").
        double size = 100;                            ///< The height of the em square.
        GR_ColorPtr colour;                           ///< Null: no colour. Its matrix is that of the colour.
        Math::Matrix2x3 matrix;
        double width = 0;      ///< At which lines are broken; 0: nowhere but at line ends of the text.
        double fixedWidth = 0; ///< The width that the paragraph takes, whatever its text; 0: that of its text.
        Alignment alignment = kLeft;
        int marginLeft = 0;
        int marginRight = 0;
        int indent = 0;        ///< Of the first line.
        int lineSpace = 0;     ///< Added between lines.
        int selectionFrom = 0; ///< The selected characters: from this index,
        int selectionTo = 0;   ///< up to, and without, this one.

        bool operator==(const Data& other) const;
    };

    virtual ~GR_TextLayer() = default;

    virtual const Data& GetData() const = 0;
    virtual Math::Box2d GetBox() const = 0;        ///< Of the lines of text: advances and font heights.
    virtual Math::Box2d GetOutlineBox() const = 0; ///< Of the outlines of the letters.
    virtual Math::Box2d GetPlainBox() const = 0;   ///< GetBox() before the layer's matrix.
    /// The outlines of the letters in the units of the drawing, each a closed path, filled by the non-zero rule. Throws
    /// std::runtime_error with one sentence where no font can be found.
    virtual std::vector<GR_BezierPath2d> GetOutlines() const = 0;
};

/// A picture in a drawing.
class BRINDLE_HOST_EXPORT GR_BitmapLayer {
public:
    struct Data {
        int width = 0; ///< In pixels.
        int height = 0;
        QByteArray pixels; ///< Four bytes a pixel: red, green, blue, alpha, alpha not multiplied in; rows from the top.
        Math::Matrix2x3 matrix; ///< From pixels (x to the right, y up, the origin at the lower left) to the drawing.

        bool operator==(const Data& other) const;
    };

    virtual ~GR_BitmapLayer() = default;

    virtual const Data& GetData() const = 0;
    virtual Math::Box2d modelBox() const = 0; ///< Of the four corners.
};

/// The leaf of a layer of strokes.
class BRINDLE_HOST_EXPORT GR_LayerNode : public UT_Node {
public:
    virtual GR_Layer* GetLayer() const = 0;
};

class BRINDLE_HOST_EXPORT GR_BitmapNode : public UT_Node {
public:
    virtual GR_BitmapLayer* GetLayer() const = 0;
};

class BRINDLE_HOST_EXPORT GR_TextNode : public UT_Node {
public:
    virtual GR_TextLayer* GetLayer() const = 0;
};
