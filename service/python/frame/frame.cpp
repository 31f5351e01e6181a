#include "core/frame/listobj.h"
#include "core/frame/listqvar.h"
#include "core/frame/mapobj.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> frameTables()
{
    using namespace OMC;
    return {
        Class<BaseObject>("BaseObject", "Root of everything that a script can touch.")
            .property("objectName", "A name that a script may give the object; nothing else reads it.")
            .method<"copy", Form<&BaseObject::copy>>("A second object that shows the same thing."),
        Class<ListObj>("ListObj", "Base of the lists of objects. Lists are live: each call asks the project.")
            .method<"size", Form<&ListObj::size>>("The number of items, as len() gives it.")
            .method<"get", Form<pick<int>(&ListObj::get), "index">, Form<pick<const QString&>(&ListObj::get), "name">>(
                "The item at an index from 0, or of a name.")
            .method<"set", Form<&ListObj::set, "index, value">>("Replaces an item, in a list that can be written.")
            .method<"list", Form<&ListObj::list>>("All items as a Python list."),
        Class<ListQVar>("ListQVar", "Base of the lists of values. Lists are live: each call asks the project.")
            .method<"size", Form<&ListQVar::size>>("The number of items, as len() gives it.")
            .method<"get", Form<pick<int>(&ListQVar::get), "index">,
                    Form<pick<const QString&>(&ListQVar::get), "name">>("The item at an index, or of a name.")
            .method<"set", Form<pick<int, const QVariant&>(&ListQVar::set), "index, value">,
                    Form<pick<const QString&, const QVariant&>(&ListQVar::set), "name, value">>("Replaces an item.")
            .method<"list", Form<&ListQVar::list>>("All items as a Python list.")
            .method<"contains", Form<&ListQVar::contains, "value">>("Whether the list holds the value."),
        Class<MapObj>("MapObj", "Base of the maps from names to objects.")
            .method<"size", Form<&MapObj::size>>("The number of items, as len() gives it.")
            .method<"get", Form<&MapObj::get, "name">>("The object of a name.")
            .method<"set", Form<&MapObj::set, "name, value">>("Replaces the object of a name.")
            .method<"list", Form<&MapObj::list>>("All names as a Python list."),
    };
}

} // namespace brindle::python
