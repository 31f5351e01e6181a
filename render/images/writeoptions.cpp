#include "render/images/writeoptions.h"

#include <QStringList>

#include <algorithm>

namespace brindle::render {

namespace {

QString listOf(std::initializer_list<const char*> words)
{
    QStringList list;
    for (const char* word : words)
        list.append(QString::fromLatin1(word));
    return list.join(QStringLiteral(", "));
}

bool isAmong(const QString& text, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return text == QLatin1String(word); });
}

} // namespace

WriteOptions::WriteOptions(const QString& text, std::initializer_list<const char*> known)
{
    for (const QString& part : text.split(u',', Qt::SkipEmptyParts)) {
        const QString key = part.section(u'=', 0, 0).trimmed().toLower();
        if (!part.contains(u'='))
            fail(QStringLiteral("The option \"%1\" has no value: write it as key=value").arg(part.trimmed()));
        else if (!isAmong(key, known))
            fail(QStringLiteral("The format has no option \"%1\", only: %2").arg(key, listOf(known)));
        else
            m_values[key] = part.section(u'=', 1).trimmed();
    }
}

int WriteOptions::number(const char* key, int standard, int least, int most)
{
    const auto value = text(key);
    if (!value)
        return standard;
    bool isNumber = false;
    const int number = value->toInt(&isNumber);
    if (isNumber && number >= least && number <= most)
        return number;
    fail(QStringLiteral("The option %1 is a number from %2 to %3, not \"%4\"")
             .arg(QLatin1String(key))
             .arg(least)
             .arg(most)
             .arg(*value));
    return standard;
}

QString WriteOptions::word(const char* key, std::initializer_list<const char*> words)
{
    const QString standard = QString::fromLatin1(*words.begin());
    const auto value = text(key);
    if (!value)
        return standard;
    if (isAmong(value->toLower(), words))
        return value->toLower();
    fail(QStringLiteral("The option %1 is one of %2, not \"%3\"").arg(QLatin1String(key), listOf(words), *value));
    return standard;
}

std::optional<QString> WriteOptions::text(const char* key) const
{
    const auto found = m_values.find(QLatin1String(key));
    return found == m_values.end() ? std::nullopt : std::optional(*found);
}

void WriteOptions::fail(const QString& sentence)
{
    if (m_failure.isEmpty())
        m_failure = sentence;
}

} // namespace brindle::render
