#pragma once

#include "core/frame/baseobject.h"

#include <QVariant>

#include <vector>

namespace OMC {

/// Calls `visit(const QObject*)` for each object in a script's argument, in their order: the one that it is, or those
/// in a list, lists in it included. What is no object is passed over.
template <typename Visit>
void forEachObject(const QVariant& value, Visit&& visit)
{
    // Not by recursion: a script decides how deep its lists lie inside each other.
    std::vector<QVariant> waiting{value};
    while (!waiting.empty()) {
        const QVariant next = std::move(waiting.back());
        waiting.pop_back();
        if (next.typeId() == QMetaType::QVariantList) {
            const QVariantList items = next.toList();
            waiting.insert(waiting.end(), items.rbegin(), items.rend());
        } else if (const QObject* object = BaseObject::QVariantToPointer(next)) {
            visit(object);
        }
    }
}

} // namespace OMC
