#include "core/bridges/pythonfunction.h"

#include "service/python/tables.h"

namespace brindle::python {

namespace {

OMC::PythonFunction* functionOf(const QVariant& value)
{
    const auto* function = OMC::objectFrom<OMC::PythonFunction>(value);
    if (!function)
        OMC::BaseObject::throwInvalidArgument(0);
    return new OMC::PythonFunction(*function);
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
        Class<PythonFunction>("PythonFunction", "A function of the script, as native code holds it.")
            .constructor<&functionOf, "function">()
            .collected<&visitFunction, &dropFunction>()
            .method<"call", Form<&callWith, "arguments=None">>(
                "Calls it with a list of arguments, or with none, and gives its result."),
    };
}

} // namespace brindle::python
