#include "engine/clipboard/templates.h"
#include "engine/session/projectcommon.h"
#include "tests/engine/clipboard/clipboardtest.h"
#include "tests/engine/palettes/palettetest.h"

#include <QDir>

using namespace brindle::engine;

namespace {

/// A project on disk with an element "Hand", whose node shows its drawing, and a palette "Skin" with a colour.
class PaletteTransferTest : public PaletteProjectTest {
public:
    void SetUp() override
    {
        const int id = addElement("Hand");
        MO_Node* read = addRead(id);
        skin = add("Skin");
        skin->RemoveColor(skin->GetColorId(0));
        skin->AddColor(solid("Light", {10, 20, 30, 255}));
        SL_Selection selection(nullptr);
        SL_SelectionUtil::addToSelection(selection, read);
        object = DD_SystemExternalAPI::CreateDragObjectFromSelection(&scene(), &selection, false, false);
        ASSERT_TRUE(object.isValid());
    }

    Scene& scene() { return static_cast<Scene&>(*projects().project()->sceneAt(0)); }
    ElementManager& elements() { return *engineElements(scene().elementManager()); }
    CO_CommandManager& history() { return *scene().commandManager(); }

    int addElement(const QString& name)
    {
        const int id = elements().createElement(name, 0, 12, 0, TUElement::kNoVector, false).id();
        history().execute(new EM_Commands::FakeAddElementsCmd(&elements(), {id}, true, true, 0), "Add");
        return id;
    }
    MO_Node* addRead(int element)
    {
        TUTimedValue* column = new DrawingColumn("Hand");
        history().execute(new SC_SceneCmds::AddTimedValueCmd(&scene(), column, -1, -1), "Add");
        history().execute(
            new tu_timedvalue::element::SetElementIdCmd(dynamic_cast<TUElementTimedValue*>(column), element), "Set");
        bool flag = true;
        MO_Node* read = TUGroup::createNode("READ", 0, 0, 0, flag, nullptr);
        history().execute(new tu_node::AddSubNodeCmd(scene().getRootGroup(), read), "Add");
        history().execute(
            new tu_tv_socket::LinkCmd(ClipboardProject::attribute(read, "drawing.element")->socket(), column), "Link");
        return read;
    }

    /// Pastes as new nodes, and tells all palettes: "list: name (colours), ..." by their lists, without empty lists of
    /// elements.
    QString paste(DD_DropMode::PaletteMode palettes)
    {
        DD_DropMode mode;
        mode.setPaletteMode(palettes);
        SL_Selection selected(nullptr);
        DD_Selection dropped;
        EXPECT_TRUE(DD_System::DropDragObjectNewLayer(nullptr, &scene(), scene().getRootGroup(), object, mode, dropped,
                                                      0, 0, 0, 0, selected));
        return told();
    }
    QString told()
    {
        QStringList lists;
        for (const List& list : manager().paletteLists()) {
            QStringList palettes;
            if (list->type() == CM_PaletteList::kElement && list->Size() == 0)
                continue;
            for (const Palette& palette : list->palettes()) {
                palette->Load();
                palettes.append(palette->GetName() + " (" + names(*palette).join(u' ') + ')');
            }
            lists.append((list->type() == CM_PaletteList::kScene ? "scene: " : "element: ") + palettes.join(", "));
        }
        return lists.join("; ");
    }

    Palette skin;
    DD_DragObject object;
};

} // namespace

TEST_F(PaletteTransferTest, EachModeDoesWhatItsWordSaysWhereThePaletteIsThere)
{
    skin->SetName("Other");
    skin->RemoveColor(skin->GetColorId(0));
    skin->AddColor(solid("Dark"));
    const QString before = told();
    ASSERT_EQ(before, "scene: Other (Dark)");
    const std::pair<DD_DropMode::PaletteMode, QString> rows[] = {
        {DD_DropMode::kNoPalettes, before},
        {DD_DropMode::kLinkToOriginal, before},
        {DD_DropMode::kReusePalettes, before},
        {DD_DropMode::kCopyAndOverwrite, "scene: Skin (Light)"},
        {DD_DropMode::kCopyAndCreate, "scene: Other (Dark), Skin (Light)"},
        {DD_DropMode::kCopyAndCreateInElement, "scene: Other (Dark); element: Skin (Light)"},
        {DD_DropMode::kCopyAndMerge, "scene: Other (Dark Light)"},
        {DD_DropMode::kCopyAndUpdate, "scene: Other (Dark Light)"},
        {DD_DropMode::kCopySceneAndMerge, "scene: Other (Dark Light)"},
        {DD_DropMode::kCopySceneAndUpdate, "scene: Other (Dark Light)"},
    };
    for (const auto& [mode, expected] : rows) {
        EXPECT_EQ(paste(mode), expected) << mode;
        history().unexecute(1);
        EXPECT_EQ(told(), before) << mode;
        history().reexecute(1);
        EXPECT_EQ(told(), expected) << mode;
        history().unexecute(1);
    }
}

