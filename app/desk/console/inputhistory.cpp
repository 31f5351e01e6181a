#include "app/desk/console/inputhistory.h"

#include "core/host/msg_scope.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace app::desk {

namespace {

/// What a person types may hold what is nobody else's business.
constexpr auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner;

void logFailure(const QFileDevice& file)
{
    MSG_Scope(QStringLiteral("The console's history is not kept: \"%1\": %2.").arg(file.fileName(), file.errorString()),
              MSG_Scope::kLog);
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
    if (!file.open(QIODevice::ReadOnly)) {
        logFailure(file);
        return;
    }
    m_lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    if (m_lines.size() <= maxLines)
        return;
    const bool isLong = m_lines.size() > 2 * maxLines;
    m_lines = m_lines.last(maxLines);
    if (!isLong)
        return;
    QSaveFile shorter(m_file);
    const QByteArray content = m_lines.join(u'\n').toUtf8() + '\n';
    if (!shorter.open(QIODevice::WriteOnly) || !shorter.setPermissions(ownersOnly) ||
        shorter.write(content) != content.size() || !shorter.commit())
        logFailure(shorter);
}

void InputHistory::write(const QString& line)
{
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QFile file(m_file);
    const QByteArray content = line.toUtf8() + '\n';
    if (file.open(QIODevice::WriteOnly | QIODevice::Append) && file.setPermissions(ownersOnly) &&
        file.write(content) == content.size() && file.flush())
        return;
    logFailure(file);
    m_file.clear();
}

} // namespace app::desk
