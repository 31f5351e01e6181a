#pragma once

#include "engine/drawings/drawingvalue.h"
#include "engine/drawings/jointgrid.h"
#include "engine/drawings/planarmap.h"

#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

class LiveLayer;
class LiveLeaf;

/// A stroke of a layer, by its place in the layer's order. Once the layer has changed, it tells of the stroke that
/// stands there then, and of an empty one where none does.
class LiveStroke final : public GR_VectorStroke {
public:
    LiveStroke(const LiveLayer& layer, std::size_t index) : m_layer(layer), m_index(index) {}

    const LiveLayer& layer() const { return m_layer; }
    std::size_t index() const { return m_index; }
    const StrokeRecord& record() const;
    const StrokePointer& pointer() const;
    /// The half-edge of the layer's map at a side; PlanarMap::none where there is none.
    int halfEdge(GR_StrokeSide side) const;

    quint32 id() const override { return record().id; }
    GR_Layer* GetLayer() const override;
    const GR_StrokeData& GetStrokeData() const override { return record().data; }
    Math::Box2d GetBox() const override { return GetStrokeData().GetPath().GetBox(); }
    Math::Box2d GetInnerBox() const override { return GetStrokeData().GetPath().GetInnerBox(); }
    Math::Box2d GetVisibleBox() const override;
    bool IsDegenerate() const override { return GetStrokeData().GetPath().IsDegenerate(); }
    GR_Joint Tail() const override { return GR_Joint({this, GR_StrokeAccess::kTail}); }
    GR_Joint Head() const override { return GR_Joint({this, GR_StrokeAccess::kHead}); }
    Math::Vector2d GetTangent(GR_StrokeAccess::StrokeExtremity extremity) const override;
    const GR_Contour* GetContour(GR_StrokeSide side) const override;
    double GetMaxVisibleThickness() const override;
    bool IsThicknessValid() const override;
    std::vector<const GR_VectorStroke*> GetStrokesSharingThickness() const override;
    std::vector<const GR_VectorStroke*> GetStrokesShared() const override;
    bool IsContinuous(const GR_VectorStroke& other) const override;

private:
    const LiveLayer& m_layer;
    std::size_t m_index;
};

/// The engine's stroke behind what the host shows of it; null for null and for those of another engine.
const LiveStroke* liveStroke(const GR_VectorStroke* stroke);

/// A contour of a layer, by its index in the layer's map.
class LiveContour final : public GR_Contour {
public:
    LiveContour(const LiveLayer& layer, int index) : m_layer(layer), m_index(index) {}

    const LiveLayer& layer() const { return m_layer; }
    int index() const { return m_index; }

    quint32 id() const override;
    const GR_VectorStroke* GetStroke() const override;
    GR_StrokeSide GetSide() const override;
    std::vector<const GR_VectorStroke*> GetStrokes() const override;
    Math::Box2d GetBox() const override { return map().box(m_index); }
    Math::Box2d GetInnerBox() const override { return map().innerBox(m_index); }
    bool IsClockwise() const override { return map().isClockwise(m_index); }
    bool IsDegenerate() const override { return map().isDegenerate(m_index); }
    bool IsOutlineColorUsed() const override;
    bool IsTopLevel() const override { return map().isTopLevel(m_index); }
    GR_ColorPtr GetInsideColor() const override;
    GR_ColorPtr GetOutsideColor() const override;
    GR_ColorPtr GetFillColor() const override;
    std::vector<GR_BezierPath2d> GetArea() const override;
    bool IsCrossed() const override;
    const GR_Contour* GetParent() const override;
    std::vector<const GR_Contour*> GetChildren() const override;
    std::vector<const GR_VectorStroke*> GetStrokesInside() const override;
    std::vector<const GR_VectorStroke*> GetStrokesOfChildren() const override;
    Comparison TopologicalComparison(const GR_Contour* other) const override;
    bool IsInside(const GR_BezierPath2d& path, int fillType) const override;
    bool IsContaining(const GR_BezierPath2d& path, int fillType) const override;
    bool IsOutside(const GR_BezierPath2d& path, int fillType) const override;

private:
    const PlanarMap& map() const;

    const LiveLayer& m_layer;
    int m_index;
};

