#include "core/drawings/drawingvectorstroke.h"

#include "core/drawings/drawing.h"
#include "core/drawings/drawingedit.h"
#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorcolour.h"
#include "core/drawings/drawingvectorcontour.h"
#include "core/drawings/drawingvectorjoint.h"
#include "core/drawings/drawingvectorlayer.h"
#include "core/drawings/drawingvectorlinestyle.h"
#include "core/drawings/drawingvectorstrokelist.h"
#include "core/drawings/drawingvectorthickness.h"
#include "core/drawings/drawingvectorthicknesspath.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/geometry/bezierpath.h"
#include "core/geometry/vectors.h"

#include <algorithm>

namespace OMC {

namespace {

/// The forms of tips, as they are read. They are written in any case of letters.
constexpr struct {
    GR_TipType type;
    QLatin1String text;
} tips[] = {
    {kRoundTip, QLatin1String("Round")},
    {kFlatTip, QLatin1String("Flat")},
    {kBevelTip, QLatin1String("Bevel")},
};

/// A path that is one thickness all along, or that has the keys of a list.
GR_ThicknessPathPtr pathFrom(const QVariant& value)
{
    if (value.typeId() == QMetaType::QVariantList) {
        try {
            DrawingVectorThicknessPath path;
            path.insert(value);
            return path.path();
        } catch (const Exception&) {
            BaseObject::throwInvalidArgument(0);
        }
    }
    bool isNumber = false;
    const double thickness = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(thickness) || thickness < 0)
        BaseObject::throwInvalidArgument(0);
    return std::make_shared<const GR_ThicknessPath>(thickness);
}

/// The other stroke of a comparison.
GR_VectorStroke& otherStroke(const QVariant& value)
{
    const auto* other = objectFrom<DrawingVectorStroke>(value);
    if (!other)
        BaseObject::throwInvalidArgument(0);
    return found(other->validateStroke());
}

} // namespace

struct DrawingVectorStroke::Block {
    DrawingLayerImplShared::Pointer layer;
    int revision; ///< Of the drawing, for which the pointer is good.
    GR_VectorStroke* stroke;
    quint32 id;
};

DrawingVectorStroke::DrawingVectorStroke(DrawingLayerImplShared* layer, const GR_VectorStroke* stroke)
    : d(std::make_shared<Block>(Block{layer->shared_from_this(), layer->revision(),
                                      const_cast<GR_VectorStroke*>(stroke), stroke ? stroke->id() : 0}))
{}

DrawingVectorStroke::DrawingVectorStroke(const DrawingVectorStroke& other) : BaseObject(other), d(other.d) {}

DrawingVectorStroke& DrawingVectorStroke::operator=(const DrawingVectorStroke& other)
{
    d = other.d;
    return *this;
}

std::string DrawingVectorStroke::__str__() const
{
    return "DrawingVectorStroke()";
}

bool DrawingVectorStroke::operator==(const DrawingVectorStroke& other) const
{
    return d == other.d || (d->layer == other.d->layer && d->id == other.d->id);
}

// --- Finding the stroke ---------------------------------------------------------------------------------------------

GR_VectorStroke* DrawingVectorStroke::validateStroke() const
{
    d->layer->update();
    if (const int revision = d->layer->revision(); revision != d->revision) {
        d->stroke = d->layer->strokes().FindStroke(d->id);
        d->revision = revision;
    }
    return d->stroke;
}

void DrawingVectorStroke::validate() const
{
    found(validateStroke());
    validateThreadLock();
}

GR_VectorStroke& DrawingVectorStroke::stroke() const
{
    validate();
    return *d->stroke;
}

const GR_StrokeData& DrawingVectorStroke::data() const
{
    return stroke().GetStrokeData();
}

DrawingLayerImplShared* DrawingVectorStroke::layerRecord() const
{
    return d->layer.get();
}

layerprimitives::Key DrawingVectorStroke::key() const
{
    return {validateStroke(), 0};
}

void DrawingVectorStroke::updateStroke(GR_VectorStroke* stroke) const
{
    d->stroke = stroke;
    d->revision = d->layer->revision();
    if (stroke)
        d->id = stroke->id();
}

void DrawingVectorStroke::updateImpl(DrawingLayerImplShared* layer, GR_VectorStroke* stroke) const
{
    d->layer = layer->shared_from_this();
    updateStroke(stroke);
}

std::vector<DrawingVectorStroke> DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(const QVariant& value)
{
    std::vector<DrawingVectorStroke> strokes;
    getDrawingVectorStrokeFromQVariant(value, strokes);
    return strokes;
}

void DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(const QVariant& value,
                                                             std::vector<DrawingVectorStroke>& strokes)
{
    layerprimitives::collect<DrawingVectorStroke, DrawingVectorStrokeList>(value, strokes);
}

// --- Neighbours -----------------------------------------------------------------------------------------------------

