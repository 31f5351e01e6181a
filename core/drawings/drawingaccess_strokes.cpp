#include "core/drawings/drawingaccess.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawingvectorcolour.h"
#include "core/drawings/drawingvectorcontour.h"
#include "core/drawings/drawingvectorjoint.h"
#include "core/drawings/drawingvectorlinestyle.h"
#include "core/drawings/drawingvectorstroke.h"
#include "core/drawings/drawingvectorthickness.h"
#include "core/drawings/drawingvectorthicknesspath.h"
#include "core/drawings/layerdescription.h"
#include "core/drawings/sessiontarget.h"
#include "core/drawings/strokepath.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/geometry/bezierpath.h"

#include <array>
#include <cstddef>
#include <map>

namespace OMC {

namespace {

template <typename Value>
struct Word {
    const char* word;
    Value value;
};

constexpr std::array sides = {Word{"RIGHT", GR_StrokeSide::Right}, Word{"LEFT", GR_StrokeSide::Left}};
constexpr std::array ends = {Word{"from", GR_StrokeEnd::From}, Word{"to", GR_StrokeEnd::To}};
constexpr std::array tips = {Word{"round", kRoundTip}, Word{"flat", kFlatTip}, Word{"bevel", kBevelTip}};

/// The value of a word in any case of letters; the argument of this place is refused for another one.
template <typename Value, std::size_t count>
Value valueOf(const std::array<Word<Value>, count>& words, const QString& text, unsigned int argument)
{
    for (const Word<Value>& word : words) {
        if (text.compare(QLatin1String(word.word), Qt::CaseInsensitive) == 0)
            return word.value;
    }
    BaseObject::throwInvalidArgument(argument);
}

GR_ColorPtr colourIn(const QVariant& value)
{
    auto colour = DrawingVectorColour::colourFrom(value);
    if (!colour)
        throw Exception(DrawingAccess::tr("Invalid vector colour specified."));
    return colour;
}

const GR_LineStyle& lineStyleIn(const QVariant& value)
{
    return found(objectFrom<DrawingVectorLineStyle>(value),
                 [] { return DrawingAccess::tr("Invalid line style specified."); })
        .lineStyle();
}

bool isNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::Int || value.typeId() == QMetaType::LongLong ||
           value.typeId() == QMetaType::Double;
}

/// Whether a list holds paths, each for a stroke, and isn't a path by its own points or curves.
bool isListOfPaths(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantList)
        return false;
    const QVariantList items = value.toList();
    if (items.isEmpty())
        return false;
    const QVariant& first = items.first();
    if (first.typeId() == QMetaType::QVariantMap || objectFrom<BezierPath>(first))
        return true;
    return first.typeId() == QMetaType::QVariantList && !first.toList().isEmpty() && !isNumber(first.toList().first());
}

GR_VectorStroke& strokeOf(const DrawingVectorStroke& stroke)
{
    return found(stroke.validateStroke());
}

/// Runs an edit of each stroke in the open session. A stroke is found anew, because each change lets pointers go bad.
template <typename Edit>
void editEach(const std::vector<DrawingVectorStroke>& strokes, Edit&& edit)
{
    const DrawingAccessImpl& session = DrawingAccessImpl::get();
    drawingedit::run(session.vectorDrawing(), session.getCurrentKey(), [&](GR_DrawingAccess& access) {
        for (const DrawingVectorStroke& stroke : strokes)
            edit(access, strokeOf(stroke));
    });
}

/// Strokes to be made, some of them in layers of their own.
struct NewStrokes {
    std::vector<GR_StrokeData> data;
    std::map<std::size_t, GR_Layer::LayerType> ownLayers; ///< By the index in `data`.
};

struct MadeStroke {
    DrawingLayerImplShared::Pointer layer;
    quint32 id;
};

/// Makes strokes in a layer; each new layer goes above the one before, the first one above that layer.
std::vector<MadeStroke> insert(GR_DrawingAccess& access, const NewStrokes& strokes, DrawingLayerImplShared& target)
{
    std::vector<MadeStroke> made;
    const auto put = [&](std::size_t from, std::size_t to, DrawingLayerImplShared& layer) {
        const std::vector<GR_StrokeData> run(strokes.data.begin() + static_cast<std::ptrdiff_t>(from),
                                             strokes.data.begin() + static_cast<std::ptrdiff_t>(to));
        if (run.empty())
            return;
        for (const quint32 id : access.Insert(run, layer.getLayer()))
            made.push_back({layer.shared_from_this(), id});
    };
    std::size_t next = 0;
    UT_Node* below = target.getLayer();
    for (const auto& [index, type] : strokes.ownLayers) {
        put(next, index, target);
        below = &found(access.CreateLayerAbove(type, below), &BaseObject::throwUnexpected);
        put(index, index + 1, *DrawingLayerImplShared::of(target.drawing(), below, target.key()));
        next = index + 1;
    }
    put(next, strokes.data.size(), target);
    return made;
}

} // namespace

