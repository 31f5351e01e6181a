#include "core/frame/listobj.h"
#include "core/frame/listqvar.h"
#include "core/frame/mapobj.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<BaseObject>()
            .text("objectName", "A name that a script may give the object; nothing else reads it.")
            .method<"copy", Form<&BaseObject::copy, "-> Self">>(),
        Class<ListObj>()
            .items("Item")
            .method<"size", Form<&ListObj::size>>()
            .method<"get", Form<pick<int>(&ListObj::get), "index -> Item">,
                    Form<pick<const QString&>(&ListObj::get), "name -> Item">>()
            .method<"set", Form<&ListObj::set, "index, value">>()
            .method<"list", Form<&ListObj::list, "-> list[Item]">>(),
        Class<ListQVar>()
            .items("Item")
            .method<"size", Form<&ListQVar::size>>()
            .method<"get", Form<pick<int>(&ListQVar::get), "index -> Item">,
                    Form<pick<const QString&>(&ListQVar::get), "name -> Item">>()
            .method<"set", Form<pick<int, const QVariant&>(&ListQVar::set), "index, value">,
                    Form<pick<const QString&, const QVariant&>(&ListQVar::set), "name, value">>()
            .method<"list", Form<&ListQVar::list, "-> list[Item]">>()
            .method<"contains", Form<&ListQVar::contains, "value">>(),
        Class<MapObj>()
            .items("Item")
            .keys<&MapObj::list>()
            .method<"size", Form<&MapObj::size>>()
            .method<"get", Form<&MapObj::get, "name -> Item">>()
            .method<"set", Form<&MapObj::set, "name, value">>()
            .method<"list", Form<&MapObj::list>>(),
    };
});

} // namespace

} // namespace brindle::python
