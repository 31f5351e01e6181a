#include "core/clipboard/pasteoptions.h"

#include "core/frame/optionfields.h"

#include <array>

namespace OMC {

namespace {

using Field = options::Field<PasteOptions>;

constexpr std::array flags = {
    Field{"use_paste_special", &PasteOptions::usePasteSpecial},
    Field{"extend_scene", &PasteOptions::extendScene},
    Field{"create_new_column", &PasteOptions::createNewColumn},
    Field{"add_remove_motion_keyframe", &PasteOptions::addRemoveMotionKeyframe},
    Field{"add_remove_velocity_keyframe", &PasteOptions::addRemoveVelocityKeyframe},
    Field{"add_remove_angle_keyframe", &PasteOptions::addRemoveAngleKeyframe},
    Field{"add_remove_skew_keyframe", &PasteOptions::addRemoveSkewKeyframe},
    Field{"add_remove_scaling_keyframe", &PasteOptions::addRemoveScalingKeyframe},
    Field{"force_beginning_end_keyframe", &PasteOptions::forceBeginningEndKeyframe},
    Field{"offset_keyframes", &PasteOptions::offsetKeyframes},
    Field{"replace_expression_columns", &PasteOptions::replaceExpressionColumns},
    Field{"tv_preserve_name", &PasteOptions::tvPreserveName},
    Field{"match_node_name", &PasteOptions::matchNodeName},
    Field{"full_transfer", &PasteOptions::fullTransfer},
    Field{"keyframe_mode", &PasteOptions::keyframeMode},
    Field{"camera_name_transfer", &PasteOptions::cameraNameTransfer},
};

constexpr std::array modes = {
    Field{"element_timing_column_mode", &PasteOptions::setValidateTimingColumnMode},
    Field{"drawing_action", &PasteOptions::setDrawingAction},
    Field{"drawing_file_mode", &PasteOptions::setDrawingFileMode},
    Field{"color_palette_mode", &PasteOptions::setColorPaletteMode},
    Field{"write_mode", &PasteOptions::setWriteMode},
    Field{"delete_mode", &PasteOptions::setDeleteMode},
};

/// Required: keyframe_mode has a second position here, behind the one among the flags.
constexpr std::array others = {
    Field{"keyframe_mode", &PasteOptions::keyframeMode},
    Field{"start_frame_src", &PasteOptions::startFrameSrc},
    Field{"num_frame_src", &PasteOptions::numFrameSrc},
    Field{"drawing_extend_exposure", &PasteOptions::drawingExtendExposure},
    Field{"drawing_substitution", &PasteOptions::drawingSubstitution},
    Field{"action_template", &PasteOptions::actionTemplate},
};

constexpr auto positions = [] {
    std::array<Field, flags.size() + modes.size() + others.size()> all{};
    auto end = std::copy(flags.begin(), flags.end(), all.begin());
    end = std::copy(modes.begin(), modes.end(), end);
    std::copy(others.begin(), others.end(), end);
    return all;
}();

/// The words of the modes that share one store. They differ from mode to mode.
const QStringList& columnWords()
{
    static const QStringList words = {QStringLiteral("ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING"),
                                      QStringLiteral("ALL_DRWGS_AS_ELEMENTS")};
    return words;
}

const QStringList& writeWords()
{
    static const QStringList words = {QStringLiteral("INSERT"), QStringLiteral("OVERWRITE"),
                                      QStringLiteral("DO_NOTHING")};
    return words;
}

const QStringList& deleteWords()
{
    static const QStringList words = {QStringLiteral("REMOVE"), QStringLiteral("EMPTY"),
                                      QStringLiteral("DELETE_NOTHING")};
    return words;
}

/// The name of the mode that a word in the shared store is one of.
QString sharedKey(const QString& word)
{
    if (writeWords().contains(word))
        return QStringLiteral("write_mode");
    if (deleteWords().contains(word))
        return QStringLiteral("delete_mode");
    return QStringLiteral("element_timing_column_mode");
}

/// A word in upper case; throws when it is not one of the valid ones.
QString checkedWord(const QString& word, const QStringList& valid)
{
    const QString upper = word.toUpper();
    if (!valid.contains(upper))
        throw Exception(PasteOptions::tr("Invalid option : %1 \n Valid options include: %2 ")
                            .arg(upper, valid.join(QStringLiteral(",  "))));
    return upper;
}

} // namespace

PasteOptions::PasteOptions(const QVariant& value)
{
    options::read<PasteOptions>(*this, value, positions, positions);
}

QVariantMap PasteOptions::fields() const
{
    QVariantMap told = options::values<PasteOptions>(*this, positions);
    told.insert(sharedKey(m_columnMode), m_columnMode);
    told.insert(QStringLiteral("drawing_action"), m_drawingAction);
    told.insert(QStringLiteral("drawing_file_mode"), m_drawingFileMode);
    told.insert(QStringLiteral("color_palette_mode"), m_colorPaletteMode);
    return told;
}

std::string PasteOptions::__str__() const
{
    using options::word;
    QStringList words;
    for (const Field& field : flags)
        words.append(word(this->*std::get<bool PasteOptions::*>(field.member)));
    words.append({word(getValidateTimingColumnMode()), word(getDrawingAction()), word(getDrawingFileMode()),
                  word(getColorPaletteMode()), word(getWriteMode()), word(getDeleteMode())});
    words.append({word(pasteFlagA), word(pasteFlagB), word(startFrameSrc), word(numFrameSrc),
                  word(drawingExtendExposure), word(drawingSubstitution), word(actionTemplate)});
    return QStringLiteral("PasteOptions([%1])").arg(words.join(u',')).toStdString();
}

void PasteOptions::setValidateTimingColumnMode(const QString& mode)
{
    m_columnMode = checkedWord(mode, columnWords());
}

void PasteOptions::setDrawingAction(const QString& action)
{
    static const QStringList valid = {QStringLiteral("DO_NOTHING"), QStringLiteral("ADD_OR_REMOVE_EXPOSURE"),
                                      QStringLiteral("UPDATE_PIVOT")};
    m_drawingAction = checkedWord(action, valid);
}

void PasteOptions::setDrawingFileMode(const QString& mode)
{
    static const QStringList valid = {QStringLiteral("NEVER_CREATE"),
                                      QStringLiteral("SHARE"),
                                      QStringLiteral("OVERWRITE"),
                                      QStringLiteral("ONLY_CREATE_IF_DOES_NOT_EXIST"),
                                      QStringLiteral("ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE"),
                                      QStringLiteral("ALWAYS_CREATE"),
                                      QStringLiteral("ALWAYS_CREATE_AND_VERSION_IF_NECESSARY"),
                                      QStringLiteral("REPLACE_EXISTING")};
    m_drawingFileMode = checkedWord(mode, valid);
}

void PasteOptions::setColorPaletteMode(const QString& mode)
{
    static const QStringList valid = {QStringLiteral("DO_NOTHING"),
                                      QStringLiteral("REUSE_PALETTES"),
                                      QStringLiteral("COPY_AND_OVERWRITE_EXISTING_PALETTES"),
                                      QStringLiteral("COPY_AND_CREATE_NEW_PALETTES"),
                                      QStringLiteral("COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER"),
                                      QStringLiteral("COPY_PALETTE_AND_MERGE_COLOURS"),
                                      QStringLiteral("COPY_PALETTE_AND_UPDATE_COLOURS"),
                                      QStringLiteral("LINK_TO_ORIGINAL"),
                                      QStringLiteral("COPY_SCENE_PALETTE_AND_MERGE_COLOURS"),
                                      QStringLiteral("COPY_SCENE_PALETTE_AND_UPDATE_COLOURS")};
    m_colorPaletteMode = checkedWord(mode, valid);
}

void PasteOptions::setWriteMode(const QString& mode)
{
    m_columnMode = checkedWord(mode, writeWords());
}

void PasteOptions::setDeleteMode(const QString& mode)
{
    m_columnMode = checkedWord(mode, deleteWords());
}

} // namespace OMC
