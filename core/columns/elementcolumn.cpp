#include "core/columns/elementcolumn.h"

#include "core/columns/columncast.h"
#include "core/columns/drawingnames.h"
#include "core/columns/exposureedit.h"
#include "core/elements/element.h"
#include "core/elements/elementdrawing.h"
#include "core/elements/elementdrawinglist.h"
#include "core/elements/elementfields.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_pixmapformat.h"
#include "core/nodes/indexargument.h"

#include <cmath>
#include <set>

namespace OMC {

namespace {

QString linkFailure()
{
    return QStringLiteral("Failed to set the drawing column's linked ID.");
}

QString linkLabel()
{
    return ElementColumn::tr("Modifying Drawing's element.");
}

/// The marks that an argument names: a text, or a list of texts.
std::set<EM_MarkType> marksFrom(const QVariant& value)
{
    std::set<EM_MarkType> marks;
    const bool isList = value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QVariantList;
    for (const QVariant& mark : isList ? value.toList() : QVariantList{value})
        marks.insert(EM_XMLFileIO::convertFromStringToMarkType(mark.toString().toUpper()));
    return marks;
}

} // namespace

ElementColumn::ElementColumn(TUTimedValue* timedValue) : Column(timedValue) {}

std::string ElementColumn::__str__() const
{
    return tr("ElementColumn(\"%1\")[%2]").arg(target().getName(), QString::number(size())).toStdString();
}

// Doesn't check the thread; size does.
unsigned int ElementColumn::nFrames() const
{
    const auto* column = columnCast<TUSeqTimedValue>(findTarget());
    return column ? static_cast<unsigned int>(column->nFrames()) : Column::nFrames();
}

QVariant ElementColumn::get(int frame) const
{
    QString name;
    if (ElementDrawing* drawing = newDrawingAt(frame, name))
        return toVariant(drawing);
    return name.isNull() ? QVariant() : QVariant(name);
}

ElementDrawing* ElementColumn::newDrawingAt(int frame, QString& name) const
{
    const auto& column = elementColumn();
    bool isKey = false;
    bool isHeld = false;
    bool isBlank = false;
    bool isLocked = false;
    column.getValueForXsheet(frame, 1, &name, isKey, isHeld, isBlank, isLocked);
    const int element = column.elementId();
    return name.isNull() || element < 0 ? nullptr : new ElementDrawing(element, name, QString());
}

void ElementColumn::set(int frame, const QVariant& drawings)
{
    auto& column = elementColumn();
    CO_CommandManager& manager = undo::manager(column.sceneCommon());
    const QString failure = tr("Unexpected argument -- unable to identify a drawing or a drawing name.");
    const undo::Scope scope(manager, tr("Setting drawing(s) in drawing column."));
    QStringList names;
    if (!addDrawingNames(drawings, column.elementId(), names) || names.isEmpty())
        throw Exception(failure);
    auto commands = std::make_unique<CO_AndCommand>();
    column.createSetValueCmd(nullptr, frame, names, 0, *commands);
    undo::run(manager, commands.release(), QString(),
              frame < 1 ? tr("Failed to set the value in the XSheet.") : failure);
}

void ElementColumn::setEach(int first, int step, const QVariantList& drawings)
{
    if (step == 1 && !drawings.isEmpty())
        set(first, drawings);
    else
        Column::setEach(first, step, drawings);
}

Obj ElementColumn::attachNewElement(const QString& name, const QString& scanType, double fieldChart,
                                    const QString& pixmapFormat, const QString& vectorType)
{
    validate();
    const auto scan = elementfields::scanType(scanType);
    if (!scan)
        throw Exception(elementfields::scanTypeFailure());
    const int format = elementfields::formats().format(pixmapFormat);
    if (format < 0)
        throw Exception(elementfields::formatFailure());
    SC_SceneCommon* scene = target().sceneCommon();
    if (!scene)
        unexpected::fail();
    auto& column = linkedColumn();
    CO_CommandManager& manager = undo::manager(scene);
    TUElementMgr& elements = found(scene->elementManager(), unexpected::ErrorOccurred);
    const int id = elements
                       .createElement(name, *scan, fieldChart, format, elementfields::vectorType(vectorType),
                                      elements.useTemporaryFolder())
                       .id();
    if (id < 0)
        throw Exception(tr("Failed to create a new element."));
    const undo::Scope scope(manager, tr("Adding new Element to drawing column"));
    undo::run(manager, new EM_Commands::FakeAddElementsCmd(&elements, {id}, true, true, 0), tr("Add Element"),
              tr("Failed to create the element."));
    runLink(column, id);
    return Obj(new Element(id));
}

QVariant ElementColumn::getElement() const
{
    validate();
    const auto* column = columnCast<TUElementTimedValue>(&target());
    return column && column->elementId() >= 0 ? toVariant(new Element(column->elementId())) : QVariant();
}

void ElementColumn::setElement(const QVariant& element)
{
    auto& column = linkedColumn();
    int id = -1;
    if (const QObject* object = QVariantToPointer(element)) {
        id = foundAs<const Element>(object, [] { return tr("Invalid element argument provided."); }).getId();
    } else {
        bool read = false;
        id = element.toInt(&read);
        if (!read || !fitsIndex(element))
            throw Exception(tr("Invalid element argument provided."));
    }
    runLink(column, id);
}

void ElementColumn::runLink(TUElementTimedValue& column, int element)
{
    undo::run(undo::manager(column.sceneCommon()), new tu_timedvalue::element::SetElementIdCmd(&column, element),
              linkLabel(), linkFailure());
}

Obj ElementColumn::getDrawings() const
{
    validate();
    const auto* column = columnCast<TUElementTimedValue>(&target());
    return column && column->elementId() >= 0 ? Obj(new ElementDrawingList(column->elementId())) : Obj();
}

QStringList ElementColumn::getDrawingNames() const
{
    QStringList names;
    elementColumn().getDrawingTimings(names);
    return names;
}

Obj ElementColumn::drawing(double frame) const
{
    const auto& column = elementColumn();
    exposureedit::requireFrame(frame);
    const QString name = column.getTiming(frame);
    return name.isEmpty() ? Obj() : Obj(new ElementDrawing(column.elementId(), name, QString()));
}

Obj ElementColumn::generate(double frame, bool byFrame)
{
    auto& column = elementColumn();
    exposureedit::requireFrame(frame);
    CO_CommandManager& manager = undo::manager(column.sceneCommon());
    const QString failure = tr("Failed to generate a drawing.");
    QStringList names;
    column.generateValues(frame, byFrame, names);
    if (names.isEmpty())
        throw Exception(failure);
    auto commands = std::make_unique<CO_AndCommand>();
    column.createSetValueCmd(nullptr, frame, names, 0, *commands);
    undo::run(manager, commands.release(), tr("Generate Drawing"), failure);
    return Obj(new ElementDrawing(column.elementId(), names.first(), QString()));
}

ElementDrawing ElementColumn::exposedDrawing(double frame, const QString& failure) const
{
    const auto& column = elementColumn();
    exposureedit::requireFrame(frame);
    const std::unique_ptr<TUSequence> sequence = column.seqAt(frame);
    if (!sequence)
        throw Exception(failure);
    const auto& drawing = foundAs<TUDrawingSequence>(sequence.get(), [] { return tr("Unsupported sequence-type."); });
    return ElementDrawing(column.elementId(), drawing.name(), QString());
}

QString ElementColumn::drawingType(double frame) const
{
    return exposedDrawing(frame, tr("Failed to get drawing sequence -- does the drawing exist?")).getDrawingType();
}

void ElementColumn::setDrawingType(double frame, const QString& type)
{
    exposedDrawing(frame, tr("Failed to get drawing sequence.")).setDrawingType(type);
}

int ElementColumn::drawingVersion(const QString& timing) const
{
    return ElementDrawing(elementColumn().elementId(), timing, QString()).getDrawingVersion();
}

void ElementColumn::drawingDelete(const QVariant& frames)
{
    exposureedit::change(elementColumn(), frames, tr("Failed to delete drawing at specified frame."),
                         &DR_DrawingCommands::deleteDrawings);
}

QVariant ElementColumn::drawingDuplicate(int frame)
{
    exposureedit::duplicate(elementColumn(), frame);
    return get(frame);
}

void ElementColumn::keyExposureAdd(const QVariant& frames)
{
    exposureedit::change(elementColumn(), frames, tr("Failed to add key exposures."),
                         &DR_DrawingCommands::addKeyExposures);
}

void ElementColumn::keyExposureRemove(const QVariant& frames)
{
    exposureedit::change(elementColumn(), frames, tr("Failed to remove key exposures."),
                         [](auto* project, const auto& ranges) {
                             return DR_DrawingCommands::removeKeyExposures(project, ranges, false);
                         });
}

void ElementColumn::keyExposureRemoveDuplicate(const QVariant& frames)
{
    exposureedit::change(elementColumn(), frames, tr("Failed to remove duplicate key exposures."),
                         [](auto* project, const auto& ranges) {
                             return DR_DrawingCommands::removeKeyExposures(project, ranges, true);
                         });
}

QVariant ElementColumn::keyExposureNext(double frame, const QVariant& marks) const
{
    const auto& column = elementColumn();
    exposureedit::requireFrame(frame);
    const bool isNull = !marks.isValid() || marks.isNull();
    const int next = isNull ? column.nextKeyExposure(frame) : column.nextKeyExposure(frame, marksFrom(marks));
    return next > 0 ? QVariant(next) : QVariant();
}

void ElementColumn::fillEmpty(int start, int end)
{
    exposureedit::change(elementColumn(), exposureedit::range(start, end), tr("Failed to fill empty cells."),
                         &DR_DrawingCommands::fillWithHeldFrames);
}

// Required: a single frame can't be cleared, whatever the engine could do.
void ElementColumn::clear(int start, int count, bool ripple)
{
    validate();
    auto& column = found(columnCast<TUSeqTimedValue>(&target()), [] { return tr("Invalid column-type."); });
    CO_CommandManager& manager = undo::manager(column.sceneCommon());
    if (count < 2)
        throw Exception(tr("Unable to clear %1 frames.").arg(count));
    CO_Command* command = nullptr;
    column.clear(start, count, ripple, &command);
    undo::run(manager, command, tr("Clearing drawing frames."), tr("Failed to clear frames."));
}

TUElementTimedValue& ElementColumn::linkedColumn() const
{
    return found(columnCast<TUElementTimedValue>(&target()), QStringLiteral("Unexpected column-type found."));
}

TUElementTimedValue& ElementColumn::elementColumn() const
{
    return found(columnCast<TUElementTimedValue>(&target()), [] { return tr("Invalid column-type."); });
}

} // namespace OMC
