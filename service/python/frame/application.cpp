#include "service/python/frame/locked.h"
#include "service/python/session.h"
#include "service/python/tables.h"

namespace brindle::python {

namespace {

/// The application; throws when its project is closed.
PyObject* enter(const ServiceApplication& application)
{
    application.projectManager();
    return currentApplication();
}

/// Closes the project, saves nothing, and lets an exception of the block go on.
bool leave(const ServiceApplication& application, PyObject*, PyObject*, PyObject*)
{
    close(application);
    return false;
}

OMC::BaseObject* locked(const ServiceApplication&)
{
    return new Locked;
}

bool leaveLocked(Locked& block, PyObject*, PyObject*, PyObject*)
{
    block.leave();
    return false;
}

} // namespace

std::vector<ClassTable> applicationTables()
{
    return {
        Class<ServiceApplication>("Application",
                                  "The application with its open project: where a script begins.\n\nAs a context "
                                  "manager it closes the project at the end and saves nothing by itself.")
            .property("project", "The open project, a Project.")
            .property("scenes", "The project's scenes, a SceneList.")
            .property("scene", "The project's first Scene.")
            .method<"save", Form<&save, "path=None">>(
                "Writes the project folder whole or not at all; with a path, does what save_as does.")
            .method<"save_as", Form<&saveAs, "path">>("Writes the project to another folder and goes on there.")
            .method<"close", Form<&close>>(
                "Closes the project and saves nothing; what was got from it is invalid then.")
            .method<"trace", Form<&OMC::Application::trace, "message">>("Writes a line to the log.")
            .method<"log", Form<pick<const QString&>(&OMC::Application::log), "message">,
                    Form<pick<const QString&, const QString&>(&OMC::Application::log), "message, level">>(
                "Writes a line to the log; the level is \"error\", \"debug\" or anything else for a plain line.")
            .method<"error", Form<&OMC::Application::error, "message">>("Writes an error to the log.")
            .method<"debug", Form<&OMC::Application::debug, "message">>("Writes a line for developers to the log.")
            .method<"process_one_event", Form<&OMC::Application::processOneEvent>>("Runs the events that are pending.")
            .method<"run_function", Form<&OMC::Application::runFunction, "function">>(
                "Calls a function without arguments, from a thread of the script with the application lock held "
                "meanwhile. What the function raises comes back, and leaves the lock taken; its result is dropped.")
            .method<"run_on_main", Form<&OMC::Application::runOnMain, "function, wait=False">>(
                "Calls a function without arguments on the main thread, at once from there, else when it comes to "
                "events. With wait, waits until that is done (30 s at most) and raises what it raised; else goes on at "
                "once. Of functions that threads post before the main thread comes to the first of them, only that one "
                "is called; and a lock that is really held keeps the main thread from coming to any. Fails in a plain "
                "interpreter.")
            .method<"thread_lock", Form<&OMC::Application::threadLock>>(
                "Takes the application lock, which lets the threads of the script work on the project; taken twice, it "
                "is to be given back twice. Fails where no project is open. Nothing on the main thread and in a plain "
                "interpreter.")
            .method<"thread_unlock", Form<&OMC::Application::threadUnlock>>(
                "Gives the application lock back. Fails, and keeps it, where no project is open any more. Nothing on "
                "the main thread and in a plain interpreter.")
            .method<"locked", Form<&locked>>("For `with app.locked():`, a block with the application lock held, in "
                                             "which one thread of the script is at a time; the lock is given back "
                                             "however the block ends. Nothing on the main thread of an application.")
            .method<"__enter__", Form<&enter>>("The application itself.")
            .method<"__exit__", Form<&leave, "type, value, traceback">>("Closes the project."),
        Class<Locked>("Locked", "A block with the application lock held: `with app.locked():`.")
            .method<"__enter__", Form<&Locked::enter>>(
                "Waits for the lock, and for other threads' blocks to end. Fails where no project is open.")
            .method<"__exit__", Form<&leaveLocked, "type, value, traceback">>(
                "Gives the lock back. Fails on a thread that is in no such block."),
    };
}

} // namespace brindle::python
