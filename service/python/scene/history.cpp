#include "core/scene/history.h"

#include "service/python/family.h"
#include "service/python/scene/bracket.h"

namespace brindle::python {

namespace {

OMC::BaseObject* newBracket(const OMC::History& history, const QString& name)
{
    return new Bracket(history, name);
}

/// Lets an exception of the block go on.
bool leave(Bracket& bracket, PyObject* type, PyObject*, PyObject*)
{
    bracket.leave(type != Py_None);
    return false;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<History>()
            .items("str")
            .method<"size", Form<&History::size>>()
            .method<"get", Form<&History::get, "index">>()
            .method<"set", Form<&History::set, "index, name">>()
            .method<"list", Form<&History::list>>()
            .method<"contains", Form<&History::contains, "name">>()
            .method<"undo", Form<&History::undo, "count=1">>()
            .method<"redo", Form<&History::redo, "count=1">>()
            .method<"clear", Form<&History::clear>>()
            .method<"begin", Form<&History::begin, "name">>()
            .method<"end", Form<&History::end>>()
            .method<"cancel", Form<&History::cancel>>()
            .method<"bracket", Form<&newBracket, "name -> Bracket">>(
                "A Bracket for a with block: one entry of what is done there, and nothing of it when the block fails."),
        Class<Bracket>()
            .method<"__enter__", Form<&Bracket::enter, "-> History">>("Opens the bracket; gives the History.")
            .method<"__exit__", Form<&leave, "type, value, traceback -> Literal[False]">>(
                "Closes the bracket, or takes its changes back after an exception."),
    };
});

} // namespace

} // namespace brindle::python
