#include "core/columns/velobasedcontrolpoint.h"

#include "core/columns/nearestpoint.h"
#include "core/frame/finite.h"
#include "core/frame/undo.h"

namespace OMC {

VeloBasedControlPoint* VeloBasedControlPoint::at(TUVeloBasedTimedValue& timedValue, quint64 index)
{
    return wrapperAt<VeloBasedControlPoint>(timedValue, index);
}

VeloBasedControlPoint* VeloBasedControlPoint::at(TUVeloBasedTimedValue& timedValue, double frame)
{
    const int index = nearestPoint(frame, timedValue.pointCount(),
                                   [&timedValue](int place) { return timedValue.curvePoint(place).frame; });
    return index < 0 ? nullptr : at(timedValue, static_cast<quint64>(index));
}

// Required: it calls itself the control point of an ease.
std::string VeloBasedControlPoint::__str__() const
{
    return described(tr("EaseControlPoint( \"%1\", %2 )"));
}

QVariant VeloBasedControlPoint::getValue() const
{
    return controlPoint().value;
}

void VeloBasedControlPoint::setValue(const QVariant& variant)
{
    const double frame = controlPoint().frame;
    bool read = false;
    const double value = variant.toDouble(&read);
    if (!read)
        throw Exception(tr("Invalid value type, expected a number value."));
    requireFinite(value, 0);
    undo::manager(column().sceneCommon())
        .execute(new tu_timedvalue::velobased::SetPointCmd2(&column(), frame, frame, value), tr("Set Velocity Point"));
}

} // namespace OMC
