#include "service/python/enginegate.h"
#include "service/python/errors.h"
#include "service/python/interpreter.h"
#include "service/python/operators.h"
#include "service/python/property.h"
#include "service/python/session.h"
#include "service/python/tables.h"
#include "service/python/threadscopes.h"
#include "service/python/types.h"
#include "service/python/valueprotocol.h"

namespace brindle::python {

namespace {

/// A function of the module: its arguments are read like those of a static method.
template <Text Name, auto Function, Text Names = "">
PyMethodDef function(const char* documentation)
{
    return {Name.characters, staticMethod<Name, StaticForm<Function, Names>>(documentation).function,
            METH_FASTCALL | METH_KEYWORDS, documentation};
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

bool addClasses(PyObject* module)
{
    for (const auto tables : {&frameTables,
                              &pythonFunctionTables,
                              &applicationTables,
                              &pointTables,
                              &vectorTables,
                              &rectangleTables,
                              &matrixTables,
                              &transformationTables,
                              &deformationTables,
                              &colourTables,
                              &bezierTables,
                              &bezierPathTables,
                              &projectTables,
                              &historyTables,
                              &sceneTables,
                              &sceneMetricsTables,
                              &sceneUnitConverterTables,
                              &compositionTables,
                              &placeholderTables,
                              &nodeTables,
                              &portTables,
                              &attributeTables,
                              &columnTables}) {
        for (const ClassTable& table : tables())
            addClass(module, table);
    }
    return true;
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

PyMethodDef functions[] = {
    function<"create", &createProject, "path">(
        "create(path: str) -> Application\n\nMakes a project folder and opens it; fails where there is one already."),
    function<"open", &openProject, "path, read_only=False">(
        "open(path: str, read_only: bool = False) -> Application\n\nOpens the project in a folder; read-only also one "
        "that "
        "another process has open, to be saved elsewhere only."),
    function<"application", &currentApplication>(
        "application() -> Application | None\n\nThe application whose project is open, or None."),
    function<"_live_objects", &liveObjects>("How many objects of the object model are alive, to find what leaks."),
    function<"_rebuild", &rebuildValue, "cls, state">(
        "Makes a value class's object of its state, for copy and pickle."),
    function<"_describe", &describeClasses>("What all classes offer, as plain data."),
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "brindle._brindle",
                          "The object model of a 2D animation project.",
                          -1,
                          functions,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

} // namespace

} // namespace brindle::python

extern "C" __attribute__((visibility("default"))) PyObject* PyInit__brindle()
{
    using namespace brindle::python;
    // What stands for the classes is kept once a process. Python asks again only under another name, and in an
    // interpreter that comes after the one that has ended.
    static bool made = false;
    if (std::exchange(made, true)) {
        PyErr_SetString(PyExc_ImportError, "brindle can be loaded once in a process.");
        return nullptr;
    }
    Ref module(PyModule_Create(&definition));
    if (!module)
        return nullptr;
    try {
        installThreadStates();
        if (interpreterBegins() && addErrors(module.get()) && addIteratorType() && addAccessorType() &&
            addClasses(module.get()) && registerShutDown())
            return module.release();
    } catch (...) {
        raiseCurrentException();
    }
    return nullptr;
}
