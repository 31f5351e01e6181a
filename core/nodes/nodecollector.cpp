#include "core/nodes/nodecollector.h"

#include <QStringList>
#include <QVariantMap>

#include <algorithm>

namespace OMC {

namespace {

void addPattern(QList<QRegularExpression>& patterns, const QVariant& value)
{
    if (value.typeId() == QMetaType::QRegularExpression)
        patterns.append(value.toRegularExpression());
    else
        patterns.append(QRegularExpression(value.toString()));
}

void addPatterns(QList<QRegularExpression>& patterns, const QVariant& value)
{
    if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList) {
        for (const QVariant& element : value.toList())
            addPattern(patterns, element);
    } else {
        addPattern(patterns, value);
    }
}

bool anyMatches(const QList<QRegularExpression>& patterns, const QString& text)
{
    return std::any_of(patterns.begin(), patterns.end(), [&](const QRegularExpression& pattern) {
        // Matching with a pattern that is not valid would write a warning to the standard error.
        return pattern.isValid() && pattern.match(text).hasMatch();
    });
}

} // namespace

NodeCollector::NodeCollector(const QVariant& filter)
{
    if (filter.typeId() != QMetaType::QVariantMap) {
        addPatterns(m_any, filter);
        return;
    }
    const QVariantMap map = filter.toMap();
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        if (entry.key().compare(QLatin1String("name"), Qt::CaseInsensitive) == 0)
            addPatterns(m_name, entry.value());
        else if (entry.key().compare(QLatin1String("type"), Qt::CaseInsensitive) == 0)
            addPatterns(m_type, entry.value());
        else if (entry.key().compare(QLatin1String("path"), Qt::CaseInsensitive) == 0)
            addPatterns(m_path, entry.value());
    }
}

void NodeCollector::visit(MO_Module& module)
{
    if (matches(module))
        m_modules.push_back(&module);
}

bool NodeCollector::matches(const MO_Module& module) const
{
    if (!m_name.isEmpty() && !anyMatches(m_name, module.instanceName()))
        return false;
    if (!m_type.isEmpty() && !anyMatches(m_type, module.typeName()))
        return false;
    if (!m_path.isEmpty() && !anyMatches(m_path, module.qualifiedName()))
        return false;
    return m_any.isEmpty() || anyMatches(m_any, module.typeName()) || anyMatches(m_any, module.instanceName()) ||
           anyMatches(m_any, module.qualifiedName());
}

} // namespace OMC
