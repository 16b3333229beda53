"""Glyph names, font names, characters: tables of what goes in and what comes out."""

import math
from unicodedata import normalize

import pytest
from conftest import shape
from drawings import CLOSE, box, document, glyph, line, move
from font_generator.characters import CharacterMap

# Project name and character of the glyphs of one project, and the name in the font.
GLYPH_NAMES = [
    ("my A", "A", "A"), ("A", None, "A.1"), ("A", None, "A.2"), ("wrong", "B", "B"),
    ("Euro sign", "€", "Euro"), ("be-cy", "б", "uni0431"), ("vecyr", "в", "vecyr"),
    ("afii10068", "ж", "uni0436"), ("uni0041", "г", "uni0433"), ("T_h", "д", "uni0434"),
    ("balloon", "🎈", "balloon"), ("🎈", "🎉", "u1F389"), ("a.alt", None, "a.alt"), ("7up", None, "_7up"),
    ("naïve b", None, "naive_b"), ("あ", None, "glyph00016"), ("x" * 80, None, "x" * 63),
    ("x" * 80, None, "x" * 61 + ".1"), ("", None, "glyph00019"), (".null", None, "null"),
    ("Z.alt", "ы", "uni044B"), ("afii10019", "В", "afii10019"), ("fi", "ﬁ", "fi"),
]


def test_glyph_names_are_legal_unique_and_say_the_character(make):
    project = document([glyph(name, text) for name, text, _ in GLYPH_NAMES])
    for target in ("f.otf", "f.ttf"):
        order = make(project, target).getGlyphOrder()
        assert order == [".notdef", *(expected for _, _, expected in GLYPH_NAMES), "space"]


# Project name; family and style of four, family, style, PostScript name, weight, width.
FONT_NAMES = {
    "Brush": ("Brush", "Regular", "Brush", "Regular", "Brush-Regular", 400, 5),
    "Brush Bold Italic": ("Brush", "Bold Italic", "Brush", "Bold Italic", "Brush-BoldItalic", 700, 5),
    "Big Brush Light": ("Big Brush Light", "Regular", "Big Brush", "Light", "BigBrush-Light", 300, 5),
    "Brush Semi Bold Oblique": ("Brush SemiBold", "Italic", "Brush", "SemiBold Oblique",
                                "Brush-SemiBoldOblique", 600, 5),
    "Brush Extra Condensed Black": ("Brush Extra Condensed Black", "Regular", "Brush Extra Condensed",
                                    "Black", "BrushExtraCondensed-Black", 900, 2),
    "Bold": ("Bold", "Regular", "Bold", "Regular", "Bold-Regular", 400, 5),
    "Ångström Straße": ("Ångström Straße", "Regular", "Ångström Straße", "Regular",
                        "AngstromStrasse-Regular", 400, 5),
    "Кисть Bold": ("Кисть", "Bold", "Кисть", "Bold", "FontA33724AB-Bold", 700, 5),
    " \n\t": ("Untitled", "Regular", "Untitled", "Regular", "Untitled-Regular", 400, 5),
    "x" * 200: ("x" * 200, "Regular", "x" * 200, "Regular", "x" * 55 + "-Regular", 400, 5),
}


@pytest.mark.parametrize("name", FONT_NAMES)
def test_family_and_style_come_from_the_projects_name(make, name):
    font = make(document(name=name), "f.otf")
    get = font["name"].getDebugName
    family, style = get(1), get(2)
    expected = FONT_NAMES[name]
    assert (family, style, get(16) or family, get(17) or style, get(6), font["OS/2"].usWeightClass,
            font["OS/2"].usWidthClass) == expected
    selection = font["OS/2"].fsSelection
    assert bool(selection & 1 << 5) == bool(font["head"].macStyle & 1) == ("Bold" in style)
    assert bool(selection & 1) == bool(font["head"].macStyle & 2) == ("Italic" in style)
    assert bool(selection & 1 << 6) == (style == "Regular")
    assert all(record.toUnicode() for record in font["name"].names)
    assert font["CFF "].cff.fontNames == [get(6)]


