#include "core/bridges/javascript.h"

#include "core/bridges/javascriptrootobject.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList keysOf(const OMC::JavascriptObject& object)
{
    return object.names();
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Javascript>()
            .method<"eval", Form<&Javascript::eval, "code -> JavascriptValue">>()
            .method<"evaluate", Form<&Javascript::evaluate, "code -> JavascriptValue">>()
            .method<"call_function", Form<&Javascript::callFunction, "script, function, arguments: object=None, "
                                                                     "this: object=None -> JavascriptValue">>()
            .method<"available_scripts", Form<&Javascript::availableScripts, "-> list[str]">>()
            .method<"available_script_functions", Form<&Javascript::availableScriptFunctions, "name -> list[str]">>()
            .method<"eval_available_script",
                    Form<&Javascript::evalAvailableScript, "name, function, arguments: object=None, this: object=None "
                                                           "-> JavascriptValue">>()
            .method<"load_file",
                    Form<&Javascript::loadFile, "path: str | PathLike[str], delayed=False -> JavascriptRootObject">>()
            .method<"load_string", Form<&Javascript::loadString, "script, delayed=False -> JavascriptRootObject">>(),
        Class<JavascriptObject>()
            .items("JavascriptValue")
            .alias("JavascriptValue", "JavascriptObject | str | float | int | bool | None",
                   "A value of a script, as it comes out: an object, or a plain value.")
            .keys<&keysOf>()
            .calling("call")
            .method<"remove", Form<&JavascriptObject::remove, "value">>()
            .method<"pop", Form<&JavascriptObject::pop, "index=-1 -> JavascriptValue">>()
            .method<"insert", Form<&JavascriptObject::insert, "index, value">>()
            .method<"clear", Form<&JavascriptObject::clear>>()
            .method<"append", Form<&JavascriptObject::append, "value">>()
            .method<"names", Form<&JavascriptObject::names>>()
            .method<"call",
                    Form<&JavascriptObject::call, "arguments: object=None, this: object=None -> JavascriptValue">>(),
        Class<JavascriptRootObject>()
            .items("JavascriptValue")
            .keys<&keysOf>()
            .calling("call")
            .method<"reload", Form<&JavascriptRootObject::reload, "from_file=False">>(),
    };
});

} // namespace

} // namespace brindle::python
