#include "engine/folder/filelocation.h"

#include <QFile>

#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <zlib.h>

namespace brindle::engine {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;

/// 0 or the error.
int writeAll(int file, const QByteArray& content)
{
    const char* data = content.constData();
    for (qsizetype left = content.size(); left > 0;) {
        const ssize_t written = ::write(file, data, size_t(left));
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0) {
            data += written;
            left -= written;
        }
    }
    return 0;
}

/// The file, open for reading, and its size. No file where nothing is there.
std::pair<Descriptor, qint64> open(const FileLocation& location)
{
    // Without O_NONBLOCK, a pipe in place of the file would keep the process waiting for ever.
    Descriptor file(::openat(location.folder, location.name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file < 0 && (errno == ENOENT || errno == ENOTDIR))
        return {std::move(file), 0};
    struct stat info = {};
    if (file < 0 || ::fstat(file, &info) != 0)
        location.fail("cannot be read", errno);
    if (!S_ISREG(info.st_mode))
        throw FolderFailure{quoted(location.shown) + " is not a file"};
    return {std::move(file), info.st_size};
}

/// The bytes that were read: less than asked for at the end of the file.
qint64 readSome(int file, char* data, qint64 size, const FileLocation& location)
{
    qint64 filled = 0;
    while (filled < size) {
        const ssize_t got = ::read(file, data + filled, size_t(size - filled));
        if (got < 0 && errno != EINTR)
            location.fail("cannot be read", errno);
        if (got == 0)
            break;
        if (got > 0)
            filled += got;
    }
    return filled;
}

std::uint32_t crcOf(const char* data, qint64 size, std::uint32_t before = 0)
{
    return std::uint32_t(::crc32_z(before, reinterpret_cast<const Bytef*>(data), size_t(size)));
}

} // namespace

Checksum Checksum::of(const QByteArray& content)
{
    return {content.size(), crcOf(content.constData(), content.size())};
}

FileLocation FileLocation::at(const QString& path)
{
    return {AT_FDCWD, QFile::encodeName(path), path};
}

FileKind FileLocation::kind() const
{
    struct stat info = {};
    if (::fstatat(folder, name.constData(), &info, 0) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return FileKind::Nothing;
        fail("cannot be read", errno);
    }
    if (S_ISDIR(info.st_mode))
        return FileKind::Folder;
    return S_ISREG(info.st_mode) ? FileKind::File : FileKind::Other;
}

QByteArray FileLocation::read(bool* missing) const
{
    const auto [file, size] = open(*this);
    if (file < 0) {
        if (!missing)
            fail("cannot be read", ENOENT);
        *missing = true;
        return {};
    }
    if (size > largestFile)
        throw FolderFailure{quoted(shown) + " is too large"};
    QByteArray content(qsizetype(size), Qt::Uninitialized);
    content.truncate(qsizetype(readSome(file, content.data(), size, *this)));
    return content;
}

std::optional<Checksum> FileLocation::checksum() const
{
    if (kind() != FileKind::File)
        return std::nullopt;
    const auto [file, size] = open(*this);
    if (file < 0)
        return std::nullopt;
    constexpr qint64 step = 1 << 18;
    const auto buffer = std::make_unique<char[]>(step);
    Checksum sum;
    for (qint64 got = step; got == step; sum.size += got) {
        got = readSome(file, buffer.get(), step, *this);
        sum.crc = crcOf(buffer.get(), got, sum.crc);
    }
    return sum;
}

void FileLocation::write(const QByteArray& content, unsigned int mode) const
{
    Descriptor file(
        ::openat(folder, name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode_t(mode)));
    if (file < 0)
        fail("cannot be written", errno);
    int error = writeAll(file, content);
    const int closing = file.close();
    if (error == 0)
        error = closing;
    if (error != 0) {
        ::unlinkat(folder, name.constData(), 0);
        fail("cannot be written", error);
    }
}

void FileLocation::moveTo(const FileLocation& to) const
{
    if (::renameat(folder, name.constData(), to.folder, to.name.constData()) != 0)
        to.fail("cannot be written", errno);
}

void FileLocation::makeFolder() const
{
    if (::mkdirat(folder, name.constData(), 0777) != 0)
        fail("cannot be made", errno);
}

void FileLocation::sync() const
{
    const Descriptor file(::openat(folder, name.constData(), O_RDONLY | O_CLOEXEC));
    if (file < 0 || ::fsync(file) != 0)
        fail("cannot be written", errno);
}

void FileLocation::syncFolder() const
{
    const Descriptor file(::openat(folder, name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // EINVAL: a file system that has no such thing as syncing a folder.
    if (file < 0 || (::fsync(file) != 0 && errno != EINVAL))
        fail("cannot be written", errno);
}

} // namespace brindle::engine
