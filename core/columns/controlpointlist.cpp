#include "core/columns/controlpointlist.h"

#include "core/columns/columncast.h"
#include "core/columns/controlpointvisitor.h"
#include "core/columns/keyframeedit.h"
#include "core/frame/undo.h"
#include "core/host/sc_scene.h"

#include <algorithm>

namespace OMC {

ControlPointList::ControlPointList(AT_FncTimedValue* timedValue) : FlaggedList(timedValue) {}

std::string ControlPointList::__str__() const
{
    return tr("ControlPointList(%1)[%2]").arg(target().getName(), QString::number(size())).toStdString();
}

// Required: the size for a 3D path is the number of its velocity's points, while the items are the path's own.
std::size_t ControlPointList::size() const
{
    const TUFnc2DTimedValue* curve = columnCast<TUFnc2DTimedValue>(&target());
    if (const auto* path = columnCast<AT_Fnc3dTimedValue>(&target()))
        curve = path->velocity();
    return curve ? static_cast<std::size_t>(std::max(curve->pointCount(), 0)) : 0;
}

std::vector<Obj> ControlPointList::list() const
{
    const std::size_t count = size();
    std::vector<Obj> points;
    points.reserve(count);
    for (std::size_t index = 0; index < count; ++index)
        points.push_back(itemAt(index));
    return points;
}

void ControlPointList::create(const QVariant& value)
{
    AT_FncTimedValue& column = target();
    const QList<double> frames = keyframeedit::framesIn(value);
    keyframeedit::create(undo::manager(column.sceneCommon()), column, frames,
                         {tr("Failed to create keyframe at: %1"), tr("Create %1 keyframes."), tr("Create a keyframe."),
                          tr("Failed to create %1 keyframes."), tr("Failed to create keyframe.")});
}

void ControlPointList::remove(const QVariant& value)
{
    AT_FncTimedValue& column = target();
    const QList<double> frames = keyframeedit::framesIn(value);
    keyframeedit::remove(undo::manager(column.sceneCommon()), column, frames, frames.size(),
                         {tr("Failed to remove keyframe at: %1"), tr("Remove %1 keyframes."), tr("Remove keyframe."),
                          tr("Failed to remove %1 keyframes."), tr("Failed to remove keyframe.")});
}

Obj ControlPointList::itemAt(quint64 index) const
{
    ControlPointWrapperVisitor visitor(index);
    target().accept(visitor);
    ControlPoint* point = visitor.take();
    if (!point)
        throw Exception(tr("Invalid control point index."));
    return Obj(point);
}

} // namespace OMC
