#include "render/machinememory.h"

#include <QFile>
#include <QList>

#include <algorithm>
#include <limits>
#include <optional>

namespace brindle::render {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number behind a word at the beginning of a line.
std::optional<qint64> numberIn(const QByteArray& table, const QByteArray& word)
{
    for (const QByteArray& line : table.split('\n'))
        if (line.startsWith(word))
            return line.mid(word.size()).trimmed().split(' ').first().toLongLong();
    return std::nullopt;
}

/// What a control group (version 2) has left: pages of files that it could give back count as free.
std::optional<qint64> leftOf(const QString& group)
{
    bool isLimited = false;
    const qint64 limit = contentOf(group + QStringLiteral("/memory.max")).trimmed().toLongLong(&isLimited);
    if (!isLimited)
        return std::nullopt;
    const qint64 used = contentOf(group + QStringLiteral("/memory.current")).trimmed().toLongLong();
    const qint64 files = numberIn(contentOf(group + QStringLiteral("/memory.stat")), "inactive_file ").value_or(0);
    return limit - used + files;
}

} // namespace

qint64 availableMemory()
{
    constexpr qint64 kilobyte = 1024;
    const auto machine = numberIn(contentOf(QStringLiteral("/proc/meminfo")), "MemAvailable:");
    qint64 left = machine ? *machine * kilobyte : std::numeric_limits<qint64>::max();
    for (const QByteArray& line : contentOf(QStringLiteral("/proc/self/cgroup")).split('\n')) {
        if (!line.startsWith("0::"))
            continue;
        QString group = QStringLiteral("/sys/fs/cgroup") + QFile::decodeName(line.mid(3));
        for (; group.size() >= QStringLiteral("/sys/fs/cgroup").size(); group = group.section(u'/', 0, -2))
            left = std::min(left, leftOf(group).value_or(left));
    }
    return std::max<qint64>(left, 0);
}

} // namespace brindle::render
