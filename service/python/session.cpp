#include "service/python/session.h"

#include "core/frame/pythonthread.h"
#include "core/frame/threadmanagerstate.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"
#include "service/python/interpreter.h"
#include "service/python/nodes/render.h"
#include "service/python/wrapper.h"

#include <QFileInfo>

#include <memory>

namespace brindle::python {

namespace {

/// The open project of the process: in the host's session, or in one of our own where there is no host. That one needs no
/// QCoreApplication, and makes none: a script may make its QApplication before or after, or not at all.
struct Session {
    std::unique_ptr<SC_SessionContext> context;
    Ref application;
    bool ended = false; ///< The interpreter is ending: nothing is opened any more.
};

Session& session()
{
    static Session only;
    return only;
}

SC_SessionContext& context()
{
    Session& current = session();
    if (current.ended)
        throw OMC::Exception(QStringLiteral("No project can be opened while the interpreter is ending."));
    if (!PLUG_Services::getSessionContext()) {
        OMC::ThreadManagerState::standInForApplication();
        current.context = SC_SessionContext::create();
    }
    return *PLUG_Services::getSessionContext();
}

void dropApplication()
{
    forgetPictures();
    if (!session().application || !canEnterInterpreter())
        return;
    const OMC::PythonGILScope python;
    session().application = Ref();
}

using OpenFunction = SC_Project* (SC_ProjectManager::*)(const QString&, QString&, const QString&);

PyObject* enterProject(OpenFunction open, const QString& path, const char* howToDiscard)
{
    QString error;
    SC_SessionContext* current = nullptr;
    {
        EngineGate::Operation operation;
        current = &context();
        OMC::BaseObject::validateThreadLock();
        operation.run([&] { (current->projectManager()->*open)(path, error, QString::fromLatin1(howToDiscard)); });
    }
    if (!error.isEmpty())
        throw OMC::Exception(error);
    Ref application(toPython(new ServiceApplication(current)));
    session().application = Ref::borrow(application.get());
    return application.release();
}

/// Whether the path leads to the folder in which the project can be saved.
bool isOwnFolder(const SC_Project& project, const QString& path)
{
    const QString folder = QFileInfo(path).canonicalFilePath();
    return !project.isReadOnly() && !folder.isEmpty() && folder == QFileInfo(project.path()).canonicalFilePath();
}

using SaveFunction = bool (*)(SC_ProjectManager&, const QString&, QString&);

void saveWith(const ServiceApplication& application, SaveFunction function, const QString& path)
{
    QString error;
    bool done = false;
    {
        EngineGate::Operation operation;
        SC_ProjectManager& manager = application.projectManager();
        done = operation.run([&] { return function(manager, path, error); });
    }
    if (!done)
        throw OMC::Exception(error);
}

} // namespace

void beginSession()
{
    context();
}

PyObject* createProject(const QString& path, bool discard)
{
    return enterProject(&SC_ProjectManager::createProject, path, discard ? "" : "brindle.create(path, discard=True)");
}

PyObject* openProject(const QString& path, bool readOnly, bool discard)
{
    return enterProject(readOnly ? &SC_ProjectManager::openProjectReadOnly : &SC_ProjectManager::openProject, path,
                        discard ? "" : "brindle.open(path, discard=True)");
}

PyObject* currentApplication()
{
    SC_SessionContext* host = PLUG_Services::getSessionContext();
    Ref& application = session().application;
    // A host may close its project without a word.
    if (application && !dynamic_cast<const ServiceApplication&>(*objectOf(application.get())).isOpen())
        application = Ref();
    if (!application && host && host->projectCommon())
        application = Ref(toPython(new ServiceApplication(host)));
    return Ref::borrow(application ? application.get() : Py_None).release();
}

void hostOpenedProject(SC_SessionContext*)
{
    // The project's application is made when a script asks for it; one of another project is out of date.
    dropApplication();
}

void hostClosesProject()
{
    dropApplication();
}

void save(const ServiceApplication& application, const QString& path)
{
    saveWith(
        application,
        [](SC_ProjectManager& manager, const QString& to, QString& error) {
            const bool isOwn = to.isNull() || isOwnFolder(*manager.project(), to);
            return isOwn ? manager.saveProject(error) : manager.saveProjectAs(to, error);
        },
        path);
}

void saveAs(const ServiceApplication& application, const QString& path)
{
    saveWith(
        application,
        [](SC_ProjectManager& manager, const QString& to, QString& error) { return manager.saveProjectAs(to, error); },
        path);
}

void close(const ServiceApplication& application)
{
    {
        EngineGate::Operation operation;
        if (!application.isOpen())
            return;
        SC_ProjectManager& manager = application.projectManager();
        operation.run([&] { manager.closeProject(); });
    }
    session().application = Ref();
}

void shutDown()
{
    Session& current = session();
    current.ended = true;
    interpreterEnds();
    EngineGate::closeForOthers();
    current.application = Ref();
    if (EngineGate::isCutOff())
        static_cast<void>(current.context.release());
    current.context.reset();
}

} // namespace brindle::python
