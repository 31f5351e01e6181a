#pragma once

#include "core/frame/exception.h"
#include "core/frame/export.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <exception>
#include <memory>

class QScriptValue;

namespace OMC {

/// An exception that a script threw and nobody caught: the sentence with its place. Where it began as the exception of
/// a function that the script called, as one of Python, that is the cause, which comes back to Python as itself.
class BRINDLE_CORE_EXPORT JavascriptError : public Exception {
public:
    JavascriptError(const QString& message, std::exception_ptr cause, const QStringList& backtrace)
        : Exception(message),
          m_cause(std::move(cause)),
          m_backtrace(backtrace)
    {}

    const std::exception_ptr& cause() const { return m_cause; } ///< Null where there is none.
    /// The places in scripts that it went through, "name()@file:line", the innermost first.
    const QStringList& backtrace() const { return m_backtrace; }

private:
    std::exception_ptr m_cause;
    QStringList m_backtrace;
};

/// Lets a person interrupt a script that runs. The library that binds the object model to Python installs an object of
/// its own class.
class BRINDLE_CORE_EXPORT JavascriptInterrupter {
public:
    virtual ~JavascriptInterrupter();

    /// Stands around the outermost run of a thread. `abort` ends the run; any thread may call it, and so may the
    /// handler of a signal, until `runEnds`.
    virtual void runBegins(void (*abort)()) = 0;
    virtual void runEnds() = 0;
    /// Throws what stands for a run that the person interrupted. Called behind `runEnds`.
    [[noreturn]] virtual void throwInterrupted() = 0;

    /// The place of the one object; null until it is installed. It stays to the end of the process.
    static std::unique_ptr<JavascriptInterrupter>& installed();
};

/// A value of a script as the bridge holds it; null for an invalid one.
using JavascriptValue = std::shared_ptr<const QScriptValue>;

/// The half of the Javascript bridge that knows Qt Script. It is in a library of its own, libBrindleJavascript, which
/// is loaded at the first use: a script without Javascript never maps Qt's engine.
///
/// All of it fails with OMC::Exception: with a JavascriptError where a script threw, and for a thread that comes while
/// another one is in the middle of a script.
class BRINDLE_CORE_EXPORT JavascriptBackend {
public:
    virtual ~JavascriptBackend();

    /// Loads the library at the first call. Throws where that fails.
    static JavascriptBackend& instance();

    /// Runs a text in the engine's own global object. An object comes back as a JavascriptObject.
    virtual QVariant evaluate(const QString& code) = 0;
    /// Runs a text into a new global object and calls a function in it. `fileName` is empty for a text of no file.
    virtual QVariant callFunction(const QString& script, const QString& fileName, const QString& function,
                                  const QVariant& arguments, const QVariant& self) = 0;
    /// The names of the functions that a text has made when it ran into a new global object.
    virtual QStringList functionsOf(const QString& script, const QString& fileName) = 0;
    /// Runs a text into a new global object, which goes into `value` also where the text throws.
    virtual void load(const QString& script, const QString& fileName, JavascriptValue& value) = 0;

    virtual bool isFunction(const JavascriptValue& value) = 0;
    virtual bool isArray(const JavascriptValue& value) = 0;
    virtual QString type(const JavascriptValue& value) = 0; ///< The type word.
    virtual QString text(const JavascriptValue& value) = 0; ///< The properties, as `__str__` shows them.

    /// Calls a function. `global` is its global object meanwhile; `self`, its `this`.
    virtual QVariant call(const JavascriptValue& function, const JavascriptValue& global, const QVariant& arguments,
                          const QVariant& self) = 0;

    /// What belongs to an object as a container. Objects come out as JavascriptObjects with `global`.
    virtual std::size_t size(const JavascriptValue& object) = 0;
    virtual QStringList names(const JavascriptValue& object) = 0;
    virtual QVariant get(const JavascriptValue& object, const JavascriptValue& global, const QString& name) = 0;
    virtual QVariant get(const JavascriptValue& object, const JavascriptValue& global, int index) = 0;
    /// The item at a position of a loop over an array, which may be undefined.
    virtual QVariant item(const JavascriptValue& array, const JavascriptValue& global, quint32 index) = 0;
    virtual void set(const JavascriptValue& object, const QString& name, const QVariant& value) = 0;
    virtual void set(const JavascriptValue& object, int index, const QVariant& value) = 0;
    virtual QList<QVariant> list(const JavascriptValue& object, const JavascriptValue& global) = 0;
    virtual bool contains(const JavascriptValue& object, const QVariant& value) = 0;
    virtual void append(const JavascriptValue& object, const QVariant& value) = 0;
    virtual void insert(const JavascriptValue& object, int index, const QVariant& value) = 0;
    virtual QVariant pop(const JavascriptValue& object, const JavascriptValue& global, int index) = 0;
    virtual void remove(const JavascriptValue& object, const QVariant& value) = 0;
    virtual void clear(const JavascriptValue& object) = 0;
};

} // namespace OMC
