#include "engine/folder/scenefile.h"

#include "tests/engine/folder/foldertest.h"
#include "tests/engine/folder/randomproject.h"

#include <QDir>

namespace {

const QByteArray projectText = R"({
  "format": "brindle-project",
  "version": 3,
  "lastChange": "Rename Arm",
  "resolution": {
    "name": "HD_720",
    "width": 1280,
    "height": 720,
    "fovFit": "HEIGHT",
    "fov": 41.112,
    "projection": "PERSPECTIVE"
  },
  "colourSpace": "sRGB",
  "textureDensity": {
    "bitmap": 1,
    "vector": 0.5
  },
  "metrics": {
    "aspectRatio": [16, 9],
    "fieldChart": [12, 10.5, 24],
    "center": [3, -4]
  },
  "scenes": [
    "scenes/Walk.json"
  ]
}
)";

const QByteArray sceneText = R"({
  "format": "brindle-scene",
  "version": 3,
  "name": "Walk",
  "frames": 48,
  "start": 1,
  "stop": 24,
  "frameRate": 12.5,
  "camera": "Top/Eye",
  "display": "Top/Film",
  "markers": [
    {
      "name": "Contact",
      "frame": 5,
      "length": 3,
      "colour": "#80FF0000",
      "note": "left foot"
    }
  ],
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
      "name": "Rig",
      "type": "GROUP",
      "depth": 1,
      "place": [1, 2, 3],
      "inPorts": [
        [0, "PEG"],
        [4, "IMAGE", "MATTE"]
      ],
      "outPorts": []
    },
    {
      "name": "In",
      "type": "MULTIPORT_IN",
      "depth": 2,
      "place": [0, 0, 0],
      "outPorts": [
        [0, "PEG"],
        [1, "IMAGE"]
      ],
      "links": [
        [0, "Arm", 0]
      ]
    },
    {
      "name": "Arm",
      "type": "PEG",
      "depth": 2,
      "place": [0, 0, 0],
      "enabled": false,
      "values": {
        "position.x": -2.5e-10,
        "angle": 2,
        "full_transform": true
      },
      "columns": {
        "position.x": "X",
        "position.y": "X"
      },
      "links": [
        [0, "Hand", 0]
      ]
    },
    {
      "name": "Hand",
      "type": "PEG",
      "depth": 2,
      "place": [0, 0, 0]
    },
    {
      "name": "Screen",
      "type": "COMPOSITE",
      "depth": 1,
      "place": [0, 0, 0],
      "inPorts": [
        [0, "IMAGE"]
      ],
      "values": {
        "mode": "SCREEN"
      }
    },
    {
      "name": "Read",
      "type": "READ",
      "depth": 1,
      "place": [0, 0, 0],
      "values": {
        "drawing.element": "A",
        "opacity": 50
      },
      "links": [
        [0, "Screen", 0]
      ]
    },
    {
      "name": "Eye",
      "type": "CAMERA",
      "depth": 1,
      "place": [0, 0, 0]
    },
    {
      "name": "Film",
      "type": "DISPLAY",
      "depth": 1,
      "place": [0, 0, 0]
    }
  ],
  "columns": [
    {
      "name": "X",
      "type": "BEZIER",
      "anonymous": true,
      "hold": [1, 20, 2],
      "points": [
        [1, 0, 1, 0, 4, 0, "CORNER", "CONSTANT"],
        [10.5, 3, 7, 3, 10.5, 3, "SMOOTH"]
      ],
      "order": [1, 0]
    }
  ]
}
)";

/// A change of a sound scene, and the sentence of opening behind the name of the file.
struct SceneDamage {
    const char* name;
    const char* from;
    const char* to;
    const char* reason;
};

