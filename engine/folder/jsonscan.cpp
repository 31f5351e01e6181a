#include "engine/folder/jsonscan.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <string_view>

namespace brindle::engine::json_scan {

namespace {

constexpr std::string_view space = " \t\r\n\xef\xbb\xbf";
constexpr std::string_view wordEnd = ",:]} \t\r\n";

/// Moves over valid JSON text, value by value. A copy remembers a place.
class Cursor {
public:
    explicit Cursor(const QByteArray& text) : m_text(text.constData(), size_t(text.size())) { skipSpace(); }

    qsizetype offset() const { return qsizetype(m_at); }
    char current() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    bool atEnd() const { return m_at >= m_text.size(); }

    /// Steps over a bracket, a comma or a colon.
    void advance()
    {
        ++m_at;
        skipSpace();
    }
    bool skipIf(char sign)
    {
        if (current() != sign)
            return false;
        advance();
        return true;
    }
    void skipText()
    {
        for (++m_at; !atEnd() && m_text[m_at] != '"'; ++m_at)
            m_at += m_text[m_at] == '\\';
        advance();
    }
    QString readText()
    {
        const size_t start = m_at;
        skipText();
        const std::string_view raw = m_text.substr(start, m_at - start);
        return QJsonDocument::fromJson('[' + QByteArray(raw.data(), qsizetype(raw.size())) + ']')
            .array()
            .at(0)
            .toString();
    }
    void skipValue()
    {
        int depth = 0;
        do {
            const char sign = current();
            depth += (sign == '{' || sign == '[') - (sign == '}' || sign == ']');
            if (sign == '"')
                skipText();
            else if (std::string_view("{}[],:").find(sign) != std::string_view::npos)
                advance();
            else
                skipWord();
        } while (depth > 0 && !atEnd());
    }

private:
    /// Steps over a number, true, false or null.
    void skipWord()
    {
        m_at = std::min(m_text.find_first_of(wordEnd, m_at + 1), m_text.size());
        skipSpace();
    }
    void skipSpace() { m_at = std::min(m_text.find_first_not_of(space, m_at), m_text.size()); }

    std::string_view m_text;
    size_t m_at = 0;
};

/// Goes on to a field's value. Of a name that stands there twice, a parsed document has the last.
bool enterField(Cursor& place, const QString& name)
{
    Cursor cursor = place;
    bool found = false;
    if (!cursor.skipIf('{'))
        return false;
    while (cursor.current() == '"') {
        const bool isIt = cursor.readText() == name;
        cursor.skipIf(':');
        if (isIt) {
            place = cursor;
            found = true;
        }
        cursor.skipValue();
        cursor.skipIf(',');
    }
    return found;
}

bool enterItem(Cursor& place, int index)
{
    Cursor cursor = place;
    if (!cursor.skipIf('['))
        return false;
    for (; index > 0; --index) {
        cursor.skipValue();
        if (!cursor.skipIf(','))
            return false;
    }
    place = cursor;
    return true;
}

} // namespace

qsizetype offsetOf(const QByteArray& text, const std::vector<Step>& steps)
{
    Cursor cursor(text);
    for (const Step& step : steps) {
        if (!(step.index < 0 ? enterField(cursor, step.name) : enterItem(cursor, step.index)))
            break;
    }
    return cursor.offset();
}

qsizetype fieldCount(const QByteArray& text)
{
    // Outside texts, only a field has a colon.
    const char* const end = text.constData() + text.size();
    qsizetype count = 0;
    for (const char* at = text.constData(); at < end; ++at) {
        if (*at == ':') {
            ++count;
        } else if (*at == '"') {
            for (++at; at < end && *at != '"'; ++at)
                at += *at == '\\';
        }
    }
    return count;
}

qsizetype offsetOfRepeatedField(const QByteArray& text, QString& name)
{
    std::vector<QSet<QString>> objects;
    Cursor cursor(text);
    while (!cursor.atEnd()) {
        const Cursor start = cursor;
        if (cursor.current() == '{') {
            objects.emplace_back();
            cursor.advance();
        } else if (cursor.current() == '}') {
            objects.pop_back();
            cursor.advance();
        } else if (cursor.current() == '"') {
            name = cursor.readText();
            if (cursor.current() != ':')
                continue;
            if (objects.back().contains(name))
                return start.offset();
            objects.back().insert(name);
        } else {
            cursor.advance();
        }
    }
    return -1;
}

Position positionOf(const QByteArray& text, qsizetype offset)
{
    const qsizetype end = std::clamp<qsizetype>(offset, 0, text.size());
    const qsizetype lineStart = end > 0 ? text.lastIndexOf('\n', end - 1) + 1 : 0;
    const auto begin = text.cbegin();
    const auto startsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; };
    return {std::count(begin, begin + lineStart, '\n') + 1,
            std::count_if(begin + lineStart, begin + end, startsCharacter) + 1};
}

} // namespace brindle::engine::json_scan
