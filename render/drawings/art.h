#pragma once

#include "core/host/gr_drawing.h"
#include "render/drawings/palettepaints.h"
#include "render/memory.h"
#include "render/picture.h"
#include "render/raster/rasteriser.h"

#include <memory>
#include <span>
#include <vector>

namespace brindle::render {

class Art;

/// A drawing, and the transform from its units to pixels, y down.
struct PlacedArt {
    const Art* art;
    QTransform place;
};

/// What a vector drawing shows, as values: its areas, lines, texts and pictures, each with its paint, from below to
/// above. It has no tie to the drawing that it was taken from, and never changes; any thread may draw it.
class Art {
public:
    /// Taken on the thread that may read the drawing. Colours are looked up in the palettes as they are now. A line in
    /// `remarks` for what can't be shown, as a text without a font. The outlines of lines are remembered in `memory`.
    Art(const GR_CompositeVectorDrawingObj& drawing, PalettePaints& palettes, QStringList& remarks,
        std::weak_ptr<Memory> memory);
    ~Art();
    Art(const Art&) = delete;
    Art& operator=(const Art&) = delete;

    bool isEmpty() const { return m_layers.empty(); }
    qint64 bytes() const; ///< Its size in memory, without outlines and without what the palettes hold.

    /// The drawing in a picture of a size. `place` leads from the drawing's units to pixels, y down.
    Picture draw(const QSize& size, const QTransform& place) const;
    /// Draws drawings over a picture, one after the other. Up to `threads` threads share the rows of the picture; the
    /// pixels are the same for any number of them.
    static Picture drawOver(Picture below, std::span<const PlacedArt> drawings, int threads);
    /// Whether it costs less to draw it than to lay a picture of it over another one.
    bool isLight() const { return m_isLight; }

    /// Whether the palettes' entries for its colours look as they did when it was made.
    bool isUpToDate(PalettePaints& palettes) const;

private:
    using PaintPointer = std::shared_ptr<const Paint>;

    struct Area {
        std::vector<GR_BezierPath2d> bounds;
        PaintPointer paint;
    };
    struct Line {
        GR_StrokeData stroke;
        PaintPointer paint;                     ///< Null where `along` is set.
        std::shared_ptr<const LinePaint> along; ///< Colours that follow the line.
    };
    struct Found {
        Area area;
        Math::Box2d box;
        double size; ///< Of what its outer border encloses.
    };
    /// Areas that are drawn together.
    struct Group {
        std::vector<Area> areas;
        Rasteriser::Faces how = Rasteriser::Faces::Over;
    };
    struct Layer {
        std::vector<Group> groups;
        std::vector<Line> lines;
    };
    /// How an entry of a palette looks.
    struct Look {
        CM_ColorId_t id;
        int type = -1; ///< Of a colour; below 0 for none and for a texture.
        std::vector<CM_GradientData> markers{};
        std::shared_ptr<const BM_Bitmap> bitmap{};
        bool isTiled = false;
    };
    /// The area that a line covers. It has cuts only where colours follow the line.
    struct Outline {
        StrokePieces pieces;
        GR_LineCuts cuts;

        qint64 bytes() const
        {
            return pieces.bytes() + static_cast<qint64>(cuts.cuts.capacity() * sizeof(GR_LineCuts::Cut));
        }
    };
    using Outlines = std::vector<std::vector<Outline>>; ///< By layer and line.

    static std::vector<std::vector<Found>> neighbours(std::vector<Found> areas);
    void addArt(const GR_VectorDrawingObj& art, QStringList& remarks);
    void addStrokes(const GR_Layer& layer, QStringList& remarks);
    void addFilled(std::vector<GR_BezierPath2d> bounds, PaintPointer paint);
    void addText(const GR_TextLayer& text, QStringList& remarks);
    void addBitmap(const GR_BitmapLayer& bitmap);
    PaintPointer paintFor(const GR_Color& colour);
    CM_Palette::Entry look(const CM_ColorId_t& id);
    static Look lookOf(const CM_ColorId_t& id, const CM_Palette::Entry& entry);
    static Outline outlineOf(const Line& line, double tolerance);
    std::shared_ptr<const Outlines> outlinesAt(double scale) const;

    QRect reach(const QSize& size, const QTransform& place) const;
    static void drawLines(Rasteriser& rasteriser, const Layer& layer, std::span<const Outline> outlines,
                          const QRect& box, const QTransform& place);
    void drawOn(Rasteriser& rasteriser, const QRect& box, const QTransform& place) const;
    bool findLight() const;

    std::vector<Layer> m_layers;
    std::vector<Look> m_looks;
    Math::Box2d m_box; ///< Of all that is painted, in the drawing's units.
    bool m_hasHair = false;
    bool m_isLight = false;
    PalettePaints* m_palettes;      ///< Used by the constructor only.
    std::weak_ptr<Memory> m_memory; ///< Weak, because the memory may hold this object.
};

} // namespace brindle::render
