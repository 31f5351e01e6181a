#include "core/host/at_dynamicattr.h"
#include "engine/attributes/addedattribute.h"
#include "engine/attributes/attributetable.h"
#include "engine/attributes/complexattribute.h"
#include "engine/attributes/drawingattribute.h"
#include "engine/attributes/enumattribute.h"
#include "engine/attributes/numberattribute.h"
#include "engine/attributes/textattribute.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <vector>

namespace brindle::engine {

namespace {

constexpr double unbounded = std::numeric_limits<double>::max();

using Keyword = std::u16string_view;
using Title = std::u16string_view;
using Position2d = AxesAttribute<AT_Position2dAttr>;
using Position3d = AxesAttribute<AT_Position3dAttr>;
using Scale3d = AxesAttribute<AT_Scale3dAttr>;
using Rotation3d = AxesAttribute<AT_Rotation3dAttr>;

constexpr AttributeSpec number(Keyword keyword, Title title, double defaultValue = 0, double step = 0.1)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"DOUBLE",
            .kind = attributeKind<DoubleAttribute>,
            .linkable = true,
            .defaultValue = defaultValue,
            .minimum = -unbounded,
            .maximum = unbounded,
            .step = step};
}

constexpr AttributeSpec velocityNumber(Keyword keyword, Title title)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"DOUBLE_VB",
            .kind = attributeKind<VelocityAttribute>,
            .linkable = true,
            .minimum = -unbounded,
            .maximum = unbounded,
            .step = 0.1};
}

constexpr AttributeSpec bounded(AttributeSpec spec, double minimum, double maximum)
{
    spec.minimum = minimum;
    spec.maximum = maximum;
    return spec;
}

constexpr AttributeSpec in(Title unit, AttributeSpec spec)
{
    spec.unit = unit;
    return spec;
}

constexpr AttributeSpec fields(Keyword keyword, Title title)
{
    return in(u"fields", number(keyword, title));
}

constexpr AttributeSpec degrees(Keyword keyword, Title title)
{
    return in(u"degrees", number(keyword, title, 0, 1));
}

constexpr AttributeSpec unlinkable(AttributeSpec spec)
{
    spec.linkable = false;
    return spec;
}

constexpr AttributeSpec linkable(AttributeSpec spec)
{
    spec.linkable = true;
    return spec;
}

constexpr AttributeSpec channel(Keyword keyword, Title title)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"INT",
            .kind = attributeKind<IntAttribute>,
            .linkable = true,
            .defaultValue = 255,
            .maximum = 255,
            .step = 1};
}

constexpr AttributeSpec onOff(Keyword keyword, Title title, bool defaultValue)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"BOOL",
            .kind = attributeKind<BoolAttribute>,
            .linkable = true,
            .defaultValue = defaultValue ? 1. : 0.,
            .maximum = 1,
            .step = 1};
}

constexpr AttributeSpec text(Keyword keyword, Title title)
{
    return {.keyword = keyword, .displayName = title, .typeText = u"STRING", .kind = attributeKind<TextAttribute>};
}

template <typename Kind>
constexpr AttributeSpec exposed(Keyword keyword, Title title, std::u16string_view typeText)
{
    return {
        .keyword = keyword, .displayName = title, .typeText = typeText, .kind = attributeKind<Kind>, .linkable = true};
}

constexpr AttributeSpec choice(Keyword keyword, Title title, std::span<const EnumOption> options)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"ENUM",
            .kind = attributeKind<EnumAttribute>,
            .options = options};
}

template <typename Kind>
constexpr AttributeSpec compound(Keyword keyword, Title title, std::u16string_view typeText,
                                 std::span<const AttributeSpec> members)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = typeText,
            .kind = attributeKind<Kind>,
            .members = members};
}

constexpr AttributeSpec positionMembers[] = {fields(u"x", u"Pos x"), fields(u"y", u"Pos y"), fields(u"z", u"Pos z")};
constexpr AttributeSpec scaleMembers[] = {number(u"x", u"Scale x", 1, 0.01), number(u"y", u"Scale y", 1, 0.01),
                                          number(u"z", u"Scale z", 1, 0.01)};
constexpr AttributeSpec rotationMembers[] = {degrees(u"x", u"Angle x"), degrees(u"y", u"Angle y"),
                                             degrees(u"z", u"Angle z")};
constexpr AttributeSpec pivotMembers[] = {unlinkable(fields(u"x", u"Pivot x")), unlinkable(fields(u"y", u"Pivot y")),
                                          unlinkable(fields(u"z", u"Pivot z"))};
constexpr AttributeSpec drawingMembers[] = {exposed<ElementAttribute>(u"element", u"Element", u"ELEMENT"),
                                            exposed<TimingAttribute>(u"timing", u"Timing", u"TIMING"),
                                            onOff(u"element_mode", u"Element Mode", true)};
constexpr AttributeSpec colourMembers[] = {channel(u"red", u"Red"), channel(u"green", u"Green"),
                                           channel(u"blue", u"Blue"), channel(u"alpha", u"Alpha")};

constexpr AttributeSpec position =
    linkable(compound<Position3d>(u"position", u"Position", u"POSITION_3D", positionMembers));
constexpr AttributeSpec scale = compound<Scale3d>(u"scale", u"Scale", u"SCALE_3D", scaleMembers);
constexpr AttributeSpec rotation =
    linkable(compound<Rotation3d>(u"rotation", u"Rotation", u"ROTATION_3D", rotationMembers));