constexpr SceneDamage sceneDamages[] = {
    {"NoComma", "\"version\": 3,", "\"version\": 3", "is damaged at line 4, column 4: unterminated object."},
    {"BareWord", "48", "none", "is damaged at line 5, column 15: illegal value."},
    {"NumberTooLarge", "12.5", "1e999", "is damaged at line 8, column 21: illegal number."},
    {"FieldTwice", "\"stop\": 24", "\"start\": 2,\n  \"stop\": 24",
     "is damaged at line 7, column 3: the field \"start\" is there twice."},
    {"ValueTwice", "\"angle\": 2,", "\"angle\": 2, \"angle\": 3,",
     "is damaged at line 61, column 21: the field \"angle\" is there twice."},
    {"OtherFormat", "brindle-scene", "brindle-project", "is damaged at line 2: format is not \"brindle-scene\"."},
    {"FormatIsNumber", "\"brindle-scene\"", "5", "is damaged at line 2: format is not a text."},
    {"NewerVersion", "\"version\": 3", "\"version\": 4, \"mood\": 3",
     "has format version 4, and this version of the application reads versions up to 3."},
    {"VersionIsZero", "\"version\": 3", "\"version\": 0",
     "is damaged at line 3: version is not a whole number from 1 to 2147483647."},
    {"NoVersion", "  \"version\": 3,\n", "", "is damaged at line 1: the file has no field \"version\"."},
    {"UnknownField", "\"frames\"", "\"colour\": 1, \"frames\"", "is damaged at line 5: colour is an unknown field."},
    {"NameIsEmpty", "\"name\": \"Walk\"", "\"name\": \"\"", "is damaged at line 4: name is empty."},
    {"NameIsList", "\"name\": \"Walk\"", "\"name\": []", "is damaged at line 4: name is not a text."},
    {"NoFrames", "  \"frames\": 48,\n", "", "is damaged at line 1: the file has no field \"frames\"."},
    {"FramesAreZero", "48", "0", "is damaged at line 5: frames is not a whole number from 1 to 1000000."},
    {"FramesAreAbsurd", "48", "1e300", "is damaged at line 5: frames is not a whole number from 1 to 1000000."},
    {"FramesAreFraction", "48", "48.5", "is damaged at line 5: frames is not a whole number from 1 to 1000000."},
    {"StartBehindEnd", "\"start\": 1", "\"start\": 49",
     "is damaged at line 6: start is not a whole number from 1 to 48."},
    {"StopAheadOfStart", "\"start\": 1", "\"start\": 25",
     "is damaged at line 7: stop is not a whole number from 25 to 48."},
    {"RateIsZero", "12.5", "0", "is damaged at line 8: frameRate is not above 0."},
    {"RateIsText", "12.5", "\"12.5\"", "is damaged at line 8: frameRate is not a number."},
    {"FieldsOfTheNextVersion", "\"version\": 3", "\"version\": 1", "is damaged at line 9: camera is an unknown field."},
    {"CameraIsNumber", "\"Top/Eye\"", "7", "is damaged at line 9: camera is not a text."},
    {"CameraIsMissing", "\"Top/Eye\"", "\"Top/Nose\"", "is damaged at line 9: camera is not the path of a camera."},
    {"CameraIsADisplay", "\"Top/Eye\"", "\"Top/Film\"", "is damaged at line 9: camera is not the path of a camera."},
    {"CameraPathWithTwoSlashes", "\"Top/Eye\"", "\"Top//Eye\"",
     "is damaged at line 9: camera is not the path of a camera."},
    {"DisplayIsAGroup", "\"Top/Film\"", "\"Top/Rig\"", "is damaged at line 10: display is not the path of a display."},
    {"DisplayIsEmpty", "\"Top/Film\"", "\"\"", "is damaged at line 10: display is not the path of a display."},
    {"MarkersAreText", "\"markers\": [", "\"markers\": \"\", \"old\": [",
     "is damaged at line 11: old is an unknown field."},
    {"MarkerOfNoFrame", "\"frame\": 5", "\"frame\": 0",
     "is damaged at line 14: markers[0].frame is not a whole number from 1 to 1000000."},
    {"MarkerOfNoLength", "\"length\": 3", "\"length\": 0",
     "is damaged at line 15: markers[0].length is not a whole number from 1 to 1000000."},
    {"MarkerBeyondTheScene", "\"frame\": 5", "\"frame\": 47",
     "is damaged at line 11: markers are not in the order of their frames, or not within the scene."},
    {"MarkersInDisorder", "    {\n      \"name\": \"Contact\"",
     "    {\"name\": \"Late\", \"frame\": 6, \"length\": 1, \"colour\": \"#00000000\"},\n    {\n      \"name\": "
     "\"Contact\"",
     "is damaged at line 11: markers are not in the order of their frames, or not within the scene."},
    {"MarkerOfNoColour", "#80FF0000", "#80FF00",
     "is damaged at line 16: markers[0].colour is no colour \"#AARRGGBB\"."},
    {"MarkerOfASmallColour", "#80FF0000", "#80ff0000",
     "is damaged at line 16: markers[0].colour is no colour \"#AARRGGBB\"."},
    {"NoteIsList", "\"left foot\"", "[]", "is damaged at line 17: markers[0].note is not a text."},
    {"UnknownFieldOfMarker", "\"note\"", "\"mood\"", "is damaged at line 17: markers[0].mood is an unknown field."},
    {"NodesAreText", "\"nodes\": [", "\"nodes\": \"\", \"old\": [", "is damaged at line 20: old is an unknown field."},
    {"NodeIsNumber", "\"nodes\": [", "\"nodes\": [\n    7,", "is damaged at line 21: nodes[0] is not an object."},
    {"RootOfAnotherName", "\"name\": \"Top\"", "\"name\": \"Bottom\"",
     "is damaged at line 21: nodes[0] is not the root group \"Top\"."},
    {"RootIsDeep", "\"depth\": 0", "\"depth\": 1", "is damaged at line 21: nodes[0] is not the root group \"Top\"."},
    {"UnknownType", "\"type\": \"READ\"", "\"type\": \"RAED\"",
     "is damaged at line 92: nodes[6].type is no type of node."},
    {"UnknownFieldOfNode", "\"enabled\"", "\"enable\"", "is damaged at line 58: nodes[3].enable is an unknown field."},
    {"TooDeep", "\"name\": \"Arm\",\n      \"type\": \"PEG\",\n      \"depth\": 2",
     "\"name\": \"Arm\",\n      \"type\": \"PEG\",\n      \"depth\": 3",
     "is damaged at line 56: nodes[3].depth is not that of a node in a group ahead of it."},
    {"SecondRoot", "\"type\": \"READ\",\n      \"depth\": 1", "\"type\": \"READ\",\n      \"depth\": 0",
     "is damaged at line 93: nodes[6].depth is not a whole number from 1 to 2147483647."},
    {"NameTwice", "\"name\": \"Hand\"", "\"name\": \"Arm\"",
     "is damaged at line 73: nodes[4].name is the name of another node of the group."},
    {"NameWithSlash", "\"name\": \"Hand\"", "\"name\": \"Ha/nd\"",
     "is damaged at line 73: nodes[4].name is not a name that a node can have."},
    {"NameWithHalfACharacter", "\"name\": \"Hand\"", "\"name\": \"Ha\\ud800nd\"",
     "is damaged at line 73: nodes[4].name is not a name that a node can have."},
    {"SecondMultiPort", "\"name\": \"Hand\",\n      \"type\": \"PEG\"",
     "\"name\": \"Hand\",\n      \"type\": \"MULTIPORT_IN\"",
     "is damaged at line 74: nodes[4].type is that of another node of the group, which has one at most."},
    {"PlaceIsShort", "[1, 2, 3]", "[1, 2]", "is damaged at line 33: nodes[1].place has no item [2]."},
    {"PlaceIsLong", "[1, 2, 3]", "[1, 2, 3, 4]", "is damaged at line 33: nodes[1].place has 4 items, not 3."},
    {"PlaceIsFar", "[1, 2, 3]", "[1, 2147483648, 3]",
     "is damaged at line 33: nodes[1].place[1] is not a whole number from -2147483648 to 2147483647."},
    {"EnabledIsNumber", "\"enabled\": false", "\"enabled\": 0",
     "is damaged at line 58: nodes[3].enabled is not true or false."},
    {"PortsOfAPeg", "\"enabled\": false", "\"inPorts\": []",
     "is damaged at line 58: nodes[3].inPorts can't be told of a node of this type."},
    {"PortOfNoKind", "[4, \"IMAGE\", \"MATTE\"]", "[4, \"SOUND\"]",
     "is damaged at line 36: nodes[1].inPorts[1][1] is not \"IMAGE\" or \"PEG\"."},
    {"PortIdTwice", "[4, \"IMAGE\", \"MATTE\"]", "[0, \"IMAGE\", \"MATTE\"]",
     "is damaged at line 36: nodes[1].inPorts[1][0] is the id of another port."},
    {"PortIdIsNegative", "[4, \"IMAGE\", \"MATTE\"]", "[-4, \"IMAGE\"]",
     "is damaged at line 36: nodes[1].inPorts[1][0] is not a whole number from 0 to 1073741824."},
    {"PegPortOfAComposite", "[\n        [0, \"IMAGE\"]\n      ]", "[\n        [0, \"PEG\"]\n      ]",
     "is damaged at line 84: nodes[5].inPorts[0] is no port that the node can have."},
    {"FacingPortIsMissing", "        [0, \"PEG\"],\n        [1, \"IMAGE\"]\n", "        [0, \"PEG\"]\n",
     "is damaged at line 40: nodes[2] has other ports than its group."},
    {"FacingPortOfAnotherKind", "[1, \"IMAGE\"]", "[1, \"PEG\"]",
     "is damaged at line 40: nodes[2] has other ports than its group."},
    {"UnknownAttribute", "\"angle\"", "\"ankle\"",
     "is damaged at line 61: nodes[3].values.ankle is no attribute of a node of type \"PEG\"."},
    {"AttributeWithMembers", "\"angle\"", "\"position\"",
     "is damaged at line 61: nodes[3].values.position is no attribute of a node of type \"PEG\"."},
    {"AttributeWithDots", "\"angle\"", "\"..\"",
     "is damaged at line 61: nodes[3].values[\"..\"] is no attribute of a node of type \"PEG\"."},
    {"NumberIsText", "\"angle\": 2", "\"angle\": \"2\"",
     "is damaged at line 61: nodes[3].values.angle is not a number."},
    {"FlagIsText", "\"full_transform\": true", "\"full_transform\": \"yes\"",
     "is damaged at line 62: nodes[3].values.full_transform is not true or false."},
    {"ValueOutOfRange", "\"opacity\": 50", "\"opacity\": 101",
     "is damaged at line 97: nodes[6].values.opacity is a value that the attribute can't have."},
    {"UnknownOption", "\"mode\": \"SCREEN\"", "\"mode\": \"SCREAM\"",
     "is damaged at line 87: nodes[5].values.mode is a value that the attribute can't have."},
    {"ColumnIsMissing", "\"position.y\": \"X\"", "\"position.y\": \"Y\"",
     "is damaged at line 66: nodes[3].columns[\"position.y\"] is not the name of a column."},
    {"ColumnOnAnAttributeOfAnotherKind",
     "\"values\": {\n        \"drawing.element\": \"A\",\n        \"opacity\": 50\n      }",
     "\"columns\": {\"pivot.x\": \"X\"}",
     "is damaged at line 95: nodes[6].columns[\"pivot.x\"] is no attribute of a node of type \"READ\" that a "
     "column can drive."},
    {"LinkToAMissingNode", "[0, \"Hand\", 0]", "[0, \"Foot\", 0]",
     "is damaged at line 69: nodes[3].links[0][1] is not the name of a node of the group."},
    {"LinkToAnotherGroup", "[0, \"Hand\", 0]", "[0, \"Screen\", 0]",
     "is damaged at line 69: nodes[3].links[0][1] is not the name of a node of the group."},
    {"LinkFromAMissingPort", "[0, \"Hand\", 0]", "[1, \"Hand\", 0]",
     "is damaged at line 69: nodes[3].links[0][0] is not the id of a port of \"Arm\"."},
    {"LinkToAMissingPort", "[0, \"Hand\", 0]", "[0, \"Hand\", 1]",
     "is damaged at line 69: nodes[3].links[0][2] is not the id of a port of \"Hand\"."},
    {"LinkToItself", "[0, \"Hand\", 0]", "[0, \"Arm\", 0]",
     "is damaged at line 69: nodes[3].links[0] leads to a port that is linked already."},
    {"LinkOfTwoKinds", "[0, \"Screen\", 0]", "[0, \"Rig\", 0]",
     "is damaged at line 100: nodes[6].links[0] joins ports that can't be linked."},
    {"LinkIsShort", "[0, \"Hand\", 0]", "[0, \"Hand\"]", "is damaged at line 69: nodes[3].links[0] has no item [2]."},
    {"ColumnWithoutName", "\"name\": \"X\"", "\"name\": \"\"", "is damaged at line 118: columns[0].name is empty."},
    {"HoldIsZero", "[1, 20, 2]", "[1, 20, 0]",
     "is damaged at line 121: columns[0].hold[2] is not a whole number from 1 to 2147483647."},
    {"PointsInDisorder", "[10.5, 3, 7, 3, 10.5, 3, \"SMOOTH\"]", "[1, 3, 7, 3, 10.5, 3, \"SMOOTH\"]",
     "is damaged at line 124: columns[0].points[1] is not behind the point ahead of it."},
    {"PointFarOut", "[10.5, 3, 7, 3, 10.5, 3, \"SMOOTH\"]", "[1e20, 3, 7, 3, 10.5, 3, \"SMOOTH\"]",
     "is damaged at line 124: columns[0].points[1] is out of range."},
    {"PointIsShort", "[10.5, 3, 7, 3, 10.5, 3, \"SMOOTH\"]", "[10.5, 3]",
     "is damaged at line 124: columns[0].points[1] has no item [2]."},
    {"PointOfNoContinuity", "\"SMOOTH\"", "\"SOFT\"",
     "is damaged at line 124: columns[0].points[1][6] is not \"CORNER\" or \"STRAIGHT\" or \"SMOOTH\"."},
    {"OrderIsShort", "[1, 0]", "[1]", "is damaged at line 126: columns[0].order has 1 items, not 2."},
    {"OrderWithAPlaceTwice", "[1, 0]", "[1, 1]", "is damaged at line 126: columns[0].order[1] is there twice."},
    {"OrderBeyondTheEnd", "[1, 0]", "[1, 2]",
     "is damaged at line 126: columns[0].order[1] is not a whole number from 0 to 1."},
    {"SecondHalfIsMissing", "\"stop\": 24,", "\"stop\": 24}\n",
     "is damaged at line 9, column 3: garbage at the end of the document."},
};

} // namespace

