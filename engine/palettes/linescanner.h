#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>
#include <string_view>

namespace brindle::engine {

/// Reads a text file of lines, whose words stand one space apart. Each function takes the next word of the line and
/// throws a `FolderFailure` that names the file and the line when it is not what is asked for.
class LineScanner {
public:
    /// Stands on the first line. Throws when the file is empty, is no UTF-8, or its last line has no end: a file that
    /// was cut short ends so.
    LineScanner(const QString& path, const QByteArray& content);

    /// Goes to the next line; false behind the last one. Throws when words of the present line are left.
    bool next();
    bool atEnd() const { return m_line.empty(); } ///< At the end of the line.

    QString word();
    QString text();                                           ///< In double quotes, escaped as in JSON.
    double number();                                          ///< Finite.
    int oneOf(std::initializer_list<std::string_view> words); ///< Which of the words it is.
    /// The format's version, from 1 to `newest`; a newer one is refused in words of its own.
    int requireVersion(int newest);

    /// Throws: "/p/Skin.plt" is damaged at line 3: `reason`.
    [[noreturn]] void fail(const QString& reason) const;

private:
    std::string_view take();
    void takeLine();

    QString m_path;
    QByteArray m_content;
    std::string_view m_rest; ///< Behind the present line.
    std::string_view m_line; ///< The rest of the present line, which has not been taken yet.
    int m_number = 0;
};

} // namespace brindle::engine
