#include "engine/elements/elementfile.h"

#include "core/host/em_commands.h"
#include "engine/elements/elementmanager.h"
#include "engine/folder/jsonplace.h"
#include "tests/engine/elements/elementtest.h"

using namespace brindle::engine;

namespace {

class ElementFileTest : public ElementTest {
public:
    /// Reads the text as that of a file into a new project; gives the failure, or nothing.
    QString read(const QByteArray& text)
    {
        close();
        static_cast<MemoryProject&>(*this) = MemoryProject();
        try {
            readElements(JsonFile("/p/elements.json", text), elements());
            return {};
        } catch (const FolderFailure& failure) {
            return failure.reason;
        }
    }
    /// The same of one element with these fields behind those that it must have.
    QString readElement(const QByteArray& more)
    {
        return read(R"({"format": "brindle-elements", "version": 1, "elements": [{"id": 3, "name": "Arm",
"folder": "Arm", "scanType": "BW", "fieldChart": 12, "pixmapFormat": "PNG")" +
                    more + "}]}");
    }
};

const QByteArray whole = R"({
  "format": "brindle-elements",
  "version": 1,
  "elements": [
    {
      "id": 3,
      "name": "a/b",
      "folder": "a_b",
      "scanType": "BW",
      "fieldChart": 16.5,
      "pixmapFormat": "PSD",
      "vectorType": "BVG",
      "opacity": 30,
      "deleted": true,
      "layers": [
        [2, "Line"],
        [5, "Colour"]
      ],
      "drawings": [
        {"name": "1"},
        {"name": "x/y", "version": 2, "type": "INBETWEEN", "scale": 0.5, "files": [1, 2, [1, 5]]},
        {"name": "X_Y", "file": "X_Y-2"}
      ]
    },
    {
      "id": 7,
      "name": "Leg",
      "folder": "Leg",
      "scanType": "COLOR",
      "fieldChart": 12,
      "pixmapFormat": "PNG"
    }
  ]
}
)";

} // namespace

TEST_F(ElementFileTest, WhatIsReadIsWrittenToTheSameBytes)
{
    ASSERT_EQ(read(whole), QString());
    EXPECT_EQ(elementFileText(elements()), whole);
    const Element& element = *elements().find(3);
    EXPECT_TRUE(element.isDeleted());
    EXPECT_EQ(element.findLayer(5)->name, "Colour");
    EXPECT_EQ(element.drawings().named("x/y")->content(5, 1)->place(), "elements/a_b/x_y+5.bvg");
    EXPECT_EQ(element.drawings().named("x/y")->content(0, 2)->place(), "elements/a_b/x_y@2.bvg");
    EXPECT_EQ(create("new"), 8) << "ids go on behind the highest one";
}

TEST_F(ElementFileTest, DamageIsToldWithItsPlace)
{
    const struct {
        const char* fields;
        const char* reason;
    } rows[] = {
        {R"(, "id": 4)", "field"},
        {R"(, "opacity": 101)", "elements[0].opacity"},
        {R"(, "vectorType": "XXX")", "elements[0].vectorType"},
        {R"(, "unknown": 1)", "unknown"},
        {R"(, "layers": [[0, "Line"]])", "elements[0].layers[0][0]"},
        {R"(, "layers": [[1, "Line"], [1, "Ink"]])", "elements[0].layers[1] is another layer's"},
        {R"(, "drawings": [{}])", "name"},
        {R"(, "drawings": [{"name": ""}])", "elements[0].drawings[0].name is no name that it can have"},
        {R"(, "drawings": [{"name": "a\nb"}])", "elements[0].drawings[0].name is no name that it can have"},
        {R"(, "drawings": [{"name": "1"}, {"name": "1"}])", "drawings[1].name is the name of another drawing"},
        {R"(, "drawings": [{"name": "a"}, {"name": "A"}])", "drawings[1] has the file of another drawing"},
        {R"(, "drawings": [{"name": "1", "file": "../1"}])", "drawings[0].file is no name of a file"},
        {R"(, "drawings": [{"name": "1", "file": ".1"}])", "drawings[0].file is no name of a file"},
        {R"(, "drawings": [{"name": "1", "version": 0}])", "drawings[0].version"},
        {R"(, "drawings": [{"name": "1", "type": "key"}])", "drawings[0].type"},
        {R"(, "drawings": [{"name": "1", "scale": 0}])", "drawings[0].scale is not above 0"},
        {R"(, "drawings": [{"name": "1", "files": [0]}])", "drawings[0].files[0]"},
        {R"(, "drawings": [{"name": "1", "files": [1, 1]}])", "drawings[0].files[1] is there twice"},
        {R"(, "drawings": [{"name": "1", "files": [[1, 2]]}])", "files[0][1] is no layer of the element"},
    };
    for (const auto& row : rows) {
        const QString reason = readElement(row.fields);
        EXPECT_TRUE(reason.startsWith("\"/p/elements.json\"")) << row.fields << reason.toStdString();
        EXPECT_TRUE(reason.contains(row.reason)) << row.fields << reason.toStdString();
    }
}

TEST_F(ElementFileTest, NoTwoElementsHaveAnIdANameOrAFolder)
{
    const auto two = [this](const char* id, const char* name, const char* folder) {
        const auto element = [](const char* i, const char* n, const char* f) {
            return QByteArray(R"({"id": )") + i + R"(, "name": ")" + n + R"(", "folder": ")" + f +
                   R"(", "scanType": "COLOR", "fieldChart": 12, "pixmapFormat": "PNG"})";
        };
        return read(R"({"format": "brindle-elements", "version": 1, "elements": [)" + element("1", "Arm", "Arm") +
                    ",\n" + element(id, name, folder) + "]}");
    };
    EXPECT_EQ(two("2", "Leg", "Leg"), QString());
    EXPECT_EQ(two("1", "Leg", "Leg"),
              "\"/p/elements.json\" is damaged at line 2: elements[1].id is the id of another element");
    EXPECT_EQ(two("2", "Arm", "Leg"),
              "\"/p/elements.json\" is damaged at line 2: elements[1].name is the name of another element");
    EXPECT_EQ(two("2", "arm", "arm"),
              "\"/p/elements.json\" is damaged at line 2: elements[1].folder is the folder of another element");
    EXPECT_TRUE(two("2", "Leg", "..").contains("elements[1].folder is no name of a file"));
    EXPECT_TRUE(two("-1", "Leg", "Leg").contains("elements[1].id"));
}

TEST_F(ElementFileTest, ANewerFileIsRefused)
{
    EXPECT_EQ(read(R"({"format": "brindle-elements", "version": 2, "elements": []})"),
              "\"/p/elements.json\" has format version 2, and this version of the application reads version 1");
    EXPECT_NE(read(R"({"format": "brindle-project", "version": 1, "elements": []})"), QString());
}
