#pragma once

#include "core/host/application.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_session.h"

#include <QString>

#include <functional>
#include <memory>

/// The open engine, as the program that starts it sees it. A session without Python is made by
/// SC_SessionContext::create (in core/host/sc_session.h), one with it by `createPythonSession`; these are the facts
/// that only the program knows. Everything else is behind the host's names.
namespace brindle::engine {

/// The purpose of a process that runs without a person at it.
enum class BatchMode { None, Scripting, Rendering, Python };

BRINDLE_HOST_EXPORT BatchMode batchMode(); ///< None, unless the program says else.
/// To be called before anything asks; ST_BatchParams tells it on.
BRINDLE_HOST_EXPORT void setBatchMode(BatchMode mode);

/// A session whose process runs Python under the application's thread rules. Like every session it becomes the one that
/// PLUG_Services gives, until it is destroyed.
BRINDLE_HOST_EXPORT std::unique_ptr<SC_SessionContext> createPythonSession();

/// Sets the folder that oswUtil::getBinDir gives; an empty text stands for this library's folder, the default.
BRINDLE_HOST_EXPORT void setBinDir(const QString& folder);

/// Receives each line of the log with its severity. Called on the thread that writes the line, one line at a time.
using LogSink = std::function<void(MSG_Scope::Action level, const QString& text)>;
/// Sends the log to `sink` in place of standard error; an empty function sends it to standard error again. When this
/// returns, the sink before is no longer called.
BRINDLE_HOST_EXPORT void setLogSink(LogSink sink);
/// Whether standard error gets lines for developers as well. They are also written while the environment variable
/// BRINDLE_DEBUG is set to something. A sink gets all lines.
BRINDLE_HOST_EXPORT void setLogVerbose(bool verbose);

/// A text that came from outside, for a line that a person reads: control characters and line breaks as JSON writes
/// them, and a text that nobody can read for its length without its middle.
BRINDLE_HOST_EXPORT QString shown(const QString& text);

/// The program of the open engine, with a place where script services are registered.
class BRINDLE_HOST_EXPORT Application final : public BAPP_Application {
public:
    Application(const QString& name, const QString& version, bool interactive);
    ~Application() override;

    QString name() const override;
    QString version() const override;
    bool isInteractive() const override;
    BAPP_ScriptHost* scriptHost() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// While it lives, `changed` is called on the main thread, by its event loop, when what a person sees of the session as
/// a whole may be another: a project was opened, closed or saved, its undo list changed. Many changes in a row, of any
/// thread, are told once. Made and destroyed on the main thread.
class BRINDLE_HOST_EXPORT SessionWatch {
public:
    explicit SessionWatch(std::function<void()> changed);
    SessionWatch(const SessionWatch&) = delete;
    SessionWatch& operator=(const SessionWatch&) = delete;
    ~SessionWatch();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// While it lives, the event loop of the main thread takes part in the application's lock (core/host/pl_applock.h): it
/// holds the lock while it handles events and gives it up while it waits for the next one. Made on the main thread when
/// the QCoreApplication stands, destroyed there before it goes; one at a time.
class BRINDLE_HOST_EXPORT MainLoop {
public:
    MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;
    ~MainLoop();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace brindle::engine
