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
    virtual Obj getScenes() const = 0;  ///< Its scenes.

    void trace(const QString& message);
    void log(const QString& message);
    /// `level` is "error" or "debug", in any case of letters; any other is a plain line.
    void log(const QString& message, const QString& level);
    void error(const QString& message);
    void debug(const QString& message);

    /// Runs the events that are pending, without taking the application lock. On any thread.
    void processOneEvent();

    /// Calls a function of the script, on a script thread under the application lock. Throws for what is no function,
    /// and what the function raises, which leaves the lock taken.
    void runFunction(const QVariant& function);
    /// Calls a function of the script on the main thread; with `wait`, returns when that is done and throws what it
    /// raised, or throws after 30 s. Throws for what is no function, and in a plain interpreter.
    void runOnMain(const QVariant& function, bool wait);

    /// Both throw on a script thread when no project is open; the lock then stays as it is. They do nothing on the main
    /// thread and in a plain interpreter.
    void threadLock();
    void threadUnlock();

protected:
    SC_SessionContext* context() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
