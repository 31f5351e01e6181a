#include "core/clipboard/copyoptions.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<CopyOptions>()
            .alias("OptionsLike", "dict[str, object] | str",
                   "Values of options: by their names, or a text of them by their positions.")
            .constructors<Construct<&newOf<CopyOptions>>,
                          Construct<&newOf<CopyOptions, QVariant>, "value: OptionsLike">>(),
        Class<PasteOptions>()
            .constructors<Construct<&newOf<PasteOptions>>,
                          Construct<&newOf<PasteOptions, QVariant>, "value: OptionsLike">>(),
        Class<PasteActionOptions>()
            .constructors<Construct<&newOf<PasteActionOptions>>,
                          Construct<&newOf<PasteActionOptions, QVariant>, "value: OptionsLike">,
                          Construct<&newOf<PasteActionOptions, bool, bool, bool>, "groups, effects, composites">>(),
    };
});

} // namespace

} // namespace brindle::python
