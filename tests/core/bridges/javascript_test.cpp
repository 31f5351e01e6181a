#include "core/bridges/javascript.h"

#include "core/bridges/javascriptobject.h"
#include "core/bridges/javascriptrootobject.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/properties.h"
#include "tests/core/support/standins.h"

#include <QTemporaryDir>

using namespace OMC;

namespace {

class JavascriptTest : public ProjectTest {
protected:
    /// The object that a text gives; the test keeps it.
    std::unique_ptr<JavascriptObject> object(const QString& code)
    {
        return std::unique_ptr<JavascriptObject>(objectFrom<JavascriptObject>(javascript.eval(code))->copy());
    }
    static std::unique_ptr<JavascriptRootObject> root(const Obj& handle)
    {
        return std::unique_ptr<JavascriptRootObject>(objectIn<JavascriptRootObject>(handle)->copy());
    }

    Javascript javascript;
};

constexpr char noItem[] = "Unable to retrieve item in container.";

} // namespace

TEST_F(JavascriptTest, ItBelongsToTheSessionThatItWasMadeIn)
{
    EXPECT_EQ(javascript.__str__(), "JavascriptInterface()");
    EXPECT_EQ(javascript.validateGetSession(), &session());
    EXPECT_EQ(javascript.eval("20 + 1"), QVariant(21));
    {
        const StandInSession other;
        const std::initializer_list<std::function<void()>> calls{
            [this] { javascript.validateGetSession(); },
            [this] { javascript.eval("1"); },
            [this] { javascript.evaluate("1"); },
            [this] { javascript.callFunction("", "f", QVariant(), QVariant()); },
            [this] { javascript.availableScripts(); },
            [this] { javascript.availableScriptFunctions("x.js"); },
            [this] { javascript.evalAvailableScript("x.js", "f", QVariant(), QVariant()); }};
        for (const auto& call : calls)
            EXPECT_EQ(failureOf(call), objectGone);
        EXPECT_EQ(failureOf([] { Javascript().validateGetSession(); }), passes);
    }
    EXPECT_EQ(std::unique_ptr<Javascript>(javascript.copy())->eval("1"), QVariant(1));
}

TEST_F(JavascriptTest, AnObjectOfNothingIsEmpty)
{
    JavascriptObject nothing;
    EXPECT_EQ(nothing.size(), 0u);
    EXPECT_FALSE(nothing.get("x").isValid());
    EXPECT_EQ(failureOf([&] { nothing.get(0); }), noItem);
    EXPECT_TRUE(nothing.list().isEmpty());
    EXPECT_FALSE(nothing.contains("x"));
    EXPECT_EQ(nothing.getType(), "UNKNOWN");
    EXPECT_EQ(nothing.getSource(), "memory");
    EXPECT_EQ(nothing.__str__(), "Contents: Type : UNKNOWN");
    nothing.append(1);
    nothing.insert(0, 1);
    nothing.remove("x");
    nothing.clear();
    EXPECT_FALSE(nothing.pop().isValid());
    EXPECT_EQ(failureOf([&] { nothing.call(QVariant(), QVariant()); }), "The current object is not a function.");
    const Obj handle = nothing.__iter__();
    EXPECT_TRUE(objectIn<JavascriptObject>(handle)->__atend__());
    EXPECT_EQ(failureOf([&] { objectIn<JavascriptObject>(handle)->__iterItem__(); }), indexOutOfRange);
    expectProperties(JavascriptObject::staticMetaObject, ListQVar::staticMetaObject,
                     {{"source", "QString", false}, {"type", "QString", false}});
    expectProperties(JavascriptRootObject::staticMetaObject, JavascriptObject::staticMetaObject,
                     {{"path", "QString", false},
                      {"script", "QString", true},
                      {"loaded", "bool", false},
                      {"type", "QString", false}});
}

TEST_F(JavascriptTest, ACopySharesItsValue)
{
    const auto array = object("[1, 2]");
    const std::unique_ptr<JavascriptObject> copy(array->copy());
    copy->append("x");
    EXPECT_EQ(array->list(), QVariantList({1, 2, "x"}));
    EXPECT_EQ(array->get(-1), QVariant("x"));
    EXPECT_EQ(copy->pop(0), QVariant(1));
    EXPECT_EQ(array->size(), 2u);
}

TEST_F(JavascriptTest, ValuesGoInByTheirTypes)
{
    const auto type = object("(function(v) { return Array.isArray(v) ? 'array' + v.length : typeof v })");
    const std::pair<QVariant, const char*> rows[] = {{true, "boolean"},
                                                     {7, "number"},
                                                     {2.5, "number"},
                                                     {"x", "string"},
                                                     {QVariant(), "undefined"},
                                                     {QVariantMap{{"a", 1}}, "object"},
                                                     {QVariantList{1, 2}, "array2"},
                                                     {QStringList({"a", "b", "c"}), "array3"}};
    for (const auto& [value, name] : rows)
        EXPECT_EQ(type->call(QVariantList{value}, QVariant()).toString().toStdString(), name);
    EXPECT_EQ(object("(function() { return arguments.length })")->call(QStringList({"a", "b"}), QVariant()),
              QVariant(2));
    EXPECT_EQ(object("(function() { return this.n })")->call(QVariant(), QVariantMap{{"n", 5}}), QVariant(5));
    const auto kept = object("({n: 1})");
    const auto same = object("(function(o) { o.n = 2 })");
    same->call(QVariantList{QVariant::fromValue(static_cast<QObject*>(kept.get()))}, QVariant());
    EXPECT_EQ(kept->get("n"), QVariant(2));
}

TEST_F(JavascriptTest, ARootObjectRunsItsScriptWhenItIsDue)
{
    const auto script = root(javascript.loadString("var n = 1; function next() { return ++n }", true));
    EXPECT_EQ(script->getType(), "ROOT");
    EXPECT_TRUE(script->getLoaded());
    EXPECT_EQ(script->getSource(), "memory");
    EXPECT_EQ(
        std::unique_ptr<JavascriptObject>(objectFrom<JavascriptObject>(script->get("next"))->copy())->call({}, {}),
        QVariant(2));
    script->setScript("var m = 3");
    EXPECT_EQ(script->get("m"), QVariant(3));
    EXPECT_FALSE(script->get("n").isValid());
    EXPECT_TRUE(
        failureOf([&] { script->setScript("var = 1"); }).starts_with("Uncaught exception running script file memory"));
    script->setScript(QString());
    EXPECT_EQ(script->size(), 0u);
    EXPECT_EQ(script->getScript(), QString());
}

TEST_F(JavascriptTest, AFileThatGoesAfterItsLoadingIsNamed)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.js");
    const std::string sentence = "Unable to load script from path: " + path.toStdString();
    EXPECT_EQ(failureOf([&] { javascript.loadFile(path, true); }), sentence);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("var a = 1") > 0);
    file.close();
    const auto script = root(javascript.loadFile(path, true));
    EXPECT_EQ(script->getPath(), path);
    EXPECT_EQ(script->getSource(), path);
    ASSERT_TRUE(file.remove());
    EXPECT_EQ(failureOf([&] { script->get("a"); }), sentence);
    EXPECT_EQ(failureOf([&] { script->getLoaded(); }), sentence);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("var a = 2") > 0);
    file.close();
    script->reload(true);
    EXPECT_EQ(script->get("a"), QVariant(2));
}
