#include "core/elements/element.h"

#include "core/elements/elementdrawing.h"
#include "core/elements/elementdrawinglist.h"
#include "core/elements/elementlist.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_pixmapformat.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"

#include <memory>

using namespace OMC;

namespace {

class ElementWrapperTest : public ProjectTest {
public:
    ElementList elements;

    /// The element or drawing in a result of `create`.
    template <typename T>
    static const T& in(const QVariant& value)
    {
        return *objectFrom<T>(value);
    }
    int create(const QString& name) { return in<Element>(elements.create(name, "COLOR", 12, "PNG", "")).getId(); }
};

/// A session whose project has the elements of the open one, and a command manager that refuses.
class RefusedElements : public ElementWrapperTest {
public:
    /// Calls a function while the session is the refusing one.
    template <typename Call>
    std::string refused(Call call)
    {
        SC_SessionContext* const own = PLUG_Services::getSessionContext();
        PLUG_Services::setSessionContext(&m_session);
        const std::string sentence = failureOf(call);
        PLUG_Services::setSessionContext(own);
        return sentence;
    }

    RefusingManager commands;

private:
    /// The open project, with another undo list.
    class Session : public SC_SessionContext {
    public:
        explicit Session(RefusedElements& test) : m_test(test) {}
        SC_ProjectManager* projectManager() const override { return m_test.session().projectManager(); }
        SC_ProjectCommon* projectCommon() const override { return m_test.projectCommon(); }
        CO_CommandManager* commandManager() const override { return &m_test.commands; }
        TUSceneChangeManager* changeManager() const override { return nullptr; }
        SCP_PythonEngine* pythonEngine() const override { return nullptr; }

    private:
        RefusedElements& m_test;
    } m_session{*this};
};

} // namespace

TEST_F(ElementWrapperTest, TheFormatsAreThoseOfThePixmapFormatList)
{
    const TUPixmapFormatList& formats = Element::formatList();
    EXPECT_EQ(&formats, &Element::formatList()) << "made once";
    EXPECT_EQ(formats.format("PNG"), 0);
    EXPECT_EQ(formats.format("png"), 0);
    EXPECT_EQ(formats.format("nope"), -1);
    EXPECT_EQ(formats.pixmapNameFromFormat(formats.format("TIFF")), "TIFF");
    EXPECT_EQ(formats.pixmapNameFromFormat(99), QString());
    EXPECT_EQ(TUPixmapFormatList(TUPixmapFormatList::kScan).format("PSD"), -1);
}

TEST_F(ElementWrapperTest, ACopyShowsTheSameElement)
{
    const int id = create("a");
    const Element element(id);
    const std::unique_ptr<Element> copy(element.copy());
    EXPECT_EQ(copy->getId(), id);
    EXPECT_EQ(copy->__str__(), "Element(1)");
    EXPECT_EQ(Element(77).__str__(), "Element(77)");
    EXPECT_EQ(failureOf([] { Element(77).getId(); }), "Object is no longer valid.");
}

TEST_F(ElementWrapperTest, ADrawingOfAWrongNameFailsAtItsFirstUse)
{
    const int id = create("a");
    const ElementDrawing wrong(id, "nope", QString());
    EXPECT_EQ(failureOf([&] { wrong.getName(); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { ElementDrawing(99, "1", "x").getName(); }), "Object is no longer valid.");
    ElementDrawingList drawings(id);
    drawings.create("1", false, false);
    const ElementDrawing one(id, "1", "no such layer");
    EXPECT_EQ(one.getLayerId(), 0);
    EXPECT_TRUE(one == ElementDrawing(id, "1", QString()));
    EXPECT_FALSE(one == wrong);
}

TEST_F(ElementWrapperTest, WithoutASessionNothingIsValid)
{
    const int id = create("a");
    const Element element(id);
    SC_SessionContext* const own = PLUG_Services::getSessionContext();
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(failureOf([&] { element.getName(); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { elements.size(); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { ElementDrawing(id, "1", QString()).getName(); }), "Object is no longer valid.");
    PLUG_Services::setSessionContext(own);
    EXPECT_EQ(element.getName(), "a");
}

TEST_F(ElementWrapperTest, ALoopStandsAtItsEndBeforeItBegins)
{
    create("a");
    EXPECT_TRUE(elements.__atend__());
    EXPECT_EQ(failureOf([&] { elements.__iterItem__(); }), "Index is out of range.");
    const Obj handle = elements.__iter__();
    auto* loop = objectIn<ElementList>(handle);
    EXPECT_FALSE(loop->__atend__());
    EXPECT_EQ(objectIn<Element>(loop->__iterItem__())->getName(), "a");
    --*loop;
    ++*loop;
    ++*loop;
    EXPECT_TRUE(loop->__atend__());
    EXPECT_EQ(failureOf([&] { loop->__iterItem__(); }), "Index is out of range.");
}

TEST_F(RefusedElements, WhatTheUndoListRefusesIsTold)
{
    Element element(create("a"));
    ElementDrawingList drawings(element.getId());
    ElementDrawing drawing = in<ElementDrawing>(drawings.create("1", false, false));
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { elements.create("b", "COLOR", 12, "PNG", ""); }, "Failed to create elements."},
        {[&] { elements.remove(1, false); }, "Failed to delete elements."},
        {[&] { element.setName("b"); }, "Failed to rename the element."},
        {[&] { element.setFieldChart(3); }, "Failed to set element field-chart."},
        {[&] { element.setPixmapFormat("TIFF"); }, "Failed to set element pixmap format."},
        {[&] { element.setScantype("BW"); }, "Failed to set element scan-type."},
        {[&] { element.setVectorType("PNT"); }, "Failed to set element vector-type."},
        {[&] { element.setOpacity(3); }, "Failed to set the drawing opacity."},
        {[&] { element.duplicate("b"); }, "Failed to create new element: b"},
        {[&] { drawings.create("2", false, false); }, "Failed to add the drawings."},
        {[&] { drawings.remove("1"); }, "Failed to remove the drawings."},
        {[&] { drawing.setDrawingVersion(2); }, "Failed to set the drawing version."},
        {[&] { drawing.setDrawingScaleFactor(2); }, "Failed to set the drawing version."},
        {[&] { drawing.duplicate("2", {}); }, "Failed to set the drawing version."},
        {[&] { drawing.setName("2"); }, "no exception"},
    };
    const QByteArray before = saved();
    for (const auto& [call, sentence] : rows)
        EXPECT_EQ(refused(call), sentence);
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(commands.refusedLabels,
              QStringList({"Creating elements.", "", "Renaming Element", "Changing element field-chart.",
                           "Changing element pixmap format.", "Changing element scan-type.",
                           "Changing element vector-type.", "Change drawing opacity.", "", "Adding drawings.",
                           "Removing drawings.", "Change drawing versions.", "Change drawing scale-factor.",
                           "Duplicating a drawing in an element.", "Renaming Drawing from 1 to 2"}));
    EXPECT_EQ(commands.openScopes, 0);
    EXPECT_EQ(commands.cancelledScopes, 1) << "that of the duplicate";
}
