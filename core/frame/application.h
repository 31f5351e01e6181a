#pragma once

#include "core/frame/obj.h"

#include <memory>

class SC_SessionContext;

namespace OMC {

/// The application as a script sees it: the root from which everything else is reached.
///
/// The service library derives from it and hands out the root objects. It never becomes invalid. The log functions may
/// be called from any thread.
class BRINDLE_CORE_EXPORT Application : public BaseObject {
    Q_OBJECT

public:
    /// The session is not owned.
    explicit Application(SC_SessionContext* session);
    Application(const Application& other);
    ~Application() override;

    std::string __str__() const override;

    virtual Obj getProject() const = 0; ///< The open project.
    virtual Obj getScenes() const = 0;  ///< The project's scenes.

    void trace(const QString& message); ///< Writes a line to the log.
    /// Writes a line to the log; the level is "error" or "debug", in any case of letters, and anything else for a plain
    /// line.
    void log(const QString& message);
    void log(const QString& message, const QString& level);
    void error(const QString& message); ///< Writes an error to the log.
    void debug(const QString& message); ///< Writes a line for developers to the log.

    void processOneEvent(); ///< Runs the events that are pending, without taking the application lock. On any thread.

    /// Calls a function without arguments, on a script thread with the application lock held meanwhile. What the
    /// function raises comes back, and leaves the lock taken; its result is dropped. Fails for what is no function.
    void runFunction(const QVariant& function);
    /// Calls a function without arguments on the main thread, at once from there, else when it comes to events. With
    /// `wait`, waits until that is done (30 s at most) and raises what it raised; else goes on at once. Of functions
    /// that threads post before the main thread comes to the first of them, only that one is called; and a lock that is
    /// really held keeps the main thread from coming to any. Fails for what is no function, and in a plain interpreter.
    void runOnMain(const QVariant& function, bool wait);

    /// Takes the application lock, which lets the threads of the script work on the project; taken twice, it is to be
    /// given back twice. Fails where no project is open. Does nothing on the main thread and in a plain interpreter.
    void threadLock();
    /// Gives the application lock back. Fails, and keeps it, where no project is open any more. Does nothing on the
    /// main thread and in a plain interpreter.
    void threadUnlock();

protected:
    SC_SessionContext* context() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
