#pragma once

#include "core/host/gr_drawingaccess.h"
#include "engine/drawings/livedrawing.h"
#include "engine/drawings/strokecopies.h"

/// What the operations of an access have in common, in drawingaccess.cpp (layers), strokeaccess.cpp (strokes) and
/// strokecutting.cpp.
class GR_DrawingAccess::Private {
public:
    using LiveArt = brindle::engine::LiveArt;
    using LiveDrawing = brindle::engine::LiveDrawing;
    using LiveLeaf = brindle::engine::LiveLeaf;
    using LiveStroke = brindle::engine::LiveStroke;

    explicit Private(GR_DrawingAccess& access) : m_access(access) {}

    // --- Arguments. All throw std::invalid_argument for what isn't there, or belongs to another drawing -------------
    LiveArt& art() const;
    LiveDrawing& drawing() const { return *art().drawing(); }
    LiveLeaf& leaf(const UT_Node* node) const;                     ///< Of this drawing, in its tree.
    LiveLeaf& strokeLeaf(const UT_Node* node) const;               ///< The same with strokes.
    const LiveStroke& stroke(const GR_VectorStroke* stroke) const; ///< Of this drawing.
    static const LiveLeaf& source(const UT_Node* node);            ///< Of any drawing, in its tree.
    static const LiveStroke& source(const GR_VectorStroke* stroke);

    // --- Changes ----------------------------------------------------------------------------------------------------
    /// Tells the listeners ahead of the first change of a drawing.
    void aboutToChange();
    UT_Node* insert(LiveArt& art, std::size_t place, const brindle::engine::LayerPointer& layer);
    UT_Node* create(GR_Layer::LayerType type, LiveArt& art, std::size_t place);
    void erase(LiveLeaf& leaf);
    LiveStroke* append(LiveLeaf& leaf, const std::vector<brindle::engine::StrokePointer>& strokes); ///< The first one.
    brindle::engine::StrokePointer take(const LiveStroke& stroke);
    /// Lets a function change a copy of the stroke's data, and puts that in its place where it differs.
    template <typename Change>
    void replace(const LiveStroke& stroke, Change change);
    GR_StrokeData placed(const GR_StrokeData& data, const brindle::engine::LiveLayer& layer,
                         const GR_BezierPath2d* own = nullptr) const;
    /// Gives each side its colour, and those of GR_Color::autoId() the one that the contour there is painted with.
    using Sides = std::vector<std::pair<std::size_t, int>>;
    void paint(LiveLeaf& leaf, const Sides& sides, const GR_ColorPtr& colour);

    QExplicitlySharedDataPointer<LiveArt> drawn; ///< Null without a drawing.
    brindle::engine::StrokeCopies copies;        ///< Of the present command.
    bool isCommandOpen = false;
    bool respectsSticky = false;

private:
    GR_DrawingAccess& m_access;
    std::shared_ptr<LiveDrawing*> m_told; ///< The drawing whose change was told of.
};
