#include "core/elements/elementdrawing.h"

#include "core/drawings/celdrawing.h"
#include "core/drawings/drawing.h"
#include "core/elements/element.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"

namespace OMC {

/// The engine's objects behind a drawing, as an operation finds them.
struct ElementDrawing::Checked {
    TUElementMgr& manager;
    EM_ElementInfo& info;
    QString timing;
};

ElementDrawing::ElementDrawing(int elementId, const QString& timingName, const QString& layerName)
    : m_elementId(elementId)
{
    const SC_ProjectCommon* project = m_guard.findProject();
    const TUElementMgr* manager = project ? project->elementManager() : nullptr;
    if (!manager)
        return;
    m_drawing = manager->getDrawingId(elementId, timingName, false);
    const EM_ElementInfo* info = layerName.isEmpty() ? nullptr : manager->getElementDrawingInfoById(elementId);
    if (const EM_LayerInfo* layer = info ? info->findLayer(layerName) : nullptr)
        m_layer = layer->id;
}

ElementDrawing::Checked ElementDrawing::checked() const
{
    TUElementMgr& manager = m_guard.manager();
    EM_ElementInfo& info = found(manager.getElementDrawingInfoById(m_elementId));
    QString timing = manager.getDrawingTiming(m_elementId, m_drawing);
    if (timing.isNull())
        throwInvalid();
    return {manager, info, timing};
}

std::string ElementDrawing::__str__() const
{
    return QStringLiteral("ElementDrawing(%1, \"%2\")")
        .arg(QString::number(m_elementId), checked().timing)
        .toStdString();
}

QString ElementDrawing::getId() const
{
    checked();
    return QString::number(m_drawing);
}

void ElementDrawing::setId(const QString& id)
{
    const Checked drawing = checked();
    bool isNumber = false;
    const EM_DrawingId number = id.toULongLong(&isNumber);
    if (!isNumber || drawing.manager.getDrawingTiming(m_elementId, number).isNull())
        throw Exception(tr("The element has no drawing of the id \"%1\".").arg(id));
    m_drawing = number;
}

QString ElementDrawing::getName() const
{
    return checked().timing;
}

// Required: what becomes of the command is not looked at.
void ElementDrawing::setName(const QString& name)
{
    const Checked drawing = checked();
    CO_CommandManager& commands = m_guard.commands();
    if (drawing.timing == name)
        return;
    commands.execute(new RenameDrawingCmd(&drawing.manager, m_elementId, m_drawing, name),
                     tr("Renaming Drawing from %1 to %2").arg(drawing.timing, name));
}

QString ElementDrawing::getPath() const
{
    const TUElementMgr& manager = checked().manager;
    const VFS_Path part = manager.drawingFilenamePart(m_elementId, m_drawing, m_layer, true, 0);
    return celcache_util::buildDrawingName(part, manager.fileExt(m_elementId),
                                           manager.getDrawingVersion(m_elementId, m_drawing))
        .filepath();
}

bool ElementDrawing::getDeleted() const
{
    return checked().info.isDrawingDeleted(m_drawing);
}

bool ElementDrawing::getRenamed() const
{
    return checked().info.isDrawingRenamed(m_drawing);
}

bool ElementDrawing::getFileExists() const
{
    return checked().info.drawingFileExists(m_drawing, m_layer);
}

bool ElementDrawing::getUsed() const
{
    return checked().info.isDrawingUsed(m_drawing);
}

Obj ElementDrawing::getElement() const
{
    return Obj(newElement());
}

Element* ElementDrawing::newElement() const
{
    checked();
    return new Element(m_elementId);
}

QString ElementDrawing::getDrawingType() const
{
    const EM_DrawingTypes::Info* type =
        EM_DrawingTypes::getInfo(checked().manager.getDrawingType(m_elementId, m_drawing));
    return QLatin1String(type ? type->name : "Unknown");
}

// Required: no command, and so no undo.
void ElementDrawing::setDrawingType(const QString& type)
{
    found(m_guard.manager().getElementDrawingInfoById(m_elementId), unexpected::ErrorHasOccurred);
    checked().info.setDrawingType(m_drawing, EM_XMLFileIO::convertFromStringToMarkType(type.toUpper()));
}

double ElementDrawing::getDrawingScaleFactor() const
{
    return checked().manager.getDrawingScaleFactor(m_elementId, m_drawing);
}

// Required: it fails with the sentence of a version.
void ElementDrawing::setDrawingScaleFactor(double factor)
{
    TUElementMgr& manager = checked().manager;
    CO_CommandManager& commands = m_guard.commands();
    if (manager.getDrawingScaleFactor(m_elementId, m_drawing) == factor)
        return;
    undo::run(commands, new SetDrawingScaleFactorCmd(&manager, m_elementId, m_drawing, factor),
              tr("Change drawing scale-factor."), tr("Failed to set the drawing version."));
}

int ElementDrawing::getDrawingVersion() const
{
    return checked().manager.getDrawingVersion(m_elementId, m_drawing);
}

void ElementDrawing::setDrawingVersion(int version)
{
    TUElementMgr& manager = checked().manager;
    CO_CommandManager& commands = m_guard.commands();
    if (manager.getDrawingVersion(m_elementId, m_drawing) == version)
        return;
    undo::run(commands, new SetDrawingVersionCmd(&manager, m_elementId, m_drawing, version),
              tr("Change drawing versions."), tr("Failed to set the drawing version."));
}

QString ElementDrawing::getLayerName() const
{
    const EM_LayerInfo* layer = checked().info.findLayer(m_layer);
    return layer ? layer->name : QString();
}

qlonglong ElementDrawing::getLayerId() const
{
    checked();
    return m_layer;
}

CA_CelKey ElementDrawing::celKey() const
{
    return CA_CelKeyElement(m_elementId, m_drawing, m_layer);
}

CA_CelPtr ElementDrawing::openedCel() const
{
    checked();
    CA_CelPtr cel = celdrawing::open(celKey());
    if (!cel)
        throwInvalid();
    return cel;
}

QVariant ElementDrawing::getDrawing() const
{
    const auto drawing = celdrawing::of(openedCel());
    return drawing ? toVariant(new Drawing(drawing.data(), celKey())) : QVariant();
}

QVariant ElementDrawing::initialize()
{
    QVariant drawing = getDrawing();
    if (drawing.isValid())
        return drawing;
    celdrawing::create(celKey());
    return getDrawing();
}

Obj ElementDrawing::duplicate(const QString& timing, const QString& layer)
{
    const Checked drawing = checked();
    TUElementMgr& manager = drawing.manager;
    CO_CommandManager& commands = m_guard.commands();
    const EM_LayerInfo* targetLayer = layer.isEmpty() ? nullptr : drawing.info.findLayer(layer);
    const EM_LayerId layerId = targetLayer ? targetLayer->id : m_layer;
    const QString name = timing.isEmpty() ? manager.nextUnusedNumericTiming(m_elementId) : timing;
    if (manager.getDrawingId(m_elementId, name, true) != EM_InvalidDrawingId)
        throw Exception(tr("New drawing name already exists."));
    const CA_CelKey source = CA_CelKeyElement(m_elementId, m_drawing, m_layer);
    const CA_CelKey target = CA_CelKeyElement(m_elementId, EM_InvalidDrawingId, layerId);
    undo::run(commands, DuplicateDrawingCmd::Create(&manager, source, target, name),
              tr("Duplicating a drawing in an element."), tr("Failed to set the drawing version."));
    auto* copy = new ElementDrawing(m_guard, m_elementId, manager.getDrawingId(m_elementId, name, false));
    copy->m_layer = layerId;
    return Obj(copy);
}

void ElementDrawing::importFile(const QString& path)
{
    TUElementMgr& manager = checked().manager;
    CO_CommandManager& commands = m_guard.commands();
    QString error;
    CO_Command* command =
        ImportDrawingCmd::Create(&manager, CA_CelKeyElement(m_elementId, m_drawing, m_layer), path, error);
    if (!command)
        throw Exception(error);
    undo::run(commands, command, tr("Import Drawing"), tr("Failed to import the drawing."));
}

bool ElementDrawing::operator==(const ElementDrawing& other) const
{
    return m_elementId == other.m_elementId && m_drawing == other.m_drawing;
}

} // namespace OMC
