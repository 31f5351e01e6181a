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

} // namespace

std::vector<ClassTable> applicationTables()
{
    return {
        Class<ServiceApplication>("Application", "The application with its open project: where a script begins.\n\n"
                                                 "As a context manager it closes the project at the end and saves "
                                                 "nothing by itself.")
            .property("project", "The open project, a Project.")
            .property("scenes", "The project's scenes, a SceneList.")
            .property("scene", "The project's first Scene.")
            .method<"save", Form<&save, "path=None">>(
                "Writes the project folder whole or not at all; with a path, does what save_as does.")
            .method<"save_as", Form<&saveAs, "path">>("Writes the project to another folder and goes on there.")
            .method<"close", Form<&close>>("Closes the project and saves nothing; what was got from it is invalid then.")
            .method<"trace", Form<&OMC::Application::trace, "message">>("Writes a line to the log.")
            .method<"log", Form<pick<const QString&>(&OMC::Application::log), "message">,
                    Form<pick<const QString&, const QString&>(&OMC::Application::log), "message, level">>(
                "Writes a line to the log; the level is \"error\", \"debug\" or anything else for a plain line.")
            .method<"error", Form<&OMC::Application::error, "message">>("Writes an error to the log.")
            .method<"debug", Form<&OMC::Application::debug, "message">>("Writes a line for developers to the log.")
            .method<"process_one_event", Form<&OMC::Application::processOneEvent>>("Runs the events that are pending.")
            .method<"thread_lock", Form<&OMC::Application::threadLock>>("Takes the application lock for this thread.")
            .method<"thread_unlock", Form<&OMC::Application::threadUnlock>>("Gives the application lock back.")
            .method<"__enter__", Form<&enter>>("The application itself.")
            .method<"__exit__", Form<&leave, "type, value, traceback">>("Closes the project."),
    };
}

} // namespace brindle::python