@pytest.mark.parametrize("text, revision", {
    "1.0": 1, "2": 2, "Version 3.25": 3.25, "v1.2.3": 1.2, "0.0009": 0.001, "": 1, "draft": 1,
    "20240131": 1, "٣": 1, "-4": 4, "1" * 10000: 1}.items(), ids=lambda value: str(value)[:12])
def test_any_version_text_makes_a_revision(make, text, revision):
    font = make(document(version=text))
    assert font["head"].fontRevision == pytest.approx(revision, abs=1e-5)
    assert font["name"].getDebugName(5) == f"Version {revision:.3f}"


def test_characters_map_with_what_they_imply():
    def mapped(*texts):
        return CharacterMap([None, *texts])

    angstrom = mapped("Å").scalars
    assert angstrom == {0xC5: 1, 0x212B: 1}
    assert mapped("Å", "\u212b").scalars == {0xC5: 1, 0x212B: 2}
    assert mapped("\u212b").scalars == {0xC5: 1, 0x212B: 1}
    assert mapped(" ").scalars == {0x20: 1, 0xA0: 1}
    assert mapped(" ", "\u00a0").scalars == {0x20: 1, 0xA0: 2}
    assert mapped("\uffff", "", "e\u0301").scalars == {0xE9: 3}
    assert mapped("\uffff").unmapped == [1]
    assert mapped("A", "A", "A").overruled == {1: 3, 2: 3}
    sequences = mapped("f", "i", "fi", "fj", "ffi")
    assert sequences.sequences == {(0x66, 0x69): 3, (0x66, 0x66, 0x69): 5}
    assert sequences.unmapped == [4]
    # Marks in the order in which they are drawn, and in the one that text engines bring them into.
    layered = mapped("e", "\u0302", "\u0323", "e\u0302\u0323")
    assert layered.scalars[0x1EC7] == 4 and not layered.unmapped
    assert layered.sequences == {(0x65, 0x302, 0x323): 4, (0x65, 0x323, 0x302): 4}


@pytest.mark.parametrize("single", "\u0344\u0958\u09dc\u0f43\u2adc\ufb1d\U0001d15e")
def test_characters_that_are_never_composed_can_be_typed(make, single):
    parts = normalize("NFC", single)
    for drawn in (single, parts):
        for others in ("", parts[0], parts):
            glyphs = [glyph("drawn", drawn, advance=777), *(glyph(f"part {part}", part) for part in others)]
            font = make(document(glyphs))
            for typed in {single, parts if others == parts else single}:
                assert [advance for _, advance in shape(font, typed)] == [777], (drawn, others, typed)


def test_the_longest_text_of_several_characters_wins(make):
    glyphs = [glyph(name, name) for name in ("f", "i", "ff", "ffi", "fi")]
    for target in ("f.otf", "f.ttf"):
        font = make(document(glyphs), target)
        assert [name for name, _ in shape(font, "ffififfiff")] == ["ffi", "fi", "ffi", "ff"]


def test_scattered_characters_get_a_map_that_holds_them(make):
    scattered = [*range(0xAC00, 0xD7A4, 2), *range(0xE000, 0xF900, 2)]  # none implies one of another plane
    font = make(document([glyph("g", chr(scalar)) for scalar in scattered]), "f.ttf")
    assert set(scattered) < set(font.getBestCmap())


@pytest.mark.parametrize("name, lean, angle", [
    ("Brush Italic", 129, -10.5), ("Brush Oblique", -123, 10), ("Brush Italic", 0, 0), ("Brush", 123, 0)])
def test_an_italic_leans_as_its_stems_do(make, name, lean, angle):
    stem = [move(0, 0), line(80, 0), line(80 + lean, 700), line(lean, 700), CLOSE]
    for target in ("f.otf", "f.ttf"):
        font = make(document([glyph("l", "l", stem), glyph("o", "o", box(0, 0, 400, 400))], name=name), target)
        assert font["post"].italicAngle == angle
        if "CFF " in font:
            top = font["CFF "].cff.topDictIndex[0]
            assert (top.ItalicAngle, top.isFixedPitch) == (angle, font["post"].isFixedPitch)
        run, rise = font["hhea"].caretSlopeRun, font["hhea"].caretSlopeRise
        assert math.degrees(math.atan2(run, rise)) == pytest.approx(-angle, abs=0.1)
