#include "core/nodes/nodesubselectionnamefactory.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <map>

namespace OMC {

namespace {

std::map<QString, std::unique_ptr<NodeSubselectionNameFactory>>& registry()
{
    static std::map<QString, std::unique_ptr<NodeSubselectionNameFactory>> factories;
    return factories;
}

} // namespace

QString NodeSubselectionNameFactory::getSubselectionName(int index) const
{
    return QCoreApplication::translate("OMC::NodeSubselection", "Handle_%1").arg(index);
}

int NodeSubselectionNameFactory::getSubselectionIndex(const QString& name) const
{
    return getGenericSubselectionIndex(name);
}

void NodeSubselectionNameFactory::registerNodeSubselectionNameFactory(
    const QString& type, std::unique_ptr<NodeSubselectionNameFactory> factory)
{
    registry()[type] = std::move(factory);
}

const NodeSubselectionNameFactory* NodeSubselectionNameFactory::getFactory(const QString& type)
{
    const auto found = registry().find(type);
    return found == registry().end() ? nullptr : found->second.get();
}

int NodeSubselectionNameFactory::getGenericSubselectionIndex(const QString& name)
{
    static const QRegularExpression digits(QStringLiteral("([0-9]+)"));
    return digits.match(name).captured(1).toInt();
}

} // namespace OMC
