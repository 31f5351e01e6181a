#include "core/drawings/svgfile.h"
#include "service/python/describe.h"
#include "service/python/enginegate.h"
#include "service/python/errors.h"
#include "service/python/interpreter.h"
#include "service/python/nodes/render.h"
#include "service/python/operators.h"
#include "service/python/property.h"
#include "service/python/session.h"
#include "service/python/threadscopes.h"
#include "service/python/types.h"
#include "service/python/valueprotocol.h"

namespace brindle::python {

namespace {

/// A function of the module: its arguments are read like those of a static method.
template <Text Name, auto Function, Text Names>
PyMethodDef function(const char* text)
{
    const Method method = staticMethod<Name, StaticForm<Function, Names>>(text);
    static const std::string documentation = functionDocumentation(method.name, method.describe(), "", text);
    return {method.name, method.function, METH_FASTCALL | METH_KEYWORDS, documentation.c_str()};
}

PyObject* liveObjects()
{
    return toPython(qlonglong(OMC::BaseObject::liveObjects()));
}

PyObject* endOfInterpreter(PyObject*, PyObject*)
{
    // Also where no call of the object model gets in any more.
    EngineGate::enterAgain();
    try {
        shutDown();
    } catch (...) {
        raiseCurrentException();
        return nullptr;
    }
    Py_RETURN_NONE;
}

/// Lets the project go before the interpreter does.
bool registerShutDown()
{
    static PyMethodDef definition = {"_shut_down", &endOfInterpreter, METH_NOARGS, nullptr};
    const Ref callable(PyCFunction_New(&definition, nullptr));
    const Ref atexit(callable ? PyImport_ImportModule("atexit") : nullptr);
    const Ref done(atexit ? PyObject_CallMethod(atexit.get(), "register", "O", callable.get()) : nullptr);
    return bool(done);
}

PyObject* makeModule()
{
    static PyMethodDef functions[] = {
        function<"create", &createProject, "path: str | PathLike[str], discard=False -> Application">(
            "Makes a project folder and opens it; fails where there is one already. Closes the project that is open; "
            "with unsaved changes only where discard is true."),
        function<"open", &openProject, "path: str | PathLike[str], read_only=False, discard=False -> Application">(
            "Opens the project in a folder; read-only also one that another process has open, to be saved elsewhere "
            "only. Closes the project that is open; with unsaved changes only where discard is true."),
        function<"application", &currentApplication, "-> Application | None">(
            "The application whose project is open, or None."),
        function<"_live_objects", &liveObjects, "-> int">(
            "How many objects of the object model are alive, to find what leaks."),
        function<"_rebuild", &rebuildValue, "cls, state -> BaseObject">(
            "Makes a value class's object of its state, for copy and pickle."),
        function<"import_svg", &OMC::svg::importFile,
                 "path: str | PathLike[str], art_layer: DrawingVectorArtLayer, palette: Palette -> list[str]">(
            "Draws an SVG picture into an art layer, above what is there, as one undo entry; its colours and gradients "
            "go to the end of the palette. The middle of the picture comes to the origin, and its height is that of "
            "the field chart. Groups become layers, and so does a shape that overlaps one before it in its group. "
            "Gives a line for each kind of thing in the picture that a drawing can't have."),
        function<"export_svg", &OMC::svg::exportFile, "path: str | PathLike[str], drawing: Drawing -> list[str]">(
            "Writes a drawing as an SVG file: a group for each art layer and for each layer in it. Lines of varying "
            "thickness become areas, texts the outlines of their letters. The file is replaced whole or not at all. "
            "Gives a line for each kind of thing in the drawing that SVG can't have."),
        function<"_prepare_rendering", &prepareRendering, "node, frame, size=None -> object">(
            "A job that draws what a node shows at a frame."),
        function<"_remarks_of_job", &remarksOfJob, "job -> list[str]">("What the job can't show."),
        function<"_render_job", &renderJob, "job, threads=1 -> Cel">("The picture of a job."),
        function<"_write_job", &writeJob, "job, path, depth -> None">("Writes the picture of a job as a file."),
        function<"_describe", &describeClasses, "-> list[dict[str, Any]]">("What all classes offer, as plain data."),
        {}};
    static PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                                     "brindle._brindle",
                                     "The object model of a 2D animation project.",
                                     -1,
                                     functions,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr};
    return PyModule_Create(&definition);
}

} // namespace

} // namespace brindle::python

extern "C" __attribute__((visibility("default"))) PyObject* PyInit__brindle()
{
    using namespace brindle::python;
    // The types of the classes are made once a process. Python asks again only under another name, and in an
    // interpreter that comes after the one that has ended.
    static bool made = false;
    if (std::exchange(made, true)) {
        PyErr_SetString(PyExc_ImportError, "brindle can be loaded once in a process.");
        return nullptr;
    }
    try {
        Ref module(makeModule());
        if (!module || PyModule_AddStringConstant(module.get(), "__version__", BRINDLE_VERSION) < 0)
            return nullptr;
        installThreadStates();
        if (!interpreterBegins() || !addErrors(module.get()) || !addIteratorType() || !addAccessorType())
            return nullptr;
        addClasses(module.get());
        if (registerShutDown())
            return module.release();
    } catch (...) {
        raiseCurrentException();
    }
    return nullptr;
}
