#pragma once

#include "core/host/plug_scriptinginterface.h"
#include "qtscript/qscriptengine.h"

#include <memory>

namespace brindle::javascript {

/// The open host's Javascript. Its engine is made when it is first asked for, and goes with the session.
class ScriptingService final : public PLUG_ScriptingInterface {
public:
    QList<Program> programs() const override;
    QScriptEngine* engine() override;
    void runInto(const QScriptValue& global, const QString& text, const QString& fileName) override;
    QScriptValue run(const QString& text, const QString& fileName, const QString& function,
                     const QList<QScriptValue>& arguments, const QScriptValue& self) override;

    /// Lets the engine go, with all that its scripts hold; values that are still held are invalid from then on.
    void end();

private:
    std::unique_ptr<QScriptEngine> m_engine;
};

} // namespace brindle::javascript
