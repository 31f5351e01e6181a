#include "qtscript/qscriptengine.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <clocale>

/// In a process of its own, which has no QCoreApplication.
TEST(ApplicationScopeDeathTest, AnEngineLeavesNoApplicationBehindAndWorksWithoutOne)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto run = [] {
        QCoreApplication::instance()->~QCoreApplication();
        const std::string locale = std::setlocale(LC_ALL, nullptr);
        bool isRight = !QCoreApplication::instance();
        {
            QScriptEngine engine;
            QScriptValue object = engine.newObject();
            engine.setGlobalObject(object);
            engine.evaluate("function twice(x) { return 2 * x }");
            isRight = isRight && object.property("twice").call({}, {21}).toNumber() == 42;
            engine.collectGarbage();
        }
        isRight = isRight && !QCoreApplication::instance() && locale == std::setlocale(LC_ALL, nullptr);
        std::_Exit(isRight ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}
