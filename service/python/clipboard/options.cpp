#include "service/python/options.h"
#include "core/clipboard/copyoptions.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"

namespace brindle::python {

namespace {

using OMC::CopyOptions;
using OMC::PasteActionOptions;
using OMC::PasteOptions;

const Family family([]() -> std::vector<ClassTable> {
    return {
        optionsClass<CopyOptions>()
            .alias("OptionsLike", "dict[str, object] | str",
                   "Values of options: by their names, or a text of them by their positions.")
            .constructors<Construct<&newOf<CopyOptions>>,
                          Construct<&newOf<CopyOptions, QVariant>, "value: OptionsLike">>()
            .member<&CopyOptions::addModellingDir>("add_modelling_dir")
            .member<&CopyOptions::addScanFiles>("add_scan_files")
            .member<&CopyOptions::includeDefaultCameraName>("include_default_camera_name")
            .member<&CopyOptions::startFrameSrc>("start_frame_src")
            .member<&CopyOptions::numFrameSrc>("num_frame_src"),
        optionsClass<PasteOptions>()
            .constructors<Construct<&newOf<PasteOptions>>,
                          Construct<&newOf<PasteOptions, QVariant>, "value: OptionsLike">>()
            .member<&PasteOptions::usePasteSpecial>("use_paste_special")
            .member<&PasteOptions::extendScene>("extend_scene")
            .member<&PasteOptions::createNewColumn>("create_new_column")
            .member<&PasteOptions::addRemoveMotionKeyframe>("add_remove_motion_keyframe")
            .member<&PasteOptions::addRemoveVelocityKeyframe>("add_remove_velocity_keyframe")
            .member<&PasteOptions::addRemoveAngleKeyframe>("add_remove_angle_keyframe")
            .member<&PasteOptions::addRemoveSkewKeyframe>("add_remove_skew_keyframe")
            .member<&PasteOptions::addRemoveScalingKeyframe>("add_remove_scaling_keyframe")
            .member<&PasteOptions::forceBeginningEndKeyframe>("force_beginning_end_keyframe")
            .member<&PasteOptions::offsetKeyframes>("offset_keyframes")
            .member<&PasteOptions::replaceExpressionColumns>("replace_expression_columns")
            .member<&PasteOptions::tvPreserveName>("tv_preserve_name")
            .member<&PasteOptions::matchNodeName>("match_node_name")
            .member<&PasteOptions::fullTransfer>("full_transfer")
            .member<&PasteOptions::keyframeMode>("keyframe_mode")
            .member<&PasteOptions::cameraNameTransfer>("camera_name_transfer")
            .member<&PasteOptions::startFrameSrc>("start_frame_src")
            .member<&PasteOptions::numFrameSrc>("num_frame_src")
            .member<&PasteOptions::drawingExtendExposure>("drawing_extend_exposure")
            .member<&PasteOptions::drawingSubstitution>("drawing_substitution")
            .member<&PasteOptions::actionTemplate>("action_template"),
        optionsClass<PasteActionOptions>()
            .constructors<Construct<&newOf<PasteActionOptions>>,
                          Construct<&newOf<PasteActionOptions, QVariant>, "value: OptionsLike">,
                          Construct<&newOf<PasteActionOptions, bool, bool, bool>, "groups, effects, composites">>()
            .member<&PasteActionOptions::groups>("groups")
            .member<&PasteActionOptions::effects>("effects")
            .member<&PasteActionOptions::composites>("composites"),
    };
});

} // namespace

} // namespace brindle::python
