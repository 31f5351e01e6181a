#include "engine/graph/names.h"

#include "core/host/mo_node.h"

#include <algorithm>

namespace brindle::engine {

namespace {

bool isRefused(QChar character)
{
    return character == u'/' || character.category() == QChar::Other_Control;
}

/// Whether the surrogate at a place is not half of a pair.
bool isLoneSurrogate(const QString& text, qsizetype place)
{
    if (text[place].isHighSurrogate())
        return place + 1 == text.size() || !text[place + 1].isLowSurrogate();
    return text[place].isLowSurrogate() && (place == 0 || !text[place - 1].isHighSurrogate());
}

} // namespace

bool isValidNodeName(const QString& name)
{
    // Most names are of signs that need no closer look.
    const auto isPlain = [](QChar sign) { return sign > u' ' && sign < u'\x7f' && sign != u'/'; };
    if (!name.isEmpty() && std::all_of(name.cbegin(), name.cend(), isPlain))
        return true;
    return TUModuleNameValidator::getValidName(name) == name;
}

} // namespace brindle::engine

QString TUModuleNameValidator::getValidName(const QString& name)
{
    QString valid = name.trimmed();
    for (qsizetype place = 0; place < valid.size(); ++place) {
        if (brindle::engine::isRefused(valid[place]) || brindle::engine::isLoneSurrogate(valid, place))
            valid[place] = u'_';
    }
    return valid.isEmpty() ? QStringLiteral("_") : valid;
}
