#include "engine/folder/scenefile.h"

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "engine/folder/projectfile.h"
#include "tests/engine/folder/foldertest.h"
#include "tests/engine/folder/randomproject.h"

#include <cmath>
#include <limits>

using SceneFileTest = FolderTest;

namespace {

std::string textOf(brindle::engine::Project& project)
{
    return brindle::engine::sceneText(*project.scenes().front()).toStdString();
}

/// All that is saved.
std::string textOfAll(brindle::engine::Project& project)
{
    QByteArray text = brindle::engine::projectFileText(project.record(), {});
    for (const TUScene* scene : project.scenes())
        text += brindle::engine::sceneText(*scene);
    return text.toStdString();
}

AT_DoubleAttr* doubleAttr(const MO_Node* node, const char* keyword, int member)
{
    const auto* complex = dynamic_cast<const AT_ComplexAttr*>(node->findAttributeByKeyword(QLatin1String(keyword)));
    return complex ? dynamic_cast<AT_DoubleAttr*>(complex->attrsBegin()[member]) : nullptr;
}

TUTimedValue* addColumn(MemoryProject& project, AT_DoubleAttr* attr)
{
    TUTimedValue* column = attr->createTimedValue();
    EXPECT_TRUE(project.run(new SC_SceneCmds::AddTimedValueCmd(project.scene().sceneCommon(), column, -1, -1)));
    return column;
}

} // namespace

TEST_F(SceneFileTest, ANewProjectIsThreeNodesInPlainText)
{
    saved();
    EXPECT_EQ(get(path() + "/project.json"), R"({
  "format": "brindle-project",
  "version": 3,
  "resolution": {
    "name": "HD_1080",
    "width": 1920,
    "height": 1080,
    "fovFit": "HEIGHT",
    "fov": 41.112,
    "projection": "PERSPECTIVE"
  },
  "colourSpace": "sRGB",
  "textureDensity": {
    "bitmap": 1,
    "vector": 1
  },
  "metrics": {
    "aspectRatio": [4, 3],
    "fieldChart": [12, 12, 12],
    "center": [0, 0]
  },
  "scenes": [
    "scenes/Scene-1.json"
  ]
}
)");
    EXPECT_EQ(get(path() + "/scenes/Scene-1.json"), R"({
  "format": "brindle-scene",
  "version": 3,
  "name": "Scene-1",
  "frames": 60,
  "start": 1,
  "stop": 60,
  "frameRate": 24,
  "display": "Top/Display",
  "nodes": [
    {
      "name": "Top",
      "type": "GROUP",
      "depth": 0,
      "place": [0, 0, 0],
      "inPorts": [],
      "outPorts": []
    },
    {
      "name": "Display",
      "type": "DISPLAY",
      "depth": 1,
      "place": [0, 128, 0]
    },
    {
      "name": "Composite",
      "type": "COMPOSITE",
      "depth": 1,
      "place": [0, 32, 0],
      "inPorts": [
        [0, "IMAGE"]
      ],
      "links": [
        [0, "Display", 0]
      ]
    }
  ],
  "columns": []
}
)");
}

TEST_F(SceneFileTest, ARigWithACurveIsOneLineAPoint)
{
    MO_Node* arm = add("PEG", "Arm");
    MO_Node* hand = add("PEG", "Hand");
    link(arm, hand);
    run(new tu_node::EnabledNodeCmd(hand, false));
    doubleAttr(arm, "pivot", 0)->setLocalValue(-2.5);
    AT_DoubleAttr* x = doubleAttr(arm, "position", 0);
    TUTimedValue* column = addColumn(*this, x);
    run(new tu_timedvalue::timedvalue::RenameCmd(column, "Swing"));
    run(new tu_timedvalue::timedvalue::SetAnonymous(column, false));
    run(new tu_tv_socket::LinkCmd(x->socket(), column));
    x->setValue(1, 0.1, true, false);
    x->setValue(13, 4, false, false);
    const std::string text = textOf(project());
    EXPECT_NE(text.find(R"(
    {
      "name": "Arm",
      "type": "PEG",
      "depth": 1,
      "place": [0, 0, 0],
      "values": {
        "pivot.x": -2.5
      },
      "columns": {
        "position.x": "Swing"
      },
      "links": [
        [0, "Hand", 0]
      ]
    },
    {
      "name": "Hand",
      "type": "PEG",
      "depth": 1,
      "place": [0, 0, 0],
      "enabled": false
    }
  ],
  "columns": [
    {
      "name": "Swing",
      "type": "BEZIER",
      "hold": [1, 1, 1],
      "points": [
        [1, 0.1, 1, 0.1, 5, 0.1, "CORNER", "CONSTANT"],
        [13, 4, 9, 4, 13, 4, "CORNER"]
      ]
    }
  ]
}
)"),
              std::string::npos)
        << text;
}

