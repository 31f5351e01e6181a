"""The options of copying and pasting: their three forms, their texts, and the words that they take."""

import copy
import pickle

import brindle
import pytest

import support

DEFAULT = ("PasteOptions([False,False,False,True,True,True,True,True,True,False,True,False,True,True,True,False,"
           '"ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING","ADD_OR_REMOVE_EXPOSURE","ALWAYS_CREATE","REUSE_PALETTES",'
           '"OVERWRITE","DELETE_NOTHING",True,True,1,0,True,True,False])')
SHARED = "ELEMENT_AS_ELEMENT_AND_TIMING_AS_TIMING"


def test_defaults():
    assert str(brindle.CopyOptions()) == "CopyOptions([True,True,True,1,0])"
    assert str(brindle.PasteOptions()) == DEFAULT
    assert str(brindle.PasteActionOptions()) == ""


@pytest.mark.parametrize("value, text", [
    ({"add_scan_files": False, "num_frame_src": 7}, "True,False,True,1,7"),
    ({"ADD_MODELLING_DIR": 0, "Start_Frame_Src": "12", "mood": object}, "False,True,True,12,0"),
    ({}, "True,True,True,1,0"),
    ({"start_frame_src": "x", "add_scan_files": "false"}, "True,False,True,0,0"),
    ("False, True ,tr ue,5,10", "False,True,True,5,10"),
    ('"True",False', "True,False,True,1,0"),
    ("", "False,True,True,1,0"),
    ("[False, True, True, 5, 10]", "False,True,True,1,0"),
    ("true,true,true,1,2,3,4,5", "True,True,True,1,2")])
def test_copy_options(value, text):
    value = {key: item for key, item in value.items() if item is not object} if isinstance(value, dict) else value
    assert str(brindle.CopyOptions(value)) == f"CopyOptions([{text}])"


def test_an_unknown_key_passes_silently():
    assert str(brindle.CopyOptions({"mood": 1, "": 2})) == str(brindle.CopyOptions())
    assert str(brindle.PasteOptions({"pasteFlagA": False})) == DEFAULT


def test_a_printed_text_is_not_read_back():
    assert str(brindle.CopyOptions(str(brindle.CopyOptions()))) != str(brindle.CopyOptions())
    assert str(brindle.PasteOptions(str(brindle.PasteOptions()))) != DEFAULT


def test_paste_options_by_position():
    words = ["true"] * 16 + ["all_drwgs_as_elements", "update_pivot", "share", "do_nothing", "overwrite", "empty",
                             "false", "3", "4", "false", "false", "true"]
    options = brindle.PasteOptions(",".join(words))
    assert str(options) == ("PasteOptions([" + "True," * 14 + 'False,True,"EMPTY","UPDATE_PIVOT","SHARE","DO_NOTHING",'
                            '"OVERWRITE","DELETE_NOTHING",True,True,3,4,False,False,True])')


def test_three_modes_share_one_store():
    options = brindle.PasteOptions({"WRITE_MODE": "insert"})
    assert (options.write_mode, options.element_timing_column_mode) == ("OVERWRITE", "INSERT")
    options.delete_mode = "remove"
    assert (options.delete_mode, options.element_timing_column_mode) == ("DELETE_NOTHING", "REMOVE")
    options = brindle.PasteOptions({"write_mode": "insert", "element_timing_column_mode": SHARED})
    assert options.element_timing_column_mode == "INSERT"


@pytest.mark.parametrize("name, words", [
    ("element_timing_column_mode", [SHARED, "ALL_DRWGS_AS_ELEMENTS"]),
    ("drawing_action", ["DO_NOTHING", "ADD_OR_REMOVE_EXPOSURE", "UPDATE_PIVOT"]),
    ("drawing_file_mode", ["NEVER_CREATE", "SHARE", "OVERWRITE", "ONLY_CREATE_IF_DOES_NOT_EXIST",
                           "ONLY_CREATE_IF_DOES_NOT_EXIST_AND_MERGE", "ALWAYS_CREATE",
                           "ALWAYS_CREATE_AND_VERSION_IF_NECESSARY", "REPLACE_EXISTING"]),
    ("color_palette_mode", ["DO_NOTHING", "REUSE_PALETTES", "COPY_AND_OVERWRITE_EXISTING_PALETTES",
                            "COPY_AND_CREATE_NEW_PALETTES", "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER",
                            "COPY_PALETTE_AND_MERGE_COLOURS", "COPY_PALETTE_AND_UPDATE_COLOURS", "LINK_TO_ORIGINAL",
                            "COPY_SCENE_PALETTE_AND_MERGE_COLOURS", "COPY_SCENE_PALETTE_AND_UPDATE_COLOURS"]),
    ("write_mode", ["INSERT", "OVERWRITE", "DO_NOTHING"]), ("delete_mode", ["REMOVE", "EMPTY", "DELETE_NOTHING"])])
