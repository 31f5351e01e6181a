#include "core/columns/column.h"

#include "core/attributes/attribute.h"
#include "core/columns/columnkinds.h"
#include "core/columns/repeatzone.h"
#include "core/columns/timedvaluevisitor.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"
#include "core/nodes/node.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace OMC {

namespace {

int truncated(double frame)
{
    constexpr double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(frame, -limit, limit));
}

int subColumnOf(int subColumn)
{
    return subColumn == -1 ? 1 : subColumn;
}

bool drivesAttributes(const TUTimedValue& column)
{
    const ColumnKind* kind = columnKind(column.type());
    return kind && kind->drivesAttributes;
}

int frameFromText(const QString& text, const QString& failure)
{
    bool read = false;
    const int frame = text.toInt(&read, 10);
    if (!read)
        throw Exception(failure);
    return frame;
}

} // namespace

Column::Column(TUTimedValue* timedValue) : FlaggedList(timedValue)
{
    setPosition(firstIndex);
}

std::string Column::__str__() const
{
    return described(tr("Column(%1)"));
}

bool Column::filterDir(std::string& name) const
{
    return name == "set_entry" || name == "get_entry" || BaseObject::filterDir(name);
}

QString Column::getType() const
{
    const ColumnKind* kind = columnKind(target().type());
    return kind ? QString::fromLatin1(kind->text) : tr("Undefined Column type");
}

QVariant Column::getEntry(double frame, int subColumn) const
{
    const TUTimedValue& column = target();
    if (!std::isfinite(frame))
        throwInvalidArgument(0);
    QString text;
    bool isKey = false;
    bool isHeld = false;
    bool isBlank = false;
    bool isLocked = false;
    column.getValueForXsheet(frame, subColumnOf(subColumn), &text, isKey, isHeld, isBlank, isLocked);
    return text;
}

void Column::setEntry(double frame, QVariant value, int subColumn)
{
    TUTimedValue& column = target();
    if (!std::isfinite(frame))
        throwInvalidArgument(0);
    const SC_SceneCommon& common = found(column.sceneCommon(), unexpected::ErrorAtCheck1);
    CO_CommandManager& manager = undo::manager(&common, unexpected::ErrorAtCheck2);
    foundAs<const TUScene>(common.timedValues(), unexpected::ErrorAtCheck3);

    undo::Scope scope(manager, tr("Set Xsheet Entry"));
    const int place = subColumnOf(subColumn);
    if (column.setValuesFromXsheet(frame, 1, value.toString(), place) != 0)
        throw Exception(tr("Failed to set the value in the XSheet."));
    RepeatZone zone;
    if (RepeatZone::find(column, truncated(frame), zone))
        zone.repeat(column, [&](int cell) { return getEntry(cell, place).toString(); });
}

// Doesn't check the thread; size does.
unsigned int Column::nFrames() const
{
    return static_cast<unsigned int>(std::max(scene().getNumberOfFrames(), 0));
}

bool Column::__atend__() const
{
    validate();
    return FlaggedList::__atend__();
}

void Column::startIteration()
{
    setAtEnd(nFrames() == 0);
}

// Positions are frames, from 1 to the last one.
std::size_t Column::iterationSize() const
{
    return static_cast<std::size_t>(nFrames()) + firstIndex;
}

std::size_t Column::size() const
{
    validate();
    return nFrames();
}

QVariant Column::get(const QString& frame) const
{
    validate();
    return get(frameFromText(frame, tr("Invalid index provided.")));
}

QVariant Column::get(int frame) const
{
    return getEntry(frame, -1);
}

void Column::set(const QString& frame, const QVariant& value)
{
    validate();
    set(frameFromText(frame, tr("Invalid index provided.")), value);
}

void Column::set(int frame, const QVariant& value)
{
    setEntry(frame, value, -1);
}

void Column::setEach(int first, int step, const QVariantList& values)
{
    const undo::Scope scope(commandManager(), tr("Set Xsheet Entries"));
    qint64 frame = first;
    for (const QVariant& value : values) {
        if (frame < std::numeric_limits<int>::min() || frame > std::numeric_limits<int>::max())
            throwInvalidArgument(0);
        set(static_cast<int>(frame), value);
        frame += step;
    }
}

