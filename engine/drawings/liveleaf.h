#pragma once

#include "core/host/gr_layer.h"
#include "engine/drawings/livelayer.h"
#include "engine/drawings/textlayout.h"

namespace brindle::engine {

class LiveArt;

/// A leaf of a live drawing: the host's node of a layer, whatever the layer holds. It belongs to the drawing, and lives
/// as long, also while its layer is not in the tree.
class LiveLeaf {
public:
    explicit LiveLeaf(quint32 id) : m_id(id) {}
    LiveLeaf(const LiveLeaf&) = delete;
    LiveLeaf& operator=(const LiveLeaf&) = delete;
    virtual ~LiveLeaf() = default;

    /// A leaf for a layer of this type.
    static std::unique_ptr<LiveLeaf> make(quint32 id, GR_Layer::LayerType type);

    quint32 layerId() const { return m_id; }
    bool isInTree() const { return m_art != nullptr; }
    LiveArt* art() const { return m_art; }               ///< Null while it is out of the tree.
    std::size_t place() const { return m_place; }        ///< From the bottom of its art layer.
    const LayerValue& value() const { return *m_value; } ///< Of a leaf that is in the tree.
    UT_Node* nextLeaf() const;

    /// Stands at a place of an art layer, and shows a value that wasn't seen before, or one that equals the last.
    void stand(LiveArt& art, std::size_t place, const LayerValue& value);
    void follow(const LayerValue& value);
    void shift(std::size_t place) { m_place = place; } ///< Others came or went below it.
    /// Leaves the tree. What is given is still shown, until `forget` or until it stands somewhere again.
    void leave(const LayerPointer& last = nullptr);
    void forget() { leave(); }

    virtual UT_Node& node() = 0;
    virtual bool isFor(GR_Layer::LayerType type) const = 0; ///< Whether it can show a layer of this type.
    virtual LiveLayer* strokes() { return nullptr; }        ///< Null for a leaf without strokes.
    virtual Math::Box2d box() const = 0;
    virtual Math::Box2d visibleBox() const = 0;
    virtual double thickness() const { return 0; }

protected:
    const LayerValue* shownValue() const { return m_value; } ///< Null where it shows nothing.
    /// Another value is shown, or none.
    virtual void shown() {}
    virtual void followed() {}

private:
    quint32 m_id;
    LiveArt* m_art = nullptr;
    std::size_t m_place = 0;
    const LayerValue* m_value = nullptr;
    LayerPointer m_last; ///< What it shows out of the tree.
};

/// The engine's leaf behind a node; null for null, for the root and for those of another engine.
LiveLeaf* liveLeaf(const UT_Node* node);

class StrokeLeaf final : public GR_LayerNode, public LiveLeaf {
public:
    explicit StrokeLeaf(quint32 id) : LiveLeaf(id), m_layer(*this) {}

    quint32 id() const override { return layerId(); }
    UT_Node* GetNextLeaf() const override { return nextLeaf(); }
    GR_Layer* GetLayer() const override { return const_cast<LiveLayer*>(&m_layer); }

    UT_Node& node() override { return *this; }
    bool isFor(GR_Layer::LayerType type) const override { return type != GR_Layer::kText && type != GR_Layer::kBitmap; }
    LiveLayer* strokes() override { return &m_layer; }
    Math::Box2d box() const override { return m_layer.GetBox(); }
    Math::Box2d visibleBox() const override { return m_layer.GetVisibleBox(); }
    double thickness() const override { return m_layer.GetMaxThickness(); }

protected:
    void shown() override { m_layer.show(shownValue()); }
    void followed() override { m_layer.follow(shownValue()); }

private:
    LiveLayer m_layer;
};

class TextLeaf final : public GR_TextNode, public GR_TextLayer, public LiveLeaf {
public:
    using LiveLeaf::LiveLeaf;

    quint32 id() const override { return layerId(); }
    UT_Node* GetNextLeaf() const override { return nextLeaf(); }
    GR_TextLayer* GetLayer() const override { return const_cast<TextLeaf*>(this); }

    const Data& GetData() const override;
    Math::Box2d GetBox() const override { return layout().box(); }
    Math::Box2d GetOutlineBox() const override { return layout().outlineBox(); }
    Math::Box2d GetPlainBox() const override { return layout().plainBox(); }
    std::vector<GR_BezierPath2d> GetOutlines() const override { return layout().outlines(); }

    UT_Node& node() override { return *this; }
    bool isFor(GR_Layer::LayerType type) const override { return type == GR_Layer::kText; }
    Math::Box2d box() const override { return GetBox(); }
    Math::Box2d visibleBox() const override { return GetOutlineBox(); }

private:
    const TextLayout& layout() const;

    mutable std::shared_ptr<const Data> m_laidOut;
    mutable std::unique_ptr<TextLayout> m_layout; ///< Of that text, once it was asked for.
};

class BitmapLeaf final : public GR_BitmapNode, public GR_BitmapLayer, public LiveLeaf {
public:
    using LiveLeaf::LiveLeaf;

    quint32 id() const override { return layerId(); }
    UT_Node* GetNextLeaf() const override { return nextLeaf(); }
    GR_BitmapLayer* GetLayer() const override { return const_cast<BitmapLeaf*>(this); }

    const Data& GetData() const override;
    Math::Box2d modelBox() const override;

    UT_Node& node() override { return *this; }
    bool isFor(GR_Layer::LayerType type) const override { return type == GR_Layer::kBitmap; }
    Math::Box2d box() const override { return modelBox(); }
    Math::Box2d visibleBox() const override { return modelBox(); }
};

} // namespace brindle::engine
