"""Colours as scripts pass them."""

import copy
import math
import pickle

import brindle
import hypothesis
import pytest
from hypothesis import strategies as st

import support

Colour = brindle.Colour
BYTES = st.integers(0, 255)
HEX = "Unable to convert from hexadecimal colour value"


def channels(colour):
    return colour.r, colour.g, colour.b, colour.a


def test_it_is_opaque_black_unless_it_is_told():
    assert channels(Colour()) == (0, 0, 0, 255)
    assert str(Colour()) == "Colour(0,0,0,255)"
    assert repr(Colour()) == "Colour(0, 0, 0, 255)"
    assert channels(Colour(1, 2)) == (1, 2, 0, 255)
    assert channels(Colour(r=1)) == (1, 0, 0, 255)
    assert channels(Colour(1.9, 2.9, 3.9, 4.9)) == (1, 2, 3, 4)
    assert type(Colour().r) is float


@pytest.mark.parametrize("value, expected", [
    (Colour(1, 2, 3, 4), (1, 2, 3, 4)), ([255, 128, 0], (255, 128, 0, 0)), ([1, 2, 3, 4], (1, 2, 3, 4)),
    ((1, 2, 3, 4, 5), (1, 2, 3, 4)), ([1, 2], (0, 0, 0, 0)), ([], (0, 0, 0, 0)), ([256, -1, 511], (0, 255, 255, 0)),
    ([1.4, 1.6, -0.4], (1, 2, 0, 0)), ([None, "7", 8], (0, 7, 8, 0)), ([1e300, math.nan, math.inf], (0, 0, 0, 0)),
    (5, (0, 0, 0, 255)), (0, (0, 0, 0, 255)), (-5, (0, 0, 0, 255)), (2.5, (0, 0, 0, 255)), (True, (0, 0, 0, 255)),
    (0xff0000, (0, 0, 0, 255)), (2**40, (0, 0, 0, 255)),
    *((text, (0, 0, 0, 0)) for text in ("HSL(1,2,3)", "HSLA(1,2,3,4)", "#ff0000", "red", "1,2,3", "12,34,56,78", "",
                                        "nonsense", "5", "hsl(0,0,0)", "transparent", ",,,")),
], ids=repr)
def test_a_single_argument_is_read_as_a_colour(value, expected):
    assert channels(Colour(value)) == expected


@pytest.mark.parametrize("value", [None, {}, {"r": 1}, ["a"], ["#ff0000", "red"], math.nan, math.inf, 1e300,
                                   brindle.Point2d(1, 2), brindle.Rect2D()], ids=repr)
def test_what_is_no_colour_is_refused(value):
    assert support.message_of(Colour, value) == "Unsupported colour type."


def test_a_node_tells_its_colour(scene, peg):
    colour = Colour(peg)
    assert colour.a == 255 and colour == Colour(scene.nodes["Top/Body"])
    assert colour != Colour(scene.nodes["Top/Composite"])
    assert support.message_of(Colour, peg.position) == "Unsupported colour type."
    assert support.message_of(Colour, scene) == "Unsupported colour type."
    scene.nodes.remove(peg)
    assert support.message_of(Colour, peg) == "Unsupported colour type."


@pytest.mark.parametrize("written, read", [
    (0, 0), (255, 255), (254.9, 254), (256, 0), (300, 44), (-1, 255), (-0.9, 0), (-256, 0), (65537, 1), (1e30, 0),
    ("12", 12), (True, 1),
])
def test_a_channel_takes_the_low_byte(written, read):
    for name in "rgba":
        colour = Colour(1, 2, 3, 4)
        setattr(colour, name, written)
        assert getattr(colour, name) == read
        assert [getattr(colour, other) for other in "rgba" if other != name] == \
            [number for other, number in zip("rgba", (1, 2, 3, 4)) if other != name]
    if not isinstance(written, str):
        assert channels(Colour(written, written, written, written)) == (read,) * 4


@pytest.mark.parametrize("written", [math.nan, math.inf, -math.inf, 1e300, -1e300])
def test_a_channel_refuses_what_is_not_finite(written):
    colour = Colour(1, 2, 3, 4)
    for index, name in enumerate("rgba"):
        message = "Invalid argument at index 0." if math.isfinite(written) else support.not_finite(name)
        assert support.message_of(setattr, colour, name, written) == message
        arguments = [written if name == other else 9 for other in "rgba"]
        assert support.message_of(Colour, *arguments) == f"Invalid argument at index {index}."
    assert channels(colour) == (1, 2, 3, 4)


@pytest.mark.parametrize("value, name", [("x", "QString"), ([1], "QVariantList"), (None, "NoneType"),
                                         ({}, "QVariantMap"), (brindle.Point2d(), "QObject*")])
def test_a_channel_refuses_what_is_no_number(value, name):
    colour = Colour(1, 2, 3, 4)
    for member in ("r", "g", "b", "a", "h", "s", "l"):
        message = support.message_of(setattr, colour, member, value)
        assert message == f"Failed to write the property (Argument Type {name})"
    assert channels(colour) == (1, 2, 3, 4)


