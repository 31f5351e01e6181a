#include "core/host/application.h"

#include "engine/engine.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace {

class ScriptEngine final : public BAPP_ScriptEngine {
public:
    int run(const QList<QByteArray>&, std::function<void()>) override { return 0; }
    bool start(QString&) override { return true; }
    bool execute(const QString&) override { return true; }
};

class Vectorization final : public BAPP_VectorizationInterface {
public:
    QList<QPolygonF> outlines(const QImage&, int) const override { return {}; }
};

} // namespace

TEST(EngineApplicationTest, APlainProcessIsNoBatch)
{
    EXPECT_EQ(brindle::engine::batchMode(), brindle::engine::BatchMode::None);
    EXPECT_FALSE(ST_BatchParams::isBatchScripting());
    EXPECT_FALSE(ST_BatchParams::isBatchRendering());
    EXPECT_FALSE(ST_BatchParams::isBatchPython());
}

TEST(EngineApplicationTest, TheProgramSaysWhatBatchItIs)
{
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Scripting);
    EXPECT_TRUE(ST_BatchParams::isBatchScripting());
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Rendering);
    EXPECT_TRUE(ST_BatchParams::isBatchRendering());
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    EXPECT_TRUE(ST_BatchParams::isBatchPython());
    EXPECT_FALSE(ST_BatchParams::isBatchScripting());
    EXPECT_EQ(brindle::engine::batchMode(), brindle::engine::BatchMode::Python);
    brindle::engine::setBatchMode(brindle::engine::BatchMode::None);
}

TEST(EngineApplicationTest, TheProgramIsKnownWhileItLives)
{
    EXPECT_EQ(BAPP_Application::instance(), nullptr);
    {
        const brindle::engine::Application program(QStringLiteral("paint"), QStringLiteral("1.2"), true);
        EXPECT_EQ(BAPP_Application::instance(), &program);
        EXPECT_EQ(program.name(), "paint");
        EXPECT_EQ(program.version(), "1.2");
        EXPECT_TRUE(program.isInteractive());
    }
    EXPECT_EQ(BAPP_Application::instance(), nullptr);
}

TEST(EngineApplicationTest, AServiceIsRegisteredAndTakenAway)
{
    const brindle::engine::Application program(QStringLiteral("paint"), QStringLiteral("1.2"), false);
    BAPP_ScriptHost* host = program.scriptHost();
    EXPECT_EQ(host->scriptEngine(), nullptr);
    EXPECT_EQ(host->vectorizationInterface(), nullptr);
    ScriptEngine scripts;
    Vectorization vectorization;
    host->setScriptEngine(&scripts);
    host->setVectorizationInterface(&vectorization);
    EXPECT_EQ(host->scriptEngine(), &scripts);
    EXPECT_EQ(host->vectorizationInterface(), &vectorization);
    host->setScriptEngine(nullptr);
    EXPECT_EQ(host->scriptEngine(), nullptr);
    EXPECT_EQ(host->vectorizationInterface(), &vectorization);
    host->setVectorizationInterface(nullptr);
    EXPECT_EQ(host->vectorizationInterface(), nullptr);
}

TEST(EngineApplicationTest, AnEngineThatIsDestroyedTakesItselfAway)
{
    const brindle::engine::Application program(QStringLiteral("paint"), QStringLiteral("1.2"), false);
    BAPP_ScriptHost* host = program.scriptHost();
    ScriptEngine other;
    {
        ScriptEngine scripts;
        host->setScriptEngine(&scripts);
        {
            const ScriptEngine neverRegistered;
        }
        EXPECT_EQ(host->scriptEngine(), &scripts);
    }
    EXPECT_EQ(host->scriptEngine(), nullptr);
    {
        ScriptEngine scripts;
        host->setScriptEngine(&scripts);
        host->setScriptEngine(&other);
    }
    EXPECT_EQ(host->scriptEngine(), &other);
    host->setScriptEngine(nullptr);
}

TEST(EngineApplicationTest, AnEngineMayOutliveTheProgram)
{
    ScriptEngine scripts;
    const brindle::engine::Application program(QStringLiteral("paint"), QStringLiteral("1.2"), false);
    program.scriptHost()->setScriptEngine(&scripts);
}

TEST(EngineApplicationTest, TheBinariesAreWhereThisCodeIsUnlessTheProgramSaysElse)
{
    const QString own = oswUtil::getBinDir();
    EXPECT_TRUE(QFileInfo(own).isDir());
    EXPECT_FALSE(own.endsWith('/'));
    brindle::engine::setBinDir(QStringLiteral("/somewhere/lib"));
    EXPECT_EQ(oswUtil::getBinDir(), "/somewhere/lib");
    brindle::engine::setBinDir(QString());
    EXPECT_EQ(oswUtil::getBinDir(), own);
}

TEST(EngineApplicationTest, EventsAreProcessedOnlyWhereThereIsAnApplication)
{
    QObject receiver;
    int told = 0;
    const auto post = [&] {
        QMetaObject::invokeMethod(
            &receiver, [&] { ++told; }, Qt::QueuedConnection);
    };
    post();
    BUIAPP_Application::processEventsNoAppLock(true);
    BUIAPP_Application::processEventsNoAppLock(false);
    EXPECT_EQ(told, 0);

    int count = 1;
    char name[] = "engine_tests";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    BUIAPP_Application::processEventsNoAppLock(true);
    EXPECT_EQ(told, 1);
    post();
    BUIAPP_Application::processEventsNoAppLock(false);
    EXPECT_EQ(told, 2);
}
