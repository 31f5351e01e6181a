#include "engine/folder/scenefilenames.h"

#include <gtest/gtest.h>

using brindle::engine::isSceneFileName;
using brindle::engine::sceneFileNames;

TEST(SceneFileNamesTest, NamesAreMadeSafe)
{
    const std::pair<QString, QString> names[] = {
        {"Scene-1", "Scene-1"},
        {"Walk cycle.v2", "Walk cycle.v2"},
        {"a/b\\c:d", "a_b_c_d"},
        {"..", "_."},
        {".hidden", "_hidden"},
        {"", "_"},
        {"Größe 腕 Ж", "Größe 腕 Ж"},
        {QString("a\nb") + QChar(0), "a_b_"},
        {QString("x") + QChar(0xd800), "x_"},
        {"\U0001F9B4", "_"},
    };
    for (const auto& [name, safe] : names)
        EXPECT_EQ(sceneFileNames({name}), QStringList("scenes/" + safe + ".json")) << name.toStdString();
}

TEST(SceneFileNamesTest, NoTwoScenesShareAFile)
{
    EXPECT_EQ(sceneFileNames({"walk", "Walk", "w/k", "w_k", "walk-2", "WALK"}),
              QStringList({"scenes/walk.json", "scenes/Walk-2.json", "scenes/w_k.json", "scenes/w_k-2.json",
                           "scenes/walk-2-2.json", "scenes/WALK-3.json"}));
}

TEST(SceneFileNamesTest, LongNamesAreCutBetweenCharacters)
{
    const QString file = sceneFileNames({QString(300, QChar(0x8155))}).first();
    EXPECT_EQ(file, "scenes/" + QString(66, QChar(0x8155)) + ".json");
    EXPECT_LE(file.toUtf8().size(), 255);
}

TEST(SceneFileNamesTest, OnlyAFileRightInTheFolderOfScenesIsOne)
{
    for (const QString good : {"scenes/a.json", "scenes/..json", "scenes/腕 1.json"})
        EXPECT_TRUE(isSceneFileName(good)) << good.toStdString();
    for (const QString bad : {"", "a.json", "scenes/.json", "scenes/a.txt", "scenes/a/b.json", "scenes/../a.json",
                              "/scenes/a.json", "Scenes/a.json", "scenes//a.json"})
        EXPECT_FALSE(isSceneFileName(bad)) << bad.toStdString();
    EXPECT_FALSE(isSceneFileName(QString("scenes/a") + QChar(0) + ".json"));
}
