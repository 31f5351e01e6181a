#include <gmock/gmock.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    // The thread rules ask for an application object; its thread is the main thread of every test.
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
