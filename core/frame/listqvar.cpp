#include "core/frame/listqvar.h"

#include "core/frame/container.h"

namespace OMC {

std::string ListQVar::__str__() const
{
    return "ListQVar()";
}

std::size_t ListQVar::size() const
{
    return 0;
}

QVariant ListQVar::get(const QString&) const
{
    throwNoItem();
}

QVariant ListQVar::get(int) const
{
    throwNoItem();
}

void ListQVar::set(const QString&, const QVariant&)
{
    throwNoSet();
}

void ListQVar::set(int, const QVariant&)
{
    throwNoSet();
}

QList<QVariant> ListQVar::list() const
{
    return {};
}

bool ListQVar::contains(const QVariant&) const
{
    return false;
}

void ListQVar::throwIndexOutOfRange()
{
    throw Exception(BaseObject::tr("Index is out of range."));
}

} // namespace OMC
