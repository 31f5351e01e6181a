#include "app/desk/console/inputhistory.h"

#include "core/host/msg_scope.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace app::desk {

namespace {

/// Nobody else may read what a person types.
constexpr auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner;

/// More than this, at the end of the file, isn't read; in bytes.
constexpr qint64 maxSize = 1'000'000;

void logFailure(const QString& file, const QString& reason)
{
    MSG_Scope(QStringLiteral("The console's history is not kept in \"%1\": %2.").arg(file, reason), MSG_Scope::kLog);
}

} // namespace

InputHistory::InputHistory(const QString& file) : m_file(file)
{
    if (!m_file.isEmpty())
        read();
    m_place = m_lines.size();
}

QString InputHistory::fileOfUser()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return folder.isEmpty() ? QString() : folder + QStringLiteral("/brindle/console-history");
}

void InputHistory::add(const QString& line)
{
    if (!line.trimmed().isEmpty() && (m_lines.isEmpty() || m_lines.last() != line)) {
        m_lines.append(line);
        if (m_lines.size() > maxLines)
            m_lines.removeFirst();
        if (!m_file.isEmpty())
            write(line);
    }
    m_place = m_lines.size();
}

std::optional<QString> InputHistory::older(const QString& typed)
{
    if (m_place == 0)
        return std::nullopt;
    if (m_place == m_lines.size())
        m_typed = typed;
    return m_lines.at(--m_place);
}

std::optional<QString> InputHistory::newer()
{
    if (m_place == m_lines.size())
        return std::nullopt;
    return ++m_place == m_lines.size() ? m_typed : m_lines.at(m_place);
}

void InputHistory::read()
{
    QFile file(m_file);
    if (!file.exists())
        return;
    // Opening what else there may be under the name could wait without end.
    const bool isFile = QFileInfo(m_file).isFile();
    if (!isFile || !file.open(QIODevice::ReadOnly)) {
        logFailure(m_file, isFile ? file.errorString() : QStringLiteral("It is not a file"));
        m_file.clear();
        return;
    }
    const bool isLarge = file.size() > maxSize;
    if (isLarge)
        file.seek(file.size() - maxSize);
    m_lines = QString::fromUtf8(file.read(maxSize)).split(u'\n', Qt::SkipEmptyParts);
    // The first has lost its beginning.
    if (isLarge && !m_lines.isEmpty())
        m_lines.removeFirst();
    const bool isLong = m_lines.size() > 2 * maxLines;
    if (m_lines.size() > maxLines)
        m_lines = m_lines.last(maxLines);
    if (isLarge || isLong)
        shorten();
}

void InputHistory::shorten() const
{
    QSaveFile file(m_file);
    const QByteArray content = m_lines.join(u'\n').toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(ownersOnly) || file.write(content) != content.size() ||
        !file.flush() || !file.commit())
        logFailure(m_file, file.errorString());
}

void InputHistory::write(const QString& line)
{
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QFile file(m_file);
    const QByteArray content = line.toUtf8() + '\n';
    if (file.open(QIODevice::WriteOnly | QIODevice::Append) && file.setPermissions(ownersOnly) &&
        file.write(content) == content.size() && file.flush())
        return;
    logFailure(m_file, file.errorString());
    m_file.clear();
}

} // namespace app::desk
