#pragma once

#include <QString>

namespace brindle::render {

/// A file that is written under a name of its own in the folder where it is to stand, and takes its place when it is
/// whole: a process that is killed leaves no half picture, and what stood there stays until then. Without `commit` it
/// is removed.
class NewFile {
public:
    explicit NewFile(const QString& path);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Where to write; it ends as the path does. Empty where no file can be made.
    const QString& writtenPath() const { return m_written; }
    /// False, with the reason, where that fails.
    bool commit(QString& error);
    const QString& error() const { return m_error; } ///< Why no file can be made.

private:
    QString m_path;
    QString m_written;
    QString m_error;
};

} // namespace brindle::render
