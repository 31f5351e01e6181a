#include "core/columns/velobasedcolumnvalue.h"

#include "core/columns/columnedit.h"

#include <cmath>

namespace OMC {

namespace velocitycmd = tu_timedvalue::velobased;

std::string VeloBasedColumnValue::__str__() const
{
    return tr("VeloBasedColumnValue(\"%1\", %2)").arg(column().getName(), QString::number(frame())).toStdString();
}

double VeloBasedColumnValue::getFrame() const
{
    column();
    return frame();
}

QVariant VeloBasedColumnValue::getValue() const
{
    return column().evaluate(frame());
}

void VeloBasedColumnValue::setValue(const QVariant& variant)
{
    const Place here = place();
    TUVeloBasedTimedValue& column = here.column;
    const double value = numberFrom(variant);
    if (here.isKey && std::abs(value - column.evaluate(frame())) < valueTolerance)
        return;
    ColumnEdit edit(column, tr("Set Velo Based Point ") + column.getDisplayName());
    if (!here.isKey)
        edit.run(new velocitycmd::SpliceCmd(&column, frame(), true));
    pointAt(column, frame());
    edit.run(new velocitycmd::SetPointCmd2(&column, frame(), frame(), value));
}

bool VeloBasedColumnValue::getKey() const
{
    return place().isKey;
}

void VeloBasedColumnValue::setKey(bool key)
{
    const Place here = place();
    if (key == here.isKey)
        return;
    if (key) {
        ColumnEdit edit(here.column, tr("Set Velo-Based Point ") + here.column.getDisplayName());
        edit.run(new velocitycmd::SpliceCmd(&here.column, frame(), true));
        pointAt(here.column, frame());
    } else {
        // Required: the label is that of an ease column.
        ColumnEdit edit(here.column, tr("Remove Ease Point ") + here.column.getDisplayName());
        edit.run(new velocitycmd::RemovePointCmd(&here.column, frame()));
        if (here.column.isKey(frame()))
            unexpected::fail(unexpected::Error);
    }
}

Obj VeloBasedColumnValue::getKeyframePrevious() const
{
    return previousOf(*this);
}

Obj VeloBasedColumnValue::getKeyframeNext() const
{
    return nextOf(*this);
}

} // namespace OMC
