#include "tests/engine/clipboard/clipboardtest.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>

using namespace brindle::engine;

namespace {

/// A project on disk with an element "Hand", files in its folders "modelling" and "scan", and another project.
class ExtraFilesTest : public FolderTest {
public:
    using Kept = std::pair<QByteArray, QByteArray>;

    void SetUp() override
    {
        ASSERT_EQ(createError(path(), project()), QString());
        ClipboardProject hand;
        hand.addRead("Hand", {"1"});
        const DD_DragObject object = hand.copy({hand.node("Top/Hand")});
        from = open(path());
        ASSERT_FALSE(paste(*from, object).empty());
        FolderTest::save(path(), *from);
        ASSERT_TRUE(QDir(path()).mkpath("modelling/sheets") && QDir(path()).mkpath("elements/Hand/scan"));
        put(path("project/modelling/sheets/front.png"), "front");
        put(path("project/elements/Hand/scan/1.tif"), "scan");
        MemoryProject empty;
        ASSERT_EQ(createError(path("other"), empty.project()), QString());
        to = open(path("other"));
    }

    static Scene& sceneOf(const Project& project) { return static_cast<Scene&>(*project.sceneAt(0)); }
    static std::vector<MO_Node*> paste(const Project& project, const DD_DragObject& object)
    {
        Scene& scene = sceneOf(project);
        SL_Selection selected(nullptr);
        DD_Selection dropped;
        DD_System::DropDragObjectNewLayer(nullptr, &scene, scene.getRootGroup(), object, DD_DropMode(), dropped, 0, 0,
                                          0, 0, selected);
        return dropped.Nodes();
    }
    DD_DragObject copy(bool modelling, bool scans) const
    {
        SL_Selection selection(nullptr);
        SL_SelectionUtil::addToSelection(selection,
                                         node_util::getNodeFromQualifiedName_optimized(&sceneOf(*from), "Top/Hand"));
        return DD_SystemExternalAPI::CreateDragObjectFromSelection(&sceneOf(*from), &selection, modelling, scans);
    }

    /// The two files as they stand in a folder.
    Kept kept(const QString& folder) const
    {
        const Files files = filesOf(folder);
        return {files.value("modelling/sheets/front.png"), files.value("elements/Hand/scan/1.tif")};
    }
    Kept savedOther()
    {
        save(path("other"), *to);
        return kept(path("other"));
    }

    std::unique_ptr<Project> from;
    std::unique_ptr<Project> to;
};

} // namespace

TEST_F(ExtraFilesTest, ATemplateHasThoseThatWereAskedFor)
{
    for (const bool modelling : {false, true}) {
        for (const bool scans : {false, true}) {
            UT_Path saved(path("Hand"));
            const DD_DragSceneOld scene(copy(modelling, scans), {});
            ASSERT_TRUE(DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, scene, saved));
            EXPECT_EQ(kept(saved.ToString()), Kept(modelling ? "front" : "", scans ? "scan" : ""));
            const DD_DragObject loaded =
                DD_SystemExternalAPI::CreateDragObjectFromTemplate(nullptr, saved.ToString(), 0, 0, modelling, scans);
            ASSERT_FALSE(paste(*to, loaded).empty());
            EXPECT_EQ(savedOther(), Kept(modelling ? "front" : "", scans ? "scan" : ""));
            to->history().unexecute(1);
            to->history().clearHistory();
        }
    }
}

TEST_F(ExtraFilesTest, APasteIsUndoneAndRedoneOnDiskToo)
{
    ASSERT_FALSE(paste(*to, copy(true, true)).empty());
    EXPECT_EQ(kept(path("other")), Kept()) << "until the project is saved";
    EXPECT_EQ(savedOther(), Kept("front", "scan"));
    to->history().unexecute(1);
    EXPECT_EQ(savedOther(), Kept());
    to->history().reexecute(1);
    EXPECT_EQ(savedOther(), Kept("front", "scan"));
    to.reset();
    EXPECT_EQ(kept(path("other")), Kept("front", "scan"));
}

TEST_F(ExtraFilesTest, WhatStandsThereAlreadyStays)
{
    ASSERT_TRUE(QDir(path("other")).mkpath("modelling/sheets"));
    put(path("other/modelling/sheets/front.png"), "mine");
    ASSERT_FALSE(paste(*to, copy(true, true)).empty());
    ASSERT_FALSE(paste(*to, copy(true, true)).empty());
    EXPECT_EQ(savedOther(), Kept("mine", "scan"));
    EXPECT_EQ(filesOf(path("other")).value("elements/Hand_1/scan/1.tif"), "scan");
}
