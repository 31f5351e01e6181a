#include "core/services/preferences.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList keysOf(const OMC::Preferences& preferences)
{
    return preferences.list().keys();
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<PreferencePair>()
            .property("value", "PreferenceValue", "PreferenceValue | PreferencePair")
            .alias("PreferenceValue", "bool | int | float | str | Colour", "The value of a preference.")
            .method<"reset", Form<&PreferencePair::reset>>(),
        Class<Preferences>()
            .items("PreferencePair | None")
            .keys<&keysOf>()
            .method<"size", Form<&Preferences::size>>()
            .method<"get", Form<&Preferences::get, "key -> PreferencePair | None">>()
            .method<"set", Form<&Preferences::set, "key, value: PreferenceValue | PreferencePair">>()
            .method<"list", Form<&Preferences::list, "-> dict[str, PreferenceValue]">>()
            .method<"contains", Form<&Preferences::contains, "key">>()
            .method<"replace", Form<&Preferences::replace, "key, value: PreferenceValue">>()
            .method<"reset", Form<&Preferences::reset, "key">>()
            .method<"type", Form<&Preferences::type, "key">>()
            .method<"value", Form<&Preferences::value, "key, default: PreferenceValue -> PreferenceValue">>(),
    };
});

} // namespace

} // namespace brindle::python
