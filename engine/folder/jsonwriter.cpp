#include "engine/folder/jsonwriter.h"

#include <charconv>
#include <cmath>

namespace brindle::engine {

void JsonWriter::newLine()
{
    m_out += '\n';
    m_out.append(2 * m_layouts.size(), ' ');
}

/// Writes the comma and the line end ahead of a value.
void JsonWriter::separate()
{
    if (m_behindKey) {
        m_behindKey = false;
        return;
    }
    const bool isInline = !m_layouts.empty() && m_layouts.back() == 'i';
    if (!m_first)
        m_out += isInline ? ", " : ",";
    if (!m_layouts.empty() && !isInline)
        newLine();
    m_first = false;
}

void JsonWriter::beginObject(Layout layout)
{
    separate();
    m_out += '{';
    m_layouts += layout == Inline ? 'i' : 'l';
    m_first = true;
}

void JsonWriter::beginArray(Layout layout)
{
    separate();
    m_out += '[';
    m_layouts += layout == Inline ? 'i' : 'l';
    m_first = true;
}

void JsonWriter::end(char bracket)
{
    const bool isInline = m_layouts.back() == 'i';
    m_layouts.pop_back();
    if (!m_first && !isInline)
        newLine();
    m_out += bracket;
    m_first = false;
}

JsonWriter& JsonWriter::key(const char* name)
{
    text(name);
    m_out += ": ";
    m_behindKey = true;
    return *this;
}

JsonWriter& JsonWriter::key(const QString& name)
{
    text(name);
    m_out += ": ";
    m_behindKey = true;
    return *this;
}

void JsonWriter::text(const char* value)
{
    separate();
    m_out += '"';
    m_out += value;
    m_out += '"';
}

void JsonWriter::text(const QString& value)
{
    separate();
    m_out += '"';
    appendEscaped(m_out, value);
    m_out += '"';
}

void JsonWriter::appendEscaped(std::string& out, const QString& value)
{
    static constexpr char digits[] = "0123456789abcdef";
    const QChar* const data = value.constData();
    const qsizetype size = value.size();
    const auto appendEscape = [&out](unsigned unit) {
        out += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            out += digits[(unit >> shift) & 15];
    };
    for (qsizetype i = 0; i < size; ++i) {
        const unsigned unit = data[i].unicode();
        if (unit == '"' || unit == '\\') {
            out += '\\';
            out += char(unit);
        } else if (unit == '\n') {
            out += "\\n";
        } else if (unit < 0x20) {
            appendEscape(unit);
        } else if (unit < 0x80) {
            out += char(unit);
        } else if (unit < 0x800) {
            out += char(0xc0 | (unit >> 6));
            out += char(0x80 | (unit & 0x3f));
        } else if (!data[i].isSurrogate()) {
            out += char(0xe0 | (unit >> 12));
            out += char(0x80 | ((unit >> 6) & 0x3f));
            out += char(0x80 | (unit & 0x3f));
        } else if (data[i].isHighSurrogate() && i + 1 < size && data[i + 1].isLowSurrogate()) {
            const char32_t point = QChar::surrogateToUcs4(data[i], data[i + 1]);
            out += char(0xf0 | (point >> 18));
            out += char(0x80 | ((point >> 12) & 0x3f));
            out += char(0x80 | ((point >> 6) & 0x3f));
            out += char(0x80 | (point & 0x3f));
            ++i;
        } else {
            appendEscape(unit);
        }
    }
}

void JsonWriter::integer(long long value)
{
    separate();
    char buffer[24];
    m_out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

void JsonWriter::number(double value)
{
    // Most numbers are whole and short. From here on the shortest form of some has an exponent.
    constexpr double longer = 100'000;
    if (std::abs(value) < longer && value == std::trunc(value))
        return integer(static_cast<long long>(value));
    separate();
    char buffer[32];
    m_out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value == 0 ? 0.0 : value).ptr);
}

void JsonWriter::flag(bool value)
{
    separate();
    m_out += value ? "true" : "false";
}

QByteArray JsonWriter::result() const
{
    return QByteArray(m_out.data(), qsizetype(m_out.size())) + '\n';
}

} // namespace brindle::engine
