#include "core/services/about.h"
#include "core/services/actions.h"
#include "core/services/selection.h"
#include "core/services/tool.h"
#include "core/services/view.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    using Word = const QString&;
    return {
        Class<About>(),
        Class<Actions>()
            .method<"perform", Form<pick<Word>(&Actions::perform), "slot -> str">,
                    Form<pick<Word, Word>(&Actions::perform), "slot, responder -> str">,
                    Form<pick<Word, Word, const QVariant&>(&Actions::perform),
                         "slot, responder, arguments: object -> str">>()
            .method<"perform_for_each", Form<&Actions::performForEach, "slot, responder -> str">>()
            .method<"actions", Form<&Actions::actions, "responder=''">>()
            .method<"validate_action", Form<&Actions::validateAction, "slot, responder='' -> dict[str, bool]">>(),
        Class<View>().property("widget", "object").property("toolbar", "object").property("menu", "object"),
        Class<ViewMap>().items("View"),
        Class<ViewList>()
            .items("View")
            .method<"create", Form<&ViewList::create, "-> NoReturn">>()
            .method<"remove", Form<&ViewList::remove, "index">>(),
        Class<Tool>(),
        Class<ToolList>()
            .items("Tool")
            .method<"size", Form<&ToolList::size>>()
            .method<"get", Form<&ToolList::get, "name -> Tool">>()
            .method<"set", Form<&ToolList::set, "name, tool">>()
            .method<"list", Form<&ToolList::list, "-> list[Tool]">>(),
        Class<Selection>(),
    };
});

} // namespace

} // namespace brindle::python
