#pragma once

#include "engine/folder/folderio.h"

#include <optional>
#include <utility>

#include <unistd.h>
#include <cerrno>

namespace brindle::engine {

/// An open file that is closed at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int value = -1) : m_value(value) {}
    Descriptor(Descriptor&& other) noexcept : m_value(std::exchange(other.m_value, -1)) {}
    Descriptor& operator=(Descriptor other) noexcept
    {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~Descriptor() { close(); }
    operator int() const { return m_value; }

    /// 0 or the error; some file systems tell of a failed write only here.
    int close() { return m_value >= 0 && ::close(std::exchange(m_value, -1)) != 0 ? errno : 0; }

private:
    int m_value;
};

/// A file as the system takes it: a name that starts at an open folder (or at AT_FDCWD), and the path that messages
/// name. What `Folder` and `folder_io` have in common.
struct FileLocation {
    int folder;
    QByteArray name;
    QString shown;

    static FileLocation at(const QString& path);

    [[noreturn]] void fail(const char* what, int error) const { throw FolderFailure::ofSystem(shown, what, error); }

    FileKind kind() const;
    QByteArray read(bool* missing) const;
    std::optional<Checksum> checksum() const;
    void write(const QByteArray& content, unsigned int mode) const; ///< A new file, whole or not at all.
    void moveTo(const FileLocation& to) const;
    void makeFolder() const;
    void sync() const;
    void syncFolder() const;
};

} // namespace brindle::engine
