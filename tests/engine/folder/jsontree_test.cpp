#include "engine/folder/jsontree.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <random>

using brindle::engine::JsonTree;

namespace {

/// Whether the tree has what Qt's reader found at a value. An object with a name twice has lost a field there.
bool areSame(const JsonTree& tree, const JsonTree::Value& value, const QJsonValue& expected)
{
    switch (expected.type()) {
    case QJsonValue::Object: {
        const QJsonObject object = expected.toObject();
        if (!tree.isObject(value) || static_cast<qsizetype>(value.size) < object.size())
            return false;
        const auto content = tree.content(value);
        for (std::size_t at = 0; at < content.size(); at += 2) {
            const QJsonValue field = object.value(tree.text(content[at]));
            if (field.isUndefined() || (object.size() == value.size && !areSame(tree, content[at + 1], field)))
                return false;
        }
        return true;
    }
    case QJsonValue::Array: {
        const QJsonArray list = expected.toArray();
        if (!tree.isList(value) || static_cast<qsizetype>(value.size) != list.size())
            return false;
        for (int at = 0; at < list.size(); ++at) {
            if (!areSame(tree, tree.content(value)[static_cast<std::size_t>(at)], list.at(at)))
                return false;
        }
        return true;
    }
    case QJsonValue::String:
        return tree.isText(value) &&
               tree.text(value).remove(QChar::ByteOrderMark) == expected.toString().remove(QChar::ByteOrderMark);
    case QJsonValue::Double:
        return tree.isNumber(value) && value.number == expected.toDouble();
    case QJsonValue::Bool:
        return tree.isFlag(value) && tree.flag(value) == expected.toBool();
    default:
        return !tree.isObject(value) && !tree.isList(value) && !tree.isText(value) && !tree.isNumber(value) &&
               !tree.isFlag(value);
    }
}

/// What reading a text comes to: the fault with its offset, or nothing.
std::string faultOf(const QByteArray& text)
{
    try {
        const JsonTree tree(text);
        return {};
    } catch (const JsonTree::Fault& fault) {
        return fault.reason.toStdString() + " at " + std::to_string(fault.offset);
    }
}

/// Compares the reading of a text with that by Qt's reader.
void expectAsQt(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    const std::string expected = error.error == QJsonParseError::NoError
                                     ? std::string()
                                     : error.errorString().toStdString() + " at " +
                                           std::to_string(std::min<qsizetype>(error.offset, text.size()));
    ASSERT_EQ(faultOf(text), expected) << text.toStdString();
    if (!expected.empty())
        return;
    const JsonTree tree(text);
    const QJsonValue root = document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    ASSERT_TRUE(areSame(tree, tree.root(), root)) << text.toStdString();
}

const QByteArray sample = R"({
  "name": "W\u00e4l\ud83d\udE00k\\\"\/\b\f\n\r\t\q",
  "腕é": [1, -2.5e-10, 0, -0.0, 1e5, 0.5E+3, 12345678901234567890],
  "flags": [true, false, null, [], {}, [[{"a": {"b": ["c"]}}]]],
  "lone": "\uD800 \udc00",
  "": {"x.y": 1, "x": {}}
})";

} // namespace

TEST(JsonTreeTest, EveryTruncationIsReadAsByQt)
{
    for (qsizetype length = 0; length <= sample.size(); ++length) {
        expectAsQt(sample.left(length));
        expectAsQt("\xef\xbb\xbf" + sample.left(length) + ' ');
    }
}

TEST(JsonTreeTest, EveryChangedByteIsReadAsByQt)
{
    constexpr char signs[] = "{}[]\",:\\u 0-.eE+tnf/\x80\xbf\xc2\xe0\xed\xf0\xf4\xff\n\x01";
    for (qsizetype at = 0; at < sample.size(); ++at) {
        for (const char sign : signs) {
            QByteArray text = sample;
            text[at] = sign;
            expectAsQt(text);
            text = sample;
            text.insert(at, sign);
            expectAsQt(text);
        }
        QByteArray text = sample;
        text.remove(at, 1);
        expectAsQt(text);
    }
}

