#include "core/frame/listobj.h"

#include "core/frame/container.h"

namespace OMC {

std::string ListObj::__str__() const
{
    return "ListObj()";
}

std::size_t ListObj::size() const
{
    return 0;
}

Obj ListObj::get(const QString&) const
{
    throwNoItem();
}

Obj ListObj::get(int) const
{
    throwNoItem();
}

void ListObj::set(int, const Obj&)
{
    throwNoSet();
}

std::vector<Obj> ListObj::list() const
{
    return {};
}

void ListObj::throwIndexOutOfRange()
{
    throw Exception(BaseObject::tr("Index is out of range."));
}

} // namespace OMC
