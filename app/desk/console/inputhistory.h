#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace app::desk {

/// The lines that the person typed, oldest first, and the place in them where the person is.
///
/// With a file it goes on where the last run stopped. Each line is added to the file at once, so several windows keep
/// theirs, and what can't be written is lost for later runs only.
class InputHistory {
public:
    static constexpr qsizetype maxLines = 1'000;

    explicit InputHistory(const QString& file = {}); ///< Empty: nothing is kept.
    static QString fileOfUser(); ///< The file of the person who runs the process; empty where there is none.

    /// Ends the walk. Blank lines, and one that was typed right before, are left out.
    void add(const QString& line);

    /// Steps back and forth. `typed` is what stands in the line now: it comes after the newest, for as long as the walk
    /// lasts. None at either end.
    std::optional<QString> older(const QString& typed);
    std::optional<QString> newer();

    const QStringList& lines() const { return m_lines; }

private:
    void read();
    void shorten() const;
    void write(const QString& line);

    QString m_file;
    QStringList m_lines;
    qsizetype m_place = 0; ///< The number of lines while the person isn't in them.
    QString m_typed;
};

} // namespace app::desk
