#include "core/bridges/pythonfunction.h"

#include "service/python/tables.h"

#include <memory>

namespace brindle::python {

namespace {

/// The function in a script's argument, without one for None.
OMC::PythonFunction* functionOf(const QVariant& value)
{
    const auto* function = OMC::objectFrom<OMC::PythonFunction>(value);
    if (!function && value.isValid())
        OMC::BaseObject::throwInvalidArgument(0);
    return function ? new OMC::PythonFunction(*function) : new OMC::PythonFunction;
}

void setFunction(OMC::PythonFunction& function, const QVariant& value)
{
    function = *std::unique_ptr<const OMC::PythonFunction>(functionOf(value));
}

PyObject* functionIn(const OMC::PythonFunction& function)
{
    return Ref::borrow(function.get() ? function.get() : Py_None).release();
}

QVariant callWith(OMC::PythonFunction& function, const QVariant& arguments)
{
    const int type = arguments.typeId();
    if (type != QMetaType::UnknownType && type != QMetaType::QVariantList && type != QMetaType::QStringList)
        OMC::BaseObject::throwInvalidArgument(0);
    return function.call(arguments.toList());
}

int visitFunction(const OMC::PythonFunction& function, visitproc visit, void* argument)
{
    return function.get() ? visit(function.get(), argument) : 0;
}

void dropFunction(OMC::PythonFunction& function)
{
    function.set(nullptr);
}

} // namespace

std::vector<ClassTable> pythonFunctionTables()
{
    using namespace OMC;
    return {
        Class<PythonFunction>("PythonFunction", "A function of the script, as native code holds it, or none.")
            .constructor<&functionOf, "function=None">()
            .collected<&visitFunction, &dropFunction>()
            .method<"call", Form<&callWith, "arguments=None">>("Calls it with a list of arguments, or with none, and "
                                                               "gives its result. What it raises comes back as it "
                                                               "is.")
            .method<"set", Form<&setFunction, "function">>("Holds another function, or none for None.")
            .method<"get", Form<&functionIn>>("The function as it was given, or None."),
    };
}

} // namespace brindle::python