Obj DrawingVectorStroke::layer() const
{
    validate();
    return Obj(new DrawingVectorLayer(layerRecord()));
}

Obj DrawingVectorStroke::drawing() const
{
    validate();
    return Obj(new Drawing(d->layer->drawing()->GetComposite(), d->layer->key().cel()));
}

bool DrawingVectorStroke::continuous(const QVariant& other) const
{
    return stroke().IsContinuous(otherStroke(other));
}

QList<QVariant> DrawingVectorStroke::strokesShared() const
{
    return layerprimitives::strokes(*d->layer, stroke().GetStrokesShared());
}

QList<QVariant> DrawingVectorStroke::strokesSharedTickness() const
{
    return layerprimitives::strokes(*d->layer, stroke().GetStrokesSharingThickness());
}

bool DrawingVectorStroke::thicknessSharing(const QVariant& other) const
{
    return data().GetThicknessBinder().isSharing(otherStroke(other).GetStrokeData().GetThicknessBinder());
}

Obj DrawingVectorStroke::contourAt(GR_StrokeSide side) const
{
    const GR_Contour* contour = stroke().GetContour(side);
    return contour ? Obj(new DrawingVectorContour(*this, side, contour)) : Obj();
}

Obj DrawingVectorStroke::getContourLeft() const
{
    return contourAt(GR_StrokeSide::Left);
}

Obj DrawingVectorStroke::getContourRight() const
{
    return contourAt(GR_StrokeSide::Right);
}

Obj DrawingVectorStroke::getTail() const
{
    return Obj(new DrawingVectorJoint(*this, stroke().Tail()));
}

Obj DrawingVectorStroke::getHead() const
{
    return Obj(new DrawingVectorJoint(*this, stroke().Head()));
}

bool DrawingVectorStroke::getTailCut() const
{
    return data().isCut(GR_StrokeEnd::From);
}

bool DrawingVectorStroke::getHeadCut() const
{
    return data().isCut(GR_StrokeEnd::To);
}

// --- Form -----------------------------------------------------------------------------------------------------------

template <typename Edit>
void DrawingVectorStroke::change(const Edit& edit) const
{
    drawingedit::run(d->layer->drawing(), d->layer->key(),
                     [&](GR_DrawingAccess& access) { edit(access, &found(validateStroke())); });
}

QVariant DrawingVectorStroke::getBezierPath() const
{
    return QVariant::fromValue(BezierPath(data().GetPath()));
}

void DrawingVectorStroke::setBezierPath(const QVariant& value)
{
    validate();
    const GR_BezierPath2d path = layerprimitives::pathArgument(value, 0);
    change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) { access.SetBezierPath(stroke, path); });
}

QVariant DrawingVectorStroke::getBoundingBox() const
{
    return drawingvalues::rectangle(stroke().GetBox());
}

AllocatedRect2D* DrawingVectorStroke::newBoundingBox() const
{
    return drawingvalues::newRectangle(stroke().GetBox());
}

QVariant DrawingVectorStroke::getBoundingBoxVisible() const
{
    return drawingvalues::rectangle(stroke().GetVisibleBox());
}

AllocatedRect2D* DrawingVectorStroke::newBoundingBoxVisible() const
{
    return drawingvalues::newRectangle(stroke().GetVisibleBox());
}

QVariant DrawingVectorStroke::getBoundingBoxInner() const
{
    return drawingvalues::rectangle(stroke().GetInnerBox());
}

AllocatedRect2D* DrawingVectorStroke::newBoundingBoxInner() const
{
    return drawingvalues::newRectangle(stroke().GetInnerBox());
}

Obj DrawingVectorStroke::getTailTangent() const
{
    return Obj(new Vector2d(stroke().GetTangent(GR_StrokeAccess::kTail)));
}

Obj DrawingVectorStroke::getHeadTangent() const
{
    return Obj(new Vector2d(stroke().GetTangent(GR_StrokeAccess::kHead)));
}

unsigned int DrawingVectorStroke::getUniqueId() const
{
    return stroke().id();
}

bool DrawingVectorStroke::getDegenerate() const
{
    return stroke().IsDegenerate();
}

// --- Colours and lines ----------------------------------------------------------------------------------------------

QVariant DrawingVectorStroke::colourAt(GR_StrokeSide side) const
{
    const GR_ColorPtr& colour = data().GetColor(static_cast<int>(side));
    return toVariant(colour ? new DrawingVectorColour(colour) : nullptr);
}

void DrawingVectorStroke::setColourAt(GR_StrokeSide side, const QVariant& value)
{
    validate();
    const GR_ColorPtr colour = DrawingVectorColour::colourFrom(value);
    if (!colour)
        throwInvalidArgument(0);
    change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) {
        access.SetColor(stroke, colour, static_cast<int>(side));
    });
}

QVariant DrawingVectorStroke::getColorLeft() const
{
    return colourAt(GR_StrokeSide::Left);
}

