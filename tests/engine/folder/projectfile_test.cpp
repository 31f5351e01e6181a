#include "engine/folder/projectfile.h"

#include "core/host/sc_projectcmds.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/projectfolder.h"
#include "tests/engine/folder/foldertest.h"

namespace {

const QByteArray soundText = R"({
  "format": "brindle-project",
  "version": 3,
  "lastChange": "Rename Arm",
  "resolution": {
    "name": "HD_720",
    "width": 1280,
    "height": 720,
    "fovFit": "WIDTH",
    "fov": 60.5,
    "projection": "ORTHOGONAL"
  },
  "colourSpace": "sRGB",
  "textureDensity": {
    "bitmap": 2,
    "vector": 0.5
  },
  "metrics": {
    "aspectRatio": [16, 9],
    "fieldChart": [12, 10.5, 24],
    "center": [3, -4]
  },
  "scenes": [
    "scenes/Walk.json",
    "scenes/Run.json"
  ]
}
)";

QString failureOf(const QByteArray& text)
{
    try {
        brindle::engine::ProjectRecord record;
        const brindle::engine::JsonFile file("/p/project.json", text);
        brindle::engine::readProjectFile(file, record);
        return {};
    } catch (const brindle::engine::FolderFailure& failure) {
        return failure.reason;
    }
}

/// A change of a sound file, and the sentence of reading behind its name.
struct ProjectDamage {
    const char* name;
    const char* from;
    const char* to;
    const char* reason;
};

constexpr ProjectDamage projectDamages[] = {
    {"NewerVersion", "\"version\": 3", "\"version\": 4",
     "has format version 4, and this version of the application reads versions up to 3"},
    {"FieldsOfTheNextVersion", "\"version\": 3", "\"version\": 1",
     "is damaged at line 13: colourSpace is an unknown field"},
    {"LastChangeIsNumber", "\"Rename Arm\"", "4", "is damaged at line 4: lastChange is not a text"},
    {"NoResolution", "\"resolution\"", "\"resolutions\"", "is damaged at line 5: resolutions is an unknown field"},
    {"ResolutionIsText", "\"colourSpace\": \"sRGB\"", "\"colourSpace\": 5",
     "is damaged at line 13: colourSpace is not a text"},
    {"UnknownName", "\"HD_720\"", "\"HD_0\"", "is damaged at line 6: resolution.name is no named resolution"},
    {"NoWidth", "    \"width\": 1280,\n", "", "is damaged at line 5: resolution has no field \"width\""},
    {"WidthIsZero", "1280", "0", "is damaged at line 7: resolution.width is not a whole number from 1 to 2147483647"},
    {"WidthIsAbsurd", "1280", "100000", "is damaged at line 5: resolution is no resolution that a project can have"},
    {"HeightIsFraction", "720,", "720.5,",
     "is damaged at line 8: resolution.height is not a whole number from 1 to 2147483647"},
    {"FitOfNoKind", "\"WIDTH\"", "\"DEPTH\"", "is damaged at line 9: resolution.fovFit is not \"HEIGHT\" or \"WIDTH\""},
    {"FovIsWide", "60.5", "180", "is damaged at line 5: resolution is no resolution that a project can have"},
    {"FovIsText", "60.5", "\"60\"", "is damaged at line 10: resolution.fov is not a number"},
    {"ProjectionOfNoKind", "\"ORTHOGONAL\"", "\"FLAT\"",
     "is damaged at line 11: resolution.projection is not \"PERSPECTIVE\" or \"ORTHOGONAL\""},
    {"NoColourSpace", "\"sRGB\"", "\"\"", "is damaged at line 13: colourSpace is empty"},
    {"DensityIsNegative", "\"vector\": 0.5", "\"vector\": -0.5",
     "is damaged at line 14: textureDensity is not above 0"},
    {"DensityIsUnknown", "\"vector\"", "\"sound\"", "is damaged at line 16: textureDensity.sound is an unknown field"},
    {"RatioIsZero", "[16, 9]", "[16, 0]",
     "is damaged at line 19: metrics.aspectRatio[1] is not a whole number from 1 to 2147483647"},
    {"RatioIsLong", "[16, 9]", "[16, 9, 1]", "is damaged at line 19: metrics.aspectRatio has 3 items, not 2"},
    {"ChartIsShort", "[12, 10.5, 24]", "[12, 10.5]", "is damaged at line 20: metrics.fieldChart has no item [2]"},
    {"ChartIsZero", "[12, 10.5, 24]", "[12, 0, 24]",
     "is damaged at line 20: metrics.fieldChart is no field chart that a project can have"},
    {"CenterIsFraction", "[3, -4]", "[3, -4.5]",
     "is damaged at line 21: metrics.center[1] is not a whole number from -2147483648 to 2147483647"},
    {"SceneTwice", "scenes/Run.json", "scenes/Walk.json",
     "is damaged at line 25: scenes[1] is the file of another scene"},
    {"FieldTwice", "\"bitmap\": 2", "\"bitmap\": 2, \"bitmap\": 3",
     "is damaged at line 15, column 18: the field \"bitmap\" is there twice"},
};

} // namespace

