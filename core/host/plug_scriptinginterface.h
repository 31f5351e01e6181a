#pragma once

#include "core/host/export.h"

#include <QList>
#include <QString>

class QScriptEngine;
class QScriptValue;

/// The host's Javascript: its one script engine, and the scripts that it knows. PLUG_Services gives it. The engine and
/// the values are those of `qtscript/`, whose headers a user of them includes.
class BRINDLE_HOST_EXPORT PLUG_ScriptingInterface {
public:
    /// A script file that the host knows.
    struct Program {
        QString folder;
        QString fileName;
    };

    virtual ~PLUG_ScriptingInterface() = default;

    /// The scripts of the open project, then those of the person, each in the order of their names.
    virtual QList<Program> programs() const = 0;
    /// The engine, made at the first call. It is the host's, and the same for as long as the session lasts.
    virtual QScriptEngine* engine() = 0;
    /// Runs a text into the object, which becomes its global object. What goes wrong is the engine's uncaught
    /// exception; `fileName` is what that names, nothing for a text of no file.
    virtual void runInto(const QScriptValue& global, const QString& text, const QString& fileName) = 0;
    /// Runs a text into a new global object, then calls the named function in that. `self` is its `this`; the global
    /// object, for what is no object.
    virtual QScriptValue run(const QString& text, const QString& fileName, const QString& function,
                             const QList<QScriptValue>& arguments, const QScriptValue& self) = 0;
};
