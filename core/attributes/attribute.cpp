#include "core/attributes/attribute.h"

#include "core/attributes/attributelist.h"
#include "core/attributes/attributewrappervisitor.h"
#include "core/columns/column.h"
#include "core/frame/undo.h"
#include "core/host/at_attr.h"
#include "core/host/mo_framerange.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"
#include "core/nodes/node.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace OMC {

namespace {

bool readInteger(const QVariant& value, int& result)
{
    bool read = true;
    switch (value.typeId()) {
    case QMetaType::QString:
        result = value.toInt(&read);
        return read;
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::UInt: {
        const double number = value.toDouble();
        if (number != std::trunc(number) || number < std::numeric_limits<int>::min() ||
            number > std::numeric_limits<int>::max())
            return false;
        result = static_cast<int>(number);
        return true;
    }
    default: {
        const int number = value.toInt(&read);
        if (read)
            result = number;
        return read;
    }
    }
}

/// The scene's column of that name, or null.
TUTimedValue* columnNamed(const SC_SceneCommon& scene, const QString& name)
{
    const SC_TimedValueListInterface* columns = scene.timedValues();
    return name.isEmpty() || !columns ? nullptr : columns->findTimedValue(name, 0);
}

} // namespace

Attribute::Attribute(MO_Node* node, const QStringList& parentPath, const QString& keyword)
    : EngineView(node),
      m_parentPath(parentPath.join(QLatin1Char('.'))),
      m_keyword(keyword)
{
    if (!node)
        throwInvalid();
    m_attribute.assign(attribFromPath(*node, getPath()));
    m_isFound = !m_attribute.isGone();
}

Attribute::Attribute(AT_Attr& attribute, const QString& parentPath)
    : EngineView(attribute.node()),
      m_parentPath(parentPath),
      m_keyword(attribute.meta().keyword()),
      m_attribute(&attribute),
      m_isFound(true)
{}

std::string Attribute::__str__() const
{
    return described(tr("Attribute(%1, %2)"));
}

// A script sets values by "set_value", a method like any other: the name stays in listings.
bool Attribute::filterDir(std::string& name) const
{
    return name == "set_value" || BaseObject::filterDir(name);
}

QVariant Attribute::getColumn() const
{
    const TUTvSocket* socket = attributeToLink().socket();
    TUTimedValue* column = socket ? socket->linkedTimedValue() : nullptr;
    return column ? toVariant(Column::getWrapped(column)) : QVariant::fromValue(nullptr);
}

void Attribute::setColumn(const QVariant& value)
{
    AT_Attr& attribute = attributeToLink();
    const SC_SceneCommon* scene = attribute.sceneCommon();
    CO_CommandManager& manager = undo::manager(scene);
    TUTvSocket* socket = attribute.socket();
    if (!socket)
        throw Exception(std::string("This attribute cannot be linked."));

    TUTimedValue* column = nullptr;
    if (const QObject* object = QVariantToPointer(value)) {
        if (const auto* wrapper = dynamic_cast<const Column*>(object))
            column = wrapper->getTimedValue();
    } else if (value.typeId() == QMetaType::QString) {
        const QString name = value.toString();
        column = columnNamed(*scene, name);
        if (!column && !name.isEmpty())
            throw Exception(tr("Unable to find specified column by name."));
    } else if (value.toBool()) {
        throw Exception(tr("Failed to get valid column argument."));
    }

    auto commands = std::make_unique<CO_AndCommand>();
    if (!column || socket->isLinked())
        commands->add(new tu_tv_socket::UnlinkCmd(socket, 0));
    if (column)
        commands->add(new tu_tv_socket::LinkCmd(socket, column));
    runLink(manager, commands.release(), column);
}

QString Attribute::getColumnName() const
{
    const TUTvSocket* socket = attributeToLink().socket();
    QString name;
    return socket && socket->columnName(name, 0) ? name : QString(QLatin1String(""));
}

