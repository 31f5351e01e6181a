#include "core/columns/column.h"

#include "core/attributes/attribute.h"
#include "core/columns/repeatzone.h"
#include "core/columns/timedvaluevisitor.h"
#include "core/frame/undo.h"
#include "core/frame/weakhandle.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"
#include "core/nodes/node.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

namespace OMC {

struct Column::Private : Recycled {
    WeakPointer<TUTimedValue> timedValue;
    quint32 currentIndex = 1;
    bool atEnd = false;
};

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
    switch (column.type()) {
    case TUTimedValue::kBezier:
    case TUTimedValue::kEase:
    case TUTimedValue::k3dPath:
    case TUTimedValue::kVeloBased:
    case TUTimedValue::kQuaternionPath:
    case TUTimedValue::kDrawing:
        return true;
    default:
        return false;
    }
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

Column::Column(TUTimedValue* timedValue) : d(new Private{{}, WeakPointer<TUTimedValue>(timedValue)}) {}

Column::Column(const Column& other) : BaseObject(other), d(std::make_unique<Private>(*other.d)) {}

Column::~Column() = default;

BaseObject* Column::copy() const
{
    return new Column(*this);
}

std::string Column::__str__() const
{
    return described(tr("Column(%1)"));
}

bool Column::filterDir(std::string& name) const
{
    return name == "set_entry" || name == "get_entry" || BaseObject::filterDir(name);
}

void Column::validate() const
{
    if (!d->timedValue.get())
        throwInvalid();
    validateThreadLock();
}

QString Column::getType() const
{
    static constexpr std::pair<int, const char*> types[] = {
        {TUTimedValue::kDrawing, "DRAWING"},
        {TUTimedValue::kSound, "SOUND"},
        {TUTimedValue::k3dPath, "3D_PATH"},
        {TUTimedValue::kBezier, "BEZIER"},
        {TUTimedValue::kEase, "EASE"},
        {TUTimedValue::kExpression, "EXPR"},
        {TUTimedValue::kTiming, "TIMING"},
        {TUTimedValue::kVeloBased, "VELOBASED"},
        {TUTimedValue::kQuaternionPath, "QUATERNION_PATH"},
        {TUTimedValue::kAnnotation, "ANNOTATION"},
        {TUTimedValue::kFileLibrary, "FILE_LIBRARY"},
    };
    static const std::map<int, QString> names(std::begin(types), std::end(types));
    const auto name = names.find(timedValue().type());
    return name == names.end() ? tr("Undefined Column type") : name->second;
}

QVariant Column::getEntry(double frame, int subColumn) const
{
    const TUTimedValue& column = timedValue();
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
    TUTimedValue& column = timedValue();
    if (!std::isfinite(frame))
        throwInvalidArgument(0);
    const SC_SceneCommon* common = column.sceneCommon();
    if (!common)
        unexpected::fail(unexpected::ErrorAtCheck1);
    CO_CommandManager& manager = undo::manager(common, unexpected::ErrorAtCheck2);
    if (!dynamic_cast<const TUScene*>(common->timedValues()))
        unexpected::fail(unexpected::ErrorAtCheck3);

    undo::Scope scope(manager, tr("Set Xsheet Entry"));
    const int place = subColumnOf(subColumn);
    if (column.setValuesFromXsheet(frame, 1, value.toString(), place) != 0)
        throw Exception(tr("Failed to set the value in the XSheet."));
    RepeatZone zone;
    if (RepeatZone::find(column, truncated(frame), zone))
        zone.repeat(column, [&](int cell) { return getEntry(cell, place).toString(); });
}

// It doesn't check the thread: size does.
unsigned int Column::nFrames() const
{
    return static_cast<unsigned int>(std::max(scene().getNumberOfFrames(), 0));
}

QVariant Column::__iterItem__() const
{
    validate();
    const quint32 frame = d->currentIndex;
    if (frame + 1 > nFrames())
        d->atEnd = true;
    return get(static_cast<int>(frame));
}

void Column::operator++()
{
    validate();
    if (!d->atEnd)
        ++d->currentIndex;
}

void Column::operator--()
{
    validate();
    if (d->currentIndex == 1)
        return;
    --d->currentIndex;
    d->atEnd = false;
}

bool Column::__atend__() const
{
    validate();
    return d->atEnd;
}

Obj Column::__iter__() const
{
    validate();
    std::unique_ptr<Column> iterator(static_cast<Column*>(copy()));
    iterator->resetIterator();
    return Obj(iterator.release());
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

// The invalid values ahead of the entries are required: scripts index the list behind them.
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
    return d->currentIndex;
}

void Column::resetIterator()
{
    d->currentIndex = 1;
    d->atEnd = nFrames() == 0;
}

void Column::scale(double factor, unsigned int second)
{
    TUTimedValue& column = timedValue();
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
    return d->timedValue.get();
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
    return timedValue().getName();
}

void Column::setName(const QString& name)
{
    TUTimedValue& column = timedValue();
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
    return timedValue().getDisplayName();
}

bool Column::getAnonymous() const
{
    return timedValue().isAnonymous();
}

void Column::setAnonymous(bool anonymous)
{
    TUTimedValue& column = timedValue();
    if (anonymous == column.isAnonymous())
        return;
    CO_CommandManager& manager = commandManager();
    undo::run(manager, new tu_timedvalue::timedvalue::SetAnonymous(&column, anonymous),
              anonymous ? tr("Setting column anonymous.") : tr("Setting column as not anonymous."),
              tr("Failed to set the anonymous state of the column."));
}

QVariantList Column::getLinkedNodes() const
{
    const TUTimedValue& column = timedValue();
    QVariantList nodes;
    if (!drivesAttributes(column))
        return nodes;
    for (MO_Node* node : column.linkedNodes())
        nodes.append(toVariant(Node::getWrapped(node)));
    return nodes;
}

QVariantList Column::getLinkedAttributes() const
{
    const TUTimedValue& column = timedValue();
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

TUTimedValue& Column::timedValue() const
{
    validate();
    return *d->timedValue.get();
}

CO_CommandManager& Column::commandManager() const
{
    const SC_SceneCommon* common = timedValue().sceneCommon();
    CO_CommandManager& manager = undo::manager(common);
    scene();
    return manager;
}

const TUScene& Column::scene() const
{
    const TUTimedValue* column = d->timedValue.get();
    if (!column)
        throwInvalid();
    const SC_SceneCommon* common = column->sceneCommon();
    const auto* scene = common ? dynamic_cast<const TUScene*>(common->timedValues()) : nullptr;
    if (!scene)
        unexpected::fail();
    return *scene;
}

std::string Column::described(const QString& pattern) const
{
    return pattern.arg(timedValue().getName()).toStdString();
}

} // namespace OMC
