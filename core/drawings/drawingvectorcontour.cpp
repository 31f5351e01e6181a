#include "core/drawings/drawingvectorcontour.h"

#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorcolour.h"
#include "core/drawings/drawingvectorcontourlist.h"
#include "core/frame/found.h"
#include "core/frame/refused.h"

namespace OMC {

namespace {

/// The rule by which the areas of paths are filled.
constexpr int fillType = 1;

QString textOf(GR_Contour::Comparison comparison)
{
    switch (comparison) {
    case GR_Contour::kContains:
        return QStringLiteral("Contains");
    case GR_Contour::kContainedIn:
        return QStringLiteral("Contained_In");
    case GR_Contour::kNotRelated:
        return QStringLiteral("Not_Related");
    }
    return QStringLiteral("Unknown");
}

Obj colourObject(const GR_ColorPtr& colour)
{
    return colour ? Obj(new DrawingVectorColour(colour)) : Obj();
}

/// The strokes with a contour on both sides, if it runs around an area: they end in that.
void addEnding(const GR_Contour& contour, std::vector<const GR_VectorStroke*>& ending)
{
    if (contour.IsClockwise() || contour.IsDegenerate())
        return;
    for (const GR_VectorStroke* stroke : contour.GetStrokes()) {
        if (stroke->GetContour(GR_StrokeSide::Left) == stroke->GetContour(GR_StrokeSide::Right))
            ending.push_back(stroke);
    }
}

} // namespace

struct DrawingVectorContour::Block {
    DrawingVectorStroke stroke; ///< The stroke and
    GR_StrokeSide side;         ///< the side that name it.
    int revision;               ///< Of the drawing, for which the pointer is good.
    const GR_Contour* contour;
};

DrawingVectorContour::DrawingVectorContour(DrawingLayerImplShared* layer, const GR_Contour* contour)
    : DrawingVectorContour(DrawingVectorStroke(layer, contour->GetStroke()), contour->GetSide(), contour)
{}

DrawingVectorContour::DrawingVectorContour(const DrawingVectorStroke& stroke, GR_StrokeSide side,
                                           const GR_Contour* contour)
    : d(std::make_shared<Block>(Block{stroke, side, stroke.layerRecord()->revision(), contour}))
{}

DrawingVectorContour::DrawingVectorContour(const DrawingVectorContour& other) : BaseObject(other), d(other.d) {}

DrawingVectorContour& DrawingVectorContour::operator=(const DrawingVectorContour& other)
{
    d = other.d;
    return *this;
}

std::string DrawingVectorContour::__str__() const
{
    return "DrawingVectorContour()";
}

bool DrawingVectorContour::operator==(const DrawingVectorContour& other) const
{
    if (d == other.d)
        return true;
    try {
        const GR_Contour* own = validateContour();
        return own && own == other.validateContour();
    } catch (const Exception&) { // What is gone is equal to nothing else.
        return false;
    }
}

// --- Finding the contour --------------------------------------------------------------------------------------------

const GR_Contour* DrawingVectorContour::validateContour() const
{
    const GR_VectorStroke* stroke = d->stroke.validateStroke();
    if (const int revision = layerRecord()->revision(); revision != d->revision) {
        const GR_Layer* layer = stroke ? stroke->GetLayer() : nullptr;
        d->contour = layer ? layer->FindContour(stroke, d->side) : nullptr;
        d->revision = revision;
    }
    return d->contour;
}

void DrawingVectorContour::validate() const
{
    found(validateContour());
    validateThreadLock();
}

const GR_Contour& DrawingVectorContour::contour() const
{
    validate();
    return *d->contour;
}

DrawingLayerImplShared* DrawingVectorContour::layerRecord() const
{
    return d->stroke.layerRecord();
}

layerprimitives::Key DrawingVectorContour::key() const
{
    return {validateContour(), 0};
}

std::vector<DrawingVectorContour> DrawingVectorContour::getDrawingVectorContourFromQVariant(const QVariant& value)
{
    std::vector<DrawingVectorContour> contours;
    getDrawingVectorContourFromQVariant(value, contours);
    return contours;
}

void DrawingVectorContour::getDrawingVectorContourFromQVariant(const QVariant& value,
                                                               std::vector<DrawingVectorContour>& contours)
{
    layerprimitives::collect<DrawingVectorContour, DrawingVectorContourList>(value, contours);
}

// --- Neighbours -----------------------------------------------------------------------------------------------------

Obj DrawingVectorContour::stroke() const
{
    validate();
    return Obj(new DrawingVectorStroke(d->stroke));
}

Obj DrawingVectorContour::layer() const
{
    validate();
    return d->stroke.layer();
}

Obj DrawingVectorContour::drawing() const
{
    validate();
    return d->stroke.drawing();
}

Obj DrawingVectorContour::contourParent() const
{
    const GR_Contour* parent = contour().GetParent();
    return parent ? Obj(new DrawingVectorContour(layerRecord(), parent)) : Obj();
}

bool DrawingVectorContour::compare(bool (GR_Contour::*question)(const GR_BezierPath2d&, int) const,
                                   const QVariant& value) const
{
    const GR_Contour& own = contour();
    const GR_BezierPath2d path = layerprimitives::pathArgument(value, 0);
    return orRefused([&] { return (own.*question)(path, fillType); });
}

bool DrawingVectorContour::containedIn(const QVariant& path) const
{
    return compare(&GR_Contour::IsInside, path);
}

bool DrawingVectorContour::contains(const QVariant& path) const
{
    return compare(&GR_Contour::IsContaining, path);
}

bool DrawingVectorContour::outside(const QVariant& path) const
{
    return compare(&GR_Contour::IsOutside, path);
}

QVariant DrawingVectorContour::relationship(const QVariant& value) const
{
    const GR_Contour& own = contour();
    QVariantList relations;
    for (const DrawingVectorContour& wrapper : getDrawingVectorContourFromQVariant(value)) {
        const GR_Contour* other = wrapper.validateContour();
        if (other == &own)
            relations.append(QStringLiteral("Same"));
        else
            relations.append(other ? textOf(own.TopologicalComparison(other)) : QStringLiteral("Unknown"));
    }
    if (relations.isEmpty())
        return QVariantList{QStringLiteral("Unknown")};
    return objectFrom<DrawingVectorContour>(value) ? relations.front() : QVariant(relations);
}

// --- Properties -----------------------------------------------------------------------------------------------------

QString DrawingVectorContour::getExtremity() const
{
    validate();
    switch (d->side) {
    case GR_StrokeSide::Left:
        return QStringLiteral("Tail");
    case GR_StrokeSide::Right:
        return QStringLiteral("Head");
    }
    return QStringLiteral("Invalid");
}

QVariant DrawingVectorContour::getBoundingBox() const
{
    return drawingvalues::rectangle(contour().GetBox());
}

QVariant DrawingVectorContour::getBoundingBoxInner() const
{
    return drawingvalues::rectangle(contour().GetInnerBox());
}

bool DrawingVectorContour::getClockwise() const
{
    return contour().IsClockwise();
}

bool DrawingVectorContour::getDegenerate() const
{
    return contour().IsDegenerate();
}

bool DrawingVectorContour::getOutlineColourUsed() const
{
    return contour().IsOutlineColorUsed();
}

bool DrawingVectorContour::getTopLevel() const
{
    return contour().IsTopLevel();
}

unsigned int DrawingVectorContour::getUniqueId() const
{
    return contour().id();
}

Obj DrawingVectorContour::getColourInside() const
{
    return colourObject(contour().GetInsideColor());
}

Obj DrawingVectorContour::getColourOutside() const
{
    return colourObject(contour().GetOutsideColor());
}

QVariant DrawingVectorContour::getContoursChildren() const
{
    return layerprimitives::contours(*layerRecord(), contour().GetChildren());
}

QVariant DrawingVectorContour::getStrokesCurrentInside() const
{
    std::vector<const GR_VectorStroke*> ending;
    addEnding(contour(), ending);
    return layerprimitives::strokes(*layerRecord(), ending);
}

QVariant DrawingVectorContour::getStrokesCurrentChildren() const
{
    std::vector<const GR_VectorStroke*> ending;
    for (const GR_Contour* child : contour().GetChildren())
        addEnding(*child, ending);
    return layerprimitives::strokes(*layerRecord(), ending);
}

QVariant DrawingVectorContour::getStrokes() const
{
    return layerprimitives::strokes(*layerRecord(), contour().GetStrokes());
}

QVariant DrawingVectorContour::getStrokesInside() const
{
    return layerprimitives::strokes(*layerRecord(), contour().GetStrokesInside());
}

QVariant DrawingVectorContour::getStrokesChildren() const
{
    return layerprimitives::strokes(*layerRecord(), contour().GetStrokesOfChildren());
}

} // namespace OMC
