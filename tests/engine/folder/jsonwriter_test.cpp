#include "engine/folder/jsonwriter.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

using brindle::engine::JsonWriter;

namespace {

std::string written(const std::function<void(JsonWriter&)>& write)
{
    JsonWriter json;
    write(json);
    return json.result().toStdString();
}

} // namespace

TEST(JsonWriterTest, AValueIsALineAndInlineArraysAreOne)
{
    const std::string text = written([](JsonWriter& json) {
        json.beginObject();
        json.key("flag").flag(true);
        json.key(QStringLiteral("empty")).beginObject();
        json.endObject();
        json.key("none").beginArray();
        json.endArray();
        json.key("rows").beginArray();
        json.beginArray(JsonWriter::Inline);
        json.integer(-1);
        json.text("a");
        json.flag(false);
        json.endArray();
        json.beginArray(JsonWriter::Inline);
        json.endArray();
        json.number(2.5);
        json.endArray();
        json.endObject();
    });
    EXPECT_EQ(text, R"({
  "flag": true,
  "empty": {},
  "none": [],
  "rows": [
    [-1, "a", false],
    [],
    2.5
  ]
}
)");
}

TEST(JsonWriterTest, TextsAreEscapedWhereJsonAsksForItAndElseStand)
{
    const std::pair<QString, const char*> texts[] = {
        {"", R"("")"},
        {"a \"b\" \\ / c", R"("a \"b\" \\ / c")"},
        {"1\n2\t3\r\b\f", R"("1\n2\u00093\u000d\u0008\u000c")"},
        {QString(QChar(0)) + QChar(0x1f) + QChar(0x7f), "\"\\u0000\\u001f\x7f\""},
        {QString::fromUtf8("é 腕 \U0001F9B4"), "\"é 腕 \U0001F9B4\""},
        {QString("a") + QChar(0xd83e), R"("a\ud83e")"},
        {QString(QChar(0xddb4)) + QChar(0xd83e) + "b", R"("\uddb4\ud83eb")"},
    };
    for (const auto& [text, expected] : texts) {
        const std::string json = written([&](JsonWriter& json) {
            json.beginArray(JsonWriter::Inline);
            json.text(text);
            json.endArray();
        });
        EXPECT_EQ(json, "[" + std::string(expected) + "]\n");
        EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(json)).array().at(0).toString(), text);
    }
}

TEST(JsonWriterTest, NumbersAreShortAndReadBackToTheSameBits)
{
    const std::pair<double, const char*> numbers[] = {
        {0.0, "0"},         {-0.0, "0"},
        {24, "24"},         {0.1, "0.1"},
        {-2.5, "-2.5"},     {1e21, "1e+21"},
        {1e-7, "1e-07"},    {1.0 / 3, "0.3333333333333333"},
        {5e-324, "5e-324"}, {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
    };
    const auto textOf = [](double number) {
        return written([number](JsonWriter& json) {
            json.beginArray(JsonWriter::Inline);
            json.number(number);
            json.endArray();
        });
    };
    for (const auto& [number, expected] : numbers)
        EXPECT_EQ(textOf(number), "[" + std::string(expected) + "]\n");

    for (const double number : {99999.0, 100000.0, -100000.0, 123456.0, 2e5, 1e6, 12345.5, -1.0, -99999.0}) {
        char shortest[32] = {};
        std::to_chars(shortest, shortest + sizeof shortest, number);
        EXPECT_EQ(textOf(number), '[' + std::string(shortest) + "]\n");
    }

    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i) {
        const double number = std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        const QJsonArray read = QJsonDocument::fromJson(QByteArray::fromStdString(textOf(number))).array();
        ASSERT_EQ(std::bit_cast<quint64>(read.at(0).toDouble()), std::bit_cast<quint64>(number)) << textOf(number);
    }
    for (const double whole : {9007199254740993.0, 9.2e18, -9223372036854775808.0, 1.2345678901234567e19}) {
        const QJsonArray read = QJsonDocument::fromJson(QByteArray::fromStdString(textOf(whole))).array();
        EXPECT_EQ(read.at(0).toDouble(), whole) << textOf(whole);
    }
}
