#include "engine/folder/projectfolder.h"
#include "tests/engine/clipboard/clipboardtest.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>
#include <QFile>

using namespace brindle::engine;

namespace {

class TemplatesTest : public ClipboardTest {
public:
    QString path(const QString& name) const { return m_dir.filePath(name); }

    /// Saves a template of nodes, and gives its path; empty where it fails.
    QString save(const Nodes& nodes, const QString& name, const QString& camera = {})
    {
        UT_Path target(path(name));
        const DD_DragSceneOld dragged(copy(nodes), camera);
        return DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, dragged, target) ? target.ToString() : QString();
    }

    static DD_DragObject load(const QString& path, int start = 0, int count = 0)
    {
        return DD_SystemExternalAPI::CreateDragObjectFromTemplate(nullptr, path, start, count, false, false);
    }

    /// What the log says meanwhile.
    template <typename Action>
    static QString logged(Action action)
    {
        testing::internal::CaptureStderr();
        action();
        return QString::fromStdString(testing::internal::GetCapturedStderr()).trimmed();
    }

private:
    QTemporaryDir m_dir;
};

} // namespace

TEST_F(TemplatesTest, ATemplateIsAProject)
{
    MO_Node* hand = addRead("Hand", {"1", "2"});
    animate(hand, "angle", {{1, 0}, {10, 90}}, "Swing");
    const QString saved = save({hand}, "library/Hand");
    ASSERT_EQ(saved, path("library/Hand.tpl"));
    const FolderTest::Files files = FolderTest::filesOf(saved);
    EXPECT_EQ(files.keys(), QStringList({"elements.json", "elements/", "elements/Hand/", "elements/Hand/1.png",
                                         "elements/Hand/2.png", "project.json", "scenes/", "scenes/Scene-1.json"}));
    EXPECT_EQ(files["elements/Hand/2.png"], "picture 2 of Hand");
    UT_Path file("");
    EXPECT_TRUE(DD_TplUtil::GetValidSceneFile(saved, file));
    EXPECT_EQ(file.ToString(), saved + "/project.json");
    const auto project = FolderTest::open(saved);
    EXPECT_EQ(project->scenes().size(), 1u);

    ClipboardProject other;
    EXPECT_EQ(other.pasteNew(load(saved)).size(), 1u);
    EXPECT_EQ(shown(other.node("Top/Hand"), 2), "1 2");
    EXPECT_EQ(other.content("Hand", "2"), "picture 2 of Hand");
    EXPECT_EQ(valueOf(other.node("Top/Hand"), "angle", 10), 90);
    EXPECT_TRUE(other.scene().findTimedValue("Swing", 0));
}

TEST_F(TemplatesTest, WhatIsLoadedNeedsTheFolderNoMore)
{
    const QString saved = save({addRead("Hand", {"1"})}, "Hand");
    const DD_DragObject object = load(saved);
    ASSERT_TRUE(QDir(saved).removeRecursively());
    ASSERT_EQ(pasteNew(object).size(), 1u);
    EXPECT_EQ(content("Hand_1", "1"), "picture 1 of Hand");
    EXPECT_EQ(save({node("Top/Hand")}, "Hand"), saved) << "the copy of it can be saved again, too";
}

TEST_F(TemplatesTest, AWholeProjectIsLoadedAsATemplate)
{
    add("PEG", "Peg");
    ASSERT_EQ(FolderTest::createError(path("project"), project()), QString());
    const DD_DragObject object = load(path("project"), 11, 20);
    EXPECT_EQ(object.numFrames(), 20);
    EXPECT_EQ(pasteNew(object).size(), 3u) << "with its display and its composite";
    EXPECT_FALSE(load(path("project"), 61, 1).isValid());
}

TEST_F(TemplatesTest, NamesThatAreTakenGetANumber)
{
    MO_Node* peg = add("PEG", "Peg");
    EXPECT_EQ(save({peg}, "Walk"), path("Walk.tpl"));
    EXPECT_EQ(save({peg}, "Walk"), path("Walk_1.tpl"));
    EXPECT_EQ(save({peg}, "Walk.tpl"), path("Walk_2.tpl"));
}

