#include "core/nodes/backdroplist.h"

#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/geometry/rectangles.h"
#include "core/host/mo_backdrop.h"
#include "core/host/mo_node.h"
#include "core/nodes/backdrop.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace OMC {

namespace {

/// The rectangle that a value tells, from its left and top; a value without any size tells none.
bool readRectangle(const QVariant& value, TURect& rect)
{
    const std::unique_ptr<AllocatedRect2D> read(AllocatedRect2D::fromQVariant(value));
    if (!read || (read->width == 0 && read->height == 0))
        return false;
    rect = {read->x, read->y, read->x + read->width, read->y + read->height};
    if (!std::isfinite(rect.left) || !std::isfinite(rect.top) || !std::isfinite(rect.right) ||
        !std::isfinite(rect.bottom))
        BaseObject::throwInvalidArgument(0);
    return true;
}

QString textOf(const QVariant& value)
{
    const BaseObject* object = objectFrom<BaseObject>(value);
    return object ? QString::fromStdString(object->__str__()) : value.toString();
}

MO_BackdropProperties propertiesFrom(const QVariant& value)
{
    MO_BackdropProperties properties;
    if (value.isNull())
        return properties;
    if (value.typeId() == QMetaType::QString)
        properties.title.text = value.toString();
    else if (const auto* other = objectFrom<Backdrop>(value))
        properties = found(other->getBackdrop(), &BaseObject::throwUnexpected).properties();
    else if (!readRectangle(value, properties.rect))
        properties.title.text = textOf(value);
    return properties;
}

} // namespace

BackdropList::BackdropList(TUGroup* group) : CountedList(group) {}

std::string BackdropList::__str__() const
{
    const TUGroup& group = target();
    return QStringLiteral("BackdropList(\"%1\")[%2]")
        .arg(group.qualifiedName(), QString::number(group.backdrops().size()))
        .toStdString();
}

std::size_t BackdropList::size() const
{
    return target().backdrops().size();
}

Backdrop* BackdropList::newItem(int index) const
{
    const TUGroup& group = target();
    if (index < 0 || static_cast<std::size_t>(index) >= group.backdrops().size())
        throwIndexOutOfRange();
    return new Backdrop(group.backdrops()[static_cast<std::size_t>(index)].get());
}

Obj BackdropList::get(int index) const
{
    return Obj(newItem(index));
}

std::vector<Obj> BackdropList::list() const
{
    const TUGroup& group = target();
    std::vector<Obj> backdrops;
    backdrops.reserve(group.backdrops().size());
    for (const std::shared_ptr<MO_Backdrop>& backdrop : group.backdrops())
        backdrops.emplace_back(new Backdrop(backdrop.get()));
    return backdrops;
}

bool BackdropList::contains(const QVariant& backdrop) const
{
    const TUGroup& group = target();
    const auto* wrapper = objectFrom<Backdrop>(backdrop);
    return wrapper && wrapper->getBackdrop() && wrapper->getGroup() == &group;
}

Obj BackdropList::create(const QVariant& value)
{
    TUGroup& group = target();
    auto backdrop = std::make_shared<MO_Backdrop>(&group, group.sceneCommon());
    backdrop->setProperties(propertiesFrom(value));
    CO_CommandManager& manager = undo::manager(group.sceneCommon());
    undo::run(manager, new tu_backdrop::AddBackdropCmd(&group, backdrop), tr("Add Backdrop"),
              tr("Failed to create a new backdrop."));
    return Obj(new Backdrop(backdrop.get()));
}

void BackdropList::remove(const QVariant& backdrop)
{
    TUGroup& group = target();
    const auto& wrapper = found(objectFrom<Backdrop>(backdrop), &BaseObject::throwUnexpected);
    if (!contains(backdrop))
        throw Exception(tr("Failed to remove the backdrop - unable to find backdrop in the list."));
    CO_CommandManager& manager = undo::manager(group.sceneCommon());
    undo::run(manager, new tu_backdrop::RemoveBackdropCmd(&group, wrapper.getBackdrop()), tr("Remove Backdrop"),
              tr("Failed to remove the backdrop."));
}

void BackdropList::beforeStep() const
{
    validate();
}

} // namespace OMC