constexpr AttributeSpec pivot = compound<Position3d>(u"pivot", u"Pivot", u"POSITION_3D", pivotMembers);
constexpr AttributeSpec angle = degrees(u"angle", u"Angle");
constexpr AttributeSpec skew = degrees(u"skew", u"Skew");

constexpr EnumOption blendModes[] = {{0, u"NORMAL"},    {1, u"MULTIPLY"},   {2, u"SCREEN"},     {3, u"OVERLAY"},
                                     {4, u"DARKEN"},    {5, u"LIGHTEN"},    {6, u"ADD"},        {7, u"DIFFERENCE"},
                                     {8, u"EXCLUSION"}, {9, u"SOFT_LIGHT"}, {10, u"HARD_LIGHT"}};
constexpr EnumOption imageFormats[] = {{0, u"PNG"}, {1, u"JPEG"}, {2, u"BMP"}, {3, u"PPM"}, {4, u"TIFF"}, {5, u"EXR"}};

constexpr AttributeSpec peg[] = {
    position, scale, rotation, angle, skew, pivot, unlinkable(onOff(u"full_transform", u"Full Transform", false))};
constexpr AttributeSpec read[] = {
    compound<DrawingAttribute>(u"drawing", u"Drawing", u"DRAWING", drawingMembers),
    in(u"%", bounded(number(u"opacity", u"Opacity", 100, 1), 0, 100)),
    onOff(u"visible", u"Visible", true),
    position,
    scale,
    angle,
    pivot,
};
constexpr AttributeSpec camera[] = {position, scale, angle, pivot};
constexpr AttributeSpec composite[] = {choice(u"mode", u"Mode", blendModes)};
constexpr AttributeSpec write[] = {text(u"path", u"Path"), choice(u"format", u"Format", imageFormats)};
constexpr AttributeSpec colourCard[] = {compound<ColourAttribute>(u"colour", u"Colour", u"COLOUR", colourMembers)};
constexpr AttributeSpec blur[] = {in(u"pixels", bounded(number(u"radius", u"Radius", 0, 1), 0, unbounded))};
constexpr AttributeSpec cutter[] = {onOff(u"inverted", u"Inverted", false)};

constexpr AttributeSpec wholeNumber(Keyword keyword, Title title)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"INT",
            .kind = attributeKind<IntAttribute>,
            .linkable = true,
            .minimum = std::numeric_limits<int>::min(),
            .maximum = std::numeric_limits<int>::max(),
            .step = 1};
}

/// The types of attributes that can be added to a node, by their type texts. Keywords, titles and whether a column can
/// drive it are given with each attribute; its values are bounded by what their type can hold.
constexpr AttributeSpec addedTypes[] = {
    onOff({}, {}, false),
    wholeNumber({}, {}),
    number({}, {}),
    velocityNumber({}, {}),
    text({}, {}),
    compound<ColourAttribute>({}, {}, u"COLOUR", colourMembers),
    compound<Position2d>({}, {}, u"POSITION_2D", std::span(positionMembers).first<2>()),
    compound<Position3d>({}, {}, u"POSITION_3D", positionMembers),
    compound<Scale3d>({}, {}, u"SCALE_3D", scaleMembers),
    compound<Rotation3d>({}, {}, u"ROTATION_3D", rotationMembers),
    compound<GroupAttribute>({}, {}, u"DYNAMIC_GROUP", {}),
};

struct TypeSpecs {
    std::u16string_view type;
    std::span<const AttributeSpec> specs;
};
constexpr TypeSpecs types[] = {
    {u"READ", read},   {u"PEG", peg},   {u"CAMERA", camera}, {u"COMPOSITE", composite}, {u"COLOR_CARD", colourCard},
    {u"WRITE", write}, {u"BLUR", blur}, {u"CUTTER", cutter},
};

} // namespace

const AttributeTable& attributeTable(const QString& nodeType)
{
    static const AttributeTable none{{}};
    static const auto tables = [] {
        QHash<QString, std::shared_ptr<const AttributeTable>> made;
        for (const auto& [type, specs] : types)
            made.insert(literalText(type), std::make_shared<AttributeTable>(specs));
        return made;
    }();
    const auto found = tables.constFind(nodeType);
    return found == tables.constEnd() ? none : **found;
}

const AttributeSpec* findAddedType(QStringView name)
{
    const auto* found = std::find_if(std::begin(addedTypes), std::end(addedTypes),
                                     [name](const AttributeSpec& type) { return literalText(type.typeText) == name; });
    return found == std::end(addedTypes) ? nullptr : found;
}

} // namespace brindle::engine

class AT_AttrFactory {
public:
    explicit AT_AttrFactory(const brindle::engine::AttributeSpec& type) : type(type) {}
    const brindle::engine::AttributeSpec& type;
};

const QMap<QString, const AT_AttrFactory*>& AT_AttrFactorySingleton()
{
    static const QMap<QString, const AT_AttrFactory*> factories = [] {
        static const std::vector<AT_AttrFactory> made(std::begin(brindle::engine::addedTypes),
                                                      std::end(brindle::engine::addedTypes));
        QMap<QString, const AT_AttrFactory*> byName;
        for (const AT_AttrFactory& factory : made)
            byName.insert(brindle::engine::literalText(factory.type.typeText), &factory);
        return byName;
    }();
    return factories;
}

QString AT_DynGroupAttr::TypeString()
{
    return QStringLiteral("DYNAMIC_GROUP");
}