class ProjectDamageTest : public testing::TestWithParam<ProjectDamage> {};

TEST_P(ProjectDamageTest, IsToldWithThePlace)
{
    const auto& [name, from, to, reason] = GetParam();
    const qsizetype at = soundText.indexOf(from);
    ASSERT_GE(at, 0) << from;
    EXPECT_EQ(failureOf(QByteArray(soundText).replace(at, qstrlen(from), to)).toStdString(),
              std::string("\"/p/project.json\" ") + reason);
}

INSTANTIATE_TEST_SUITE_P(All, ProjectDamageTest, testing::ValuesIn(projectDamages),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ProjectFileTest, WhatIsReadIsWrittenAsItStood)
{
    brindle::engine::ProjectRecord record;
    const brindle::engine::JsonFile file("/p/project.json", soundText);
    const QStringList scenes = brindle::engine::readProjectFile(file, record);
    EXPECT_EQ(scenes, QStringList({"scenes/Walk.json", "scenes/Run.json"}));
    EXPECT_EQ(record.lastChange, "Rename Arm");
    EXPECT_EQ(record.settings.picture.resolution,
              SC_Resolution("HD_720", 1280, 720, TUDbResolution::kFitWidth, TUDbResolution::kOrthogonal));
    EXPECT_EQ(record.settings.picture.fov, 60.5);
    EXPECT_EQ(record.settings.advancedFlags.pixelPerModelUnitForBitmapLayers(), 2);
    EXPECT_EQ(record.settings.advancedFlags.pixelPerModelUnitForVectorLayers(), 0.5);
    EXPECT_EQ(record.settings.aspectRatio, (brindle::engine::AspectRatio{16, 9}));
    EXPECT_EQ(record.settings.fieldChart, (brindle::engine::FieldChart{12, 10.5, 24}));
    EXPECT_EQ(record.settings.center, (brindle::engine::CenterCoordinates{3, -4}));
    EXPECT_EQ(brindle::engine::projectFileText(record, scenes).toStdString(), soundText.toStdString());
}

TEST(ProjectFileTest, WhatHasNoNameAndNoChangeLeavesThemOut)
{
    brindle::engine::ProjectRecord record;
    record.settings.picture = {SC_Resolution({}, 640, 481, TUDbResolution::kFitHeight, TUDbResolution::kPerspective),
                               40};
    const QByteArray text = brindle::engine::projectFileText(record, {"scenes/a.json"});
    EXPECT_FALSE(text.contains("name") || text.contains("lastChange"));
    brindle::engine::ProjectRecord read;
    read.lastChange = "something";
    const brindle::engine::JsonFile file("/p/project.json", text);
    brindle::engine::readProjectFile(file, read = {});
    EXPECT_EQ(read.settings, record.settings);
    EXPECT_EQ(read.lastChange, QString());
}

TEST(ProjectFileTest, Version1GetsTheSettingsOfANewProject)
{
    brindle::engine::ProjectRecord record;
    const brindle::engine::JsonFile file(
        "/p/project.json", R"({"format": "brindle-project", "version": 1, "scenes": ["scenes/Walk.json"]})");
    EXPECT_EQ(brindle::engine::readProjectFile(file, record), QStringList({"scenes/Walk.json"}));
    EXPECT_EQ(record.settings, brindle::engine::ProjectSettings());
    EXPECT_EQ(record.lastChange, QString());
}

using ProjectSettingsOnDiskTest = FolderTest;

TEST_F(ProjectSettingsOnDiskTest, AreOfTheProjectThatIsOpened)
{
    SC_ProjectCommon* common = project().projectCommon();
    ASSERT_TRUE(run(new SC_ProjectCmds::SetProjectResolutionByNameCmd(common, "PAL"), "Set PAL"));
    ASSERT_TRUE(run(new SC_ProjectCmds::SetDesignAspectRatioCmd(common, 16, 9), "Set Ratio"));
    saved();
    const auto opened = open(path());
    EXPECT_EQ(opened->projectCommon()->resolution()->name(), "PAL");
    EXPECT_EQ(opened->projectCommon()->metrics()->designAspectRatioX(), 16);
    EXPECT_EQ(opened->lastChange(), "Set Ratio");
    EXPECT_FALSE(opened->history().isDirty());
}

TEST_F(ProjectSettingsOnDiskTest, TheLastChangeFollowsUndoAndRedoAcrossASave)
{
    const Files first = saved("first");
    EXPECT_FALSE(first["project.json"].contains("lastChange"));
    run(new SC_ProjectCmds::SetDesignAspectRatioCmd(project().projectCommon(), 16, 9), "One");
    run(new SC_ProjectCmds::SetDesignAspectRatioCmd(project().projectCommon(), 16, 10), "Two");
    const Files second = saved("second");
    EXPECT_TRUE(second["project.json"].contains("\"lastChange\": \"Two\""));
    undo();
    EXPECT_TRUE(saved("third")["project.json"].contains("\"lastChange\": \"One\""));
    undo();
    EXPECT_EQ(saved("fourth"), first);
    redo(2);
    EXPECT_EQ(saved("fifth"), second);
}
