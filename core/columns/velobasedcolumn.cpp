#include "core/columns/velobasedcolumn.h"

#include "core/columns/columnedit.h"
#include "core/columns/velobasedcolumnvalue.h"
#include "core/frame/finite.h"

namespace OMC {

VeloBasedColumn::VeloBasedColumn(TUVeloBasedTimedValue* timedValue) : KeyframeableColumn(timedValue) {}

std::string VeloBasedColumn::__str__() const
{
    return described(tr("VeloBasedColumn(%1)"));
}

QVariant VeloBasedColumn::getEntry(double frame, int) const
{
    const auto& column = velocity();
    requireFinite(frame, 0);
    return column.evaluate(frame);
}

void VeloBasedColumn::setEntry(double frame, QVariant value, int)
{
    auto& column = velocity();
    requireFinite(frame, 0);
    VeloBasedColumnValue(&column, frame).setValue(value);
}

QVariant VeloBasedColumn::get(int frame) const
{
    return toVariant(new VeloBasedColumnValue(&target(), frame));
}

void VeloBasedColumn::set(int frame, const QVariant& value)
{
    VeloBasedColumnValue(&target(), frame).setValue(value);
}

void VeloBasedColumn::createPoint(double frame, double value)
{
    auto& column = velocity();
    requireFinite(frame, 0);
    requireFinite(value, 1);
    namespace cmd = tu_timedvalue::velobased;
    ColumnEdit edit(column, tr("Create Velocity Point"));
    edit.run(new cmd::SpliceCmd(&column, frame, true));
    edit.run(new cmd::SetPointCmd2(&column, frame, frame, value));
}

// A wrapper leads to the column that it was made for, or to nothing.
TUVeloBasedTimedValue& VeloBasedColumn::velocity() const
{
    return static_cast<TUVeloBasedTimedValue&>(target());
}

} // namespace OMC
