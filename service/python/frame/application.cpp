#include "service/python/family.h"
#include "service/python/frame/locked.h"
#include "service/python/session.h"

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

const Family family([]() -> std::vector<ClassTable> {
    return {
        Class<ServiceApplication>("Application")
            .property("project", "Project")
            .property("scenes", "SceneList")
            .property("scene", "Scene")
            .property("elements", "ElementList")
            .property("clipboard", "Clipboard")
            .property("javascript", "Javascript")
            .property("preferences", "Preferences")
            .property("actions", "Actions")
            .property("about", "About")
            .property("metrics", "Metrics")
            .property("views", "ViewMap")
            .property("tools", "ToolList")
            .property("selection", "Selection")
            .method<"save", Form<&save, "path: str | PathLike[str] | None=None">>(
                "Writes the project folder whole or not at all; with the path of another folder, does what save_as "
                "does.")
            .method<"save_as", Form<&saveAs, "path: str | PathLike[str]">>(
                "Writes the project to another folder and goes on there.")
            .method<"close", Form<&close>>(
                "Closes the project and saves nothing; what was got from it is invalid then.")
            .method<"trace", Form<&OMC::Application::trace, "message">>()
            .method<"log", Form<pick<const QString&>(&OMC::Application::log), "message">,
                    Form<pick<const QString&, const QString&>(&OMC::Application::log), "message, level">>()
            .method<"error", Form<&OMC::Application::error, "message">>()
            .method<"debug", Form<&OMC::Application::debug, "message">>()
            .method<"process_one_event", Form<&OMC::Application::processOneEvent>>()
            .method<"run_function", Form<&OMC::Application::runFunction, "function: Callable[[], object]">>()
            .method<"run_on_main", Form<&OMC::Application::runOnMain, "function: Callable[[], object], wait=False">>()
            .method<"thread_lock", Form<&OMC::Application::threadLock>>()
            .method<"thread_unlock", Form<&OMC::Application::threadUnlock>>()
            .method<"locked", Form<&locked, "-> Locked">>(
                "For `with app.locked():`, a block with the application lock held, in which one thread of the script "
                "is at a time; the lock is given back however the block ends. Nothing on the main thread of an "
                "application.")
            .method<"__enter__", Form<&enter, "-> Application">>("The application itself.")
            .method<"__exit__", Form<&leave, "type, value, traceback -> Literal[False]">>("Closes the project."),
        Class<Locked>()
            .method<"__enter__", Form<&Locked::enter>>(
                "Waits for the lock, and for other threads' blocks to end. Fails where no project is open.")
            .method<"__exit__", Form<&leaveLocked, "type, value, traceback -> Literal[False]">>(
                "Gives the lock back. Fails on a thread that is in no such block."),
    };
});

} // namespace

} // namespace brindle::python