TEST_F(TemplatesTest, ASaveThatFailsLeavesNothing)
{
    MO_Node* peg = add("PEG", "Peg");
    FolderTest::put(path("file"), "a file");
    EXPECT_EQ(logged([&] { EXPECT_EQ(save({peg}, "file/deep/Walk"), QString()); }),
              "Error: Cannot create the project: \"" + path("file") + "\" is a file, not a folder.");
    ASSERT_TRUE(QDir().mkdir(path("locked")));
    ASSERT_TRUE(QFile::setPermissions(path("locked"), QFile::ReadOwner | QFile::ExeOwner));
    if (!QFileInfo(path("locked")).isWritable()) {
        EXPECT_NE(logged([&] { EXPECT_EQ(save({peg}, "locked/new/Walk"), QString()); }), QString());
        EXPECT_TRUE(QDir(path("locked")).isEmpty());
    }
    QFile::setPermissions(path("locked"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    UT_Path target(path("none"));
    EXPECT_FALSE(DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, DD_DragSceneOld(DD_DragObject(), {}), target));
    EXPECT_FALSE(QFileInfo::exists(path("none.tpl")));
}

TEST_F(TemplatesTest, WhatIsNoTemplateIsRefused)
{
    const QString saved = save({add("PEG", "Peg")}, "Peg");
    const auto broken = [&](const QString& name, const QString& file, const QByteArray& content) {
        const QString copied = path(name);
        QDir().mkpath(copied);
        for (auto [entry, bytes] : FolderTest::filesOf(saved).asKeyValueRange()) {
            if (entry.endsWith(u'/'))
                QDir().mkpath(copied + u'/' + entry);
            else
                FolderTest::put(copied + u'/' + entry, entry == file ? content : bytes);
        }
        return copied;
    };
    FolderTest::put(path("file.tpl"), "{}");
    UT_Path file("");
    EXPECT_FALSE(DD_TplUtil::GetValidSceneFile(path("file.tpl"), file));
    EXPECT_FALSE(DD_TplUtil::GetValidSceneFile(path("missing.tpl"), file));
    EXPECT_FALSE(DD_TplUtil::GetValidSceneFile(QString(), file));
    EXPECT_FALSE(DD_TplUtil::GetValidSceneFile(QString(QChar(0)), file));
    const QString newer = R"({"format": "brindle-project", "version": 99, "scenes": []})";
    const QString none = R"({"format": "brindle-project", "version": 1, "scenes": []})";
    const std::pair<QString, const char*> rows[] = {
        {path("file.tpl"), "is a file"},
        {path("missing.tpl"), "does not exist"},
        {QString(), "path is empty"},
        {broken("damaged", "scenes/Scene-1.json", "{\"format\""), "is damaged"},
        {broken("newer", "project.json", newer.toUtf8()), "newer"},
        {broken("none", "project.json", none.toUtf8()), "has no scene"},
    };
    for (const auto& [where, told] : rows) {
        const QString log = logged([&] { EXPECT_FALSE(load(where).isValid()); });
        EXPECT_TRUE(log.contains(QLatin1String(told))) << log.toStdString();
        logged([&] { EXPECT_FALSE(DD_TplUtil::LoadTemplate(nullptr, where, false)); });
    }
}

TEST_F(TemplatesTest, ATemplateTellsTheDefaultCamera)
{
    MO_Node* camera = add("CAMERA", "Camera");
    MO_Node* peg = add("PEG", "Peg");
    const QString with = save({camera, peg}, "With", "Camera");
    const QString beside = save({peg}, "Beside", "Camera");
    const QString without = save({camera, peg}, "Without");
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, with, false)->defaultCameraName(), "Camera");
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, beside, false)->defaultCameraName(), "Camera");
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, without, false)->defaultCameraName(), QString());
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, with, false)->numFrames(), 60);

    DD_DropMode mode;
    ASSERT_FALSE(pasteNew(load(with), mode).empty());
    EXPECT_FALSE(scene().camera(false));
    mode.cameraNameTransfer = true;
    changes([&] { return !pasteNew(load(with), mode).empty(); });
    EXPECT_EQ(scene().camera(false)->instanceName(), "Camera_2") << "the pasted one";
    undo();
    changes([&] { return pasteOver(load(beside), {peg}, mode); });
    EXPECT_EQ(static_cast<MO_Node*>(scene().camera(false)), camera) << "one of the name";
}

