#include "core/attributes/drawingattribute.h"

#include "core/attributes/attributecommands.h"
#include "core/columns/columncast.h"
#include "core/columns/elementcolumn.h"
#include "core/elements/element.h"
#include "core/elements/elementdrawing.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/at_attr.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_seqtimedvalue.h"

#include <memory>
#include <vector>

namespace OMC {

std::string DrawingAttribute::__str__() const
{
    return described(tr("DrawingAttr(%1, %2)"));
}

QVariant DrawingAttribute::getColumn() const
{
    TUTimedValue* column = drawingAttribute().linkedTimedValue();
    return column ? toVariant(Column::getWrapped(column)) : QVariant::fromValue(nullptr);
}

void DrawingAttribute::setColumn(const QVariant& value)
{
    const std::unique_ptr<Attribute> linked(getWrappedByAttr(drawingAttribute().drawingAttr()));
    found(linked.get(), unexpected::ErrorOccurred).setColumn(value);
}

QString DrawingAttribute::getColumnName() const
{
    const TUTimedValue* column = drawingAttribute().linkedTimedValue();
    return column ? column->getName() : QString(QLatin1String(""));
}

void DrawingAttribute::setColumnName(const QString& name)
{
    const std::unique_ptr<Attribute> linked(getWrappedByAttr(drawingAttribute().drawingAttr()));
    found(linked.get(), unexpected::ErrorOccurred).setColumnName(name);
}

QString DrawingAttribute::value(int frame) const
{
    const auto& attribute = drawingAttribute();
    return shown(attribute.getElementId(), attribute.value(frame));
}

void DrawingAttribute::setValue(int frame, const QVariant& drawings)
{
    auto& column = found(drawingAttribute().linkedSeqTimedValue(),
                         [] { return tr("Failed to determine sequence column for drawing attribute."); });
    expose(column, frame, drawings, tr("Set Drawing Attribute Value"));
}

QVariant DrawingAttribute::getElement() const
{
    const int element = drawingAttribute().getElementId();
    return element >= 0 ? toVariant(new Element(element)) : QVariant();
}

void DrawingAttribute::setElement(const QVariant& element)
{
    auto* column = columnCast<TUElementTimedValue>(drawingAttribute().linkedTimedValue());
    if (!column)
        throw Exception(tr("The drawing-timing type is not yet supported."));
    ElementColumn(column).setElement(element);
}

QString DrawingAttribute::getDrawingType() const
{
    const auto& attribute = drawingAttribute();
    const QString name = attribute.value(1);
    return name.isEmpty() ? name : ElementDrawing(attribute.getElementId(), name, QString()).getDrawingType();
}

QString DrawingAttribute::getElementName() const
{
    return drawingAttribute().getElementName();
}

QString DrawingAttribute::getTimingName() const
{
    return drawingAttribute().timingName();
}

bool DrawingAttribute::getElementMode() const
{
    return drawingAttribute().getElementMode();
}

void DrawingAttribute::setElementMode(bool elementMode)
{
    auto& attribute = drawingAttribute();
    auto& mode = found(attribute.elementModeAttr(), unexpected::ErrorHasOccurred);
    undo::run(undo::manager(attribute.sceneCommon()), new tu_attr::SetLocalValueCmd<AT_BoolAttr>(mode, elementMode),
              tr("Set Attribute local value."), tr("Failed to set the attribute's element mode."));
}

Obj DrawingAttribute::getDrawing() const
{
    return Obj(getWrappedByAttr(drawingAttribute().drawingAttr()));
}

Obj DrawingAttribute::getTiming() const
{
    return Obj(Column::getWrapped(drawingAttribute().linkedTimedValue()));
}

double DrawingAttribute::scaleFactor(int frame) const
{
    return drawingAttribute().drawingScaleFactor(frame);
}

void DrawingAttribute::QVariantToDrawingNames(const QVariant& value, QStringList& names, QStringList& errors)
{
    // Not by recursion: a script decides how deep its lists lie inside each other.
    std::vector<QVariant> waiting{value};
    while (!waiting.empty()) {
        const QVariant next = std::move(waiting.back());
        waiting.pop_back();
        if (const QObject* object = QVariantToPointer(next)) {
            if (const auto* drawing = dynamic_cast<const ElementDrawing*>(object))
                names.append(drawing->getName());
            else
                errors.append(tr("Unsupported argument: %1").arg(QLatin1String(object->metaObject()->className())));
        } else if (next.typeId() == QMetaType::QVariantList) {
            const QVariantList items = next.toList();
            waiting.insert(waiting.end(), items.rbegin(), items.rend());
        } else if (next.typeId() == QMetaType::QStringList) {
            names += next.toStringList();
        } else {
            names.append(next.toString());
        }
    }
}

AT_DrawingAttr& DrawingAttribute::drawingAttribute() const
{
    return typed<AT_DrawingAttr>();
}

} // namespace OMC