@pytest.mark.parametrize("rgb, hsl", [
    ((255, 0, 0), (0, 100, 50)), ((0, 255, 0), (120, 100, 50)), ((0, 0, 255), (240, 100, 50)),
    ((255, 255, 255), (0, 0, 100)), ((0, 0, 0), (0, 0, 0)), ((255, 0, 255), (300, 100, 50)),
])
def test_hue_saturation_and_lightness(rgb, hsl):
    colour = Colour(*rgb)
    assert (colour.h, colour.s, colour.l) == pytest.approx(hsl)
    assert channels(Colour.from_hsl(*hsl, 100)) == (*rgb, 255)
    assert channels(Colour.from_hsl(hsl[0] + 720, hsl[1], hsl[2], 100)) == (*rgb, 255)


@pytest.mark.parametrize("arguments, expected", [
    ((0, 100, 50, 50), (255, 0, 0, 127)), ((-120, 100, 50, 0), (0, 0, 255, 0)), ((0, 500, 50, 100), (255, 0, 0, 255)),
    ((0, math.inf, 50, 100), (255, 0, 0, 255)), ((7, -1, 1000, 100), (255, 255, 255, 255)),
    ((0, 0, 0, 200), (0, 0, 0, 254)), ((0, 0, 0, -100), (0, 0, 0, 1)),
])
def test_a_colour_of_a_hue_holds_saturation_and_lightness_but_not_alpha(arguments, expected):
    assert channels(Colour.from_hsl(*arguments)) == expected


@pytest.mark.parametrize("arguments, index", [
    ((math.nan, 0, 0, 0), 0), ((math.inf, 0, 0, 0), 0), ((0, math.nan, 0, 0), 1), ((0, 0, math.nan, 0), 2),
    ((0, 0, 0, math.inf), 3), ((0, 0, 0, 1e300), 3), (("0", 0, 0, 0), 0),
])
def test_a_colour_is_not_made_of_what_is_no_number(arguments, index):
    assert support.message_of(Colour.from_hsl, *arguments) == f"Invalid argument at index {index}."


def test_a_colour_of_a_hue_needs_all_four():
    assert "from_hsl()" in support.message_of(Colour.from_hsl, 1, 2, 3, error=TypeError)
    assert channels(Colour.from_hsl(a=100, l=50, s=100, h=0)) == (255, 0, 0, 255)
    assert channels(Colour().from_hsl(0, 100, 50, 100)) == (255, 0, 0, 255)


def test_writing_hue_saturation_and_lightness():
    colour = Colour(255, 0, 0, 7)
    colour.h = 240
    assert channels(colour) == (0, 0, 255, 7)
    colour.h = 720
    assert channels(colour) == (255, 0, 0, 7)
    colour.h = -240
    assert channels(colour) == (0, 255, 0, 7)
    for held in (100, 150, math.inf):
        colour = Colour(192, 64, 64, 7)
        colour.s = held
        assert colour.s == 100 and colour.a == 7
    colour.l = 200
    assert channels(colour) == (255, 255, 255, 7)
    colour.l = -200
    assert channels(colour) == (0, 0, 0, 7)


def test_what_is_no_number_changes_nothing():
    colour = Colour(192, 64, 64, 7)
    for name, value in (("h", math.nan), ("h", math.inf), ("s", math.nan), ("l", math.nan)):
        assert support.message_of(setattr, colour, name, value) == support.not_finite(name)
    assert channels(colour) == (192, 64, 64, 7)


def test_hex_tells_alpha_first():
    colour = Colour()
    colour.hex = "#80ff0000"
    assert channels(colour) == (255, 0, 0, 128) and colour.hex == "#80ff0000"
    for text, expected in (("#f00", "#ffff0000"), ("#FF8000", "#ffff8000"), ("#ffff80000000", "#ffff8000"),
                           ("SteelBlue", "#ff4682b4"), ("transparent", "#00000000")):
        colour.hex = text
        assert colour.hex == expected


@pytest.mark.parametrize("text", ["nonsense", "", "#", "#12", "#12345", "ff0000", "#gggggg", "\0"])
def test_another_text_is_no_hex(text):
    colour = Colour(1, 2, 3, 4)
    assert support.message_of(setattr, colour, "hex", text) == HEX
    assert channels(colour) == (1, 2, 3, 4)


@hypothesis.given(BYTES, BYTES, BYTES, BYTES)
def test_every_colour_comes_back(r, g, b, a):
    colour = Colour(r, g, b, a)
    other = Colour()
    other.hex = colour.hex
    assert other == colour and channels(other) == (r, g, b, a)
    assert colour.hex == f"#{a:02x}{r:02x}{g:02x}{b:02x}"
    for made in (Colour(colour), Colour([r, g, b, a]), eval(repr(colour), vars(brindle)), copy.copy(colour),
                 copy.deepcopy(colour), pickle.loads(pickle.dumps(colour)), colour.copy()):
        assert made == colour and made is not colour
    assert 0 <= colour.h < 360 and 0 <= colour.s <= 100 and 0 <= colour.l <= 100
    rough = Colour.from_hsl(colour.h, colour.s, colour.l, 100)
    assert all(abs(x - y) <= 1 for x, y in zip(channels(rough)[:3], (r, g, b)))


@hypothesis.given(st.text())
def test_any_text_as_hex_is_a_colour_or_one_error(text):
    colour = Colour(1, 2, 3, 4)
    try:
        colour.hex = text
    except (brindle.Error, UnicodeEncodeError):
        assert channels(colour) == (1, 2, 3, 4)