TEST_F(TemplatesTest, ATemplateOfTheSelection)
{
    MO_Node* camera = add("CAMERA", "Camera");
    ASSERT_TRUE(run(new SC_SceneCmds::SetDefaultCameraCmd(&scene(), dynamic_cast<TUCameraModule*>(camera))));
    QString name = "Peg";
    const auto create = [&](bool withCamera) {
        return DD_SystemExternalAPI::CreateTemplateFromSelection(nullptr, &scene(), name, path("library"), true, true,
                                                                 withCamera);
    };
    EXPECT_EQ(create(true), QString()) << "nothing is selected";
    EXPECT_FALSE(QFileInfo::exists(path("library")));
    SL_SelectionUtil::addToSelection(*project().projectCommon()->getSelection(), add("PEG", "Peg"));
    EXPECT_EQ(create(true), "Peg.tpl");
    EXPECT_EQ(name, "Peg.tpl");
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, path("library/Peg.tpl"), false)->defaultCameraName(), "Camera");
    EXPECT_EQ(create(false), "Peg_1.tpl");
    EXPECT_EQ(DD_TplUtil::LoadTemplate(nullptr, path("library/Peg_1.tpl"), false)->defaultCameraName(), QString());
}

TEST_F(TemplatesTest, ATemplateIsPastedOverTheSelection)
{
    MO_Node* from = add("PEG", "Arm");
    animate(from, "angle", {{1, 5}, {3, 50}});
    scene().setNumberOfFrames(3, -57, false, false);
    const QString saved = save({from}, "Arm");
    undo();
    remove({from}, true);
    MO_Node* arm = add("PEG", "Arm", addGroup("Villain"));
    MO_Node* leg = add("PEG", "Leg");
    SL_Selection& selection = *project().projectCommon()->getSelection();
    const auto paste = [&](const DD_DropMode& mode, bool action, int frame = 11) {
        return DD_SystemExternalAPI::PasteTemplateIntoScene(&scene(), nullptr, &scene(), saved, frame, mode,
                                                            DD_SelectionUtil::CompositionOptions::DEFAULT, action);
    };
    refuses([&] { return paste(DD_DropMode(), false); });
    refuses([&] { return paste(DD_DropMode(), true); });
    SL_SelectionUtil::addToSelection(selection, leg);
    refuses([&] { return paste(DD_DropMode(), true); });
    changes([&] { return paste(DD_DropMode(), false); });
    EXPECT_EQ(keysOf(leg, "angle"), (std::vector<int>{11, 13})) << "the only one of its type";
    SL_SelectionUtil::clear(selection);
    DD_DropMode creating;
    creating.createNewColumn = true;
    changes([&] { return paste(creating, true); });
    EXPECT_EQ(keysOf(arm, "angle"), (std::vector<int>{11, 13})) << "by its name, wherever it is";
    changes([&] { return paste(creating, false); });
    ASSERT_TRUE(node("Top/Arm")) << "a new node";
    EXPECT_EQ(keysOf(node("Top/Arm"), "angle"), (std::vector<int>{11, 13}));
    refuses([&] { return paste(creating, false, 61); });
}

TEST_F(TemplatesTest, ATemplateIsPastedIntoAGroup)
{
    MO_Node* hand = addRead("Hand", {"1", "2"});
    animate(hand, "angle", {{1, 0}, {2, 90}});
    const QString saved = save({hand}, "Hand");
    TUGroup* group = addGroup("Group");
    const auto paste = [&](TUGroup* into, int frame = 4, const DD_DropMode& mode = {}) {
        return DD_SystemExternalAPI::PasteTemplateIntoGroup(&scene(), nullptr, &scene(), into, saved, frame, mode, 0);
    };
    DD_DropMode extending;
    extending.extendScene = true;
    refuses([&] { return paste(group, SceneTiming::maxCount, extending); }); // At the last step of all.
    changes([&] { return paste(group); });
    EXPECT_EQ(shown(node("Top/Group/Hand"), 6), "- - - 1 2 2");
    EXPECT_EQ(keysOf(node("Top/Group/Hand"), "angle"), (std::vector<int>{4, 5}));
    ClipboardProject other;
    refuses([&] { return paste(other.top()); });
    refuses([&] { return paste(nullptr); });
}
