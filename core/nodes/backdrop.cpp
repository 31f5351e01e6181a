#include "core/nodes/backdrop.h"

#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/geometry/colour.h"
#include "core/host/mo_backdrop.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"

namespace OMC {

namespace {

QVariant colourObject(const QColor& colour)
{
    return QVariant::fromValue(Obj(new Colour(static_cast<float>(colour.red()), static_cast<float>(colour.green()),
                                              static_cast<float>(colour.blue()), static_cast<float>(colour.alpha()))));
}

/// The colour in a script's value; channels that the value leaves out are those of `present`.
QColor colourIn(const QVariant& value, const QColor& present)
{
    int r = present.red();
    int g = present.green();
    int b = present.blue();
    int a = present.alpha();
    Colour::QVariantToRGBAInt(value, r, g, b, a);
    return QColor(r & 0xFF, g & 0xFF, b & 0xFF, a & 0xFF);
}

} // namespace

Backdrop::Backdrop(MO_Backdrop* backdrop) : EngineView(backdrop) {}

std::string Backdrop::__str__() const
{
    return "Backdrop()";
}

template <typename Change>
void Backdrop::modify(const Change& change)
{
    MO_Backdrop& backdrop = target();
    MO_BackdropProperties properties = backdrop.properties();
    change(properties);
    const TUGroup* group = backdrop.group();
    CO_CommandManager& manager = undo::manager(group ? group->sceneCommon() : nullptr);
    undo::run(manager, new tu_backdrop::SetPropertiesCmd(&backdrop, properties), tr("Modify Backdrop"),
              tr("Failed to modify backdrop."));
}

int Backdrop::getTop() const
{
    return wholeNumber(target().properties().rect.top);
}

void Backdrop::setTop(int top)
{
    modify([top](MO_BackdropProperties& properties) { properties.rect.top = top; });
}

int Backdrop::getBottom() const
{
    return wholeNumber(target().properties().rect.bottom);
}

void Backdrop::setBottom(int bottom)
{
    modify([bottom](MO_BackdropProperties& properties) { properties.rect.bottom = bottom; });
}

int Backdrop::getLeft() const
{
    return wholeNumber(target().properties().rect.left);
}

void Backdrop::setLeft(int left)
{
    modify([left](MO_BackdropProperties& properties) { properties.rect.left = left; });
}

int Backdrop::getRight() const
{
    return wholeNumber(target().properties().rect.right);
}

void Backdrop::setRight(int right)
{
    modify([right](MO_BackdropProperties& properties) { properties.rect.right = right; });
}

int Backdrop::getWidth() const
{
    const TURect& rect = target().properties().rect;
    return wholeNumber(rect.right - rect.left);
}

void Backdrop::setWidth(int width)
{
    modify([width](MO_BackdropProperties& properties) { properties.rect.right = properties.rect.left + width; });
}

int Backdrop::getHeight() const
{
    const TURect& rect = target().properties().rect;
    return wholeNumber(rect.bottom - rect.top);
}

void Backdrop::setHeight(int height)
{
    // Required: the right side is written, from the top.
    modify([height](MO_BackdropProperties& properties) { properties.rect.right = properties.rect.top + height; });
}

QString Backdrop::getTitle() const
{
    return target().properties().title.text;
}

void Backdrop::setTitle(const QString& title)
{
    modify([&](MO_BackdropProperties& properties) { properties.title.text = title; });
}

QString Backdrop::getDescription() const
{
    return target().properties().description.text;
}

void Backdrop::setDescription(const QString& description)
{
    modify([&](MO_BackdropProperties& properties) { properties.description.text = description; });
}

QString Backdrop::getTitleFont() const
{
    return target().properties().title.font;
}

void Backdrop::setTitleFont(const QString& font)
{
    modify([&](MO_BackdropProperties& properties) { properties.title.font = font; });
}

double Backdrop::getTitleFontSize() const
{
    return target().properties().title.size;
}

void Backdrop::setTitleFontSize(double size)
{
    modify([size](MO_BackdropProperties& properties) {
        requireFinite(size, 0);
        properties.title.size = size;
    });
}

QVariant Backdrop::getTitleFontColour() const
{
    return colourObject(target().properties().title.colour);
}

void Backdrop::setTitleFontColour(const QVariant& colour)
{
    modify([&](MO_BackdropProperties& properties) {
        properties.title.colour = colourIn(colour, properties.title.colour);
    });
}

QString Backdrop::getDescriptionFont() const
{
    return target().properties().description.font;
}

void Backdrop::setDescriptionFont(const QString& font)
{
    modify([&](MO_BackdropProperties& properties) { properties.description.font = font; });
}

double Backdrop::getDescriptionFontSize() const
{
    return target().properties().description.size;
}

void Backdrop::setDescriptionFontSize(double size)
{
    modify([size](MO_BackdropProperties& properties) {
        requireFinite(size, 0);
        properties.description.size = size;
    });
}

QVariant Backdrop::getDescriptionFontColour() const
{
    return colourObject(target().properties().description.colour);
}

void Backdrop::setDescriptionFontColour(const QVariant& colour)
{
    modify([&](MO_BackdropProperties& properties) {
        properties.description.colour = colourIn(colour, properties.description.colour);
    });
}

QVariant Backdrop::getColour() const
{
    return colourObject(target().properties().colour);
}

void Backdrop::setColour(const QVariant& colour)
{
    modify([&](MO_BackdropProperties& properties) { properties.colour = colourIn(colour, properties.colour); });
}

void Backdrop::match(const Backdrop& other)
{
    modify([&](MO_BackdropProperties& properties) { properties = other.target().properties(); });
}

std::vector<Obj> Backdrop::containedNodes() const
{
    const MO_Backdrop& backdrop = target();
    const TUGroup& group = found(backdrop.group(), &BaseObject::throwUnexpected);
    std::vector<Obj> nodes;
    for (auto node = group.subNodesBegin(); node != group.subNodesEnd(); ++node) {
        const double x = (*node)->x();
        const double y = (*node)->y();
        if (backdrop.properties().rect.containInvertedY({x, y, x, y}))
            nodes.emplace_back(Node::getWrapped(*node));
    }
    return nodes;
}

void Backdrop::qvariantToBackdrops(const QVariant& value, std::vector<MO_Backdrop*>& backdrops)
{
    if (value.typeId() == QMetaType::QVariantList) {
        for (const QVariant& item : *static_cast<const QVariantList*>(value.constData()))
            qvariantToBackdrops(item, backdrops);
        return;
    }
    if (const auto* backdrop = objectFrom<Backdrop>(value)) {
        if (MO_Backdrop* found = backdrop->getBackdrop())
            backdrops.push_back(found);
    }
}

MO_Backdrop* Backdrop::getBackdrop() const
{
    return findTarget();
}

TUGroup* Backdrop::getGroup() const
{
    const MO_Backdrop* backdrop = findTarget();
    return backdrop ? backdrop->group() : nullptr;
}

} // namespace OMC