class SceneReaderTest : public FolderTest {
public:
    SceneReaderTest()
    {
        QDir().mkpath(path() + "/scenes");
        put(path() + "/project.json", projectText);
        put(sceneFile(), sceneText);
    }
    QString sceneFile() const { return path() + "/scenes/Walk.json"; }
};

class SceneDamageTest : public SceneReaderTest, public testing::WithParamInterface<SceneDamage> {};

TEST_F(SceneReaderTest, TheSoundSceneOpensAndIsSavedAsItStands)
{
    const auto opened = open(path());
    save(path(), *opened);
    EXPECT_EQ(get(sceneFile()).toStdString(), sceneText.toStdString());
    EXPECT_EQ(get(path() + "/project.json").toStdString(), projectText.toStdString());
}

TEST_P(SceneDamageTest, IsToldWithFileAndPlace)
{
    const auto& [name, from, to, reason] = GetParam();
    const qsizetype at = sceneText.indexOf(from);
    ASSERT_GE(at, 0) << from;
    put(sceneFile(), QByteArray(sceneText).replace(at, qstrlen(from), to));
    const Files before = filesOf(path());
    EXPECT_EQ(openError(path()).toStdString(),
              ("Cannot open the project: \"" + sceneFile() + "\" ").toStdString() + reason);
    EXPECT_EQ(filesOf(path()), before);
}

