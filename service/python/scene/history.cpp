#include "core/scene/history.h"

#include "service/python/scene/bracket.h"
#include "service/python/tables.h"

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

} // namespace

std::vector<ClassTable> historyTables()
{
    using namespace OMC;
    return {
        Class<History>("History",
                       "The undo list of the project: the names of its entries, oldest first, undo and redo.")
            .property("current", "The name of the open bracket, or \"NONE\".")
            .property("active", "Always False.")
            .property("size_total", "How many entries can be undone or done again.")
            .property("size_unexecuted", "How many entries can be done again.")
            .property("size_executed", "How many entries can be undone.")
            .property("size_max", "How many entries are kept; older ones are dropped.")
            .method<"size", Form<&History::size>>("How many entries can be undone, as len() gives it.")
            .method<"get", Form<&History::get, "index">>(
                "The name of an entry that can be undone, from 0, oldest first.")
            .method<"set", Form<&History::set, "index, name">>("Always fails: the history can't be written.")
            .method<"list", Form<&History::list>>("The names of the entries that can be undone, oldest first.")
            .method<"contains", Form<&History::contains, "name">>("Whether an entry that can be undone has the name.")
            .method<"undo", Form<&History::undo, "count=1">>("Undoes up to so many entries.")
            .method<"redo", Form<&History::redo, "count=1">>("Does up to so many undone entries again.")
            .method<"clear", Form<&History::clear>>("Empties the undo list; the project stays as it is.")
            .method<"begin", Form<&History::begin, "name">>(
                "Opens a bracket: everything up to end() becomes one entry of this name. Brackets nest.")
            .method<"end", Form<&History::end>>("Closes the bracket that the matching begin() opened.")
            .method<"cancel", Form<&History::cancel>>("Takes back all that was done in the open bracket.")
            .method<"bracket", Form<&newBracket, "name">>(
                "A Bracket for a with block: one entry of what is done there, and nothing of it when the block fails."),
        Class<Bracket>("Bracket",
                       "A with block whose changes are one entry of the undo list, got from History.bracket().\n\n"
                       "An exception that leaves the block takes all of its changes back and goes on.")
            .method<"__enter__", Form<&Bracket::enter>>("Opens the bracket; gives the History.")
            .method<"__exit__", Form<&leave, "type, value, traceback">>(
                "Closes the bracket, or takes its changes back after an exception."),
    };
}

} // namespace brindle::python
