#include "core/columns/controlpointlist.h"

#include "core/columns/controlpointvisitor.h"
#include "core/columns/keyframeedit.h"
#include "core/frame/undo.h"
#include "core/frame/weakhandle.h"
#include "core/host/sc_scene.h"

#include <algorithm>

namespace OMC {

struct ControlPointList::Private : Recycled {
    quint64 cursor = 0;
    bool atEnd = false;
    WeakPointer<TUTimedValue> timedValue;
};

ControlPointList::ControlPointList(AT_FncTimedValue* timedValue)
    : d(new Private{{}, 0, false, WeakPointer<TUTimedValue>(timedValue)})
{}

ControlPointList::ControlPointList(const ControlPointList& other)
    : ListObj(other),
      IterableObj(other),
      d(std::make_unique<Private>(*other.d))
{}

ControlPointList::~ControlPointList() = default;

BaseObject* ControlPointList::copy() const
{
    return new ControlPointList(*this);
}

std::string ControlPointList::__str__() const
{
    return tr("ControlPointList(%1)[%2]").arg(timedValue().getName(), QString::number(size())).toStdString();
}

void ControlPointList::validate() const
{
    if (!d->timedValue.get())
        throwInvalid();
    validateThreadLock();
}

std::size_t ControlPointList::size() const
{
    const auto* curve = dynamic_cast<const TUFnc2DTimedValue*>(&timedValue());
    return curve ? static_cast<std::size_t>(std::max(curve->pointCount(), 0)) : 0;
}

std::vector<Obj> ControlPointList::list() const
{
    const std::size_t count = size();
    std::vector<Obj> points;
    points.reserve(count);
    for (std::size_t index = 0; index < count; ++index)
        points.push_back(pointAt(index));
    return points;
}

Obj ControlPointList::__iterItem__() const
{
    const std::size_t count = size();
    if (d->cursor >= count)
        throw Exception(std::string("Iteration item is out of range."));
    if (d->cursor + 1 >= count)
        d->atEnd = true;
    return pointAt(d->cursor);
}

void ControlPointList::operator++()
{
    ++d->cursor;
}

void ControlPointList::operator--()
{
    if (d->cursor == 0)
        return;
    --d->cursor;
    d->atEnd = false;
}

bool ControlPointList::__atend__() const
{
    return d->atEnd;
}

Obj ControlPointList::__iter__() const
{
    validate();
    auto iterator = std::make_unique<ControlPointList>(*this);
    iterator->d->cursor = 0;
    iterator->d->atEnd = size() == 0;
    return Obj(iterator.release());
}

void ControlPointList::create(const QVariant& value)
{
    AT_FncTimedValue& column = timedValue();
    const QList<double> frames = keyframeedit::framesIn(value);
    keyframeedit::run(undo::manager(column.sceneCommon()), frames, frames.size(),
                      [&](double frame, CO_Command** command) { column.createKeyframes(frame, frame, command); },
                      {tr("Failed to create keyframe at: %1"), tr("Create %1 keyframes."), tr("Create a keyframe."),
                       tr("Failed to create %1 keyframes."), tr("Failed to create keyframe.")});
}

void ControlPointList::remove(const QVariant& value)
{
    AT_FncTimedValue& column = timedValue();
    const QList<double> frames = keyframeedit::framesIn(value);
    keyframeedit::run(undo::manager(column.sceneCommon()), frames, frames.size(),
                      [&](double frame, CO_Command** command) { column.removeKeyframes(frame, frame, command); },
                      {tr("Failed to remove keyframe at: %1"), tr("Remove %1 keyframes."), tr("Remove keyframe."),
                       tr("Failed to remove %1 keyframes."), tr("Failed to remove keyframe.")});
}

AT_FncTimedValue& ControlPointList::timedValue() const
{
    validate();
    // What the list was made for stays what it is: its weak handle leads to it or to nothing.
    return *static_cast<AT_FncTimedValue*>(d->timedValue.get());
}

Obj ControlPointList::pointAt(quint64 index) const
{
    ControlPointWrapperVisitor visitor(index);
    timedValue().accept(visitor);
    ControlPoint* point = visitor.take();
    if (!point)
        throw Exception(tr("Invalid control point index."));
    return Obj(point);
}

} // namespace OMC