INSTANTIATE_TEST_SUITE_P(All, SceneDamageTest, testing::ValuesIn(sceneDamages),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SceneReaderTest, ALinkThatClosesACircleIsTold)
{
    QByteArray text = sceneText;
    text.replace("      \"links\": [\n        [0, \"Arm\", 0]\n      ]\n", "      \"enabled\": true\n");
    text.replace("\"name\": \"Hand\",\n", "\"name\": \"Hand\",\n      \"links\": [[0, \"Arm\", 0]],\n");
    put(sceneFile(), text);
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + sceneFile() +
                                     "\" is damaged at line 72: nodes[4].links[0] joins ports that can't be linked.");
}

TEST_F(SceneReaderTest, ATwinColumnIsTold)
{
    QByteArray text = sceneText;
    text.replace("  \"columns\": [\n", "  \"columns\": [{\"name\": \"X\", \"type\": \"BEZIER\", \"hold\": [1, 1, 1], "
                                       "\"points\": []},\n");
    put(sceneFile(), text);
    EXPECT_TRUE(openError(path()).endsWith("line 118: columns[1].name is the name of another column."))
        << openError(path()).toStdString();
}

TEST_F(SceneReaderTest, AFileThatEndsAnywhereIsToldOrWhole)
{
    for (const QString& file : {path() + "/project.json", sceneFile()}) {
        const QByteArray whole = get(file);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            put(file, whole.left(length));
            const QString error = openError(path());
            if (length == whole.size() - 1)
                EXPECT_EQ(error, QString()) << "only the last line end is gone";
            else
                ASSERT_TRUE(error.startsWith("Cannot open the project: \"" + file + "\" is ") && error.endsWith('.'))
                    << length << ": " << error.toStdString();
        }
        put(file, whole);
    }
}

