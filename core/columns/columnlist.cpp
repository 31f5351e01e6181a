#include "core/columns/columnlist.h"

#include "core/attributes/attribute.h"
#include "core/columns/column.h"
#include "core/columns/columnkinds.h"
#include "core/columns/drawingoptions.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_createtimedvalue.h"
#include "core/host/tu_node.h"
#include "core/nodes/node.h"

#include <QRegExp>

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace OMC {

namespace {

void throwIfAny(const QStringList& errors)
{
    if (!errors.isEmpty())
        throw Exception(errors.join(QLatin1Char('\n')));
}

/// The texts of all kinds, ascending.
QStringList kindTexts()
{
    QStringList texts;
    for (const ColumnKind& kind : columnKinds)
        texts.append(QString::fromLatin1(kind.text));
    texts.sort(Qt::CaseSensitive);
    return texts;
}

const ColumnKind* kindOfText(const QString& text)
{
    for (const ColumnKind& kind : columnKinds) {
        if (text == QLatin1String(kind.text))
            return &kind;
    }
    return nullptr;
}

/// The names in a selector, as it gives them.
QStringList namesIn(const QVariant& selector)
{
    switch (selector.typeId()) {
    case QMetaType::QString:
        return {selector.toString()};
    case QMetaType::QStringList:
        return selector.toStringList();
    default:
        return {};
    }
}

QRegExp wildcard(const QString& pattern)
{
    return QRegExp(pattern, Qt::CaseSensitive, QRegExp::Wildcard);
}

} // namespace

ColumnList::ColumnList(TUScene* scene) : FlaggedList(scene) {}

std::string ColumnList::__str__() const
{
    const TUScene& scene = target();
    return tr("ColumnList(%1)[%2]").arg(scene.name(), QString::number(scene.timedValueCount())).toStdString();
}

std::size_t ColumnList::size() const
{
    return static_cast<std::size_t>(target().timedValueCount());
}

Obj ColumnList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj ColumnList::get(int index) const
{
    return Obj(newItem(index));
}

Column* ColumnList::newItem(const QString& name) const
{
    return Column::getWrapped(target().findTimedValue(name, 0));
}

Column* ColumnList::newItem(int index) const
{
    return Column::getWrapped(columnAt(index));
}

void ColumnList::set(int, const Obj&)
{
    throw Exception(tr("Column Lists cannot be set."));
}

std::vector<Obj> ColumnList::list() const
{
    const TUScene& scene = target();
    std::vector<Obj> columns;
    columns.reserve(static_cast<std::size_t>(scene.timedValueCount()));
    for (auto column = scene.timedValuesBegin(); column != scene.timedValuesEnd(); ++column)
        columns.emplace_back(Column::getWrapped(*column));
    return columns;
}

Obj ColumnList::operator()(const QString& pattern) const
{
    const TUScene& scene = target();
    const QRegExp names = wildcard(pattern);
    const auto found = std::find_if(scene.timedValuesBegin(), scene.timedValuesEnd(),
                                    [&](const TUTimedValue* column) { return names.exactMatch(column->getName()); });
    return found == scene.timedValuesEnd() ? Obj() : Obj(Column::getWrapped(*found));
}

std::vector<Obj> ColumnList::find(const QString& pattern) const
{
    const TUScene& scene = target();
    const QRegExp names = wildcard(pattern);
    std::vector<Obj> columns;
    for (auto column = scene.timedValuesBegin(); column != scene.timedValuesEnd(); ++column) {
        if (names.exactMatch((*column)->getName()))
            columns.emplace_back(Column::getWrapped(*column));
    }
    return columns;
}

Obj ColumnList::create(const QString& type, const QString& name, const QVariant& options)
{
    TUScene& scene = target();
    const QString made = name.isEmpty() ? TUTimedValue::generateAnonymousName(scene.sceneCommon(), QString()) : name;
    if (scene.findTimedValue(made, 0))
        throw Exception(tr("Column with name %1 already exists.").arg(made));
    const ColumnKind* kind = kindOfText(type.toUpper());
    if (!kind)
        throw Exception(
            tr("Undefined Column type. Acceptable values include: %1").arg(kindTexts().join(QLatin1String(", "))));
    TUSceneCreateTimedValueParams request(&scene, made, kind->type);
    request.setAnonymous(name.isEmpty());
    request.setCreateElement(false);
    if (kind->type == TUTimedValue::kDrawing) {
        const auto element = DrawingOptions::read(scene, options);
        request.setCreateElement(true);
        // Required: the element's name is the one that was given, also where the column's is made up.
        request.setElementData(name, true, element.scanType, element.fieldChart, element.pixmapFormat);
        request.setCreateReadModule(element.createNode);
    }
    scene.createTimedValue(request);
    return Obj(Column::getWrapped(scene.findTimedValue(made, 0)));
}

void ColumnList::remove(const QVariant& selector)
{
    TUScene& scene = target();
    std::vector<TUTimedValue*> columns;
    QStringList errors;
    QVariantToTimedValueList(selector, scene, columns, errors);
    throwIfAny(errors);
    CO_CommandManager& manager = found(scene.commandManager(), unexpected::ErrorOccurred);
    if (columns.empty())
        throw Exception(tr("Failed to find specified column."));

    // Required: the label for several columns stands where there is one, and the other way round.
    undo::Scope scope(manager, columns.size() < 2 ? tr("Removing columns") : tr("Removing column"));
    for (TUTimedValue* column : columns) {
        const QString name = column->getName();
        switch (column->type()) {
        case TUTimedValue::kSound:
            if (!SU_CleanUpCommands::removeColumns(&scene, {column}))
                errors.append(tr("Failed to remove sound column: %1").arg(name));
            break;
        default:
            errors.append(tr("Unsupported column : %1").arg(name));
            break;
        case TUTimedValue::kDrawing:
        case TUTimedValue::k3dPath:
        case TUTimedValue::kBezier:
        case TUTimedValue::kEase:
        case TUTimedValue::kExpression:
        case TUTimedValue::kTiming:
        case TUTimedValue::kVeloBased:
        case TUTimedValue::kQuaternionPath:
            if (const auto nodes = column->linkedNodes(); !nodes.empty())
                errors.append(tr("Column is still linked : %1 [%2 nodes]").arg(name, QString::number(nodes.size())));
            else if (!SU_CleanUpCommands::removeColumns(&scene, {column}))
                errors.append(tr("Failed to remove column: %1").arg(name));
        }
    }
    throwIfAny(errors);
}

bool ColumnList::contains(const QVariant& selector) const
{
    const TUScene& scene = target();
    if (QVariantToPointer(selector)) {
        const auto* wrapper = objectFrom<Column>(selector);
        const TUTimedValue* column = wrapper ? wrapper->getTimedValue() : nullptr;
        return column && std::find(scene.timedValuesBegin(), scene.timedValuesEnd(), column) != scene.timedValuesEnd();
    }
    if (selector.typeId() == QMetaType::Int)
        return columnAt(selector.toInt()) != nullptr;
    const QStringList names = namesIn(selector);
    return std::any_of(names.begin(), names.end(),
                       [&scene](const QString& name) { return scene.findTimedValue(name, 0) != nullptr; });
}

QList<QVariant> ColumnList::linkedNodes(const QVariant& selector) const
{
    QList<QVariant> nodes;
    for (const TUTimedValue* column : selected(selector)) {
        const ColumnKind* kind = columnKind(column->type());
        if (!kind || !kind->drivesAttributes)
            continue;
        for (MO_Node* node : column->linkedNodes())
            nodes.append(toVariant(Node::getWrapped(node)));
    }
    return nodes;
}

// Required: unlike a column's own list, an attribute comes as often as it is linked, and drawing columns tell none.
QList<QVariant> ColumnList::linkedAttributes(const QVariant& selector) const
{
    QList<QVariant> attributes;
    for (const TUTimedValue* column : selected(selector)) {
        const ColumnKind* kind = columnKind(column->type());
        if (!kind || !kind->drivesAttributes || column->type() == TUTimedValue::kDrawing)
            continue;
        for (unsigned int index = 0; index < column->getNumLinks(); ++index) {
            if (AT_Attr* attribute = column->linkedAttr(index))
                attributes.append(toVariant(Attribute::getWrappedByAttr(attribute)));
        }
    }
    return attributes;
}

void ColumnList::QVariantToTimedValueList(const QVariant& selector, TUScene& scene, std::vector<TUTimedValue*>& columns,
                                          QStringList& errors)
{
    if (QVariantToPointer(selector)) {
        const auto* wrapper = objectFrom<Column>(selector);
        if (wrapper && wrapper->getTimedValue())
            columns.push_back(wrapper->getTimedValue());
        else if (wrapper)
            errors.append(tr("Unable to identify the column."));
        return;
    }
    if (selector.typeId() == QMetaType::Int) {
        const int index = selector.toInt();
        if (index >= 0 && index < scene.timedValueCount())
            columns.push_back(scene.timedValuesBegin()[index]);
        else
            errors.append(tr("Column index is out of range."));
        return;
    }
    const QStringList names = namesIn(selector);
    std::unordered_set<TUTimedValue*> named;
    for (const QString& name : names) {
        if (TUTimedValue* column = scene.findTimedValue(name, 0))
            named.insert(column);
        else
            errors.append(tr("Failed to find column by name: %1").arg(name));
    }
    if (named.size() == 1)
        columns.push_back(*named.begin());
    else if (!named.empty())
        std::copy_if(scene.timedValuesBegin(), scene.timedValuesEnd(), std::back_inserter(columns),
                     [&named](TUTimedValue* column) { return named.contains(column); });
}

void ColumnList::throwNoMoreItems() const
{
    setAtEnd(true);
    if (size() == 0)
        throw Exception(tr("Column List is empty."));
    throwIndexOutOfRange();
}

TUTimedValue* ColumnList::columnAt(int index) const
{
    const TUScene& scene = target();
    if (index < 0 || index >= scene.timedValueCount())
        throw Exception(tr("Index is out of range."));
    return scene.timedValuesBegin()[index];
}

std::vector<TUTimedValue*> ColumnList::selected(const QVariant& selector) const
{
    std::vector<TUTimedValue*> columns;
    QStringList errors;
    QVariantToTimedValueList(selector, target(), columns, errors);
    throwIfAny(errors);
    if (columns.empty())
        throw Exception(tr("Failed to find specified column."));
    return columns;
}

} // namespace OMC
