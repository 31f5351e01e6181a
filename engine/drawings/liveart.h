#pragma once

#include "engine/drawings/liveleaf.h"

#include <vector>

namespace brindle::engine {

class LiveDrawing;

/// An art layer of a live drawing, which holds it with whoever else does. Once the drawing is gone it is empty.
class LiveArt final : public GR_VectorDrawingObj {
public:
    LiveArt(LiveDrawing& drawing, int index);

    LiveDrawing* drawing() const { return m_drawing; } ///< Null once it is gone.
    int index() const { return m_index; }
    const std::vector<LiveLeaf*>& leaves() const { return m_leaves; }
    LiveLeaf* leafAt(std::size_t place) const { return place < m_leaves.size() ? m_leaves[place] : nullptr; }
    const ArtValue& value() const; ///< While there is a drawing.

    // --- For the drawing --------------------------------------------------------------------------------------------
    /// Shows the value's layers on these leaves, one each. Leaves that are no longer among them leave the tree.
    void show(const ArtValue& value, std::vector<LiveLeaf*> leaves);
    void insert(LiveLeaf& leaf, std::size_t place, const LayerValue& value);
    void remove(LiveLeaf& leaf, const LayerPointer& last);
    void drawingIsGone();

    GR_CompositeVectorDrawingObj* GetComposite() const override;
    int GetRevision() const override;
    const UT_Node* GetRootnode() const override { return &m_root; }
    UT_Node* GetNonConstRootnode() override { return &m_root; }
    bool HasLeaf(const UT_Node* leaf) const override;
    bool IsEmpty() const override;
    Math::Box2d GetWorldBBox() const override;
    Math::Box2d GetVisibleWorldBBox() const override;
    double GetMaxThickness() const override;
    std::vector<const GR_Contour*> FindContainingContours(const Math::Point2d& point) const override;

private:
    class Root final : public UT_Node {
    public:
        explicit Root(const LiveArt& art) : m_art(art) {}
        quint32 id() const override { return 0; }
        UT_Node* GetNextLeaf() const override;

    private:
        const LiveArt& m_art;
    };

    LiveDrawing* m_drawing;
    int m_index;
    int m_lastRevision = 0; ///< Once the drawing is gone.
    Root m_root{*this};
    std::vector<LiveLeaf*> m_leaves; ///< Bottom first.
};

/// The engine's art layer behind what the host shows of it; null for null and for those of another engine.
LiveArt* liveArt(const GR_DrawingBase* art);

} // namespace brindle::engine
