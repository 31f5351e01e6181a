#pragma once

#include "qtscript/qscriptengine.h"

namespace brindle::javascript {

/// While it lives, scripts run into this object; into the engine's own global object for an invalid value.
class GlobalObject {
public:
    GlobalObject(QScriptEngine& engine, const QScriptValue& object)
        : m_engine(engine),
          m_before(engine.exchangeGlobalObject(object))
    {}
    GlobalObject(const GlobalObject&) = delete;
    GlobalObject& operator=(const GlobalObject&) = delete;
    ~GlobalObject() { m_engine.exchangeGlobalObject(m_before); }

private:
    QScriptEngine& m_engine;
    QScriptValue m_before;
};

} // namespace brindle::javascript