/// The engine's contour behind what the host shows of it; null for null and for those of another engine.
const LiveContour* liveContour(const GR_Contour* contour);

/// The strokes of a layer, and what is computed of them: the planar map, boxes, ways from ids to strokes. It is
/// computed when it is asked for, and forgotten when what it was computed of changes.
class LiveLayer final : public GR_Layer {
public:
    explicit LiveLayer(LiveLeaf& leaf) : m_leaf(leaf) {}
    LiveLayer(const LiveLayer&) = delete;
    LiveLayer& operator=(const LiveLayer&) = delete;

    LiveLeaf& leaf() const { return m_leaf; }
    const StrokeSequence& strokes() const { return m_value ? m_value->strokes : noStrokes(); }
    const LiveStroke& stroke(std::size_t index) const;
    std::vector<const GR_VectorStroke*> strokesAt(const std::vector<int>& indices) const;
    std::optional<std::size_t> indexOf(quint32 id) const;
    const PlanarMap& map() const;
    const LiveContour& contour(int index) const;
    /// Whether strokes of a component of the map cross or touch strokes elsewhere than in joints.
    bool isCrossed(int component) const;
    /// The colour that a contour is painted with: that of the first side on its walk that has one. Null for none.
    GR_ColorPtr paintOf(int contour) const;
    /// A path with its ends on joints of the layer, where these are near, for a stroke that comes or, with `own`, for
    /// the one that has that path now.
    GR_BezierPath2d snapped(const GR_BezierPath2d& path, const GR_BezierPath2d* own = nullptr) const;

    // --- What edits tell. The value is good until the next call; null while the layer is not in the tree ------------
    void show(const LayerValue* value);                       ///< Another value, about which nothing is known.
    void follow(const LayerValue* value) { m_value = value; } ///< An equal one.
    void appended(std::size_t count);                         ///< So many more strokes.
    void erased(const StrokeRecord& stroke);                  ///< It was taken out.
    void pathReplaced(const GR_BezierPath2d& before, const GR_BezierPath2d& now);
    void paintReplaced(); ///< Colours, line styles or thicknesses of strokes are others.

    LayerType GetType() const override { return m_value ? m_value->type : kUndefined; }
    StrokeIterator GetStrokeBegin() const override { return pointers().data(); }
    StrokeIterator GetStrokeEnd() const override { return pointers().data() + strokes().size(); }
    GR_VectorStroke* FindStroke(quint32 id) const override;
    const GR_Contour* FindContour(const GR_VectorStroke* stroke, GR_StrokeSide side) const override;
    std::vector<const GR_Contour*> GetContours() const override;
    std::vector<GR_Joint> GetJoints() const override;
    void UpdateBoxes() const override { boxes(); }
    Math::Box2d GetBox() const override { return boxes().curves; }
    Math::Box2d GetLineStyleBox() const override { return boxes().lines; }
    Math::Box2d GetVisibleBox() const override { return boxes().painted; }
    double GetMaxThickness() const override { return boxes().thickness; }

private:
    struct Boxes {
        Math::Box2d curves;
        Math::Box2d lines;
        Math::Box2d painted;
        double thickness = 0;
    };
    struct Topology {
        PlanarMap map;
        std::deque<LiveContour> contours;
        mutable std::optional<std::vector<bool>> crossed; ///< By component, once it was asked for.
    };
    enum class Order { Unknown, Ascending, Any };

    static const StrokeSequence& noStrokes();
    const std::vector<const GR_VectorStroke*>& pointers() const;
    const Topology& topology() const;
    const Boxes& boxes() const;
    JointGrid& joints() const;
    void forgetShape();

    LiveLeaf& m_leaf;
    const LayerValue* m_value = nullptr;
    mutable std::deque<LiveStroke> m_strokes; ///< At least as many as there are strokes.
    mutable std::vector<const GR_VectorStroke*> m_pointers;
    mutable std::unique_ptr<Topology> m_topology;
    mutable std::optional<Boxes> m_boxes;
    mutable std::unique_ptr<JointGrid> m_joints;                ///< The places of the strokes' ends.
    mutable Order m_order = Order::Unknown;                     ///< Of the strokes' ids.
    mutable std::unordered_map<quint32, std::size_t> m_indices; ///< By their ids, where these are in any order.
};

} // namespace brindle::engine
