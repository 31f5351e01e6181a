#pragma once

#include <QString>
#include <QStringList>

/// The variables and functions that a script declares at its top level, found by the language's own parser: an engine
/// of its own reads the text and runs nothing of it.
class ScriptNames {
public:
    ScriptNames(const QString& program, const QString& fileName, int lineNumber);

    bool error() const { return m_isWrong; } ///< The text can't be read.
    const QStringList& declared() const { return m_declared; }

private:
    bool m_isWrong = false;
    QStringList m_declared;
};
