#include "engine/folder/jsonplace.h"

#include <gtest/gtest.h>

using brindle::engine::FolderFailure;
using brindle::engine::JsonFile;
using brindle::engine::JsonPlace;

namespace {

/// The sentence of reading a text, behind the name of the file.
std::string failure(const QByteArray& content, const std::function<void(const JsonPlace&)>& read)
{
    try {
        const JsonFile file("/p/x.json", content);
        read(file.root());
        return {};
    } catch (const FolderFailure& failure) {
        const QString name = "\"/p/x.json\" ";
        EXPECT_TRUE(failure.reason.startsWith(name));
        return failure.reason.mid(name.size()).toStdString();
    }
}

void ignore(const JsonPlace&) {}

} // namespace

TEST(JsonPlaceTest, ValuesAreReadAsWhatTheyAre)
{
    const JsonFile file("/p/x.json",
                        R"({"t": "a\u0000b", "i": -3, "d": 0.5, "f": false, "l": [1, [2]], "o": {"k": 4}})");
    const JsonPlace root = file.root();
    root.requireOnly({"t", "i", "d", "f", "l", "o"});
    EXPECT_EQ(root.field("t").text(), QString("a") + QChar(0) + "b");
    EXPECT_EQ(root.field("i").integer(-3, -3), -3);
    EXPECT_EQ(root.field("d").number(), 0.5);
    EXPECT_FALSE(root.field("f").flag());
    const JsonPlace list = root.field("l");
    EXPECT_EQ(list.size(), 2);
    EXPECT_EQ(list.item(1).item(0).integer(0, 9), 2);
    const JsonPlace object = root.field("o");
    ASSERT_EQ(object.fields().size(), 1u);
    EXPECT_EQ(object.fields()[0].key(), "k");
    EXPECT_EQ(object.fields()[0].number(), 4);
    EXPECT_TRUE(root.field("t").is(std::string_view("a\0b", 3)));
    EXPECT_FALSE(root.field("d").is("0.5"));
    EXPECT_EQ(root.ifField("d")->number(), 0.5);
    EXPECT_FALSE(root.ifField("e"));
    EXPECT_TRUE(root.has("o"));
    EXPECT_FALSE(root.has("p"));
}

TEST(JsonPlaceTest, AFaultIsToldWithItsLineAndPath)
{
    const QByteArray text = R"({
  "a": {"skip": "} ] \" {", "b": [
    [1, {"x.y": "deep"}],
    {"c": null}]},
  "last": -1e3
})";
    const std::pair<std::function<void(const JsonPlace&)>, const char*> cases[] = {
        {[](const JsonPlace& root) { root.field("a").field("b").item(0).item(1).field("x.y").number(); },
         "is damaged at line 3: a.b[0][1][\"x.y\"] is not a number"},
        {[](const JsonPlace& root) { root.field("a").field("b").item(1).field("c").text(); },
         "is damaged at line 4: a.b[1].c is not a text"},
        {[](const JsonPlace& root) { root.field("a").field("b").item(2); },
         "is damaged at line 2: a.b has no item [2]"},
        {[](const JsonPlace& root) { root.field("a").field("z"); }, "is damaged at line 2: a has no field \"z\""},
        {[](const JsonPlace& root) { root.field("last").size(); }, "is damaged at line 5: last is not a list"},
        {[](const JsonPlace& root) { root.field("last").fields(); }, "is damaged at line 5: last is not an object"},
        {[](const JsonPlace& root) { root.field("last").flag(); }, "is damaged at line 5: last is not true or false"},
        {[](const JsonPlace& root) { root.field("last").integer(0, 7); },
         "is damaged at line 5: last is not a whole number from 0 to 7"},
        {[](const JsonPlace& root) { root.requireOnly({"a"}); }, "is damaged at line 5: last is an unknown field"},
        {[](const JsonPlace& root) { root.size(); }, "is damaged at line 1: the file is not a list"},
    };
    for (const auto& [read, expected] : cases)
        EXPECT_EQ(failure(text, read), expected);
}