void Attribute::setColumnName(const QString& name)
{
    AT_Attr& attribute = attributeToLink();
    const SC_SceneCommon* scene = attribute.sceneCommon();
    CO_CommandManager& manager = undo::manager(scene);
    TUTimedValue* column = columnNamed(*scene, name);
    if (!column && !name.isEmpty())
        throw Exception(tr("Unable to find specified column by name (%1)").arg(name));
    TUTvSocket* socket = attribute.socket();
    if (!socket)
        throw Exception(tr("Attribute cannot be animated."));

    // Required: a present link isn't cut first, unlike in setColumn; the engine's command replaces it.
    CO_Command* command = nullptr;
    if (column)
        command = new tu_tv_socket::LinkCmd(socket, column);
    else
        command = new tu_tv_socket::UnlinkCmd(socket, 0);
    runLink(manager, command, column);
}

void Attribute::runLink(CO_CommandManager& manager, CO_Command* command, const TUTimedValue* column)
{
    const QString nodeName = findTarget()->instanceName();
    undo::run(manager, command,
              column ? tr("Linking %1 of %2 to %3").arg(m_keyword, nodeName, column->getName())
                     : tr("Unlinking %1 of %2").arg(m_keyword, nodeName),
              tr("Failed to set the attribute's column name."));
}

