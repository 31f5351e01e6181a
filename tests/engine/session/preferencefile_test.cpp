#include "engine/session/preferencefile.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <limits>

namespace {

using brindle::engine::PreferenceFile;

class PreferenceFileTest : public testing::Test {
protected:
    QString path(const char* name = "preferences.json") { return m_folder.filePath(QString("brindle/") + name); }
    QStringList files() { return QDir(m_folder.filePath("brindle")).entryList(QDir::Files, QDir::Name); }
    QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void put(const QByteArray& content)
    {
        ASSERT_TRUE(QDir().mkpath(m_folder.filePath("brindle")));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    /// The lines that a call writes to the log.
    template <typename Call>
    QString logged(Call call)
    {
        testing::internal::CaptureStderr();
        call();
        return QString::fromStdString(testing::internal::GetCapturedStderr());
    }

    QTemporaryDir m_folder;
};

const QByteArray oneValue = R"({
  "format": "brindle-preferences",
  "version": 3,
  "values": {
    "RIPPLE_SCENE_MARKERS": false
  }
}
)";

} // namespace

TEST_F(PreferenceFileTest, ThereIsNoFileAtFirst)
{
    const PreferenceFile file(path());
    EXPECT_EQ(logged([&] { EXPECT_TRUE(file.read().isEmpty()); }), "");
    EXPECT_TRUE(file.update({}));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(PreferenceFileTest, ValuesAreWrittenWithTheFolderAndReadBack)
{
    const PreferenceFile file(path());
    EXPECT_EQ(logged([&] { EXPECT_TRUE(file.update({{"RIPPLE_SCENE_MARKERS", false}})); }), "");
    EXPECT_EQ(content(path()), oneValue);
    EXPECT_EQ(files(), QStringList("preferences.json"));
    EXPECT_TRUE(file.update({{"B", true}, {"A \"quoted\"", true}}));
    EXPECT_EQ(file.read(),
              (PreferenceFile::Values{{"A \"quoted\"", true}, {"B", true}, {"RIPPLE_SCENE_MARKERS", false}}));
}

TEST_F(PreferenceFileTest, WhatAnotherProcessWroteMeanwhileStays)
{
    const PreferenceFile one(path());
    const PreferenceFile other(path());
    EXPECT_TRUE(one.update({{"A", true}, {"B", true}}));
    EXPECT_TRUE(other.update({{"B", false}}));
    EXPECT_EQ(one.read(), (PreferenceFile::Values{{"A", true}, {"B", false}}));
}

TEST_F(PreferenceFileTest, ADamagedFileIsToldAndKept)
{
    struct {
        const char* content;
        const char* told;
    } const damages[] = {
        {"", " is empty."},
        {"{\"format\": ", " is damaged at line 1, column "},
        {"[]", " is damaged at line 1, column 1: it is not an object."},
        {"{}", " is damaged at line 1: "},
        {"{\"format\": \"brindle-scene\", \"version\": 1, \"values\": {}}", "is not \"brindle-preferences\"."},
        {"{\"format\": \"brindle-preferences\", \"version\": 1, \"values\": {\"A\": 3}}", " is damaged at line 1: "},
        {"{\"format\": \"brindle-preferences\", \"version\": 1, \"values\": {\"A\": true, \"A\": false}}",
         "the field \"A\" is there twice."},
        {"{\"format\": \"brindle-preferences\", \"version\": 1, \"values\": {}, \"other\": 1}",
         " is damaged at line 1: "},
    };
    for (const auto& [damaged, told] : damages) {
        put(damaged);
        const PreferenceFile file(path());
        const QString reading = logged([&] { EXPECT_TRUE(file.read().isEmpty()) << damaged; });
        EXPECT_TRUE(reading.startsWith("Error: Cannot read the preferences: \"" + path())) << reading.toStdString();
        EXPECT_TRUE(reading.contains(told)) << reading.toStdString();
        EXPECT_EQ(reading.count('\n'), 1);
        EXPECT_EQ(content(path()), damaged) << "reading changes nothing";

        const QString writing = logged([&] { EXPECT_TRUE(file.update({{"RIPPLE_SCENE_MARKERS", false}})); });
        EXPECT_EQ(writing, "The damaged preferences are kept in \"" + path("preferences.json.damaged") + "\".\n");
        EXPECT_EQ(content(path("preferences.json.damaged")), damaged);
        EXPECT_EQ(content(path()), oneValue);
        ASSERT_TRUE(QFile::remove(path("preferences.json.damaged")));
    }
}

TEST_F(PreferenceFileTest, EachDamagedFileIsKeptUnderANameOfItsOwn)
{
    const PreferenceFile file(path());
    for (const char* damaged : {"one", "two", "three"}) {
        put(damaged);
        logged([&] { EXPECT_TRUE(file.update({{"A", true}})); });
    }
    EXPECT_EQ(content(path("preferences.json.damaged")), "one");
    EXPECT_EQ(content(path("preferences.json.damaged-2")), "two");
    EXPECT_EQ(content(path("preferences.json.damaged-3")), "three");
}

TEST_F(PreferenceFileTest, AFileOfANewerVersionIsLeftAlone)
{
    const QByteArray newer = R"({"format": "brindle-preferences", "version": 4, "values": {"A": "text"}})";
    put(newer);
    const PreferenceFile file(path());
    const QString why = "\"" + path() + "\" is that of a newer version of the application.\n";
    EXPECT_EQ(logged([&] { EXPECT_TRUE(file.read().isEmpty()); }), "Error: Cannot read the preferences: " + why);
    EXPECT_EQ(logged([&] { EXPECT_FALSE(file.update({{"A", true}})); }), "Error: Cannot save the preferences: " + why);
    EXPECT_EQ(content(path()), newer);
    EXPECT_EQ(files(), QStringList("preferences.json"));
}

TEST_F(PreferenceFileTest, WhereNothingCanBeWrittenTheLogSaysSo)
{
    QFile blocker(m_folder.filePath("brindle"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const PreferenceFile file(path());
    const QString writing = logged([&] { EXPECT_FALSE(file.update({{"A", true}})); });
    EXPECT_TRUE(writing.startsWith("Error: Cannot save the preferences: ")) << writing.toStdString();
    EXPECT_EQ(writing.count('\n'), 1);
}

TEST_F(PreferenceFileTest, WithoutAPathNothingIsWritten)
{
    const PreferenceFile file{QString()};
    EXPECT_TRUE(file.read().isEmpty());
    EXPECT_TRUE(file.update({{"A", true}}));
}

TEST_F(PreferenceFileTest, TheUsersFileIsInTheConfigurationFolder)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    EXPECT_EQ(PreferenceFile::pathOfUser(), path());
    if (before.isEmpty())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(PreferenceFileTest, TextsAreKeptAsWellAndVersionOneHasNone)
{
    put(R"({"format": "brindle-preferences", "version": 1, "values": {"A": true}})");
    const PreferenceFile file(path());
    EXPECT_TRUE(file.read().value("A").toBool());
    EXPECT_TRUE(file.update({{"FOLDER", QStringLiteral("/p \"q\"")}}));
    EXPECT_EQ(file.read(), (PreferenceFile::Values{{"A", true}, {"FOLDER", QStringLiteral("/p \"q\"")}}));
    EXPECT_TRUE(content(path()).contains("\"version\": 3"));
}

TEST_F(PreferenceFileTest, EachKindOfValueIsReadBackAsItWas)
{
    const PreferenceFile file(path());
    const double infinite = std::numeric_limits<double>::infinity();
    const PreferenceFile::Values values = {{"FLAG", false},  {"WHOLE", -7},       {"NUMBER", 5.0},
                                           {"UP", infinite}, {"DOWN", -infinite}, {"COLOUR", QColor(1, 2, 3, 4)}};
    EXPECT_EQ(file.update(values), values);
    EXPECT_EQ(file.read(), values);
    EXPECT_TRUE(content(path()).contains("#01020304"));
    EXPECT_EQ(file.read().value("NUMBER").typeId(), QMetaType::Double);
}

TEST_F(PreferenceFileTest, AValueOfNoKindIsDamage)
{
    for (const char* value : {"3", "[]", "{}", R"({"int": 1.5})", R"({"colour": "red"})", R"({"double": "x"})",
                              R"({"int": 1, "double": 2})", R"({"other": 1})"}) {
        put(QByteArray(R"({"format": "brindle-preferences", "version": 3, "values": {"A": )") + value + "}}");
        const QString log = logged([&] { EXPECT_TRUE(PreferenceFile(path()).read().isEmpty()); });
        EXPECT_TRUE(log.contains("values.A")) << value << log.toStdString();
    }
}

TEST_F(PreferenceFileTest, NamesAreTakenOut)
{
    const PreferenceFile file(path());
    file.update({{"A", true}, {"B", 1}});
    EXPECT_EQ(file.update({{"C", 2}}, {"A", "NEVER"}), (PreferenceFile::Values{{"B", 1}, {"C", 2}}));
}
