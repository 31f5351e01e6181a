#pragma once

#include "core/host/export.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// A conversation with a script engine that was started: what a console, or a command that runs a script, talks to.
///
/// All that is run shares the names of the engine's main module, where `app` is the application with its open project.
/// The printer gets the text that scripts print, on any thread, and the traceback of what they raise. While
/// something runs the main thread goes on with its events every now and then, so the person sees what is printed and
/// may interrupt it; nothing else is to be run then. Everything but `interrupt` is called on the main thread, between a
/// start and the end of the engine, which it belongs to.
class BRINDLE_HOST_EXPORT BAPP_ScriptConsole {
public:
    virtual ~BAPP_ScriptConsole() = default;

    enum class Stream { Output, Error };
    using Printer = std::function<void(Stream stream, const QString& text)>;
    /// Gets the text, in pieces, on the thread that prints; it must not wait. An empty function for the streams of
    /// the process, as at the start. The one before is out of use when this returns.
    virtual void setPrinter(Printer printer) = 0;

    enum class Outcome {
        Done,       ///< It ran, or failed and said why.
        Incomplete, ///< The statement goes on with the next line.
        Leave       ///< The script asked to end the process, with `exitCode`.
    };
    /// Adds a line, without its end, to the statement that is being typed, and runs the statement once it is complete.
    /// The value of an expression is printed. An empty line ends a block.
    virtual Outcome push(const QString& line) = 0;
    /// Adds several lines in one go, which may hold any number of statements and, in a block, empty lines.
    virtual Outcome pushBlock(const QString& text) = 0;
    /// Forgets the lines of a statement that isn't complete yet.
    virtual void discard() = 0;
    /// Runs a script file with these arguments; both are bytes, as the process was given them. A file that can't be
    /// read is said like a failure of the script.
    virtual Outcome runFile(const QByteArray& path, const QList<QByteArray>& arguments) = 0;
    virtual int exitCode() const = 0; ///< The exit code of the last script that asked to end the process.

    /// Raises KeyboardInterrupt in what runs; from an event that is handled meanwhile. Nothing while nothing runs.
    virtual void interrupt() = 0;

    /// Gets true when what runs has kept the main thread from its events for a second and more, inside one call of a
    /// library, and false when that is over. Called on a thread of the console's own.
    using Watcher = std::function<void(bool isStuck)>;
    virtual void setWatcher(Watcher watcher) = 0;

    struct Completion {
        int start = 0;          ///< The place in the line where the completed word or key begins.
        QStringList candidates; ///< In the order of the alphabet, each the whole word or key.
    };
    /// Completes the end of the line: a name; behind a dot an attribute; in a text opened behind a bracket a key of the
    /// object before the bracket. Other texts have no candidates. Only the object itself is asked; the line isn't run.
    virtual Completion complete(const QString& line) = 0;
};