TEST(JsonTreeTest, RandomTextsAreReadAsByQt)
{
    std::mt19937 random(7);
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    const char* const parts[] = {"{",
                                 "}",
                                 "[",
                                 "]",
                                 ",",
                                 ":",
                                 "\"",
                                 "\"a\"",
                                 "\"b\":",
                                 "1",
                                 "-",
                                 "0",
                                 ".5",
                                 "1.",
                                 "e9",
                                 "1e-400",
                                 "2e-324",
                                 "1e308",
                                 "null",
                                 "true",
                                 "fals",
                                 " ",
                                 "\\u12",
                                 "\\ud8",
                                 "\\",
                                 "\xed\xa0\x80",
                                 "\xf4\x90\x80\x80",
                                 "\xef\xbb\xbf",
                                 "\xc3\xa9",
                                 "\n"};
    for (int round = 0; round < 20000; ++round) {
        QByteArray text = upTo(8) ? "[" : "";
        for (int left = upTo(12); left > 0; --left)
            text += parts[upTo(std::size(parts))];
        if (upTo(4))
            text += ']';
        expectAsQt(text);
    }
    for (int round = 0; round < 3000; ++round) {
        QByteArray text = sample;
        for (int left = 1 + upTo(4); left > 0; --left)
            text[upTo(static_cast<int>(text.size()))] = static_cast<char>(upTo(256));
        expectAsQt(text);
    }
}

TEST(JsonTreeTest, NumbersAreReadAsByQt)
{
    for (const char* number : {"1.7976931348623157e308",
                               "1.8e308",
                               "-1e999",
                               "1e-320",
                               "4.9e-324",
                               "2e-324",
                               "9007199254740993",
                               "9223372036854775807",
                               "9223372036854775808",
                               "123456789012345678901234567890",
                               "0.1",
                               "-0",
                               "00",
                               "0x1",
                               "1e",
                               "1e+",
                               "+1",
                               "inf",
                               "nan",
                               "Infinity",
                               "1.e5",
                               "-.5",
                               "1e0000000000000001"})
        expectAsQt('[' + QByteArray(number) + ']');
    const JsonTree zero("[-0.0]");
    EXPECT_FALSE(std::signbit(zero.content(zero.root())[0].number)) << "a negative zero is zero";
}

TEST(JsonTreeTest, DepthHasALimit)
{
    for (const int depth : {1023, 1024, 1025, 100000}) {
        expectAsQt(QByteArray(depth, '['));
        expectAsQt(QByteArray(depth, '[') + QByteArray(depth, ']'));
        QByteArray objects;
        for (int level = 0; level < depth; ++level)
            objects += "{\"a\":";
        expectAsQt(objects + '0' + QByteArray(depth, '}'));
    }
}

TEST(JsonTreeTest, ATextBeyondFourGigabytesIsRefused)
{
    const char little[] = "{}";
    EXPECT_EQ(faultOf(QByteArray::fromRawData(little, qsizetype(1) << 32)), "too large document at 0");
}

TEST(JsonTreeTest, TextsAreReadExactly)
{
    const auto text = [](const QByteArray& raw) {
        const JsonTree tree("[\"" + raw + "\"]");
        return tree.text(tree.content(tree.root())[0]);
    };
    EXPECT_EQ(text("a\xc3\xa9\\u0041\\ud83d\\ude00\\n\\/\\q"), QStringView(u"aéA\U0001F600\n/q"));
    EXPECT_EQ(text("\\ud800"), QStringView(u"\xd800")) << "half a pair, as a name may hold it";
    EXPECT_EQ(text("\xef\xbb\xbfx\\t\xef\xbb\xbfy"), QStringView(u"\uFEFFx\t\uFEFFy"))
        << "no mark of the order of bytes";
    EXPECT_EQ(text(""), QStringView(u""));
}
