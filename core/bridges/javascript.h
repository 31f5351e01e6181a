#pragma once

#include "core/frame/obj.h"

class PLUG_ScriptingInterface;
class SC_SessionContext;

namespace OMC {

/// The Javascript of the application, from Python: code is evaluated, scripts are loaded and kept, their functions
/// called.
///
/// All scripts share one engine, so their objects may be handed from one to another; what a script declares is its own.
/// It is valid for as long as the session in which it was made.
///
/// Values go in and come out by one rule: numbers, texts, truth values, lists and dictionaries become the script's own;
/// objects of the object model show their properties there, and functions of Python can be called. An object of a
/// script comes out as a JavascriptObject. What a script throws is a failure that names the file and the line; what a
/// function of Python raised, and the script let go, comes out as itself.
class BRINDLE_CORE_EXPORT Javascript : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Javascript)

public:
    Javascript();

    std::string __str__() const override;

    /// The session, which is still the one that the object was made in; throws otherwise.
    SC_SessionContext* validateGetSession() const;

    QVariant eval(const QString& code); ///< Runs a text, whose names all such texts share, and gives its last value.
    QVariant evaluate(const QString& code); ///< The same as eval.
    /// Runs the text of a script by itself and calls one of its functions, with the items of a list as its arguments or
    /// any other value as its only one. `self` is its `this`.
    QVariant callFunction(const QString& script, const QString& function, const QVariant& arguments,
                          const QVariant& self) const;

    /// The file names of the scripts that the application knows: those in the folder "scripts" of the project, then the
    /// person's. A name that is in both is the project's.
    QVariant availableScripts() const;
    /// The names of the functions in one of them, for which it is run. Fails for a name that isn't among them.
    QVariant availableScriptFunctions(const QString& name);
    /// Calls a function of one of them, as callFunction does.
    QVariant evalAvailableScript(const QString& name, const QString& function, const QVariant& arguments,
                                 const QVariant& self);

    /// A script from a file, which runs now or, with `delayed`, at its first use.
    Obj loadFile(const QString& path, bool delayed);
    /// The same for a script from a text.
    Obj loadString(const QString& script, bool delayed);

private:
    /// The host's, in a session that is still the one; throws otherwise.
    PLUG_ScriptingInterface& validateGetInterface() const;

    SC_SessionContext* m_session;
};

} // namespace OMC
