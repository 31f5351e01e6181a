#pragma once

#include <QCoreApplication>

#include <optional>
#include <string>

/// While it lives there is a QCoreApplication: Qt makes no script engine without one, and needs it for nothing else.
/// One that is there stays the only one. Otherwise there is one of our own, which doesn't stay: a program may make its
/// QApplication whenever it likes. The person's locale, which Qt takes on for a process, is put back with it.
class ApplicationScope {
public:
    ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;
    ~ApplicationScope();

    /// Ends it ahead of time.
    void end();

private:
    std::string m_locale;
    std::optional<QCoreApplication> m_own;
};
