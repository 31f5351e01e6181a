#include "service/python/headertexts.h"

#include <algorithm>

namespace brindle::python {

namespace {

/// The entry of a name in a sorted table, or null.
template <typename Entry>
const Entry* find(std::span<const Entry> table, std::string_view name)
{
    const auto found =
        std::lower_bound(table.begin(), table.end(), name, [](const Entry& entry, std::string_view wanted) {
            return std::string_view(entry.name) < wanted;
        });
    return found != table.end() && found->name == name ? &*found : nullptr;
}

} // namespace

const ClassText* textsOf(const QMetaObject* metaObject)
{
    return find(allClassTexts(), metaObject->className());
}

const MemberText* textOf(const QMetaObject* metaObject, std::string_view member)
{
    const MemberText* silent = nullptr;
    for (; metaObject; metaObject = metaObject->superClass()) {
        const ClassText* texts = textsOf(metaObject);
        const MemberText* found =
            texts ? find(std::span<const MemberText>(texts->members, texts->count), member) : nullptr;
        if (found && found->text)
            return found;
        silent = silent ? silent : found;
    }
    return silent;
}

} // namespace brindle::python