QVariant DrawingAccess::strokeCreate(const QVariant& path, const QVariant& target, const QVariant& lineStyle,
                                     const QString& side, const QVariant& colour)
{
    sessiontarget::requireSession();
    const bool isMany = isListOfPaths(path);
    const QVariantList paths = isMany ? path.toList() : QVariantList{path};
    std::vector<std::optional<GR_BezierPath2d>> read; // Nothing for a map, which tells the path itself.
    for (const QVariant& item : paths) {
        const bool isMap = item.typeId() == QMetaType::QVariantMap;
        read.push_back(isMap ? std::nullopt : strokepath::read(item));
        if (!isMap && !read.back())
            throw Exception(tr("Invalid bezier path specified."));
    }
    const auto layer = sessiontarget::layerForStrokes(target);
    // Where all strokes are maps, the other arguments may be left out.
    const bool isNeeded = std::ranges::any_of(read, [](const auto& each) { return each.has_value(); });
    GR_StrokeData defaults;
    if (isNeeded || colour.isValid())
        defaults.SetColor(colourIn(colour), static_cast<int>(GR_StrokeSide::Right));
    if (isNeeded || lineStyle.isValid())
        defaults.SetLineStyle(lineStyleIn(lineStyle));
    const GR_StrokeSide painted = valueOf(sides, side, 3);
    if (painted == GR_StrokeSide::Left) {
        defaults.SetColor(defaults.GetColor(static_cast<int>(GR_StrokeSide::Right)), static_cast<int>(painted));
        defaults.SetColor(nullptr, static_cast<int>(GR_StrokeSide::Right));
    }
    NewStrokes strokes;
    for (std::size_t index = 0; index < read.size(); ++index) {
        if (read[index]) {
            strokes.data.push_back(defaults);
            strokes.data.back().SetPath(*read[index]);
        } else {
            const QVariantMap description = paths[static_cast<qsizetype>(index)].toMap();
            strokes.data.push_back(layerdescription::strokeData(description, defaults));
            if (const auto type = layerdescription::layerType(description))
                strokes.ownLayers[index] = *type;
        }
    }
    return drawingedit::run(layer->drawing(), layer->key(), [&](GR_DrawingAccess& access) -> QVariant {
        QList<QVariant> made;
        for (const auto& [record, id] : insert(access, strokes, *layer))
            made.append(toVariant(new DrawingVectorStroke(record.get(), record->strokes().FindStroke(id))));
        return isMany ? QVariant(made) : made.first();
    });
}

QVariant DrawingAccess::strokeCopy(const QVariant& strokes, const QVariant& target)
{
    sessiontarget::requireSession();
    const auto sources = sessiontarget::sourceStrokes(strokes);
    const auto layer = sessiontarget::layerForStrokes(target);
    return drawingedit::run(layer->drawing(), layer->key(), [&](GR_DrawingAccess& access) -> QVariant {
        QList<QVariant> made;
        for (const DrawingVectorStroke& stroke : sources)
            made.append(
                toVariant(new DrawingVectorStroke(layer.get(), access.Copy(&strokeOf(stroke), layer->getLayer()))));
        const bool isMany = strokes.typeId() == QMetaType::QVariantList || made.size() > 1;
        return isMany ? QVariant(made) : made.first();
    });
}

void DrawingAccess::strokeMove(const QVariant& strokes, const QVariant& target)
{
    sessiontarget::requireSession();
    const auto moved = sessiontarget::ownStrokes(strokes);
    const auto layer = sessiontarget::layerForStrokes(target);
    drawingedit::run(layer->drawing(), layer->key(), [&](GR_DrawingAccess& access) {
        for (const DrawingVectorStroke& stroke : moved)
            stroke.updateImpl(layer.get(), access.Move(&strokeOf(stroke), layer->getLayer()));
    });
}

void DrawingAccess::strokeErase(const QVariant& strokes)
{
    sessiontarget::requireSession();
    editEach(sessiontarget::ownStrokes(strokes),
             [](GR_DrawingAccess& access, GR_VectorStroke& stroke) { access.Erase(&stroke); });
}

void DrawingAccess::strokeSetColor(const QVariant& strokes, const QVariant& colour, const QString& side)
{
    sessiontarget::requireSession();
    const auto painted = sessiontarget::ownStrokes(strokes);
    const int number = static_cast<int>(valueOf(sides, side, 2));
    const GR_ColorPtr paint = colourIn(colour);
    editEach(painted,
             [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) { access.SetColor(&stroke, paint, number); });
}