// Required: the invalid values ahead of the entries. Scripts index the list behind them.
QList<QVariant> Column::list() const
{
    validate();
    const unsigned int count = nFrames();
    QList<QVariant> values;
    values.reserve(2 * static_cast<qsizetype>(count) + 1);
    values.resize(static_cast<qsizetype>(count) + 1);
    for (unsigned int frame = 1; frame <= count; ++frame)
        values.append(get(static_cast<int>(frame)));
    return values;
}

unsigned int Column::getCurrentIndex() const
{
    return static_cast<unsigned int>(position());
}

void Column::resetIterator()
{
    setPosition(firstIndex);
    startIteration();
}

void Column::scale(double factor, unsigned int second)
{
    TUTimedValue& column = target();
    if (!std::isfinite(factor))
        throwInvalidArgument(0);
    CO_CommandManager& manager = commandManager();
    CO_Command* command = nullptr;
    column.scale(factor, static_cast<int>(second), &command);
    if (!command)
        throw Exception(tr("Failed to scale the column."));
    undo::run(manager, command, QString(), tr("Failed to scale the column."));
}

TUTimedValue* Column::getTimedValue() const
{
    return findTarget();
}

Column* Column::getWrapped(TUTimedValue* timedValue)
{
    if (!timedValue)
        return nullptr;
    TimedValueVisitor visitor;
    timedValue->accept(visitor);
    return visitor.take();
}

QString Column::getName() const
{
    return target().getName();
}

void Column::setName(const QString& name)
{
    TUTimedValue& column = target();
    const QString oldName = column.getName();
    if (name == oldName)
        return;
    CO_CommandManager& manager = commandManager();
    if (column.sceneCommon()->timedValues()->findTimedValue(name, 0))
        throw Exception(tr("A column named %1 already exists.").arg(name));
    undo::run(manager, new tu_timedvalue::timedvalue::RenameCmd(&column, name),
              tr("Rename ") + oldName + tr(" to ") + name, tr("Failed to rename the column."));
}

QString Column::getDisplayName() const
{
    return target().getDisplayName();
}

bool Column::getAnonymous() const
{
    return target().isAnonymous();
}

void Column::setAnonymous(bool anonymous)
{
    TUTimedValue& column = target();
    if (anonymous == column.isAnonymous())
        return;
    CO_CommandManager& manager = commandManager();
    undo::run(manager, new tu_timedvalue::timedvalue::SetAnonymous(&column, anonymous),
              anonymous ? tr("Setting column anonymous.") : tr("Setting column as not anonymous."),
              tr("Failed to set the anonymous state of the column."));
}

QVariantList Column::getLinkedNodes() const
{
    const TUTimedValue& column = target();
    QVariantList nodes;
    if (!drivesAttributes(column))
        return nodes;
    for (MO_Node* node : column.linkedNodes())
        nodes.append(toVariant(Node::getWrapped(node)));
    return nodes;
}

QVariantList Column::getLinkedAttributes() const
{
    const TUTimedValue& column = target();
    QVariantList attributes;
    if (!drivesAttributes(column))
        return attributes;
    std::set<AT_Attr*> linked;
    for (unsigned int index = 0; index < column.getNumLinks(); ++index)
        linked.insert(column.linkedAttr(index));
    for (AT_Attr* attribute : linked) {
        if (attribute)
            attributes.append(toVariant(Attribute::getWrappedByAttr(attribute)));
    }
    return attributes;
}

CO_CommandManager& Column::commandManager() const
{
    CO_CommandManager& manager = undo::manager(target().sceneCommon());
    scene();
    return manager;
}

const TUScene& Column::scene() const
{
    const SC_SceneCommon& common = found(found(findTarget()).sceneCommon(), unexpected::ErrorOccurred);
    return foundAs<const TUScene>(common.timedValues(), unexpected::ErrorOccurred);
}

std::string Column::described(const QString& pattern) const
{
    return pattern.arg(target().getName()).toStdString();
}

} // namespace OMC