TEST(JsonPlaceTest, AFieldOfAnyNameIsToldOnOneLine)
{
    const auto none = [](const JsonPlace& root) { root.requireOnly({}); };
    EXPECT_EQ(failure(R"({"fra\u0000mes\n": 1})", none), "is damaged at line 1: fra\\u0000mes\\n is an unknown field");
    EXPECT_EQ(failure("{\"fra\nmes\": 1}", none), "is damaged at line 2: fra\\nmes is an unknown field");
    EXPECT_EQ(failure(R"({"\n": 1, "\n": 2})", ignore),
              "is damaged at line 1, column 11: the field \"\\n\" is there twice");
}

TEST(JsonPlaceTest, TheColumnCountsCharacters)
{
    EXPECT_EQ(failure("{\n \"腕é\": 1,\n \"腕\": x}", ignore), "is damaged at line 3, column 7: illegal number");
    EXPECT_EQ(failure("\xef\xbb\xbf{\"a\": 1, \"a\": 2}", ignore),
              "is damaged at line 1, column 11: the field \"a\" is there twice");
}

TEST(JsonPlaceTest, AFieldTwiceIsToldWhereverItStands)
{
    EXPECT_EQ(failure(R"({"b": {"x": 1, "y": ":{,"}, "x": 2})", ignore), "");
    EXPECT_EQ(failure(R"({"b": {"x": 1, "y": 3, "\u0078": 4}, "b": 2})", ignore),
              "is damaged at line 1, column 24: the field \"x\" is there twice");
    EXPECT_EQ(failure("{\"b\": {},\n\"x\": 2,\n\"x\": {\"y\": 2, \"y\": 3}}", ignore),
              "is damaged at line 3, column 1: the field \"x\" is there twice");
    QByteArray many;
    for (int field = 0; field < 1000; ++field)
        many += "\"" + QByteArray::number(field) + "\": 0,\n";
    EXPECT_EQ(failure('{' + many + "\"1000\": 0}", ignore), "");
    EXPECT_EQ(failure('{' + many + "\"50\\u0030\": 0}", ignore),
              "is damaged at line 1001, column 1: the field \"500\" is there twice");
}

TEST(JsonPlaceTest, ContentThatIsNoJsonObjectIsTold)
{
    EXPECT_EQ(failure("", ignore), "is empty");
    EXPECT_EQ(failure("  ", ignore), "is damaged at line 1, column 3: illegal value");
    EXPECT_EQ(failure("[1]", ignore), "is damaged at line 1, column 1: it is not an object");
    EXPECT_EQ(failure("{\"a\": \"\xff\"}", ignore), "is damaged at line 1, column 8: invalid UTF8 string");
    EXPECT_EQ(failure(QByteArray("{\"a\": 1}\0{}", 11), ignore),
              "is damaged at line 1, column 9: garbage at the end of the document");
}

TEST(JsonPlaceTest, TheHeadOfAFileIsChecked)
{
    const auto head = [](const JsonPlace& root) { root.requireFormat("tune", 3); };
    EXPECT_EQ(failure(R"({"format": "tune", "version": 4})", head),
              "has format version 4, and this version of the application reads versions up to 3");
    EXPECT_EQ(failure(R"({"format": "tone", "version": 3})", head), "is damaged at line 1: format is not \"tune\"");
    EXPECT_EQ(failure(R"({"version": 3})", head), "is damaged at line 1: the file has no field \"format\"");
    EXPECT_EQ(failure(R"({"format": "tune", "version": 1.5})", head),
              "is damaged at line 1: version is not a whole number from 1 to 2147483647");
}

TEST(JsonPlaceTest, OneOfSeveralTextsGivesWhichItIs)
{
    const JsonFile file("/p/x.json", R"({"a": "two", "b": "four"})");
    const JsonPlace root = file.root();
    EXPECT_EQ(root.field("a").oneOf({"one", "two", "three"}), 1);
    EXPECT_EQ(failure(R"({"b": "four"})",
                      [](const JsonPlace& root) {
                          root.field("b").oneOf({"one", "two"});
                      }),
              "is damaged at line 1: b is not \"one\" or \"two\"");
}
