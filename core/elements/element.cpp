#include "core/elements/element.h"

#include "core/elements/elementdrawinglist.h"
#include "core/elements/elementfields.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_pixmapformat.h"

namespace OMC {

namespace {

/// The fields of an element that one command sets together.
struct Fields {
    int scanType;
    double fieldChart;
    int pixmapFormat;
    int vectorType;
};

Fields fieldsOf(const TUElement& element)
{
    return {element.scanType(), element.fieldChart(), element.pixmapFormat(), element.vectorType()};
}

const TUElement& newElement(TUElementMgr& manager, const QString& name, const Fields& fields)
{
    return manager.createElement(name, fields.scanType, fields.fieldChart, fields.pixmapFormat, fields.vectorType,
                                 manager.useTemporaryFolder());
}

} // namespace

std::string Element::__str__() const
{
    return QStringLiteral("Element(%1)").arg(m_id).toStdString();
}

const TUElement& Element::element() const
{
    m_guard.info(m_id);
    return m_guard.manager().elementById(m_id);
}

int Element::getId() const
{
    m_guard.info(m_id);
    return m_id;
}

QString Element::getName() const
{
    return m_guard.info(m_id).name();
}

void Element::setName(const QString& name)
{
    m_guard.info(m_id);
    undo::run(m_guard.commands(), RenameElementCmd::BuildCmd(&m_guard.manager(), m_id, name), tr("Renaming Element"),
              QStringLiteral("Failed to rename the element."));
}

/// Sets the fields that a function changes, and the others as they stand.
template <typename Change>
void Element::modify(const QString& label, const QString& failure, Change change)
{
    const EM_ElementInfo& info = m_guard.info(m_id);
    CO_CommandManager& commands = m_guard.commands();
    TUElementMgr& manager = m_guard.manager();
    Fields fields = fieldsOf(manager.elementById(m_id));
    change(fields);
    undo::run(commands,
              new ModifyElementCmd(&manager, m_id, info.name(), fields.scanType, fields.fieldChart, fields.pixmapFormat,
                                   fields.vectorType),
              label, failure);
}

QString Element::getScantype() const
{
    return elementfields::scanTypeText(element().scanType());
}

void Element::setScantype(const QString& scanType)
{
    modify(tr("Changing element scan-type."), tr("Failed to set element scan-type."), [&](Fields& fields) {
        const std::optional<int> type = elementfields::scanType(scanType);
        if (!type)
            throw Exception(elementfields::scanTypeFailure());
        fields.scanType = *type;
    });
}

double Element::getFieldChart() const
{
    return element().fieldChart();
}

void Element::setFieldChart(double fieldChart)
{
    modify(tr("Changing element field-chart."), tr("Failed to set element field-chart."),
           [fieldChart](Fields& fields) { fields.fieldChart = fieldChart; });
}

QString Element::getVectorType() const
{
    return elementfields::vectorTypeText(element().vectorType());
}

void Element::setVectorType(const QString& vectorType)
{
    modify(tr("Changing element vector-type."), tr("Failed to set element vector-type."),
           [&vectorType](Fields& fields) { fields.vectorType = elementfields::vectorType(vectorType); });
}

QString Element::getPixmapFormat() const
{
    return formatList().pixmapNameFromFormat(element().pixmapFormat());
}

void Element::setPixmapFormat(const QString& format)
{
    modify(tr("Changing element pixmap format."), tr("Failed to set element pixmap format."), [&](Fields& fields) {
        fields.pixmapFormat = formatList().format(format);
        if (fields.pixmapFormat < 0)
            throw Exception(elementfields::formatFailure());
    });
}

QString Element::getFolder() const
{
    return oswRemapPath::RemapPath2(element().folder());
}

QString Element::getFolderComplete() const
{
    m_guard.info(m_id);
    return oswRemapPath::RemapPath2(m_guard.manager().elementFolder(m_id, 0).filepath());
}

Obj Element::getDrawings() const
{
    return Obj(newDrawings());
}

ElementDrawingList* Element::newDrawings() const
{
    m_guard.info(m_id);
    return new ElementDrawingList(m_id);
}

QString Element::getPhysicalName() const
{
    return element().physicalName();
}

double Element::getOpacity() const
{
    m_guard.info(m_id);
    return m_guard.manager().getDrawingOpacity(m_id);
}

void Element::setOpacity(double opacity)
{
    CO_CommandManager& commands = (m_guard.info(m_id), m_guard.commands());
    if (getOpacity() == opacity)
        return;
    undo::run(commands, new ChangeElementOpacity(&m_guard.manager(), m_id, opacity), tr("Change drawing opacity."),
              tr("Failed to set the drawing opacity."));
}

bool Element::getLocked() const
{
    m_guard.info(m_id);
    return m_guard.manager().hasLock(m_id);
}

bool Element::getTempDirectoryLocated() const
{
    m_guard.info(m_id);
    return m_guard.manager().isInTempDirectory(m_id);
}

bool Element::getDeleted() const
{
    m_guard.info(m_id);
    return m_guard.manager().isElementDeleted(m_id);
}

bool Element::getLinked() const
{
    m_guard.info(m_id);
    return m_guard.manager().elementIsLinkedToTimedValue(m_id);
}

Obj Element::duplicate(const QString& newName)
{
    const EM_ElementInfo& info = m_guard.info(m_id);
    CO_CommandManager& commands = m_guard.commands();
    TUElementMgr& manager = m_guard.manager();
    const Fields fields = fieldsOf(manager.elementById(m_id));
    if (newName.isEmpty())
        throw Exception(tr("No element names provided."));
    // Required: the name of a deleted element is taken here, though ElementList::create gives it away.
    if (manager.elementByName(newName, 0).id() != -1)
        throw Exception(tr("Element with name %1 already exists.").arg(newName));

    undo::Scope scope(commands, tr("Duplicating Element"));
    const int copy = newElement(manager, newName, fields).id();
    if (copy == -1)
        throw Exception(tr("Failed to create new element: %1").arg(newName));
    undo::run(commands, new EM_Commands::FakeAddElementsCmd(&manager, {copy}, true, true, 0), QString(),
              tr("Failed to create new element: %1").arg(newName));
    const EM_ElementInfo::Map drawings = info.getMap();
    const std::vector<EM_LayerId> layers = info.layerIds();
    for (const EM_DrawingInfo* drawing : drawings) {
        for (const EM_LayerId layer : layers) {
            const CA_CelKey source = CA_CelKeyElement(m_id, drawing->id(), layer);
            const CA_CelKey target = CA_CelKeyElement(copy, EM_InvalidDrawingId, layer);
            undo::run(commands, DuplicateDrawingCmd::Create(&manager, source, target, drawing->timing()),
                      tr("Duplicating a drawing in an element."),
                      tr("Failed to duplicate the new drawing in the element."));
        }
    }
    return Obj(new Element(copy));
}

void Element::lock()
{
    if (!m_guard.manager().getLock(element()))
        throw Exception(tr("Failed to get element lock."));
}

void Element::release()
{
    m_guard.manager().releaseLock(element());
}

const TUPixmapFormatList& Element::formatList()
{
    return elementfields::formats();
}

} // namespace OMC
