#include "app/arguments.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <utility>

namespace app {

namespace {

QString lineOf(const Usage& usage)
{
    return QString("Usage: brindle %1 %2").arg(usage.name, usage.arguments);
}

/// The column at which the texts of a command's options begin.
int columnOf(const QString& options)
{
    static const QRegularExpression ahead(R"(^  \S+(?: \S+)* {2,})");
    const QRegularExpressionMatch match = ahead.match(options);
    return match.hasMatch() ? static_cast<int>(match.capturedLength()) : 14;
}

} // namespace

Arguments::Arguments(const Usage& usage, QList<QByteArray> all) : m_usage(usage), m_left(std::move(all)) {}

bool Arguments::next()
{
    if (m_isHelpAsked || !m_error.isEmpty() || m_left.isEmpty())
        return false;
    m_value = m_left.takeFirst();
    m_isOption = m_value.size() > 1 && m_value.startsWith('-');
    m_isHelpAsked = m_value == "--help" || m_value == "-h";
    if (m_value == "--") {
        if (m_left.isEmpty())
            return false;
        m_value = m_left.takeFirst();
        m_isOption = false;
    }
    return !m_isHelpAsked;
}

QString Arguments::folder()
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(m_value);
    if (decoder.hasError())
        fail(QString("The name \"%1\" is no text in UTF-8.").arg(text));
    return text;
}

bool Arguments::takeFor(const char* sentence)
{
    if (m_left.isEmpty())
        fail(sentence);
    else
        m_value = m_left.takeFirst();
    return m_error.isEmpty();
}

QList<QByteArray> Arguments::takeRest()
{
    return std::exchange(m_left, {});
}

void Arguments::refuse()
{
    fail(QString("There is no option \"%1\"; brindle %2 --help lists them. A name that begins with \"-\" stands behind "
                 "\"--\".")
             .arg(QString::fromUtf8(m_value), m_usage.name));
}

void Arguments::misfit()
{
    fail(lineOf(m_usage).simplified());
}

void Arguments::fail(const QString& sentence)
{
    if (m_error.isEmpty())
        m_error = sentence;
}

QString helpOf(const Usage& usage)
{
    const int column = columnOf(usage.options);
    return lineOf(usage) + QString("\n\n%1\n\nOptions:\n%2").arg(usage.text, usage.options) +
           QString("  -h, --help").leftJustified(column) + "Shows this text.\n" +
           QString("  --").leftJustified(column) + "Ahead of a name that begins with \"-\".\n";
}

} // namespace app
