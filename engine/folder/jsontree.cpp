#include "engine/folder/jsontree.h"

#include <QSet>

#include <algorithm>
#include <charconv>
#include <limits>

namespace brindle::engine {

namespace {

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
constexpr int deepest = 1024;

bool isDigit(char sign)
{
    return sign >= '0' && sign <= '9';
}

/// The length in bytes of the character that a text begins with, or 0 where it is no UTF-8.
std::size_t characterLength(std::string_view text)
{
    const auto byte = [text](std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0u; };
    const unsigned first = byte(0);
    if (first < 0x80)
        return 1;
    const std::size_t length = first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    if (first < 0xc2 || first > 0xf4)
        return 0;
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xc0) != 0x80)
            return 0;
    }
    // Longer than needed, half of a surrogate pair, or beyond the last character.
    const bool isNone = (first == 0xe0 && byte(1) < 0xa0) || (first == 0xed && byte(1) > 0x9f) ||
                        (first == 0xf0 && byte(1) < 0x90) || (first == 0xf4 && byte(1) > 0x8f);
    return isNone ? 0 : length;
}

int hexDigit(char sign)
{
    if (isDigit(sign))
        return sign - '0';
    const int letter = (sign | 0x20) - 'a';
    return letter >= 0 && letter < 6 ? 10 + letter : -1;
}

/// The character of an escape. One that needs none stands for itself.
char16_t unescaped(std::string_view escape)
{
    switch (const char sign = escape[1]) {
    case 'b':
        return u'\b';
    case 'f':
        return u'\f';
    case 'n':
        return u'\n';
    case 'r':
        return u'\r';
    case 't':
        return u'\t';
    case 'u': {
        int unit = 0;
        for (const char digit : escape.substr(2))
            unit = 16 * unit + hexDigit(digit);
        return static_cast<char16_t>(unit);
    }
    default:
        return static_cast<unsigned char>(sign);
    }
}

QString fromUtf8(std::string_view text)
{
    QString decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    // Qt takes a first character U+FEFF for a mark of the order of bytes.
    if (text.starts_with(byteOrderMark))
        decoded.prepend(QChar::ByteOrderMark);
    return decoded;
}

} // namespace

/// Reads the text from its begin to its end. Values wait in a stack until their list or object ends, which then moves
/// them into the tree.
class JsonTree::Parser {
public:
    explicit Parser(JsonTree& tree)
        : m_tree(tree),
          m_begin(tree.m_text.constData()),
          m_at(m_begin),
          m_end(m_begin + tree.m_text.size())
    {}

    void read()
    {
        if (rest().starts_with(byteOrderMark) && rest() != byteOrderMark)
            m_at += byteOrderMark.size();
        const char sign = nextSign();
        if (sign != '{' && sign != '[')
            fail("illegal value");
        m_tree.m_root = sign == '{' ? readObject() : readList();
        skipSpace();
        if (m_at < m_end)
            fail("garbage at the end of the document");
    }

private:
    [[noreturn]] void fail(const char* reason) const { throw Fault{m_at - m_begin, QString::fromLatin1(reason)}; }

    std::string_view rest() const { return {m_at, m_end}; }
    Value valueAt(const char* begin) const { return {static_cast<std::uint32_t>(begin - m_begin), 0, {}}; }

