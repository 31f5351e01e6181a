#include "engine/folder/safenames.h"

#include <algorithm>

namespace brindle::engine::safe_names {

namespace {

constexpr qsizetype longestName = 200; // bytes of UTF-8, of the 255 that file systems take

/// Whether making or folding the name would change nothing: so it is with most, and it costs no copy.
bool isPlain(const QString& name)
{
    return name.size() <= longestName && std::all_of(name.begin(), name.end(), [](QChar character) {
               const char16_t code = character.unicode();
               return (code >= u'a' && code <= u'z') || (code >= u'0' && code <= u'9') || code == u'-' || code == u'_';
           });
}

bool isKept(char32_t character, bool isFirst)
{
    return QChar::isLetterOrNumber(character) || character == U'-' || character == U'_' || character == U' ' ||
           (character == U'.' && !isFirst);
}

} // namespace

QString made(const QString& name)
{
    if (!name.isEmpty() && isPlain(name))
        return name;
    QString safe;
    qsizetype bytes = 0;
    for (const char32_t character : name.toUcs4()) {
        const QString text = isKept(character, safe.isEmpty()) ? QString::fromUcs4(&character, 1) : QStringLiteral("_");
        bytes += text.toUtf8().size();
        if (bytes > longestName)
            break;
        safe += text;
    }
    return safe.isEmpty() ? QStringLiteral("_") : safe;
}

bool isSafe(const QString& name)
{
    constexpr qsizetype longest = longestName + 10; // with its number
    bool isFirst = true;
    for (const char32_t character : name.toUcs4()) {
        if (!isKept(character, isFirst))
            return false;
        isFirst = false;
    }
    return !isFirst && name.isValidUtf16() && name.toUtf8().size() <= longest;
}

QString folded(const QString& name)
{
    return isPlain(name) ? name : name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

QString unique(const QString& safe, const QSet<QString>& taken)
{
    QString unique = safe;
    for (int number = 2; taken.contains(folded(unique)); ++number)
        unique = safe + u'-' + QString::number(number);
    return unique;
}

} // namespace brindle::engine::safe_names
