#include "engine/attributes/attributemeta.h"
#include "engine/attributes/attributeset.h"

#include <QHash>

#include <limits>

namespace brindle::engine {

namespace {

constexpr double unbounded = std::numeric_limits<double>::max();

using Keyword = std::u16string_view;
using Title = std::u16string_view;

constexpr AttributeSpec number(Keyword keyword, Title title, double defaultValue = 0, double step = 0.1)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"DOUBLE",
            .kind = AttributeKind::Double,
            .linkable = true,
            .defaultValue = defaultValue,
            .minimum = -unbounded,
            .maximum = unbounded,
            .step = step};
}

constexpr AttributeSpec bounded(AttributeSpec spec, double minimum, double maximum)
{
    spec.minimum = minimum;
    spec.maximum = maximum;
    return spec;
}

constexpr AttributeSpec unlinkable(AttributeSpec spec)
{
    spec.linkable = false;
    return spec;
}

constexpr AttributeSpec channel(Keyword keyword, Title title)
{
    return {.keyword = keyword,
            .displayName = title,
            .typeText = u"INT",
            .kind = AttributeKind::Int,
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
            .kind = AttributeKind::Bool,
            .linkable = true,
            .defaultValue = defaultValue ? 1. : 0.,
            .maximum = 1,
            .step = 1};
}

constexpr AttributeSpec text(Keyword keyword, Title title)
{
    return {.keyword = keyword, .displayName = title, .typeText = u"STRING", .kind = AttributeKind::Text};
}

constexpr AttributeSpec choice(Keyword keyword, Title title, std::span<const EnumOption> options)
{
    return {
        .keyword = keyword, .displayName = title, .typeText = u"ENUM", .kind = AttributeKind::Enum, .options = options};
}

constexpr AttributeSpec compound(Keyword keyword, Title title, AttributeKind kind, std::u16string_view typeText,
                                 std::span<const AttributeSpec> members)
{
    return {.keyword = keyword, .displayName = title, .typeText = typeText, .kind = kind, .members = members};
}

constexpr AttributeSpec positionMembers[] = {number(u"x", u"Pos x"), number(u"y", u"Pos y"), number(u"z", u"Pos z")};
constexpr AttributeSpec scaleMembers[] = {number(u"x", u"Scale x", 1, 0.01), number(u"y", u"Scale y", 1, 0.01),
                                          number(u"z", u"Scale z", 1, 0.01)};
constexpr AttributeSpec rotationMembers[] = {number(u"x", u"Angle x", 0, 1), number(u"y", u"Angle y", 0, 1),
                                             number(u"z", u"Angle z", 0, 1)};
constexpr AttributeSpec pivotMembers[] = {unlinkable(number(u"x", u"Pivot x")), unlinkable(number(u"y", u"Pivot y")),
                                          unlinkable(number(u"z", u"Pivot z"))};
constexpr AttributeSpec drawingMembers[] = {text(u"element", u"Element"), text(u"timing", u"Timing"),
                                            onOff(u"element_mode", u"Element Mode", true)};
constexpr AttributeSpec colourMembers[] = {channel(u"red", u"Red"), channel(u"green", u"Green"),
                                           channel(u"blue", u"Blue"), channel(u"alpha", u"Alpha")};

constexpr AttributeSpec position =
    compound(u"position", u"Position", AttributeKind::Position3d, u"POSITION_3D", positionMembers);
constexpr AttributeSpec scale = compound(u"scale", u"Scale", AttributeKind::Position3d, u"SCALE_3D", scaleMembers);
constexpr AttributeSpec rotation =
    compound(u"rotation", u"Rotation", AttributeKind::Position3d, u"ROTATION_3D", rotationMembers);
constexpr AttributeSpec pivot = compound(u"pivot", u"Pivot", AttributeKind::Position3d, u"POSITION_3D", pivotMembers);
constexpr AttributeSpec angle = number(u"angle", u"Angle", 0, 1);
constexpr AttributeSpec skew = number(u"skew", u"Skew", 0, 1);

constexpr EnumOption blendModes[] = {{0, u"NORMAL"},    {1, u"MULTIPLY"},   {2, u"SCREEN"},     {3, u"OVERLAY"},
                                     {4, u"DARKEN"},    {5, u"LIGHTEN"},    {6, u"ADD"},        {7, u"DIFFERENCE"},
                                     {8, u"EXCLUSION"}, {9, u"SOFT_LIGHT"}, {10, u"HARD_LIGHT"}};
constexpr EnumOption imageFormats[] = {{0, u"PNG"}, {1, u"JPEG"}, {2, u"BMP"}, {3, u"PPM"}};

constexpr AttributeSpec peg[] = {
    position, scale, rotation, angle, skew, pivot, unlinkable(onOff(u"full_transform", u"Full Transform", false))};
constexpr AttributeSpec read[] = {
    compound(u"drawing", u"Drawing", AttributeKind::Drawing, u"DRAWING", drawingMembers),
    bounded(number(u"opacity", u"Opacity", 100, 1), 0, 100),
    onOff(u"visible", u"Visible", true),
    position,
    scale,
    angle,
    pivot,
};
constexpr AttributeSpec camera[] = {position, scale, angle, pivot};
constexpr AttributeSpec composite[] = {choice(u"mode", u"Mode", blendModes)};
constexpr AttributeSpec write[] = {text(u"path", u"Path"), choice(u"format", u"Format", imageFormats)};
constexpr AttributeSpec colourCard[] = {
    compound(u"colour", u"Colour", AttributeKind::Colour, u"COLOUR", colourMembers)};
constexpr AttributeSpec blur[] = {bounded(number(u"radius", u"Radius", 0, 1), 0, unbounded)};
constexpr AttributeSpec cutter[] = {onOff(u"inverted", u"Inverted", false)};

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

} // namespace brindle::engine
