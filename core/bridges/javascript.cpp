#include "core/bridges/javascript.h"

#include "core/bridges/javascriptrootobject.h"
#include "core/bridges/scriptfile.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/host/plug_scriptinginterface.h"
#include "core/host/sc_session.h"
#include "core/host/ut_path.h"

#include <QFile>

#include <algorithm>

namespace OMC {

namespace {

struct ScriptFile {
    QString path;
    QString text;
};

/// Finds a program by its file name and reads it. `unknown` is the sentence for a name that isn't there.
ScriptFile readProgram(const PLUG_ScriptingInterface& host, const QString& name, const QString& unknown)
{
    const QList<PLUG_ScriptingInterface::Program> programs = host.programs();
    const auto program =
        std::find_if(programs.begin(), programs.end(), [&](const auto& p) { return p.fileName == name; });
    if (program == programs.end())
        throw Exception(unknown.arg(name));
    const QString path = program->folder + u'/' + program->fileName;
    const std::optional<QString> text = readScript(path);
    if (!text)
        throw Exception(Javascript::tr("Unable to read file: %1").arg(path));
    return {path, *text};
}

Obj loaded(JavascriptRootObject* script, bool delayed)
{
    Obj handle(script);
    if (!delayed)
        script->delayedInitialize();
    return handle;
}

} // namespace

Javascript::Javascript() : m_session(Global::sessionContext()) {}

std::string Javascript::__str__() const
{
    return "JavascriptInterface()";
}

SC_SessionContext* Javascript::validateGetSession() const
{
    SC_SessionContext* session = Global::sessionContext();
    if (!session || session != m_session)
        throwInvalid();
    return session;
}

PLUG_ScriptingInterface& Javascript::validateGetInterface() const
{
    validateGetSession();
    return found(PLUG_Services::getScriptingInterface());
}

QVariant Javascript::eval(const QString& code)
{
    validateGetInterface();
    validateThreadLock();
    return JavascriptBackend::instance().evaluate(code);
}

QVariant Javascript::evaluate(const QString& code)
{
    return eval(code);
}

QVariant Javascript::callFunction(const QString& script, const QString& function, const QVariant& arguments,
                                  const QVariant& self) const
{
    validateGetInterface();
    validateThreadLock();
    return JavascriptBackend::instance().callFunction(script, QString(), function, arguments, self);
}

QVariant Javascript::availableScripts() const
{
    QStringList names;
    for (const PLUG_ScriptingInterface::Program& program : validateGetInterface().programs())
        names.append(program.fileName);
    names.removeDuplicates();
    return names;
}

QVariant Javascript::availableScriptFunctions(const QString& name)
{
    const ScriptFile file = readProgram(validateGetInterface(), name, tr("Unable to find %1 in available scripts."));
    validateThreadLock();
    return JavascriptBackend::instance().functionsOf(file.text, file.path);
}

QVariant Javascript::evalAvailableScript(const QString& name, const QString& function, const QVariant& arguments,
                                         const QVariant& self)
{
    const ScriptFile file = readProgram(validateGetInterface(), name, tr("Unable to find '%1' in available scripts."));
    validateThreadLock();
    return JavascriptBackend::instance().callFunction(file.text, file.path, function, arguments, self);
}

Obj Javascript::loadFile(const QString& path, bool delayed)
{
    if (!QFile::exists(oswRemapPath::RemapPath2(path)))
        throw Exception(tr("Unable to load script from path: %1").arg(path));
    return loaded(new JavascriptRootObject(QString(), path), delayed);
}

Obj Javascript::loadString(const QString& script, bool delayed)
{
    return loaded(new JavascriptRootObject(script, QString()), delayed);
}

} // namespace OMC
