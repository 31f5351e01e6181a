#include "core/drawings/drawingvectorthickness.h"

#include "core/drawings/drawingvectorthicknesspath.h"
#include "core/drawings/drawingvectorthicknesspathpoint.h"
#include "service/python/drawings/copied.h"
#include "service/python/family.h"
#include "service/python/statereader.h"
#include "service/python/valueprotocol.h"

#include <stdexcept>

namespace brindle::python {

namespace {

using Key = GR_ThicknessPath::ThicknessKey;

void append(QVariantList& state, const GR_ThicknessPath::Side& side)
{
    state << side.thickness << side.fromControl << side.fromControlPosition << side.toControl << side.toControlPosition;
}

void append(QVariantList& state, const Key& key)
{
    state << key.position;
    append(state, key.left);
    append(state, key.right);
}

Key takeKey(StateReader& reader)
{
    const auto takeSide = [&reader]() -> GR_ThicknessPath::Side {
        const auto numbers = reader.takeNumbers<5>();
        return {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
    };
    Key key;
    key.position = reader.take<double>();
    key.left = takeSide();
    key.right = takeSide();
    if (!key.isUsable())
        StateReader::refuse();
    return key;
}

void append(QVariantList& state, const GR_Bezier2d& curve)
{
    state << int(curve.GetDegree());
    for (unsigned int index = 0; index <= GR_Bezier2d::maxDegree; ++index)
        state << curve.GetPoint(index).x << curve.GetPoint(index).y;
}

GR_Bezier2d takeCurve(StateReader& reader)
{
    const int degree = reader.take<int>();
    if (degree < 0 || degree > int(GR_Bezier2d::maxDegree))
        StateReader::refuse();
    GR_Bezier2d curve(static_cast<unsigned int>(degree), Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int index = 0; index <= GR_Bezier2d::maxDegree; ++index)
        curve.SetPoint(index, reader.takePoint());
    return curve;
}

void append(QVariantList& state, const GR_ThicknessPath& path)
{
    state << path.isClosed() << path.numThicknessKeys();
    for (const Key& key : path.thicknessKeys())
        append(state, key);
    append(state, path.tipFromBezier());
    append(state, path.tipToBezier());
}

GR_ThicknessPathPtr takePath(StateReader& reader)
{
    const bool isClosed = reader.take<bool>();
    std::vector<Key> keys;
    for (int left = reader.take<int>(); left > 0; --left)
        keys.push_back(takeKey(reader));
    auto path = GR_ThicknessPath::CreateWith(keys);
    path->setClosed(isClosed);
    try {
        path->setTipFromBezier(takeCurve(reader));
        path->setTipToBezier(takeCurve(reader));
    } catch (const std::invalid_argument&) {
        StateReader::refuse();
    }
    return path;
}

// --- DrawingVectorThicknessPathPoint --------------------------------------------------------------------------------

QVariantList pointState(const OMC::DrawingVectorThicknessPathPoint& point)
{
    QVariantList state;
    append(state, point.key());
    return state;
}

OMC::DrawingVectorThicknessPathPoint* pointOfState(const QVariantList& state)
{
    StateReader reader(state);
    const Key key = takeKey(reader);
    reader.finish();
    return new OMC::DrawingVectorThicknessPathPoint(key);
}

std::string pointText(const OMC::DrawingVectorThicknessPathPoint& point, const std::string& type)
{
    const Key& key = point.key();
    if (key == Key(key.position, key.left.thickness))
        return shortName(type) + "(" + numberText(key.position) + ", " + numberText(key.left.thickness) + ")";
    return "<" + type + ": " + numberText(key.position) + ", left " + numberText(key.left.thickness) + ", right " +
           numberText(key.right.thickness) + ">";
}

// --- DrawingVectorThicknessPath -------------------------------------------------------------------------------------

OMC::DrawingVectorThicknessPath* newPath(const QVariant& points)
{
    auto path = std::make_unique<OMC::DrawingVectorThicknessPath>();
    if (const auto* given = OMC::objectFrom<OMC::DrawingVectorThicknessPath>(points))
        *path = *given;
    else if (points.isValid())
        path->insert(points);
    return path.release();
}

OMC::Obj sharedPath(const QVariant& path)
{
    return OMC::Obj(newOrCopied<OMC::DrawingVectorThicknessPath>(path));
}

QVariantList pathState(const OMC::DrawingVectorThicknessPath& path)
{
    QVariantList state;
    append(state, *path.path());
    return state;
}

OMC::DrawingVectorThicknessPath* pathOfState(const QVariantList& state)
{
    StateReader reader(state);
    GR_ThicknessPathPtr path = takePath(reader);
    reader.finish();
    return OMC::DrawingVectorThicknessPath::createShared(std::move(path));
}

std::string keysText(int keys)
{
    return std::to_string(keys) + (keys == 1 ? " key" : " keys");
}

std::string pathText(const OMC::DrawingVectorThicknessPath& path, const std::string& type)
{
    return "<" + type + ": " + keysText(path.path()->numThicknessKeys()) + (path.getClosed() ? ", closed>" : ">");
}

// --- DrawingVectorThickness -----------------------------------------------------------------------------------------

QVariantList thicknessState(const OMC::DrawingVectorThickness& thickness)
{
    const GR_ThicknessBinder& binder = thickness.binder();
    QVariantList state = {
        binder.startPosition,   binder.stopPosition,     binder.startTangentLeft,          binder.startTangentRight,
        binder.stopTangentLeft, binder.stopTangentRight, binder.thicknessPath() != nullptr};
    if (binder.thicknessPath())
        append(state, *binder.thicknessPath());
    return state;
}

OMC::DrawingVectorThickness* thicknessOfState(const QVariantList& state)
{
    StateReader reader(state);
    GR_ThicknessBinder binder;
    const auto numbers = reader.takeNumbers<6>();
    binder.startPosition = numbers[0];
    binder.stopPosition = numbers[1];
    binder.startTangentLeft = numbers[2];
    binder.startTangentRight = numbers[3];
    binder.stopTangentLeft = numbers[4];
    binder.stopTangentRight = numbers[5];
    if (reader.take<bool>())
        binder.setThicknessPath(takePath(reader));
    reader.finish();
    return new OMC::DrawingVectorThickness(binder);
}

std::string thicknessText(const OMC::DrawingVectorThickness& thickness, const std::string& type)
{
    const GR_ThicknessBinder& binder = thickness.binder();
    if (!binder.thicknessPath())
        return "<" + type + ": no path>";
    return "<" + type + ": " + numberText(binder.startPosition) + " to " + numberText(binder.stopPosition) + " of " +
           keysText(binder.thicknessPath()->numThicknessKeys()) + ">";
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<DrawingVectorThicknessPathPoint>()
            .constructors<Construct<&newOf<DrawingVectorThicknessPathPoint, double, double>, "position, thickness">,
                          Construct<&newOrCopied<DrawingVectorThicknessPathPoint>,
                                    "other: DrawingVectorThicknessPathPoint | None=None">>()
            .value<&pointState, &pointOfState, &pointText>(),
        Class<DrawingVectorThicknessPath>()
            .alias("ThicknessKeyLike", "DrawingVectorThicknessPathPoint | Point2d | Sequence[float]",
                   "A key of a thickness path: a point, or its position and its thickness.")
            .constructor<&newPath,
                         "points: DrawingVectorThicknessPath | ThicknessKeyLike | Sequence[ThicknessKeyLike] | "
                         "None=None">()
            .value<&pathState, &pathOfState, &pathText>()
            .items("DrawingVectorThicknessPathPoint")
            .property("tip_from_bezier", "Bezier", "CurveLike | None")
            .property("tip_to_bezier", "Bezier", "CurveLike | None")
            .staticMethod<"create_shared",
                          StaticForm<&sharedPath, "path: DrawingVectorThicknessPath -> DrawingVectorThicknessPath">>()
            .method<"insert", Form<&DrawingVectorThicknessPath::insert,
                                   "points: ThicknessKeyLike | Sequence[ThicknessKeyLike] -> int | list[int]">>()
            .method<"remove",
                    Form<&DrawingVectorThicknessPath::remove, "point: DrawingVectorThicknessPathPoint | int">>()
            .method<"clone", Form<&DrawingVectorThicknessPath::clone, "-> DrawingVectorThicknessPath">>()
            .method<"reverse", Form<&DrawingVectorThicknessPath::reverse, "-> DrawingVectorThicknessPath">>()
            .method<"truncate",
                    Form<&DrawingVectorThicknessPath::truncate, "start, end -> DrawingVectorThicknessPath">>()
            .method<"transform", Form<&DrawingVectorThicknessPath::transform, "factor, offset=0">>(),
        Class<DrawingVectorThickness>()
            .constructor<&newOrCopied<DrawingVectorThickness>, "other: DrawingVectorThickness | None=None">()
            .value<&thicknessState, &thicknessOfState, &thicknessText>()
            .property("thickness_path", "DrawingVectorThicknessPath")
            .property("path", "DrawingVectorThicknessPath")
            .method<"share_thickness",
                    Form<&DrawingVectorThickness::shareThickness, "other: DrawingVectorThickness">>(),
    };
});

} // namespace

} // namespace brindle::python