    bool skipSpace() ///< False at the end of the text.
    {
        while (m_at < m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t'))
            ++m_at;
        return m_at < m_end;
    }
    char nextSign() { return skipSpace() ? *m_at++ : '\0'; }
    void skipDigits()
    {
        while (m_at < m_end && isDigit(*m_at))
            ++m_at;
    }

    void enter()
    {
        if (++m_depth > deepest)
            fail("too deeply nested document");
    }

    /// The list or object whose content is on the stack from `bottom` on.
    Value leave(Value value, std::size_t bottom, std::size_t size)
    {
        --m_depth;
        value.size = static_cast<std::uint32_t>(size);
        value.first = static_cast<std::uint32_t>(m_tree.m_values.size());
        const auto first = m_waiting.begin() + static_cast<std::ptrdiff_t>(bottom);
        m_tree.m_values.insert(m_tree.m_values.end(), first, m_waiting.end());
        m_waiting.erase(first, m_waiting.end());
        return value;
    }

    Value readObject() ///< Behind its bracket.
    {
        const Value object = valueAt(m_at - 1);
        const std::size_t bottom = m_waiting.size();
        enter();
        char sign = nextSign();
        while (sign == '"') {
            m_waiting.push_back(readText());
            if (nextSign() != ':')
                fail("missing name separator");
            if (!skipSpace())
                fail("unterminated object");
            m_waiting.push_back(readValue());
            sign = nextSign();
            if (sign != ',')
                break;
            sign = nextSign();
            if (sign == '}')
                fail("object is missing after a comma");
        }
        if (sign != '}')
            fail("unterminated object");
        return leave(object, bottom, (m_waiting.size() - bottom) / 2);
    }

    Value readList() ///< Behind its bracket.
    {
        const Value list = valueAt(m_at - 1);
        const std::size_t bottom = m_waiting.size();
        enter();
        if (skipSpace() && *m_at == ']') {
            ++m_at;
            return leave(list, bottom, 0);
        }
        for (;;) {
            if (!skipSpace())
                fail("unterminated array");
            m_waiting.push_back(readValue());
            const char sign = nextSign();
            if (sign == ']')
                return leave(list, bottom, m_waiting.size() - bottom);
            if (sign != ',')
                fail(skipSpace() ? "missing value separator" : "unterminated array");
        }
    }

    Value readValue()
    {
        switch (*m_at++) {
        case '{':
            return readObject();
        case '[':
            return readList();
        case '"':
            return readText();
        case 'n':
            return readWord("ull");
        case 't':
            return readWord("rue");
        case 'f':
            return readWord("alse");
        case ',':
            fail("illegal value");
        case '}':
        case ']':
            fail("object is missing after a comma");
        default:
            --m_at;
            return readNumber();
        }
    }

    Value readWord(std::string_view letters) ///< Behind its first letter.
    {
        const Value word = valueAt(m_at - 1);
        if (rest().size() <= letters.size())
            fail("illegal value");
        for (const char letter : letters) {
            if (*m_at++ != letter)
                fail("illegal value");
        }
        return word;
    }

    Value readNumber()
    {
        const char* const begin = m_at;
        Value value = valueAt(begin);
        if (*m_at == '-')
            ++m_at;
        if (m_at < m_end && *m_at == '0')
            ++m_at;
        else
            skipDigits();
        // Most numbers are short and whole.
        constexpr std::ptrdiff_t longest = 9;
        if (m_at < m_end && m_at - begin <= longest && *m_at != '.' && *m_at != 'e' && *m_at != 'E') {
            int whole = 0;
            if (std::from_chars(begin, m_at, whole).ec != std::errc())
                fail("illegal number");
            value.number = whole;
            return value;
        }
        if (m_at < m_end && *m_at == '.') {
            ++m_at;
            skipDigits();
        }
        if (m_at < m_end && (*m_at == 'e' || *m_at == 'E')) {
            ++m_at;
            if (m_at < m_end && (*m_at == '-' || *m_at == '+'))
                ++m_at;
            skipDigits();
        }
        if (m_at >= m_end)
            fail("invalid termination by number");
        const auto [end, error] = std::from_chars(begin, m_at, value.number);
        if (end != m_at || error != std::errc())
            fail("illegal number");
        value.number += 0.0; // A negative zero is zero.
        return value;
    }

    Value readText() ///< Behind its quote.
    {
        Value text = valueAt(m_at - 1);
        text.hasEscapes = false;
        const char* const begin = m_at;
        for (;; ++m_at) {
            if (m_at >= m_end)
                fail("unterminated string");
            const char sign = *m_at;
            if (sign == '"')
                break;
            if (sign == '\\') {
                skipEscape(text.hasEscapes);
                text.hasEscapes = true;
            } else if (static_cast<unsigned char>(sign) >= 0x80) {
                const std::size_t length = characterLength(rest());
                if (length == 0)
                    fail("invalid UTF8 string");
                m_at += length - 1;
            }
        }
        text.size = static_cast<std::uint32_t>(m_at - begin);
        ++m_at;
        if (m_at >= m_end)
            fail("unterminated string");
        return text;
    }

    void skipEscape(bool isBehindAnother) ///< To its last character.
    {
        constexpr int digits = 4;
        ++m_at;
        if (m_at >= m_end)
            fail(isBehindAnother ? "invalid escape sequence" : "unterminated string");
        if (*m_at != 'u')
            return;
        ++m_at;
        if (m_end - m_at < digits)
            fail("invalid escape sequence");
        for (const char* const end = m_at + digits; m_at < end; ++m_at) {
            if (hexDigit(*m_at) < 0)
                fail("invalid escape sequence");
        }
        --m_at;
    }

    JsonTree& m_tree;
    const char* const m_begin;
    const char* m_at;
    const char* const m_end;
    std::vector<Value> m_waiting;
    int m_depth = 0;
};

JsonTree::JsonTree(const QByteArray& text) : m_text(text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        throw Fault{0, QStringLiteral("too large document")};
    Parser(*this).read();
}

QString JsonTree::text(const Value& value) const
{
    std::string_view rest = raw(value);
    if (!value.hasEscapes)
        return fromUtf8(rest);
    QString text;
    for (;;) {
        const std::size_t plain = std::min(rest.find('\\'), rest.size());
        text += fromUtf8(rest.substr(0, plain));
        rest.remove_prefix(plain);
        if (rest.empty())
            return text;
        const std::size_t length = rest[1] == 'u' ? 6 : 2;
        text += QChar(unescaped(rest.substr(0, length)));
        rest.remove_prefix(length);
    }
}

bool JsonTree::isSameUnescaped(const Value& value, std::string_view text) const
{
    return this->text(value) == fromUtf8(text);
}

const JsonTree::Value* JsonTree::repeatedName(const Value& object) const
{
    constexpr std::size_t few = 32;
    const std::span<const Value> fields = content(object);
    if (fields.size() > few) {
        QSet<QString> names;
        for (std::size_t at = 0; at < fields.size(); at += 2) {
            const qsizetype before = names.size();
            names.insert(text(fields[at]));
            if (names.size() == before)
                return &fields[at];
        }
        return nullptr;
    }
    for (std::size_t at = 2; at < fields.size(); at += 2) {
        for (std::size_t before = 0; before < at; before += 2) {
            if (areSame(fields[before], fields[at]))
                return &fields[at];
        }
    }
    return nullptr;
}

const JsonTree::Value* JsonTree::repeatedName() const
{
    const Value* repeated = isObject(m_root) ? repeatedName(m_root) : nullptr;
    for (const Value& value : m_values) {
        const Value* name = isObject(value) ? repeatedName(value) : nullptr;
        if (name && (!repeated || name->begin < repeated->begin))
            repeated = name;
    }
    return repeated;
}

} // namespace brindle::engine
