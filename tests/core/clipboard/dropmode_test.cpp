#include "core/clipboard/copyobject.h"
#include "core/clipboard/dropmode.h"
#include "core/clipboard/pasteoptions.h"
#include "core/host/pr_preference.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using OMC::CopyObject;
using OMC::dropMode;
using OMC::PasteOptions;

class DropModeTest : public GraphTest {
protected:
    DD_DropMode mode(PasteOptions* options) const { return dropMode(options, *scene(), nullptr, QString()); }
    DD_DropMode special(PasteOptions options) const
    {
        options.usePasteSpecial = true;
        return mode(&options);
    }
};

struct SetPreference {
    explicit SetPreference(bool makesDrawings) { set(makesDrawings); }
    ~SetPreference() { set(false); }
    static void set(bool makesDrawings)
    {
        tuPref()->setBoolValue(QStringLiteral("LIBRARY_PASTE_CREATE_NEW_DRAWING"), makesDrawings);
    }
};

TEST_F(DropModeTest, WithoutOptionsThePreferenceSaysWhetherDrawingsAreMade)
{
    for (const bool makesDrawings : {false, true}) {
        const SetPreference preference(makesDrawings);
        const DD_DropMode plain = mode(nullptr);
        EXPECT_EQ(plain.drawingMode(), makesDrawings ? 1 : 5);
        EXPECT_TRUE(plain.fullTransfer && plain.forceBeginningEndKeyframe && plain.keepFlag && plain.makesNodes());
        PasteOptions options;
        options.setDrawingFileMode(QStringLiteral("REPLACE_EXISTING"));
        EXPECT_EQ(mode(&options).drawingMode(), makesDrawings ? 1 : 5) << "the options count for a special paste alone";
    }
}

TEST_F(DropModeTest, NumbersThatAreLeftOutAreWrittenIntoTheOptions)
{
    ASSERT_TRUE(scene()->setStartFrame(7));
    PasteOptions options;
    options.startFrameSrc = 0;
    const DD_DropMode read = mode(&options);
    EXPECT_EQ(std::pair(options.startFrameSrc, options.numFrameSrc), std::pair(7, 60));
    EXPECT_EQ(std::pair(read.startFrameSrc(), read.numFramesSrc()), std::pair(7, 60));

    options.startFrameSrc = 3;
    options.numFrameSrc = 4;
    const DD_DropMode again = mode(&options);
    EXPECT_EQ(std::pair(options.startFrameSrc, options.numFrameSrc), std::pair(3, 4));
    EXPECT_EQ(std::pair(again.startFrameSrc(), again.numFramesSrc()), std::pair(3, 4));
}

TEST_F(DropModeTest, APathThatLeadsToNoTemplateLeavesTheNumberOfFrames)
{
    PasteOptions options;
    EXPECT_EQ(dropMode(&options, *scene(), nullptr, QStringLiteral("/no/such.tpl")).numFramesSrc(), 0);
    EXPECT_EQ(options.numFrameSrc, 0);
}

TEST_F(DropModeTest, ACopyThatHoldsNothingIsNoLongerValid)
{
    PasteOptions options;
    const CopyObject copy{DD_DragObject()};
    EXPECT_EQ(failureOf([&] { dropMode(&options, *scene(), &copy, QString()); }), objectGone);
}

TEST_F(DropModeTest, WriteAndDeleteModeStayAtTheirDefaults)
{
    PasteOptions options;
    for (const char* word : {"INSERT", "DO_NOTHING", "OVERWRITE"})
        options.setWriteMode(QString::fromLatin1(word));
    for (const char* word : {"REMOVE", "EMPTY"})
        options.setDeleteMode(QString::fromLatin1(word));
    const DD_DropMode read = mode(&options);
    EXPECT_EQ(read.writeMode, 2);
    EXPECT_EQ(read.deleteMode, 2);
    EXPECT_FALSE(read.useSpecial);
}

TEST_F(DropModeTest, EachWordHasItsModeInASpecialPaste)
{
    const struct {
        void (PasteOptions::*set)(const QString&);
        int (*get)(const DD_DropMode&);
        std::vector<std::pair<const char*, int>> words;
    } rows[] = {
        {&PasteOptions::setDrawingFileMode,
         [](const DD_DropMode& mode) -> int { return mode.drawingMode(); },
         {{"NEVER_CREATE", 3},
          {"ONLY_CREATE_IF_DOES_NOT_EXIST", 5},
          {"ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE", 6},
          {"ALWAYS_CREATE", 1},
          {"ALWAYS_CREATE_AND_VERSION_IF_NECESSARY", 0},
          {"REPLACE_EXISTING", 7},
          {"SHARE", 4},
          {"OVERWRITE", 2}}},
        {&PasteOptions::setColorPaletteMode,
         [](const DD_DropMode& mode) -> int { return mode.paletteMode(); },
         {{"DO_NOTHING", 0},
          {"LINK_TO_ORIGINAL", 1},
          {"REUSE_PALETTES", 2},
          {"COPY_AND_OVERWRITE_EXISTING_PALETTES", 3},
          {"COPY_AND_CREATE_NEW_PALETTES", 4},
          {"COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER", 5},
          {"COPY_PALETTE_AND_MERGE_COLOURS", 6},
          {"COPY_PALETTE_AND_UPDATE_COLOURS", 7},
          {"COPY_SCENE_PALETTE_AND_MERGE_COLOURS", 8},
          {"COPY_SCENE_PALETTE_AND_UPDATE_COLOURS", 9}}},
        {&PasteOptions::setValidateTimingColumnMode,
         [](const DD_DropMode& mode) -> int { return mode.elementMode(); },
         {{"ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING", 1}, {"ALL_DRWGS_AS_ELEMENTS", 3}}},
    };
    for (const auto& row : rows) {
        for (const auto& [word, expected] : row.words) {
            SCOPED_TRACE(word);
            PasteOptions options;
            (options.*row.set)(QString::fromLatin1(word));
            EXPECT_EQ(row.get(special(options)), expected);
        }
    }
}

