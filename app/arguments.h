#pragma once

#include "app/command.h"

namespace app {

/// The arguments of a command, one after the other, in the bytes that the process was given: a script's argument
/// needn't be text. What begins with "-" is an option, unless "--" stands ahead of it.
///
///     while (arguments.next()) {
///         if (!arguments.isOption())
///             folder = arguments.folder();
///         else if (arguments.value() == "--read-only")
///             readOnly = true;
///         else
///             arguments.refuse();
///     }
///
/// Ends at the first argument that doesn't fit, which `error` then tells of, and at --help.
class Arguments {
public:
    Arguments(const Usage& usage, QList<QByteArray> all);

    /// Goes on to the next argument; false behind the last, behind a failure, and when help is asked for.
    bool next();
    const QByteArray& value() const { return m_value; }
    bool isOption() const { return m_isOption; }
    QString folder(); ///< The value as the name of a folder. A failure where it is no text.

    /// The argument of an option; a failure with this sentence where there is none.
    bool takeFor(const char* sentence);
    QList<QByteArray> takeRest(); ///< All that stand behind the value, as they are.

    void refuse(); ///< The option is none of the command's.
    void misfit(); ///< The arguments as a whole don't fit: the usage is what there is to say.
    void fail(const QString& sentence);

    bool isHelpAsked() const { return m_isHelpAsked; }
    const QString& error() const { return m_error; }

private:
    const Usage& m_usage;
    QList<QByteArray> m_left;
    QByteArray m_value;
    bool m_isOption = false;
    bool m_isHelpAsked = false;
    QString m_error;
};

/// The text that --help prints for a command.
QString helpOf(const Usage& usage);

} // namespace app
