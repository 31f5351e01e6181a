#include "qtscript/scriptnames.h"

#include "qtscript/applicationscope.h"

#include <QHash>
#include <QJSEngine>
#include <QJSValueIterator>

namespace {

QHash<QString, QJSValue> propertiesOf(const QJSValue& object)
{
    QHash<QString, QJSValue> properties;
    for (QJSValueIterator it(object); it.next();)
        properties.insert(it.name(), it.value());
    return properties;
}

} // namespace

ScriptNames::ScriptNames(const QString& program, const QString& fileName, int lineNumber)
{
    const ApplicationScope application;
    QJSEngine engine;
    const QHash<QString, QJSValue> before = propertiesOf(engine.globalObject());
    // Functions and variables are declared ahead of the first statement, which ends the run.
    const QJSValue result = engine.evaluate(QStringLiteral("throw 0;") + program, fileName, lineNumber);
    m_isWrong = result.isError();
    for (QJSValueIterator it(engine.globalObject()); it.next();) {
        const auto known = before.constFind(it.name());
        // A function may stand in the place of one of the language's. A number there is a constant, NaN among them.
        if (known == before.constEnd() || (!known->isNumber() && !known->strictlyEquals(it.value())))
            m_declared.append(it.name());
    }
}
