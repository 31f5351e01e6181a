#include "tests/service/support/nativemodule.h"

#include "core/bridges/pythonfunction.h"
#include "core/frame/obj.h"
#include "core/frame/pythonthread.h"
#include "service/python/pyref.h"

#include <QCoreApplication>

#include <memory>
#include <string>
#include <thread>

namespace {

using brindle::python::Ref;

std::unique_ptr<OMC::PythonFunction> held;

PyObject* text(const std::string& sentence)
{
    return PyUnicode_FromString(sentence.c_str());
}

/// The outcome of a call as text: its result, or the sentence of its failure.
std::string outcome(const QVariantList& arguments)
{
    try {
        const QVariant result = held->call(arguments);
        if (const auto* object = OMC::objectFrom<OMC::BaseObject>(result))
            return object->__str__();
        if (result.typeId() == QMetaType::QVariantList)
            return "a list of " + std::to_string(result.toList().size());
        return result.isValid() ? result.toString().toStdString() : "nothing";
    } catch (const OMC::Exception& exception) {
        return exception.what();
    }
}

/// Numbers and texts; others as they are printed.
QVariantList argumentsIn(PyObject* tuple)
{
    QVariantList arguments;
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(tuple); ++i) {
        PyObject* item = PyTuple_GET_ITEM(tuple, i);
        if (PyLong_Check(item)) {
            arguments.append(QVariant(static_cast<int>(PyLong_AsLong(item))));
        } else {
            const Ref printed(PyObject_Str(item));
            arguments.append(QString::fromUtf8(PyUnicode_AsUTF8(printed.get())));
        }
    }
    return arguments;
}

PyObject* hold(PyObject*, PyObject* function)
{
    auto wrapper = std::make_unique<OMC::PythonFunction>();
    wrapper->set(function);
    held = std::move(wrapper);
    Py_RETURN_NONE;
}

PyObject* call(PyObject*, PyObject* arguments)
{
    return text(outcome(argumentsIn(arguments)));
}

PyObject* callElsewhere(PyObject*, PyObject* arguments)
{
    const QVariantList values = argumentsIn(arguments);
    std::string result;
    {
        const OMC::PythonThreadScope others;
        std::thread([&] { result = outcome(values); }).join();
    }
    return text(result);
}

PyObject* drop(PyObject*, PyObject*)
{
    held.reset();
    Py_RETURN_NONE;
}

PyObject* dropElsewhere(PyObject*, PyObject*)
{
    const OMC::PythonThreadScope others;
    std::thread([] {
        OMC::PythonFunction copy(*held);
        held.reset();
    }).join();
    Py_RETURN_NONE;
}

PyObject* post(PyObject*, PyObject*)
{
    const auto copy = std::make_shared<OMC::PythonFunction>(*held);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [copy] { copy->call(); }, Qt::QueuedConnection);
    Py_RETURN_NONE;
}

PyMethodDef functions[] = {{"hold", &hold, METH_O, nullptr},
                           {"call", &call, METH_VARARGS, nullptr},
                           {"call_elsewhere", &callElsewhere, METH_VARARGS, nullptr},
                           {"drop", &drop, METH_NOARGS, nullptr},
                           {"drop_elsewhere", &dropElsewhere, METH_NOARGS, nullptr},
                           {"post", &post, METH_NOARGS, nullptr},
                           {}};

PyModuleDef definition = {PyModuleDef_HEAD_INIT, "native", nullptr, -1, functions, nullptr, nullptr, nullptr, nullptr};

PyObject* makeModule()
{
    return PyModule_Create(&definition);
}

} // namespace

void addNativeModule()
{
    PyImport_AppendInittab("native", &makeModule);
}