TEST_F(DropModeTest, AModeOfDrawingsCountsOnlyWhereExposuresArePasted)
{
    const struct {
        const char* action;
        bool exposureAdd;
        bool updatePivot;
        int drawingMode;
    } rows[] = {
        {"ADD_OR_REMOVE_EXPOSURE", true, false, 7}, {"UPDATE_PIVOT", false, true, 5}, {"DO_NOTHING", false, false, 5}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.action);
        PasteOptions options;
        options.setDrawingAction(QString::fromLatin1(row.action));
        options.setDrawingFileMode(QStringLiteral("REPLACE_EXISTING"));
        const DD_DropMode read = special(options);
        EXPECT_EQ(read.exposureAdd, row.exposureAdd);
        EXPECT_EQ(read.updatePivot, row.updatePivot);
        EXPECT_EQ(read.drawingMode(), row.drawingMode);
    }
}

TEST_F(DropModeTest, AWordOfAnotherModeInTheSharedStoreLeavesTheElementMode)
{
    PasteOptions options;
    options.setWriteMode(QStringLiteral("INSERT"));
    EXPECT_EQ(special(options).elementMode(), DD_DropMode::GetDragDropDefault().elementMode());
}

TEST_F(DropModeTest, EachFlagGoesToItsField)
{
    const struct {
        bool PasteOptions::*option;
        bool DD_DropMode::*field;
    } rows[] = {
        {&PasteOptions::extendScene, &DD_DropMode::extendScene},
        {&PasteOptions::cameraNameTransfer, &DD_DropMode::cameraNameTransfer},
        {&PasteOptions::createNewColumn, &DD_DropMode::createNewColumn},
        {&PasteOptions::addRemoveMotionKeyframe, &DD_DropMode::addRemoveMotionKeyframe},
        {&PasteOptions::addRemoveVelocityKeyframe, &DD_DropMode::addRemoveVelocityKeyframe},
        {&PasteOptions::addRemoveAngleKeyframe, &DD_DropMode::addRemoveAngleKeyframe},
        {&PasteOptions::addRemoveSkewKeyframe, &DD_DropMode::addRemoveSkewKeyframe},
        {&PasteOptions::addRemoveScalingKeyframe, &DD_DropMode::addRemoveScalingKeyframe},
        {&PasteOptions::forceBeginningEndKeyframe, &DD_DropMode::forceBeginningEndKeyframe},
        {&PasteOptions::offsetKeyframes, &DD_DropMode::offsetKeyframes},
        {&PasteOptions::replaceExpressionColumns, &DD_DropMode::replaceExpressionColumns},
        {&PasteOptions::pasteFlagA, &DD_DropMode::pasteFlagA},
        {&PasteOptions::pasteFlagB, &DD_DropMode::pasteFlagB},
        {&PasteOptions::tvPreserveName, &DD_DropMode::tvPreserveName},
        {&PasteOptions::fullTransfer, &DD_DropMode::fullTransfer},
    };
    for (const auto& row : rows) {
        PasteOptions options;
        options.*row.option = !(options.*row.option);
        const DD_DropMode changed = special(options);
        for (const auto& other : rows)
            EXPECT_EQ(changed.*other.field, options.*other.option);
        EXPECT_EQ(mode(&options).*row.field, DD_DropMode::GetDragDropDefault().*row.field) << "in a plain paste";
    }
}

TEST_F(DropModeTest, TheFlagsOfExposuresAndNamesGoThroughTheirSetters)
{
    const auto flagsOf = [](const DD_DropMode& mode) {
        return std::tuple(mode.extendsExposure(), mode.substitutesDrawings(), mode.matchNodeName());
    };
    PasteOptions options;
    EXPECT_EQ(flagsOf(special(options)), std::tuple(true, true, true));
    options.drawingExtendExposure = false;
    EXPECT_EQ(flagsOf(special(options)), std::tuple(false, true, true));
    options.drawingSubstitution = false;
    EXPECT_EQ(flagsOf(special(options)), std::tuple(false, false, true));
    options.matchNodeName = false;
    EXPECT_EQ(flagsOf(special(options)), std::tuple(false, false, false));
}

} // namespace
