#include "service/python/bridges/functionhelper.h"

#include "core/bridges/pythonfunction.h"
#include "service/python/enginecall.h"
#include "service/python/errors.h"
#include "service/python/interpreter.h"
#include "service/python/references.h"
#include "service/python/scriptexception.h"

#include <utility>

namespace brindle::python {

namespace {

/// Makes a result independent of the Python objects that it was read from: objects in it are copied.
QVariant detached(QVariant value)
{
    switch (value.typeId()) {
    case QMetaType::QObjectStar:
        if (const auto* object = OMC::objectFrom<OMC::BaseObject>(value))
            return OMC::toVariant(OMC::Obj(object->copy()));
        break;
    case QMetaType::QVariantList: {
        QVariantList list = value.toList();
        for (QVariant& item : list)
            item = detached(std::exchange(item, QVariant()));
        return list;
    }
    case QMetaType::QVariantMap: {
        QVariantMap map = value.toMap();
        for (QVariant& item : map)
            item = detached(std::exchange(item, QVariant()));
        return map;
    }
    default:
        break;
    }
    return value;
}

Ref callFunction(PyObject* function, const std::vector<QVariant>& arguments)
{
    // It may let go of the last reference that native code has on it.
    const Ref kept = Ref::borrow(function);
    const Ref values(PyTuple_New(static_cast<Py_ssize_t>(arguments.size())));
    if (!values)
        throw PythonError{};
    Py_ssize_t index = 0;
    for (const QVariant& argument : arguments)
        PyTuple_SET_ITEM(values.get(), index++, toPython(argument));
    Ref result(callScript(kept.get(), values.get()));
    if (!result)
        throw PythonError{};
    return result;
}

/// Calls into Python for native code, to which an error is thrown as one of the script.
template <typename Call>
auto inPython(const Call& call)
{
    if (!canEnterInterpreter())
        throw OMC::Exception(std::string("No function can be called: Python has ended."));
    try {
        return call();
    } catch (const PythonError&) {
        ScriptException::throwRaised();
    }
}

class FunctionHelper final : public OMC::PythonFunctionHelper {
public:
    void addReference(_object* function) const override { python::addReference(function); }
    void dropReference(_object* function) const override { python::dropReference(function); }

    QVariant call(_object* function, std::vector<QVariant>& arguments) const override
    {
        return inPython([&] {
            const Ref result = callFunction(function, arguments);
            return convertAndCall([&] { return variantFrom(result.get()); },
                                  [](QVariant& value) { return detached(std::move(value)); });
        });
    }
    void run(_object* function) const override
    {
        inPython([function] { callFunction(function, {}); });
    }
    bool test(_object* function, std::vector<QVariant>& arguments) const override
    {
        return inPython([&] {
            const int result = PyObject_IsTrue(callFunction(function, arguments).get());
            if (result < 0)
                throw PythonError{};
            return result > 0;
        });
    }

    _object* objectIn(const QVariant& value) const override
    {
        const auto* function = OMC::objectFrom<OMC::PythonFunction>(value);
        return function ? function->get() : nullptr;
    }
    bool isCallable(_object* object) const override { return object && PyCallable_Check(object); }
};

} // namespace

void installFunctionHelper()
{
    OMC::PythonFunction::helperFunc() = std::make_unique<FunctionHelper>();
}

} // namespace brindle::python
