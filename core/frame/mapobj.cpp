#include "core/frame/mapobj.h"

#include "core/frame/container.h"

namespace OMC {

std::size_t MapObj::size() const
{
    return 0;
}

Obj MapObj::get(const QString&) const
{
    throwNoItem();
}

void MapObj::set(const QString&, const Obj&)
{
    throwNoSet();
}

QList<QString> MapObj::list() const
{
    return {};
}

void MapObj::throwIndexOutOfRange() const
{
    throw Exception(BaseObject::tr("Index is out of range."));
}

} // namespace OMC