TEST_F(SceneFileTest, ARandomProjectReopensToTheSameBytes)
{
    for (unsigned int seed = 1; seed <= 60; ++seed) {
        MemoryProject made;
        RandomProject(made, seed).change(150);
        const QString folder = path(QString::number(seed));
        ASSERT_EQ(createError(folder, made.project()), QString());
        const Files files = filesOf(folder);
        const auto opened = open(folder);
        ASSERT_EQ(textOfAll(*opened), textOfAll(made.project())) << "seed " << seed;
        save(folder, *opened);
        EXPECT_EQ(filesOf(folder), files) << "seed " << seed;
    }
}

TEST_F(SceneFileTest, UndoingAllGivesTheBytesOfTheStartAndRedoingThoseOfTheEnd)
{
    for (unsigned int seed = 1; seed <= 40; ++seed) {
        MemoryProject made;
        made.manager().setHistoryMaxSize(100000);
        const std::string before = textOfAll(made.project());
        RandomProject(made, seed).change(250);
        const std::string after = textOfAll(made.project());
        const auto count = static_cast<unsigned int>(made.manager().executedHistorySize());
        EXPECT_GT(count, 100U);
        made.undo(count);
        ASSERT_EQ(textOfAll(made.project()), before) << "seed " << seed;
        made.redo(count);
        ASSERT_EQ(textOfAll(made.project()), after) << "seed " << seed;
    }
}

TEST_F(SceneFileTest, AReopenedCurveEvaluatesToTheSameBits)
{
    AT_DoubleAttr* x = doubleAttr(add("PEG", "Arm"), "position", 0);
    auto* column = static_cast<TUBezierTimedValue*>(addColumn(*this, x));
    run(new tu_tv_socket::LinkCmd(x->socket(), column));
    namespace edit = tu_timedvalue::bezier;
    for (int key = 0; key < 20; ++key) {
        run(new edit::SpliceCmd(column, 1 + key * 1.7, true));
        run(new edit::SetPointCmd2(column, 1 + key * 1.7, 1 + key * 1.7, std::sin(key) * 1e3));
        run(new edit::SetRightHandleGlobalCmd(column, 1 + key * 1.7, 1.3 + key * 1.7, 1e5 / 3));
    }
    run(new edit::SpliceCmd(column, 7.123, true));
    saved();
    const auto opened = open(path());
    const auto* reopened = dynamic_cast<TUBezierTimedValue*>(*opened->scenes().front()->timedValuesBegin());
    ASSERT_TRUE(reopened);
    for (double frame = -2; frame < 40; frame += 0.09)
        ASSERT_EQ(reopened->evaluate(frame), column->evaluate(frame)) << frame;
}

TEST_F(SceneFileTest, TheOrderOfLinkingIsKeptForPortsAndColumns)
{
    MO_Node* source = add("COLOR_CARD", "Card");
    std::vector<MO_Node*> blurs;
    for (int i = 0; i < 4; ++i)
        blurs.push_back(add("BLUR", QString::number(i)));
    AT_DoubleAttr* first = dynamic_cast<AT_DoubleAttr*>(blurs[0]->findAttributeByKeyword("radius"));
    TUTimedValue* column = addColumn(*this, first);
    for (const int i : {2, 0, 3, 1}) {
        link(source, blurs[static_cast<std::size_t>(i)]);
        run(new tu_tv_socket::LinkCmd(blurs[static_cast<std::size_t>(i)]->findAttributeByKeyword("radius")->socket(),
                                      column));
    }
    saved();
    const auto opened = open(path());
    TUScene& scene = *opened->scenes().front();
    const MO_Port* port = scene.getRootGroup()->subNode("Card")->outPort(0);
    const TUTimedValue* reopened = *scene.timedValuesBegin();
    ASSERT_EQ(port->nDstPorts(), 4U);
    ASSERT_EQ(reopened->getNumLinks(), 4U);
    QStringList names;
    for (unsigned int i = 0; i < 4; ++i)
        names << port->dstPortsBegin()[i]->node()->instanceName() << reopened->linkedAttr(i)->node()->instanceName();
    EXPECT_EQ(names, QStringList({"2", "2", "0", "0", "3", "3", "1", "1"}));
    EXPECT_NE(textOf(*opened).find(R"("order": [2, 0, 3, 1])"), std::string::npos);
}

