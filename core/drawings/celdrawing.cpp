#include "core/drawings/celdrawing.h"

#include "core/frame/exception.h"
#include "core/host/ca_celcache.h"

#include <stdexcept>

namespace OMC::celdrawing {

namespace {

/// Calls the cache of cels, whose sentence about a file is the failure.
template <typename Call>
auto onFile(Call&& call)
{
    try {
        return call();
    } catch (const std::runtime_error& unreadable) {
        throw Exception(QString::fromUtf8(unreadable.what()));
    }
}

} // namespace

Pointer of(const CA_CelPtr& cel)
{
    const auto vector = cel.cel() ? cel.cel()->findBestVectorRepresentation() : nullptr;
    return vector ? vector->getDrawingObject() : Pointer();
}

Pointer find(const CA_CelKey& key)
{
    return of(CA_CelCache::findItem(key));
}

CA_CelPtr open(const CA_CelKey& key)
{
    constexpr double wholeSize = 1.0;
    constexpr double noFrame = -1.0;
    return onFile([&] { return CA_CelCache::insertItemBis(key, CEL_Context(wholeSize, noFrame)); });
}

Pointer findOrOpen(const CA_CelKey& key)
{
    if (auto drawing = find(key))
        return drawing;
    return of(open(key));
}

void create(const CA_CelKey& key)
{
    onFile([&] { CA_CelCache::createVectorDrawing(key); });
}

} // namespace OMC::celdrawing
