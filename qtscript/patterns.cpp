#include "qtscript/patterns.h"

#include <algorithm>

namespace patterns {

namespace {

constexpr int deepest = 60;
constexpr int mostGroups = 2000;

} // namespace

bool isTooDeep(QStringView pattern)
{
    int depth = 0;
    int groups = 0;
    bool isInClass = false;
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const QChar character = pattern[at];
        if (character == u'\\')
            ++at;
        else if (isInClass)
            isInClass = character != u']';
        else if (character == u'[')
            isInClass = true;
        else if (character == u'(' && (++depth > deepest || ++groups > mostGroups))
            return true;
        else if (character == u')')
            depth = std::max(depth - 1, 0);
    }
    return false;
}

bool hasTooDeepLiteral(QStringView program)
{
    // Most programs hold no line with as many brackets.
    int open = 0;
    qsizetype start = -1;
    for (qsizetype at = 0; at < program.size(); ++at) {
        const QChar character = program[at];
        if (character == u'\n' || character == u'\r') {
            start = -1;
        } else if (character == u'\\') {
            ++at;
        } else if (character == u'/') {
            if (start >= 0 && open > deepest && isTooDeep(program.sliced(start, at - start)))
                return true;
            start = at + 1;
            open = 0;
        } else if (character == u'(') {
            ++open;
        }
    }
    return false;
}

QString tooDeep()
{
    return QStringLiteral("A regular expression has more than %1 groups inside each other, or %2 in all")
        .arg(QString::number(deepest), QString::number(mostGroups));
}

} // namespace patterns
