#include "core/columns/drawingnames.h"

#include "core/elements/elementdrawing.h"

#include <vector>

namespace OMC {

namespace {

bool addName(const QVariant& value, int element, QStringList& names)
{
    if (const QObject* object = BaseObject::QVariantToPointer(value)) {
        const auto* drawing = dynamic_cast<const ElementDrawing*>(object);
        if (!drawing || (element >= 0 && drawing->elementId() != element))
            return false;
        names.append(drawing->getName());
        return true;
    }
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        names.append(QString());
        return true;
    case QMetaType::QString:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        names.append(value.toString());
        return true;
    default:
        return false;
    }
}

} // namespace

bool addDrawingNames(const QVariant& value, int element, QStringList& names)
{
    // Not by recursion: a script decides how deep its lists lie inside each other.
    std::vector<QVariant> waiting{value};
    while (!waiting.empty()) {
        const QVariant next = std::move(waiting.back());
        waiting.pop_back();
        if (next.typeId() == QMetaType::QStringList) {
            names += next.toStringList();
        } else if (next.typeId() == QMetaType::QVariantList) {
            const QVariantList items = next.toList();
            waiting.insert(waiting.end(), items.rbegin(), items.rend());
        } else if (!addName(next, element, names)) {
            return false;
        }
    }
    return true;
}

} // namespace OMC
