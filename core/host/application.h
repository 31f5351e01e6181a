#pragma once

#include "core/host/export.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPolygonF>
#include <QString>
#include <QStringList>

#include <functional>

class BAPP_ScriptConsole;
class BAPP_ScriptEngine;
class BAPP_ScriptHost;
class BAPP_VectorizationInterface;

/// How the application was started.
class BRINDLE_HOST_EXPORT ST_BatchParams {
public:
    static bool isBatchScripting();
    static bool isBatchRendering();
    static bool isBatchPython();
};

/// The program: it makes one object of its own class, which is known from then on until it goes.
class BRINDLE_HOST_EXPORT BAPP_Application {
public:
    /// The running program, or null where there is none, as in a plain interpreter.
    static BAPP_Application* instance();

    BAPP_Application();
    BAPP_Application(const BAPP_Application&) = delete;
    BAPP_Application& operator=(const BAPP_Application&) = delete;
    virtual ~BAPP_Application();

    virtual QString name() const = 0;
    virtual QString version() const = 0;
    virtual bool isInteractive() const = 0; ///< Whether a person works with it in windows.
    /// The registry of script services, or null in a program without scripting.
    virtual BAPP_ScriptHost* scriptHost() const = 0;
};

/// The registry of script services. It owns none of them; null takes a service away.
class BRINDLE_HOST_EXPORT BAPP_ScriptHost {
public:
    virtual ~BAPP_ScriptHost() = default;
    virtual void setScriptEngine(BAPP_ScriptEngine* engine) = 0;
    virtual void setVectorizationInterface(BAPP_VectorizationInterface* vectorization) = 0;
    virtual BAPP_ScriptEngine* scriptEngine() const = 0;
    virtual BAPP_VectorizationInterface* vectorizationInterface() const = 0;
};

/// Runs scripts inside the application, on its main thread. It belongs to whoever made it.
class BRINDLE_HOST_EXPORT BAPP_ScriptEngine {
public:
    virtual ~BAPP_ScriptEngine(); ///< Takes itself away from the application, where it is registered.
    /// Runs a script file, `arguments` beginning with its path, to the end of the interpreter, and gives the script's
    /// exit code. The arguments are bytes, as the process was given them. Once a process, in place of `start`. A
    /// failure to begin is one line on standard error and 1.
    ///
    /// `ended` is called when the interpreter is gone. It is the place to close the project: a script that calls
    /// sys.exit, or is interrupted, ends the process there, and `run` never returns.
    virtual int run(const QList<QByteArray>& arguments, std::function<void()> ended) = 0;
    /// Starts the interpreter and leaves it, for an application that lives on. False, with the reason, on failure.
    virtual bool start(QString& error) = 0;
    /// Runs statements in the main module of a started interpreter. An exception goes to the script's own standard
    /// error, and makes it false.
    virtual bool execute(const QString& statements) = 0;
    /// The conversation with a started interpreter (core/host/scriptconsole.h), which is the engine's; null where there
    /// is none.
    virtual BAPP_ScriptConsole* console() { return nullptr; }
};

/// A service that turns pictures into vector drawings. It belongs to whoever made it.
class BRINDLE_HOST_EXPORT BAPP_VectorizationInterface {
public:
    virtual ~BAPP_VectorizationInterface() = default;
    /// The outlines of what is darker than `threshold` (0 for white to 255 for black) in a picture on white paper,
    /// closed, each around its dark area clockwise, and counterclockwise around a hole in one. Coordinates are the
    /// picture's, in pixels from its top left corner. A threshold of 0 or less counts as 1, the lightest grey that is
    /// to be seen.
    virtual QList<QPolygonF> outlines(const QImage& picture, int threshold) const = 0;
};

class BRINDLE_HOST_EXPORT BUIAPP_Application {
public:
    /// Runs pending events without taking the application lock.
    static void processEventsNoAppLock(bool);
};

namespace oswUtil {

/// The folder of the application's libraries, without a slash at the end.
BRINDLE_HOST_EXPORT QString getBinDir();
/// The folder of the application's resources, without a slash at the end.
BRINDLE_HOST_EXPORT QString getResourceDir();

} // namespace oswUtil
