#include "core/clipboard/dropmode.h"

#include "core/clipboard/clipboard.h"
#include "core/clipboard/copyobject.h"
#include "core/clipboard/pasteoptions.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/host/dd_clipboard.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_scene.h"
#include "core/host/ut_path.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace OMC {

namespace {

/// A word of the options, and what the engine has for it.
template <typename Mode>
struct Word {
    QStringView word;
    Mode mode;
};

constexpr Word<DD_DropMode::WriteMode> writeModes[] = {
    {u"DO_NOTHING", DD_DropMode::kWriteNothing},
    {u"OVERWRITE", DD_DropMode::kOverwriteKeys},
    {u"INSERT", DD_DropMode::kInsert},
};

constexpr Word<DD_DropMode::DeleteMode> deleteModes[] = {
    {u"EMPTY", DD_DropMode::kEmpty},
    {u"REMOVE", DD_DropMode::kRemove},
    {u"DELETE_NOTHING", DD_DropMode::kDeleteNothing},
};

constexpr Word<DD_DropMode::DrawingMode> drawingModes[] = {
    {u"NEVER_CREATE", DD_DropMode::kNeverCreate},
    {u"ONLY_CREATE_IF_DOES_NOT_EXIST", DD_DropMode::kOnlyCreateIfMissing},
    {u"ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE", DD_DropMode::kOnlyCreateIfMissingAndMerge},
    {u"ALWAYS_CREATE", DD_DropMode::kAlwaysCreate},
    {u"ALWAYS_CREATE_AND_VERSION_IF_NECESSARY", DD_DropMode::kAlwaysCreateAndVersion},
    {u"REPLACE_EXISTING", DD_DropMode::kReplaceExisting},
    {u"SHARE", DD_DropMode::kShare},
    {u"OVERWRITE", DD_DropMode::kOverwrite},
};

constexpr Word<DD_DropMode::PaletteMode> paletteModes[] = {
    {u"DO_NOTHING", DD_DropMode::kNoPalettes},
    {u"LINK_TO_ORIGINAL", DD_DropMode::kLinkToOriginal},
    {u"REUSE_PALETTES", DD_DropMode::kReusePalettes},
    {u"COPY_AND_OVERWRITE_EXISTING_PALETTES", DD_DropMode::kCopyAndOverwrite},
    {u"COPY_AND_CREATE_NEW_PALETTES", DD_DropMode::kCopyAndCreate},
    {u"COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER", DD_DropMode::kCopyAndCreateInElement},
    {u"COPY_PALETTE_AND_MERGE_COLOURS", DD_DropMode::kCopyAndMerge},
    {u"COPY_PALETTE_AND_UPDATE_COLOURS", DD_DropMode::kCopyAndUpdate},
    {u"COPY_SCENE_PALETTE_AND_MERGE_COLOURS", DD_DropMode::kCopySceneAndMerge},
    {u"COPY_SCENE_PALETTE_AND_UPDATE_COLOURS", DD_DropMode::kCopySceneAndUpdate},
};

/// Required: the second word is known here, though no setter of the options takes it.
constexpr Word<DD_DropMode::ElementMode> elementModes[] = {
    {u"ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING", DD_DropMode::kElementAsElement},
    {u"ALL_DRWGS_LINKED_THRU_TIMING_COLS", DD_DropMode::kAllThroughTiming},
    {u"ALL_DRWGS_AS_ELEMENTS", DD_DropMode::kAllAsElements},
};

/// The row of a word; null for one that isn't in the table.
template <typename Table>
auto rowOf(const Table& table, const QString& word) -> decltype(std::begin(table))
{
    const auto row =
        std::find_if(std::begin(table), std::end(table), [&word](const auto& each) { return each.word == word; });
    return row == std::end(table) ? nullptr : row;
}

template <typename Mode, std::size_t Count>
Mode modeOf(const Word<Mode> (&table)[Count], const QString& word, Mode otherwise)
{
    const auto* row = rowOf(table, word);
    return row ? row->mode : otherwise;
}

int framesOf(const CopyObject& copy)
{
    DD_DragInfo info;
    std::shared_ptr<DD_DragSceneOld> scene;
    if (!DD_DragUtil::GetDragInfo(Global::sessionContext(), copy.getObject(), info, scene))
        throw Exception(Clipboard::tr("Invalid paste node provided."));
    return info.numFrames;
}

/// 0 for a path that leads to no template.
int framesOfTemplate(const QString& path)
{
    UT_Path file(path);
    if (!DD_TplUtil::GetValidSceneFile(path, file))
        return 0;
    return found(DD_TplUtil::LoadTemplate(Global::sessionContext(), path, false).get(),
                 [] { return Clipboard::tr("Invalid paste node provided."); })
        .numFrames();
}

/// Puts numbers in the place of those that stand for the scene's, or for all of the source.
void settleFrames(PasteOptions& options, const TUScene& scene, const CopyObject* copy, const QString& templatePath)
{
    if (options.startFrameSrc == 0)
        options.startFrameSrc = found(scene.sceneCommon()).getStartFrame();
    if (options.numFrameSrc != 0)
        return;
    if (copy)
        options.numFrameSrc = framesOf(*copy);
    else
        options.numFrameSrc = templatePath.isEmpty() ? scene.getNumberOfFrames() : framesOfTemplate(templatePath);
}

/// What counts under `use_paste_special` alone.
void setSpecial(DD_DropMode& mode, const PasteOptions& options)
{
    mode.extendScene = options.extendScene;
    mode.cameraNameTransfer = options.cameraNameTransfer;

    mode.exposureAdd = options.getDrawingAction() == QLatin1String("ADD_OR_REMOVE_EXPOSURE");
    mode.updatePivot = options.getDrawingAction() == QLatin1String("UPDATE_PIVOT");
    if (mode.exposureAdd) {
        if (const auto* row = rowOf(drawingModes, options.getDrawingFileMode()))
            mode.setDrawingMode(row->mode);
    }
    if (const auto* row = rowOf(paletteModes, options.getColorPaletteMode()))
        mode.setPaletteMode(row->mode);
    mode.createNewColumn = options.createNewColumn;
    if (const auto* row = rowOf(elementModes, options.getValidateTimingColumnMode()))
        mode.setElementMode(row->mode);

    mode.addRemoveMotionKeyframe = options.addRemoveMotionKeyframe;
    mode.addRemoveVelocityKeyframe = options.addRemoveVelocityKeyframe;
    mode.addRemoveAngleKeyframe = options.addRemoveAngleKeyframe;
    mode.addRemoveSkewKeyframe = options.addRemoveSkewKeyframe;
    mode.addRemoveScalingKeyframe = options.addRemoveScalingKeyframe;
    mode.forceBeginningEndKeyframe = options.forceBeginningEndKeyframe;
    mode.offsetKeyframes = options.offsetKeyframes;
    mode.replaceExpressionColumns = options.replaceExpressionColumns;
    mode.pasteFlagA = options.pasteFlagA;
    mode.pasteFlagB = options.pasteFlagB;
    mode.tvPreserveName = options.tvPreserveName;
    mode.fullTransfer = options.fullTransfer;
    mode.setExposureMode(options.drawingExtendExposure, options.drawingSubstitution);
    mode.setMatchNodeName(options.matchNodeName);
}

} // namespace

DD_DropMode dropMode(PasteOptions* options, const TUScene& scene, const CopyObject* copy, const QString& templatePath)
{
    DD_DropMode mode = DD_DropMode::GetDragDropDefault();
    mode.fullTransfer = true;
    mode.setDrawingMode(PR_CachedPreferences::getLibraryPasteCreateNewDrawing() ? DD_DropMode::kAlwaysCreate
                                                                                : DD_DropMode::kOnlyCreateIfMissing);
    mode.forceBeginningEndKeyframe = true;
    mode.keepFlag = true;
    if (!options)
        return mode;

    settleFrames(*options, scene, copy, templatePath);
    mode.SetNumFramesSrc(options->numFrameSrc);
    mode.SetStartFrameSrc(options->startFrameSrc);
    // Required: these two ask the getters, which say "OVERWRITE" and "DELETE_NOTHING" whatever was written.
    mode.writeMode = modeOf(writeModes, options->getWriteMode(), DD_DropMode::kOverwriteKeys);
    mode.useSpecial = false;
    mode.deleteMode = modeOf(deleteModes, options->getDeleteMode(), DD_DropMode::kDeleteNothing);
    if (options->usePasteSpecial)
        setSpecial(mode, *options);
    return mode;
}

} // namespace OMC
