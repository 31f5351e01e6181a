#pragma once

#include "core/host/export.h"

class QString;

/// The host's Python engine: a session that has one runs Python inside the application, under the application's thread
/// rules. The library that embeds the interpreter tells it how threads leave and enter that (`setThreadStates`).
class BRINDLE_HOST_EXPORT SCP_PythonEngine {
public:
    virtual ~SCP_PythonEngine() = default;

    /// Shows a text where the output of scripts goes. On a thread that doesn't run Python.
    virtual void log(const QString& text);

    /// Greater than 0 while the main thread is inside Python code. The main thread writes it, any thread reads it.
    static int& mainThreadState();

    /// The thing for which a thread gives up Python's lock and waits.
    enum class Waiting {
        ForMainThread,     ///< Other script threads go on as they like.
        ForApplicationLock ///< Nobody else may enter the engine from Python until the lock is taken.
    };

    /// How a thread leaves the interpreter and gets back in.
    class BRINDLE_HOST_EXPORT ThreadStates {
    public:
        virtual ~ThreadStates() = default;
        /// Gives up Python's lock. Null where the thread doesn't hold it; nothing is to be given back then.
        virtual void* leave(Waiting waiting) = 0;
        /// Takes Python's lock again, with what `leave` gave.
        virtual void enter(void* left) noexcept = 0;
        /// Takes Python's lock for native code, once no script thread is in the middle of a call into the engine. Null
        /// where there is no interpreter; nothing is to be resumed then.
        virtual void* halt() noexcept { return nullptr; }
        virtual void resume(void* /*halted*/) noexcept {}
        /// Gives the application's lock back where all script threads that took it have ended. The main thread calls it
        /// while it waits for that lock outside of Python.
        virtual void giveBackLeftLock() {}
        virtual void write(const QString&) {} ///< Writes a text to Python's standard output.
    };
    /// Not owned, and never taken away again: the library that embeds the interpreter stays loaded. Without one there
    /// is no interpreter to leave.
    static void setThreadStates(ThreadStates* states);
    static void giveBackLeftLock(); ///< Nothing without thread states.

    /// While it lives, the calling thread has given up Python's lock, so that other threads can run Python.
    class BRINDLE_HOST_EXPORT ThreadStateScope {
    public:
        explicit ThreadStateScope(Waiting waiting = Waiting::ForMainThread);
        ThreadStateScope(const ThreadStateScope&) = delete;
        ThreadStateScope& operator=(const ThreadStateScope&) = delete;
        ~ThreadStateScope();

    private:
        void* m_left;
    };

    /// While it lives, no script thread calls into the engine. It goes around each change of what script threads look
    /// up before they have the application's lock: the session, its project, the project's scenes. Scopes may lie
    /// inside each other.
    class BRINDLE_HOST_EXPORT HaltScope {
    public:
        HaltScope();
        HaltScope(const HaltScope&) = delete;
        HaltScope& operator=(const HaltScope&) = delete;
        ~HaltScope();

    private:
        void* m_halted;
    };
};
