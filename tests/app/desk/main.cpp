#include "tests/app/desk/support/process.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryDir>

#include <clocale>

int main(int count, char** arguments)
{
    // Settings that a person keeps from one run to the next lie in a folder of the test's.
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    testing::InitGoogleMock(&count, arguments);
    const int code = RUN_ALL_TESTS();
    Process::end();
    return code;
}