void DrawingVectorStroke::setColorLeft(const QVariant& colour)
{
    setColourAt(GR_StrokeSide::Left, colour);
}

QVariant DrawingVectorStroke::getColorRight() const
{
    return colourAt(GR_StrokeSide::Right);
}

void DrawingVectorStroke::setColorRight(const QVariant& colour)
{
    setColourAt(GR_StrokeSide::Right, colour);
}

QVariant DrawingVectorStroke::getLineStyle() const
{
    return toVariant(new DrawingVectorLineStyle(data().GetLineStyle()));
}

void DrawingVectorStroke::setLineStyle(const QVariant& lineStyle)
{
    validate();
    const auto* style = objectFrom<DrawingVectorLineStyle>(lineStyle);
    if (!style)
        throwInvalidArgument(0);
    change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) { access.SetLineStyle(stroke, style->lineStyle()); });
}

QVariant DrawingVectorStroke::getThickness() const
{
    return toVariant(new DrawingVectorThickness(data().GetThicknessBinder()));
}

void DrawingVectorStroke::setThickness(const QVariant& value)
{
    validate();
    if (const auto* thickness = objectFrom<DrawingVectorThickness>(value)) {
        change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) {
            access.SetThicknessBinder(stroke, thickness->binder());
        });
        return;
    }
    const auto* given = objectFrom<DrawingVectorThicknessPath>(value);
    const GR_ThicknessPathPtr path = given ? given->path() : pathFrom(value);
    change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) { access.setSharedThicknessPath({stroke}, path); });
}

double DrawingVectorStroke::getThicknessMaxVisible() const
{
    return stroke().GetMaxVisibleThickness();
}

bool DrawingVectorStroke::getThicknessValid() const
{
    return stroke().IsThicknessValid();
}

// --- Tips -----------------------------------------------------------------------------------------------------------

QString DrawingVectorStroke::tipTypeAt(GR_StrokeEnd end) const
{
    const int type = stroke().tipType(static_cast<int>(end));
    for (const auto& tip : tips) {
        if (tip.type == type)
            return tip.text;
    }
    return QStringLiteral("Undefined");
}

void DrawingVectorStroke::setTipTypeAt(GR_StrokeEnd end, const QString& type)
{
    validate();
    const auto* tip = std::ranges::find_if(
        tips, [&type](const auto& entry) { return type.compare(entry.text, Qt::CaseInsensitive) == 0; });
    if (tip == std::end(tips))
        throwInvalidArgument(0);
    change([&](GR_DrawingAccess& access, GR_VectorStroke* stroke) { access.setTipType(stroke, end, tip->type); });
}

QString DrawingVectorStroke::getTipTypeFrom() const
{
    return tipTypeAt(GR_StrokeEnd::From);
}

void DrawingVectorStroke::setTipTypeFrom(const QString& type)
{
    setTipTypeAt(GR_StrokeEnd::From, type);
}

QString DrawingVectorStroke::getTipTypeTo() const
{
    return tipTypeAt(GR_StrokeEnd::To);
}

void DrawingVectorStroke::setTipTypeTo(const QString& type)
{
    setTipTypeAt(GR_StrokeEnd::To, type);
}

void DrawingVectorStroke::setTangentAt(GR_StrokeSide side, GR_StrokeEnd end, double tangent)
{
    validate();
    requireFinite(tangent, 0);
    change(
        [&](GR_DrawingAccess& access, GR_VectorStroke* stroke) { access.setTipTangent(stroke, side, end, tangent); });
}

double DrawingVectorStroke::getLeftThicknessTangentFrom() const
{
    return data().GetThicknessBinder().startTangentLeft;
}

void DrawingVectorStroke::setLeftThicknessTangentFrom(double tangent)
{
    setTangentAt(GR_StrokeSide::Left, GR_StrokeEnd::From, tangent);
}

double DrawingVectorStroke::getLeftThicknessTangentTo() const
{
    return data().GetThicknessBinder().stopTangentLeft;
}

void DrawingVectorStroke::setLeftThicknessTangentTo(double tangent)
{
    setTangentAt(GR_StrokeSide::Left, GR_StrokeEnd::To, tangent);
}

double DrawingVectorStroke::getRightThicknessTangentFrom() const
{
    return data().GetThicknessBinder().startTangentRight;
}

void DrawingVectorStroke::setRightThicknessTangentFrom(double tangent)
{
    setTangentAt(GR_StrokeSide::Right, GR_StrokeEnd::From, tangent);
}

double DrawingVectorStroke::getRightThicknessTangentTo() const
{
    return data().GetThicknessBinder().stopTangentRight;
}

void DrawingVectorStroke::setRightThicknessTangentTo(double tangent)
{
    setTangentAt(GR_StrokeSide::Right, GR_StrokeEnd::To, tangent);
}

} // namespace OMC