bool Attribute::unlink()
{
    try {
        setColumnName(QString());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool Attribute::link(const QVariant& value)
{
    try {
        setColumn(value);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString Attribute::getKeyword() const
{
    validate();
    return m_keyword;
}

QString Attribute::getDisplayName() const
{
    return attribute().displayText();
}

QString Attribute::getTypeName() const
{
    return attribute().typeText();
}

QString Attribute::getFullKeyword() const
{
    validate();
    return m_parentPath.isEmpty() ? m_keyword : m_parentPath + QLatin1Char('.') + m_keyword;
}

bool Attribute::getDynamic() const
{
    return attribute().meta().isDynamic();
}

bool Attribute::getLinkable() const
{
    return attribute().socket() != nullptr;
}

bool Attribute::setTextValue(int frame, const QString& text)
{
    AT_Attr& attribute = this->attribute();
    CO_CommandManager& manager = undo::manager(attribute.sceneCommon());
    CO_Command* command = attribute.setTextCommand(frame, text);
    if (!command)
        return false;
    static const QString set = tr("Set ");
    static const QString of = tr(" of ");
    return manager.execute(command, set + m_keyword + of + findTarget()->instanceName());
}

QString Attribute::getTextValue(int frame) const
{
    return attribute().textAt(frame);
}

AT_Attr* Attribute::getAttr() const
{
    const MO_Node* node = findTarget();
    AT_Attr* attribute = m_attribute.get();
    // A wrapper that was made for no attribute isn't one of the attribute that took the path later.
    if (!node || (m_isFound ? !attribute : attribFromPath(*node, getPath()) != nullptr))
        throwInvalid();
    return attribute;
}

QStringList Attribute::getPath() const
{
    QStringList path;
    if (!m_parentPath.isEmpty())
        path = m_parentPath.split(QLatin1Char('.'));
    path.append(m_keyword);
    return path;
}

Obj Attribute::getSubattributes() const
{
    if (!attributeCast<AT_ComplexAttr>(&attribute()))
        return {};
    return Obj(new AttributeList(findTarget(), getPath(), AttributeList::AllOfLevel));
}

Obj Attribute::node() const
{
    return Obj(Node::getWrapped(&target()));
}

MO_Node* Attribute::getNode() const
{
    return findTarget();
}

bool Attribute::operator==(const Attribute& other) const
{
    return hasTargetOf(other) && m_keyword == other.m_keyword && m_parentPath == other.m_parentPath;
}

bool Attribute::operator==(const Attribute* other) const
{
    return other && *this == *other;
}

Attribute* Attribute::getWrapped(AT_Attr* attribute, const QStringList& parentPath)
{
    return getWrappedBelow(attribute, parentPath.join(QLatin1Char('.')));
}

Attribute* Attribute::getWrappedBelow(AT_Attr* attribute, const QString& parentPath)
{
    if (!attribute)
        return nullptr;
    AttributeWrapperVisitor visitor(parentPath);
    attribute->accept(visitor);
    return visitor.take();
}

Attribute* Attribute::getWrappedByAttr(AT_Attr* attribute)
{
    const MO_Node* node = attribute ? attribute->node() : nullptr;
    if (!node)
        return nullptr;
    // Required: the search ends at the second level. An attribute further down gives null.
    for (auto top = node->attrsBegin(); top != node->attrsEnd(); ++top) {
        if (*top == attribute)
            return getWrappedBelow(attribute, QString());
        const auto* complex = attributeCast<AT_ComplexAttr>(*top);
        if (complex && std::find(complex->attrsBegin(), complex->attrsEnd(), attribute) != complex->attrsEnd())
            return getWrappedBelow(attribute, (*top)->meta().keyword());
    }
    return nullptr;
}

AT_Attr* Attribute::attribFromPath(const MO_Node& node, const QStringList& path)
{
    AT_Attr* attribute = path.isEmpty() ? nullptr : node.findAttributeByKeyword(path.front());
    for (qsizetype level = 1; attribute && level < path.size(); ++level) {
        attribute = memberNamed(attributeCast<AT_ComplexAttr>(attribute), path[level]);
    }
    return attribute;
}

AT_Attr* Attribute::attribFromFullPath(MO_Node* node, const QString& fullPath)
{
    if (!node)
        return nullptr;
    QString first;
    QString rest;
    if (!AT_ComplexAttr::splitNames(fullPath, first, rest))
        return node->findAttributeByKeyword(fullPath);
    AT_Attr* attribute = node->findAttributeByKeyword(first);
    for (bool further = true; attribute && further;) {
        const QString level = std::exchange(rest, QString());
        further = AT_ComplexAttr::splitNames(level, first, rest);
        attribute = memberNamed(attributeCast<AT_ComplexAttr>(attribute), further ? first : level);
    }
    return attribute;
}

AT_Attr* Attribute::memberNamed(const AT_ComplexAttr* attribute, QStringView keyword)
{
    return attribute ? attribute->memberNamed(keyword) : nullptr;
}

void Attribute::deriveRangeQVariant(SC_SceneCommon* scene, const QVariant& value, int& start, int& end, bool& isRange)
{
    switch (value.typeId()) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        const QVariantList range = value.toList();
        if (range.isEmpty())
            throw Exception(tr("Invalid range specififed."));
        int first = 0;
        if (!readInteger(range[0], first))
            throw Exception(std::string("First range argument is invalid."));
        int second = end;
        if (range.size() > 1) {
            if (!readInteger(range[1], second))
                throw Exception(std::string("Second range argument is invalid."));
            if (second < 0) {
                if (!scene)
                    throwUnexpected();
                second = scene->getNumberOfFrames();
            }
            isRange = true;
            std::tie(first, second) = std::minmax({first, second});
            end = second;
        }
        start = first;
        break;
    }
    case QMetaType::Int:
        start = value.toInt();
        break;
    case QMetaType::Double: {
        const double frame = std::trunc(value.toDouble());
        if (!(std::abs(frame) <= std::numeric_limits<int>::max()))
            throwInvalidArgument(0);
        start = static_cast<int>(frame);
        break;
    }
    default:
        break;
    }
}

MO_FrameRange Attribute::frameRange(SC_SceneCommon* scene, const QVariant& value)
{
    int start = 0;
    int end = 0;
    bool isRange = false;
    deriveRangeQVariant(scene, value, start, end, isRange);
    if (!isRange)
        return MO_FrameRange(start);
    constexpr int longest = std::numeric_limits<int>::max();
    if (static_cast<long long>(end) - start > longest)
        start = end - longest;
    return MO_FrameRange(start, 0, end - start);
}

std::string Attribute::described(const QString& pattern) const
{
    return pattern.arg(target().qualifiedName(), getFullKeyword()).toStdString();
}

void Attribute::throwUnexpectedType()
{
    throw Exception(tr("Unexpected type found."));
}

AT_Attr& Attribute::attribute() const
{
    validate();
    AT_Attr* attribute = getAttr();
    if (!attribute)
        throwInvalid();
    return *attribute;
}

AT_Attr& Attribute::attributeToLink() const
{
    validate();
    AT_Attr* attribute = getAttr();
    if (!attribute)
        throw Exception(tr("Unable to find attribute."));
    return *attribute;
}

} // namespace OMC