def test_the_words_of_each_mode(name, words):
    options = brindle.PasteOptions()
    for word in words:
        setattr(options, name, word.lower())
        if name not in ("write_mode", "delete_mode"):
            assert getattr(options, name) == word
    kept = str(options)
    sentence = f"Invalid option : NOPE \n Valid options include: {',  '.join(words)} "
    assert support.message_of(setattr, options, name, "nope") == sentence
    assert support.message_of(brindle.PasteOptions, {name: "nope"}) == sentence
    assert str(options) == kept


def test_action_options():
    assert brindle.PasteActionOptions(False, True, False)
    assert brindle.PasteActionOptions({"groups": False})
    assert brindle.PasteActionOptions("false,false")


@pytest.mark.parametrize("kind", [brindle.CopyOptions, brindle.PasteOptions, brindle.PasteActionOptions])
def test_a_copy_is_its_own(kind):
    options = kind()
    assert type(options.copy()) is kind
    assert str(options.copy()) == str(options)
    for value in (None, 5, [1], True):
        assert str(kind(value)) == str(options)


FIELDS = {
    "CopyOptions": {"add_modelling_dir": True, "add_scan_files": True, "include_default_camera_name": True,
                    "start_frame_src": 1, "num_frame_src": 0},
    "PasteActionOptions": {"groups": True, "effects": True, "composites": True},
    "PasteOptions": {"use_paste_special": False, "extend_scene": False, "create_new_column": False,
                     "add_remove_motion_keyframe": True, "add_remove_velocity_keyframe": True,
                     "add_remove_angle_keyframe": True, "add_remove_skew_keyframe": True,
                     "add_remove_scaling_keyframe": True, "force_beginning_end_keyframe": True,
                     "offset_keyframes": False, "replace_expression_columns": True, "tv_preserve_name": False,
                     "match_node_name": True, "full_transfer": True, "keyframe_mode": True,
                     "camera_name_transfer": False, "start_frame_src": 1, "num_frame_src": 0,
                     "drawing_extend_exposure": True, "drawing_substitution": True, "action_template": False},
}


@pytest.mark.parametrize("name, key", [(name, key) for name, fields in FIELDS.items() for key in fields])
def test_each_field_is_read_and_written_by_its_key(name, key):
    kind = getattr(brindle, name)
    options, default = kind(), FIELDS[name][key]
    assert getattr(options, key) is default or getattr(options, key) == default != True
    other = not default if isinstance(default, bool) else 7
    setattr(options, key, other)
    made = kind({key: other})
    assert getattr(made, key) == other and repr(made) == repr(options) == f"{name}({{'{key}': {other}}})"
    with pytest.raises(TypeError):
        setattr(options, key, "x")
    assert getattr(options, key) == other


MADE = [brindle.CopyOptions({"add_scan_files": False}), brindle.PasteActionOptions(True, False, False),
        brindle.PasteOptions({"delete_mode": "empty", "drawing_action": "update_pivot", "extend_scene": True}),
        brindle.PasteOptions({"drawing_file_mode": "share", "color_palette_mode": "link_to_original"}),
        brindle.PasteOptions({"write_mode": "do_nothing"}),
        brindle.PasteOptions({"element_timing_column_mode": "all_drwgs_as_elements", "num_frame_src": 3})]


@pytest.mark.parametrize("options", MADE, ids=repr)
def test_copies_pickles_and_reprs_have_every_field(options):
    for again in (options.copy(), copy.copy(options), copy.deepcopy(options), pickle.loads(pickle.dumps(options)),
                  eval(repr(options), vars(brindle))):
        assert type(again) is type(options)
        assert (repr(again), str(again)) == (repr(options), str(options))


def test_what_no_option_is_called_can_not_be_written():
    for options in MADE:
        with pytest.raises(AttributeError):
            options.use_paste_specials = True