void DrawingAccess::strokeSetLineStyle(const QVariant& strokes, const QVariant& lineStyle)
{
    sessiontarget::requireSession();
    const auto drawn = sessiontarget::ownStrokes(strokes);
    const GR_LineStyle style = lineStyleIn(lineStyle);
    editEach(drawn, [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) { access.SetLineStyle(&stroke, style); });
}

void DrawingAccess::strokeSetPath(const QVariant& strokes, const QVariant& path)
{
    sessiontarget::requireSession();
    const auto bent = sessiontarget::ownStrokes(strokes);
    const auto curves = strokepath::read(path);
    if (!curves)
        throw Exception(tr("Invalid bezier path specified."));
    editEach(bent, [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) { access.SetBezierPath(&stroke, *curves); });
}

void DrawingAccess::strokeSetThickness(const QVariant& strokes, const QVariant& thickness)
{
    sessiontarget::requireSession();
    const auto drawn = sessiontarget::ownStrokes(strokes);
    if (const auto* binder = objectFrom<DrawingVectorThickness>(thickness)) {
        editEach(drawn, [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) {
            access.SetThicknessBinder(&stroke, binder->binder());
        });
        return;
    }
    const auto* path = objectFrom<DrawingVectorThicknessPath>(thickness);
    if (!path)
        throw Exception(tr("Invalid thickness path specified."));
    const DrawingAccessImpl& session = DrawingAccessImpl::get();
    drawingedit::run(session.vectorDrawing(), session.getCurrentKey(), [&](GR_DrawingAccess& access) {
        std::vector<GR_VectorStroke*> sharing;
        for (const DrawingVectorStroke& stroke : drawn)
            sharing.push_back(&strokeOf(stroke));
        access.setSharedThicknessPath(sharing, path->path());
    });
}

void DrawingAccess::strokeSetTipTangent(const QVariant& strokes, const QString& side, const QString& end,
                                        double tangent)
{
    sessiontarget::requireSession();
    const auto drawn = sessiontarget::ownStrokes(strokes);
    const GR_StrokeSide edge = valueOf(sides, side, 1);
    const GR_StrokeEnd place = valueOf(ends, end, 2);
    requireFinite(tangent, 3);
    editEach(drawn, [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) {
        access.setTipTangent(&stroke, edge, place, tangent);
    });
}

void DrawingAccess::strokeSetTipType(const QVariant& strokes, const QString& end, const QString& type)
{
    sessiontarget::requireSession();
    const auto drawn = sessiontarget::ownStrokes(strokes);
    const GR_StrokeEnd place = valueOf(ends, end, 1);
    const GR_TipType shape = valueOf(tips, type, 2);
    editEach(drawn,
             [&](GR_DrawingAccess& access, GR_VectorStroke& stroke) { access.setTipType(&stroke, place, shape); });
}

void DrawingAccess::contourSetColour(const QVariant& contours, const QVariant& colour, bool outside)
{
    sessiontarget::requireSession();
    const auto painted = DrawingVectorContour::getDrawingVectorContourFromQVariant(contours);
    const bool areThere = std::ranges::all_of(painted, [](const DrawingVectorContour& contour) {
        return contour.validateContour() && sessiontarget::isOfSession(*contour.layerRecord());
    });
    if (painted.empty() || !areThere)
        throw Exception(tr("Invalid contour specified."));
    const GR_ColorPtr paint = colourIn(colour);
    const DrawingAccessImpl& session = DrawingAccessImpl::get();
    drawingedit::run(session.vectorDrawing(), session.getCurrentKey(), [&](GR_DrawingAccess& access) {
        for (const DrawingVectorContour& contour : painted)
            access.SetColor(&found(contour.validateContour()), paint, outside);
    });
}

void DrawingAccess::jointSetInsideColour(const QVariant& joints, const QVariant& colour)
{
    jointSetColour(joints, colour, false);
}

void DrawingAccess::jointSetOutsideColour(const QVariant& joints, const QVariant& colour)
{
    jointSetColour(joints, colour, true);
}

void DrawingAccess::jointSetColour(const QVariant& joints, const QVariant& colour, bool outside)
{
    sessiontarget::requireSession();
    const auto painted = DrawingVectorJoint::getDrawingVectorJointFromQVariant(joints);
    const bool areThere = std::ranges::all_of(painted, [](const DrawingVectorJoint& joint) {
        return !joint.getJoint().IsEmpty() && sessiontarget::isOfSession(*joint.layerRecord());
    });
    if (painted.empty() || !areThere)
        throw Exception(tr("Invalid joint specified."));
    const GR_ColorPtr paint = colourIn(colour);
    const DrawingAccessImpl& session = DrawingAccessImpl::get();
    drawingedit::run(session.vectorDrawing(), session.getCurrentKey(), [&](GR_DrawingAccess& access) {
        for (const DrawingVectorJoint& joint : painted)
            access.SetColor(joint.getJoint(), paint, outside);
    });
}

} // namespace OMC
