#include "engine/palettes/linescanner.h"

#include "engine/engine.h"
#include "engine/folder/folderio.h"

#include <QStringDecoder>

#include <charconv>
#include <cmath>

namespace brindle::engine {

namespace {

bool isUtf8(const QByteArray& content)
{
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    [[maybe_unused]] const QString decoded = decoder(content);
    return !decoder.hasError();
}

QString textOf(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// The length of a text in double quotes at the beginning, with its quotes; 0 where none ends.
std::size_t quotedLength(std::string_view line)
{
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '"')
            return i + 1;
        if (line[i] == '\\')
            ++i;
    }
    return 0;
}

/// The single-letter escapes, as in JSON.
char unescaped(char letter)
{
    switch (letter) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case '"':
    case '\\':
    case '/':
        return letter;
    default:
        return 0;
    }
}

} // namespace

LineScanner::LineScanner(const QString& path, const QByteArray& content)
    : m_path(path),
      m_content(content),
      m_rest(m_content.constData(), static_cast<std::size_t>(m_content.size()))
{
    if (m_rest.empty())
        throw FolderFailure{quoted(path) + " is empty"};
    m_number = 1;
    if (!isUtf8(content))
        fail(QStringLiteral("it is no text in UTF-8"));
    takeLine();
}

void LineScanner::takeLine()
{
    const std::size_t end = m_rest.find('\n');
    if (end == std::string_view::npos)
        fail(QStringLiteral("the file ends in the middle of the line"));
    m_line = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);
}

bool LineScanner::next()
{
    if (!m_line.empty())
        fail(QStringLiteral("\"%1\" is more than belongs there").arg(shown(textOf(m_line))));
    if (m_rest.empty())
        return false;
    ++m_number;
    takeLine();
    return true;
}

std::string_view LineScanner::take()
{
    if (m_line.empty())
        fail(QStringLiteral("the line ends too early"));
    const std::size_t length = m_line.front() == '"' ? quotedLength(m_line) : std::min(m_line.find(' '), m_line.size());
    if (length == 0 || (length < m_line.size() && m_line[length] != ' ') || length + 1 == m_line.size())
        fail(m_line.front() == '"' && length == 0 ? QStringLiteral("a text has no end")
                                                  : QStringLiteral("words are not one space apart"));
    const std::string_view taken = m_line.substr(0, length);
    m_line.remove_prefix(std::min(length + 1, m_line.size()));
    return taken;
}

QString LineScanner::word()
{
    return textOf(take());
}

QString LineScanner::text()
{
    std::string_view taken = take();
    if (taken.front() != '"')
        fail(QStringLiteral("\"%1\" is no text in double quotes").arg(shown(textOf(taken))));
    taken.remove_prefix(1);
    taken.remove_suffix(1);
    QString result;
    while (!taken.empty()) {
        const std::size_t plain = std::min(taken.find('\\'), taken.size());
        result += textOf(taken.substr(0, plain));
        taken.remove_prefix(plain);
        if (taken.empty())
            break;
        if (taken[1] == 'u') {
            const QString digits = textOf(taken.substr(2, 4));
            bool isNumber = false;
            const ushort unit = digits.toUShort(&isNumber, 16);
            if (!isNumber || digits.size() != 4)
                fail(QStringLiteral("a character is escaped in a way that JSON doesn't know"));
            result += QChar(unit);
            taken.remove_prefix(6);
        } else {
            const char letter = unescaped(taken[1]);
            if (!letter)
                fail(QStringLiteral("a character is escaped in a way that JSON doesn't know"));
            result += QLatin1Char(letter);
            taken.remove_prefix(2);
        }
    }
    return result;
}

double LineScanner::number()
{
    const std::string_view taken = take();
    double value = 0;
    const auto read = std::from_chars(taken.data(), taken.data() + taken.size(), value);
    if (read.ec != std::errc() || read.ptr != taken.data() + taken.size() || !std::isfinite(value))
        fail(QStringLiteral("\"%1\" is no number").arg(shown(textOf(taken))));
    return value;
}

int LineScanner::oneOf(std::initializer_list<std::string_view> words)
{
    const std::string_view taken = take();
    const auto* found = std::find(words.begin(), words.end(), taken);
    if (found == words.end()) {
        QStringList known;
        for (const std::string_view word : words)
            known.append(u'"' + textOf(word) + u'"');
        fail(QStringLiteral("\"%1\" is not %2").arg(shown(textOf(taken)), known.join(u" or ")));
    }
    return static_cast<int>(found - words.begin());
}

int LineScanner::requireVersion(int newest)
{
    const QString taken = word();
    bool isNumber = false;
    const int version = taken.toInt(&isNumber, 10);
    if (!isNumber || version < 1)
        fail(QStringLiteral("\"%1\" is no version").arg(shown(taken)));
    if (version > newest)
        throw FolderFailure::ofNewerVersion(m_path, version, newest);
    return version;
}

void LineScanner::fail(const QString& reason) const
{
    throw FolderFailure{quoted(m_path) + " is damaged at line " + QString::number(m_number) + ": " + reason};
}

} // namespace brindle::engine
