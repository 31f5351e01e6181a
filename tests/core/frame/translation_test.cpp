#include "core/frame/listobj.h"
#include "core/frame/listqvar.h"
#include "core/frame/mapobj.h"
#include "tests/core/support/embedded.h"

#include <QCoreApplication>
#include <QTranslator>

#include <memory>
#include <utility>

// Which sentences a person's language replaces, and in which context it finds them.

namespace {

using OMC::BaseObject;
using OMC::ThreadManager;

/// Puts the context ahead of each text.
class ContextTranslator : public QTranslator {
public:
    ContextTranslator() { QCoreApplication::installTranslator(this); }
    ~ContextTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1Char('[') + QLatin1String(context) + QLatin1String("] ") + QLatin1String(text);
    }
    bool isEmpty() const override { return false; }
};

class TranslatedSample : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(int number READ getNumber)
    Q_PROPERTY(int writable READ getNumber WRITE setNumber)
    Q_PROPERTY(QVariant nothing READ getNothing)

public:
    int getNumber() const { return 1; }
    void setNumber(int) {}
    QVariant getNothing() const { return {}; }
};

class TranslationTest : public EmbeddedTest {
protected:
    static void read(const char* name)
    {
        bool found = false;
        TranslatedSample().getAttr(name, found);
    }
    static void write(const char* name, const QVariant& value)
    {
        bool found = false;
        TranslatedSample().setAttr(name, value, found);
    }

    ContextTranslator translator;
};

TEST_F(TranslationTest, SharedFailuresAreOfTheBaseObject)
{
    EXPECT_EQ(failureOf([] { BaseObject::throwInvalid(); }), "[OMC::BaseObject] Object is no longer valid.");
    EXPECT_EQ(failureOf([] { BaseObject::throwInvalidArgument(7); }), "[OMC::BaseObject] Invalid argument at index 7.");
    EXPECT_EQ(failureOf([] { BaseObject::throwUnexpected(); }), "[OMC::BaseObject] An unexpected error has occurred.");
    EXPECT_EQ(failureOf([] { OMC::ListObj::throwIndexOutOfRange(); }), "[OMC::BaseObject] Index is out of range.");
    EXPECT_EQ(failureOf([] { OMC::ListQVar::throwIndexOutOfRange(); }), "[OMC::BaseObject] Index is out of range.");
    EXPECT_EQ(failureOf([] { OMC::MapObj().throwIndexOutOfRange(); }), "[OMC::BaseObject] Index is out of range.");
}

TEST_F(TranslationTest, WritingAPropertyFailsInThePersonsLanguageAndReadingDoesNot)
{
    EXPECT_EQ(failureOf([] { write("number", 1); }), "[OMC::BaseObject] Property is read-only.");
    EXPECT_EQ(failureOf([] { write("writable", QStringLiteral("x")); }),
              "[OMC::BaseObject] Failed to write the property (Argument Type QString)");
    EXPECT_EQ(failureOf([] { read("nothing"); }), "Failed to read the property.");
}

TEST_F(TranslationTest, WhatAClassLacksIsSaidPlainly)
{
    EXPECT_EQ(failureOf([] { TranslatedSample().copy(); }), "!! A proper copy constructor is needed. !!\n");
    EXPECT_EQ(failureOf([] { OMC::ListObj().get(0); }), "Unable to retrieve item in container.");
}

TEST_F(TranslationTest, ThreadRulesAreOfTheApplication)
{
    const QVariant number(3);
    EXPECT_EQ(onWorker([] { BaseObject::validateThreadLock(); }),
              "[CadenceMain] Unable to access Object Model from another thread -- application must be locked.");
    EXPECT_EQ(onWorker([] { BaseObject::throwIfNotMainThread(QStringLiteral("views")); }),
              "[CadenceMain] Unable to access views from another thread.");
    EXPECT_EQ(failureOf([&] { ThreadManager::instance()->runFunction(number); }),
              "[CadenceMain] Expected a Python Function.");
    EXPECT_EQ(failureOf([&] { ThreadManager::instance()->runOnMain(number, true); }),
              "[CadenceMain] Expected a Python Function.");
    session.changes = nullptr;
    EXPECT_EQ(onWorker([] { ThreadManager::instance()->lock(); }),
              "[CadenceMain] Thread failed to get Application Lock.");
    session.python = nullptr;
    EXPECT_EQ(failureOf([&] { ThreadManager::instance()->runOnMain(number, true); }),
              "[CadenceMain] Unable to use run_on_main() in an external Python interpreter.");
}

TEST_F(TranslationTest, FunctionsSpeakForThemselves)
{
    OMC::PythonFunction function;
    EXPECT_EQ(failureOf([&] { function.call(); }), "[OMC::PythonFunction] No Python object is available.");
    const auto helper = std::move(OMC::PythonFunction::helperFunc());
    EXPECT_EQ(failureOf([&] { function.call(); }),
              "[OMC::PythonFunction] Wrapper function calling has not been enabled.");
}

TEST_F(TranslationTest, AHelperThatCantCallSaysSoPlainly)
{
    OMC::PythonFunction::helperFunc() = std::make_unique<HelperWithoutCalls>();
    _object object;
    OMC::PythonFunction function;
    function.set(&object);
    EXPECT_EQ(failureOf([&] { function.call(); }), "Fail - this should be overridden by target wrappers.\n");
}

} // namespace

#include "translation_test.moc"