TEST_F(SceneReaderTest, FlippedBitsNeverCrash)
{
    std::mt19937 random(7);
    for (int round = 0; round < 4000; ++round) {
        QByteArray text = sceneText;
        for (int flips = 1 + round % 3; flips > 0; --flips) {
            const auto at = std::uniform_int_distribution<qsizetype>(0, text.size() - 1)(random);
            text[at] = static_cast<char>(text.at(at) ^ (1 << std::uniform_int_distribution<int>(0, 7)(random)));
        }
        put(sceneFile(), text);
        const QString error = openError(path());
        ASSERT_TRUE(error.isEmpty() || error.startsWith("Cannot open the project: \"" + sceneFile() + "\" "))
            << error.toStdString();
    }
}

TEST_F(SceneReaderTest, WhatSurvivesAFlippedBitIsSavedAndOpenedAgain)
{
    std::mt19937 random(8);
    int opened = 0;
    for (int round = 0; round < 1500; ++round) {
        QByteArray text = sceneText;
        const auto at = std::uniform_int_distribution<qsizetype>(0, text.size() - 1)(random);
        text[at] = static_cast<char>(text.at(at) ^ (1 << std::uniform_int_distribution<int>(0, 7)(random)));
        put(sceneFile(), text);
        brindle::engine::Project project(path());
        QString error;
        if (!brindle::engine::ProjectFolder(path()).readOnly(project, error))
            continue;
        ++opened;
        const std::string once = brindle::engine::sceneText(*project.scenes().front()).toStdString();
        const QString copy = this->path(QString::number(round));
        ASSERT_EQ(createError(copy, project), QString());
        ASSERT_EQ(brindle::engine::sceneText(*open(copy)->scenes().front()).toStdString(), once);
    }
    EXPECT_GT(opened, 20);
}

TEST_F(SceneReaderTest, AbsurdNestingAndSizesAreTold)
{
    put(sceneFile(), QByteArray(2'000'000, '['));
    EXPECT_EQ(openError(path()).toStdString(), ("Cannot open the project: \"" + sceneFile() +
                                                "\" is damaged at line 1, column 1026: too deeply nested document.")
                                                   .toStdString());
    put(sceneFile(), "{\"nodes\": " + QByteArray(1000, '[') + QByteArray(1000, ']') + '}');
    EXPECT_TRUE(openError(path()).endsWith("is damaged at line 1: the file has no field \"format\"."));
    QFile sparse(sceneFile());
    ASSERT_TRUE(sparse.resize(qint64(1) << 40));
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + sceneFile() + "\" is too large.");
}
