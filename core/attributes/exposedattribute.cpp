#include "core/attributes/exposedattribute.h"

#include "core/attributes/drawingattribute.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/at_attr.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_seqtimedvalue.h"

namespace OMC {

QString ExposedAttribute::shown(int element, const QString& name) const
{
    const SC_SceneCommon& scene = found(getAttr()->sceneCommon(), unexpected::ErrorOccurred);
    const TUElementMgr& elements = found(scene.elementManager(), unexpected::ErrorOccurred);
    const EM_DrawingId drawing = elements.getDrawingId(element, name, false);
    return drawing == EM_InvalidDrawingId ? name : elements.getDrawingTiming(element, drawing);
}

void ExposedAttribute::expose(TUSeqTimedValue& column, int frame, const QVariant& drawings, const QString& label)
{
    QStringList names;
    QStringList errors;
    DrawingAttribute::QVariantToDrawingNames(drawings, names, errors);
    if (!errors.isEmpty())
        throw Exception(errors.join(u'\n'));
    if (names.isEmpty())
        throw Exception(tr("No frame values were specified."));
    CO_CommandManager& manager = undo::manager(getAttr()->sceneCommon());
    auto commands = std::make_unique<CO_AndCommand>();
    column.createSetValueCmd(nullptr, frame, names, 0, *commands);
    undo::run(manager, commands.release(), label, tr("Failed to set the attribute's value."));
}

QString LocalExposedAttribute::localvalue() const
{
    return value(1);
}

void LocalExposedAttribute::setLocalvalue(const QVariant& drawings)
{
    setValue(1, drawings);
}

} // namespace OMC
