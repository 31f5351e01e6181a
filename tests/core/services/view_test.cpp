#include "core/services/view.h"

#include "core/host/lay_view.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

using OMC::View;
using OMC::ViewFactory;
using OMC::ViewList;
using OMC::ViewMap;

class HostView : public LAY_View {
public:
    QString name() const override { return "Camera-1"; }
    QString caption() const override { return title; }
    void setCaption(const QString& caption) override { title = caption; }
    QString displayName() const override { return shown; }
    void setDisplayName(const QString& name) override { shown = name; }
    QVariant widget() const override { return 1; }
    QVariant toolbar() const override { return "tools"; }
    QObject* menu() const override { return hasMenu ? const_cast<QObject*>(&menuObject) : nullptr; }

    QString title;
    QString shown;
    QObject menuObject;
    bool hasMenu = false;
};

class CameraView : public View {
public:
    explicit CameraView(HostView& host) : m_host(host) {}

protected:
    LAY_View* hostView() const override { return &m_host; }

private:
    HostView& m_host;
};

class Factory : public ViewFactory {
public:
    explicit Factory(bool* isGone = nullptr) : m_isGone(isGone) {}
    ~Factory() override
    {
        if (m_isGone)
            *m_isGone = true;
    }
    View* create() const override { return new View; }

private:
    bool* m_isGone;
};

class ViewsTest : public testing::Test {
protected:
    ~ViewsTest() override { ViewFactory::registeredViews().clear(); }
};

const char* const invalid = "Object is no longer valid.";

TEST_F(ViewsTest, APlainViewIsInvalid)
{
    View view;
    for (const char* name : {"name", "type", "caption", "display_name", "widget", "toolbar", "menu"}) {
        bool found = false;
        EXPECT_EQ(failureOf([&] { view.getAttr(name, found); }), invalid) << name;
    }
    EXPECT_EQ(failureOf([&] { static_cast<void>(view.getType()); }), invalid);
    EXPECT_EQ(failureOf([&] { view.setCaption("x"); }), invalid);
    EXPECT_EQ(view.__str__(), "View()");
}

TEST_F(ViewsTest, AViewShowsTheHosts)
{
    HostView host;
    CameraView view(host);
    view.setCaption("Camera");
    view.setDisplayName("The camera");
    EXPECT_EQ(host.title, "Camera");
    EXPECT_EQ(view.getCaption(), "Camera");
    EXPECT_EQ(view.getDisplayName(), "The camera");
    EXPECT_EQ(view.getName(), "Camera-1");
    EXPECT_EQ(view.getType(), "Unknown");
    EXPECT_EQ(view.getWidget(), QVariant(1));
    EXPECT_EQ(view.getToolbar(), QVariant("tools"));
    EXPECT_FALSE(view.getMenu().isValid());
    host.hasMenu = true;
    EXPECT_EQ(view.getMenu().value<QObject*>(), &host.menuObject);
}

TEST_F(ViewsTest, TheFirstFactoryOfANameStays)
{
    bool isGone = false;
    bool isSecondGone = false;
    EXPECT_TRUE(ViewFactory::registerView("Camera", new Factory(&isGone)));
    EXPECT_FALSE(ViewFactory::registerView("Camera", new Factory(&isSecondGone)));
    EXPECT_TRUE(isSecondGone);
    EXPECT_FALSE(isGone);
    EXPECT_TRUE(ViewFactory::registerView("camera", new Factory)) << "another name";
}

TEST_F(ViewsTest, TheMapIsOneAndABorrowedHandleShowsIt)
{
    ViewMap* map = ViewMap::getInstance();
    EXPECT_EQ(map, ViewMap::getInstance());
    EXPECT_EQ(map->copy(), map);
    const OMC::Obj handle(map);
    EXPECT_TRUE(handle.hasRealOwner());
}

TEST_F(ViewsTest, TheMapMakesViewsByName)
{
    ViewMap& map = *ViewMap::getInstance();
    EXPECT_EQ(map.__str__(), "Brindle Views: (No views loaded)");
    EXPECT_EQ(failureOf([&] { map.get("Camera"); }), "Unable to find view: Camera");
    ViewFactory::registerView("Timeline", new Factory);
    ViewFactory::registerView("Camera", new Factory);
    EXPECT_EQ(map.__str__(), "Brindle Views: (Camera, Timeline)");
    EXPECT_EQ(map.size(), 2u);
    EXPECT_EQ(map.list().size(), 2);
    EXPECT_TRUE(map.contains("Camera"));
    EXPECT_FALSE(map.contains("camera"));
    EXPECT_NE(OMC::objectFrom<View>(map.get("Camera")), nullptr);
    const OMC::Obj iterator = map.__iter__();
    auto& loop = *OMC::objectIn<ViewMap>(iterator);
    int count = 0;
    for (; !loop.__atend__(); ++loop, ++count)
        EXPECT_NE(OMC::objectFrom<View>(loop.__iterItem__()), nullptr);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "Index is out of range.");
}

TEST_F(ViewsTest, TheListHasItsSentences)
{
    ViewList list;
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.__str__(), "InvalidView");
    EXPECT_EQ(failureOf([&] { list.contains(5); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([&] { list.contains("Camera"); }), "Unable to find view: Camera");
    EXPECT_EQ(failureOf([&] { list.get(QString("Camera")); }), "Unable to find view: Camera");
    EXPECT_EQ(failureOf([&] { list.get(0); }), "Unexpected error - invalid view.");
    EXPECT_EQ(failureOf([&] { list.create(); }), "Invalid viewlist.");
    EXPECT_EQ(failureOf([&] { list.remove(0); }), "Unable to find view.");
    EXPECT_TRUE(list.__atend__());
}

} // namespace
