#include "engine/curves/columnlist.h"

#include "engine/curves/column.h"

#include <QHash>

#include <vector>

namespace brindle::engine {

namespace {

QString numbered(const QString& prefix, int number)
{
    return prefix + '-' + QString::number(number).rightJustified(4, '0');
}

} // namespace

struct ColumnList::Private {
    SC_SceneCommon& scene;
    std::vector<TUTimedValue*> order;
    QHash<QString, Column*> byName;
    mutable QHash<QString, int> lastNumbers;
    ColumnReaders readers;

    /// A column's place, sought from where it last was: columns ahead of it have gone more often than come.
    int placeOf(const Column& column) const
    {
        const TUTimedValue* const wanted = &column.timedValue();
        const int count = static_cast<int>(order.size());
        const int last = std::min(column.m_place, count - 1);
        for (int place = last; place >= 0; --place) {
            if (order[place] == wanted)
                return place;
        }
        for (int place = last + 1; place < count; ++place) {
            if (order[place] == wanted)
                return place;
        }
        return -1;
    }
};

ColumnList::ColumnList(SC_SceneCommon& scene) : d(new Private{scene, {}, {}, {}, {}}) {}

ColumnList::~ColumnList()
{
    for (TUTimedValue* column : d->order)
        delete column;
}

ColumnList* ColumnList::of(const SC_SceneCommon* scene)
{
    if (!scene)
        return nullptr;
    if (auto* owner = dynamic_cast<const ColumnListOwner*>(scene))
        return &const_cast<ColumnListOwner*>(owner)->columnList();
    auto* owner = dynamic_cast<ColumnListOwner*>(scene->timedValues());
    return owner ? &owner->columnList() : nullptr;
}

SC_TimedValueListInterface::Iterator ColumnList::begin() const
{
    return d->order.data();
}

SC_TimedValueListInterface::Iterator ColumnList::end() const
{
    return d->order.data() + d->order.size();
}

TUTimedValue* ColumnList::find(const QString& name) const
{
    const Column* column = d->byName.value(name);
    return column ? &column->timedValue() : nullptr;
}

int ColumnList::placeOf(const TUTimedValue* timedValue) const
{
    const Column* column = Column::of(const_cast<TUTimedValue*>(timedValue));
    return column && column->m_scene == &d->scene ? d->placeOf(*column) : -1;
}

bool ColumnList::insert(std::unique_ptr<TUTimedValue>& timedValue, int position)
{
    Column* column = Column::of(timedValue.get());
    const int count = static_cast<int>(d->order.size());
    if (!column || column->name().isEmpty() || position < -1 || position > count || d->byName.contains(column->name()))
        return false;
    column->m_place = position < 0 ? count : position;
    column->m_scene = &d->scene;
    d->byName.insert(column->name(), column);
    d->order.insert(d->order.begin() + column->m_place, timedValue.release());
    column->m_list = this;
    d->readers.add(*column);
    d->readers.nameChanged(column->name());
    return true;
}

std::unique_ptr<TUTimedValue> ColumnList::take(TUTimedValue* timedValue, int& position)
{
    Column* column = Column::of(timedValue);
    if (!column || column->m_scene != &d->scene)
        return nullptr;
    position = d->placeOf(*column);
    d->order.erase(d->order.begin() + position);
    d->byName.remove(column->name());
    column->m_scene = nullptr;
    column->m_list = nullptr;
    column->expire();
    d->readers.remove(*column);
    d->readers.nameChanged(column->name());
    return std::unique_ptr<TUTimedValue>(timedValue);
}

bool ColumnList::rename(TUTimedValue* timedValue, const QString& name)
{
    Column* column = Column::of(timedValue);
    if (!column || column->m_scene != &d->scene || name.isEmpty())
        return false;
    if (const Column* other = d->byName.value(name))
        return other == column;
    const QString before = column->name();
    d->byName.remove(before);
    column->setName(name);
    d->byName.insert(name, column);
    d->readers.nameChanged(before);
    d->readers.nameChanged(name);
    return true;
}

ColumnReaders& ColumnList::readers()
{
    return d->readers;
}

QString ColumnList::freeName(const QString& prefix) const
{
    int& number = d->lastNumbers[prefix];
    QString name;
    do {
        name = numbered(prefix, ++number);
    } while (d->byName.contains(name));
    return name;
}

} // namespace brindle::engine

QString TUTimedValue::generateAnonymousName(const SC_SceneCommon* scene, const QString& prefix)
{
    const QString base = prefix.isEmpty() ? QString("ATV") : prefix;
    if (const auto* list = brindle::engine::ColumnList::of(scene))
        return list->freeName(base);
    const auto* columns = scene ? scene->timedValues() : nullptr;
    QString name;
    int number = 0;
    do {
        name = brindle::engine::numbered(base, ++number);
    } while (columns && columns->findTimedValue(name, 0));
    return name;
}