TEST_F(PaletteTransferTest, UpdatedColoursAreThoseOfTheCopy)
{
    const auto light = [this] { return CM_CastToColor(skin->GetColor(0))->GetColorMarker(0).rgba.red(); };
    CM_CastToColor(skin->GetColor(0))->ModifyColor(*solid("Other", {99, 0, 0, 255}));
    paste(DD_DropMode::kCopyAndMerge);
    EXPECT_EQ(light(), 99);
    paste(DD_DropMode::kCopyAndUpdate);
    EXPECT_EQ(light(), 10);
    history().unexecute(1);
    EXPECT_EQ(light(), 99);
}

TEST_F(PaletteTransferTest, APaletteComesToAProjectThatLacksIt)
{
    const UT_Id colour = skin->GetColorId(0);
    create("other");
    addElement("Hand");
    paste(DD_DropMode::kReusePalettes);
    const Palette copied = list()->palettes().front();
    EXPECT_EQ(copied->GetID(), skin->GetID());
    EXPECT_EQ(copied->GetColorId(0), colour) << "by which drawings are painted";
    EXPECT_FALSE(QFileInfo::exists(path("other") + "/palette-library/Skin.plt")) << "until it is saved";
    save();
    EXPECT_TRUE(QFileInfo::exists(path("other") + "/palette-library/Skin.plt"));
    history().unexecute(1);
    EXPECT_FALSE(QFileInfo::exists(path("other") + "/palette-library/Skin.plt"));
    history().reexecute(1);
    EXPECT_TRUE(QFileInfo::exists(path("other") + "/palette-library/Skin.plt"));
    close();
    open("other");
    EXPECT_EQ(told(), "scene: Skin (Light)");
}

TEST_F(PaletteTransferTest, ALinkNamesTheFileOfTheOriginal)
{
    save();
    create("other");
    EXPECT_EQ(paste(DD_DropMode::kLinkToOriginal), "scene: Skin (Light)");
    EXPECT_EQ(list()->palettes().front()->GetPath().filename(true), library() + "Skin.plt");
    history().unexecute(1);
    EXPECT_TRUE(QFileInfo::exists(library() + "Skin.plt"));
}

TEST_F(PaletteTransferTest, PalettesOfElementsAndTexturesGoThroughATemplate)
{
    const List own =
        manager().GetPaletteListFromPath(elements().elementFolder(elements().elements()[0]->id(), 0).ToString(), true);
    auto wood = std::make_shared<CM_Palette>(CM_PalettePathFile(own->GetPath() + "/palette-library/Wood.plt"));
    ASSERT_EQ(wood->colors().size(), 0u);
    wood->AddColor(texture("Grain", 4));
    ASSERT_TRUE(own->InsertPalette(wood, -1));
    SL_Selection selection(nullptr);
    std::vector<MO_Node*> nodes;
    scene().getRootGroup()->getRecursiveSubNodeList(nodes);
    SL_SelectionUtil::addToSelection(selection, nodes.back());
    object = DD_SystemExternalAPI::CreateDragObjectFromSelection(&scene(), &selection, false, false);
    UT_Path saved(path("Hand"));
    ASSERT_TRUE(DD_TplUtil::SaveDragObjectAsNewTemplate(nullptr, DD_DragSceneOld(object, {}), saved));
    create("other");
    object = DD_SystemExternalAPI::CreateDragObjectFromTemplate(nullptr, saved.ToString(), 0, 0, false, false);
    EXPECT_EQ(paste(DD_DropMode::kReusePalettes), "scene: Skin (Light); element: Wood (Grain)");
    const auto grain = CM_CastToTexture(manager().paletteLists()[1]->palettes()[0]->GetColor(0));
    ASSERT_TRUE(grain && grain->GetBitmap());
    EXPECT_EQ(grain->GetBitmap()->GetWidth(), 4u);
    save();
    close();
    open("other");
    EXPECT_EQ(told(), "scene: Skin (Light); element: Wood (Grain)");
}
