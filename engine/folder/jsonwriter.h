#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace brindle::engine {

/// Writes JSON that diffs well: a value a line, indented by two spaces, the order as called; arrays and objects
/// that are begun inline stay on one line. The same calls give the same bytes.
///
/// Numbers take the shortest form that reads back as the same double; only the sign of a negative zero goes, which
/// readers of JSON lose anyway. A text is UTF-8; half a surrogate pair, which UTF-8 has no form for, is written as an
/// escape.
class JsonWriter {
public:
    enum Layout { Lines, Inline };

    void beginObject(Layout layout = Lines);
    void endObject() { end('}'); }
    void beginArray(Layout layout = Lines);
    void endArray() { end(']'); }
    JsonWriter& key(const char* name); ///< Plain letters.
    JsonWriter& key(const QString& name);

    void text(const QString& value);
    void text(const char* value);
    void integer(long long value);
    void number(double value);
    void flag(bool value);

    /// Adds a text as JSON has it, without its quotes.
    static void appendEscaped(std::string& out, const QString& value);

    QByteArray result() const; ///< With a line end behind the last line.

private:
    void separate();
    void newLine();
    void end(char bracket);

    std::string m_out;
    std::string m_layouts; ///< One letter for each open array or object: 'l' lines, 'i' inline.
    bool m_first = true;
    bool m_behindKey = false;
};

} // namespace brindle::engine
