#include "engine/elements/names.h"

#include <algorithm>

namespace brindle::engine {

bool isElementName(const QString& name)
{
    constexpr qsizetype longest = 255;
    return !name.isEmpty() && name.size() <= longest && name.isValidUtf16() &&
           std::none_of(name.begin(), name.end(),
                        [](QChar character) { return character.category() == QChar::Other_Control; });
}

} // namespace brindle::engine