TEST_F(SceneFileTest, PortsKeepTheirIdsAndNewOnesGetNewIds)
{
    MO_Node* composite = node("Top/Composite");
    for (int i = 0; i < 3; ++i)
        run(new tu_node::AddInPortCmd(composite, 0, MO_Port::createImagePort()));
    run(new tu_node::DeleteInPortCmd(composite, 1));
    saved();
    const auto opened = open(path());
    MO_Node* reopened = opened->scenes().front()->getRootGroup()->subNode("Composite");
    ASSERT_EQ(reopened->nInPorts(), composite->nInPorts());
    unsigned int highest = 0;
    for (unsigned int place = 0; place < composite->nInPorts(); ++place) {
        EXPECT_EQ(reopened->inPort(place)->id(), composite->inPort(place)->id());
        highest = std::max(highest, composite->inPort(place)->id());
    }
    tu_node::AddInPortCmd(reopened, 0, MO_Port::createImagePort()).execute();
    EXPECT_GT(reopened->inPort(0)->id(), highest);
}

TEST_F(SceneFileTest, NumbersAndTextsOfAllKindsComeBackAsTheyWere)
{
    MO_Node* peg = add("PEG", "Arm");
    MO_Node* write = add("WRITE", "Out");
    auto* number = doubleAttr(peg, "position", 0);
    auto* text = dynamic_cast<AT_StringAttr*>(write->findAttributeByKeyword("path"));
    const QString texts[] = {"",
                             "plain",
                             "quote \" back \\ slash / ",
                             "line\nreturn\r tab\t",
                             QString(QChar(0)) + QChar(0x1f),
                             "腕 Ж \u0308",
                             "\U0001F9B4",
                             QString(QChar(0x7f)),
                             QString(QChar(0x2028))};
    const double numbers[] = {0.0,
                              -0.0,
                              0.1,
                              -1.0 / 3,
                              1e22,
                              9007199254740993.0,
                              123456789012345680.0,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::lowest(),
                              std::numeric_limits<double>::min(),
                              std::numeric_limits<double>::denorm_min()};
    saved();
    const auto expectKept = [&] {
        save(path(), project());
        const auto opened = open(path());
        const TUGroup* top = opened->scenes().front()->getRootGroup();
        const double read = doubleAttr(top->subNode("Arm"), "position", 0)->localValue();
        EXPECT_EQ(read, number->localValue());
        EXPECT_EQ(dynamic_cast<AT_StringAttr*>(top->subNode("Out")->findAttributeByKeyword("path"))->localValue(),
                  text->localValue());
    };
    for (const double value : numbers) {
        number->setLocalValue(value);
        expectKept();
    }
    for (const QString& value : texts) {
        text->setLocalValue(value);
        expectKept();
    }
}

TEST_F(SceneFileTest, TenThousandGroupsInsideEachOtherAreSavedAndOpened)
{
    TUGroup* group = top();
    for (int depth = 0; depth < 10000; ++depth)
        group = addGroup("G", group);
    saved();
    const auto opened = open(path());
    EXPECT_EQ(textOf(*opened), textOf(project()));
    std::vector<MO_Node*> nodes;
    opened->scenes().front()->getRootGroup()->getRecursiveSubNodeList(nodes);
    EXPECT_EQ(nodes.size(), 10002U);
}

TEST_F(SceneFileTest, GroupsWithPortsKeepWhatFacesThem)
{
    TUGroup* group = addGroup("Rig");
    MO_Node* in = add("MULTIPORT_IN", "In", group);
    add("MULTIPORT_OUT", "Out", group);
    MO_Node* peg = add("PEG", "Arm", group);
    run(new tu_node::AddInPortCmd(group, 0, MO_Port::createMatrixPort()));
    run(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    MO_Node* root = add("PEG", "Root");
    ASSERT_TRUE(link(root, group, 0, 1));
    ASSERT_TRUE(link(in, peg, 1, 0));
    saved();
    const auto opened = open(path());
    EXPECT_EQ(textOf(*opened), textOf(project()));
    const TUGroup* rig = opened->scenes().front()->getRootGroup()->subNode("Rig")->group();
    EXPECT_EQ(rig->subNode("Arm")->inPort(0)->realSrcNode()->qualifiedName(), QString("Top/Root"));
}

TEST_F(SceneFileTest, SavingDoesNotMakeAttributesThatNobodyAskedFor)
{
    add("PEG", "Arm");
    textOf(project());
    EXPECT_FALSE(brindle::engine::engineNode(node("Top/Arm"))->hasAttributes());
}
