#include "core/bridges/pythonfunction.h"

#include "service/python/family.h"

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

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<PythonFunction>()
            .constructor<&functionOf, "function: Callable[..., object] | PythonFunction | None=None">()
            .collected<&visitFunction, &dropFunction>()
            .method<"call", Form<&callWith, "arguments: Sequence[object] | None=None -> Any">>()
            .method<"set", Form<&setFunction, "function: Callable[..., object] | PythonFunction | None">>()
            .method<"get", Form<&functionIn, "-> Callable[..., Any] | None">>(),
    };
});

} // namespace

} // namespace brindle::python
