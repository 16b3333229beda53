"""One table of checks that a font passes in every format."""

import json
import os
import struct
from pathlib import Path

import pytest
from conftest import FORMATS, run_generator, sanitize, shape, write_document
from drawings import document, glyph, hard_project
from fontTools.pens.areaPen import AreaPen
from fontTools.pens.boundsPen import BoundsPen, ControlBoundsPen
from fontTools.ttLib import TTFont


@pytest.fixture(scope="module")
def fonts(tmp_path_factory, generator):
    """The hard project in all four formats, made once."""
    folder = tmp_path_factory.mktemp("fonts")
    source = write_document(hard_project(), folder)
    for extension in FORMATS:
        assert run_generator(generator, source, folder / f"hard.{extension}", "--brotli-quality", "5").status == 0
    return {extension: folder / f"hard.{extension}" for extension in FORMATS}


def is_of_its_format(font):
    path = Path(font.reader.file.name)
    magic = {"otf": b"OTTO", "ttf": b"\0\1\0\0", "woff": b"wOFF", "woff2": b"wOF2"}
    assert path.read_bytes()[:4] == magic[path.suffix[1:]]
    assert ("CFF " in font) == (path.suffix == ".otf")


def is_accepted_by_the_sanitizer(font):
    # An advance of 40 em is remarked upon; it is in the project on purpose.
    remarks = [line for line in sanitize(font).splitlines() if "huge advance width" not in line]
    assert remarks == []


def compiles_again_from_what_is_read(font):
    for tag in font.keys():
        if tag != "GlyphOrder":
            font[tag].compile(font)


def has_glyph_0_from_the_project(font):
    assert font.getGlyphOrder()[0] == ".notdef"
    assert font["hmtx"][".notdef"] == (500, 30)
    assert 0 not in [font.getGlyphID(name) for name in font.getBestCmap().values()]


def maps_characters_as_the_preview_does(font):
    names = {chr(scalar): name for scalar, name in font.getBestCmap().items()}
    # The later A wins, and a composed letter serves both its spellings.
    assert font["hmtx"][names["A"]] == (600, 60)
    assert names["é"] == "composed"
    assert names["Å"] == names["\u212b"]
    assert " " not in names  # the preview shows .notdef, which is there, for a space, which is not
    assert "🇩" in names and "丁" in names


def keeps_every_glyph(font):
    assert len(font.getGlyphOrder()) == len(hard_project()["glyphs"])
    drawn = font.getGlyphSet()
    for character, empty in {".": True, "e": True, "-": True, "i": False, "l": False}.items():
        pen = ControlBoundsPen(drawn)
        drawn[font.getBestCmap()[ord(character)]].draw(pen)
        assert (pen.bounds is None) == empty, character


def has_bearings_where_the_outlines_begin(font):
    drawn, left_most, right_most = font.getGlyphSet(), [], []
    for name, (advance, bearing) in font["hmtx"].metrics.items():
        pen = BoundsPen(drawn) if "CFF " in font else ControlBoundsPen(drawn)
        drawn[name].draw(pen)
        bounds = pen.bounds or (0, 0, 0, 0)
        assert abs(bounds[0] - bearing) <= 0.5, name
        left_most.append(bearing)
        right_most.append(advance - bounds[2])
    assert font["hhea"].minLeftSideBearing == min(left_most) == font["head"].xMin
    assert abs(font["hhea"].minRightSideBearing - min(right_most)) <= 1


def has_outer_contours_in_the_right_direction(font):
    drawn = font.getGlyphSet()
    for character in "AVOQlzЖ":
        pen = AreaPen(drawn)
        drawn[font.getBestCmap()[ord(character)]].draw(pen)
        assert (pen.value > 0) == ("CFF " in font), character


def has_consistent_vertical_measures(font):
    hhea, os2, head = font["hhea"], font["OS/2"], font["head"]
    assert (hhea.ascent, hhea.descent, hhea.lineGap) == (800, -200, 0)
    assert (os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap) == (800, -200, 0)
    assert os2.usWinAscent >= head.yMax == 16001 and os2.usWinDescent >= -head.yMin == 16000
    assert (os2.sxHeight, os2.sCapHeight, os2.version, os2.fsType) == (500, 700, 4, 0)
    assert hhea.advanceWidthMax == 40000


def is_called_as_the_project(font):
    names = {record.nameID: record.toUnicode() for record in font["name"].names}
    assert all(record.platformID == 3 for record in font["name"].names)
    postscript = names.pop(6)
    assert names == {0: "© me", 1: "Hard Ж SemiBold", 2: "Italic", 3: f"1.250;{postscript}",
                     4: "Hard Ж SemiBold Italic", 5: "Version 1.250", 9: "Dé", 16: "Hard Ж",
                     17: "SemiBold Italic"}
    assert postscript.startswith("Hard") and postscript.endswith("-SemiBoldItalic")
    assert "CFF " not in font or font["CFF "].cff.fontNames == [postscript]
    assert font["OS/2"].usWeightClass == 600 and font["head"].macStyle == 2
    assert font["OS/2"].fsSelection == 1 << 0 | 1 << 7
    assert abs(font["head"].fontRevision - 1.25) < 1e-4


def kerns_and_replaces_texts(font):
    name = font.getBestCmap()
    for text, expected in {
        "AV": [("A", 600 - 33), ("V", 600)],
        "ÅV": [("Aring", 600 - 80), ("V", 600)],  # the pair of the name that both A had
        "VÅ": [("V", 600), ("Aring", 600)],  # zero comes first
        "?V": [(".notdef", 500 - 44), ("V", 600)],
        "V?": [("V", 600), (".notdef", 500)],
        "🇩🇪V": [("flag", 1000 - 50), ("V", 600)],
        "❤️": [("heart", 600)],
        "e\u0301": [(name[0xE9], 600)],
        "o\u0302\u0323": [(name[0x1ED9], 600)],
        "o\u0323\u0302": [(name[0x1ED9], 600)],
    }.items():
        assert shape(font, text) == expected, text


CHECKS = [is_of_its_format, is_accepted_by_the_sanitizer, compiles_again_from_what_is_read,
          has_glyph_0_from_the_project, maps_characters_as_the_preview_does, keeps_every_glyph,
          has_bearings_where_the_outlines_begin, has_outer_contours_in_the_right_direction,
          has_consistent_vertical_measures, is_called_as_the_project, kerns_and_replaces_texts]


@pytest.mark.parametrize("extension", FORMATS)
@pytest.mark.parametrize("check", CHECKS, ids=lambda check: check.__name__)
def test_a_font(fonts, extension, check):
    check(TTFont(fonts[extension]))


def test_web_fonts_unpack_to_the_ttf(fonts):
    plain = TTFont(fonts["ttf"])
    for extension in ("woff", "woff2"):
        font = TTFont(fonts[extension])
        assert font["hmtx"].metrics == plain["hmtx"].metrics
        for name in plain.getGlyphOrder():
            # Which contours overlap is the one thing that WOFF2 files do without.
            outlines = [opened["glyf"][name].getCoordinates(opened["glyf"]) for opened in (plain, font)]
            assert list(map(list, outlines[0][:2])) == list(map(list, outlines[1][:2])), name
        for tag in set(plain.keys()) - {"GlyphOrder", "head", "glyf", "loca", "hmtx"}:
            assert font.getTableData(tag) == plain.getTableData(tag), tag


def test_the_same_project_gives_the_same_bytes_and_the_date_can_be_given(generate):
    dated = os.environ | {"SOURCE_DATE_EPOCH": "86400"}
    for extension in FORMATS:
        fonts = [generate(hard_project(), f"{count}.{extension}").font.read_bytes() for count in "ab"]
        assert fonts[0] == fonts[1], extension
    font = TTFont(generate(hard_project(), "c.ttf", dated).font)
    assert font["head"].created == font["head"].modified == 2082844800 + 86400
    for date in ("soon", "9" * 16):
        refused = generate(document(), "d.ttf", os.environ | {"SOURCE_DATE_EPOCH": date})
        assert refused.status == 1 and "SOURCE_DATE_EPOCH" in refused.error


def test_an_empty_project_is_a_font_of_a_visible_notdef_and_a_space(make, tmp_path):
    for extension in FORMATS:
        font = make(document(unitsPerEm=64), f"font.{extension}")
        assert font.getGlyphOrder() == [".notdef", "space"]
        assert font["hmtx"]["space"][0] == 16 and font["hmtx"][".notdef"][0] == 32
        assert font["head"].xMax > font["head"].xMin > 0
        assert sanitize(font) == ""
        assert font.getBestCmap() == {0x20: "space", 0xA0: "space"}
    assert struct.unpack(">H", (tmp_path / "font.ttf").read_bytes()[4:6])[0] == len(font.keys()) - 1


def test_a_project_without_any_drawing_is_a_font(make):
    for extension in ("otf", "ttf", "woff"):  # WOFF2 has no form for a glyf table of a single byte
        font = make(document([glyph(".notdef"), glyph("A", "A")]), f"font.{extension}")
        assert sanitize(font) == "" and font["head"].xMax == 0, extension


def test_a_document_reads_alike_in_every_way_that_json_is_written(make, tmp_path):
    """With a byte-order mark, escapes, space between tokens, members in another order or that nobody knows."""
    project = hard_project()
    reversed_members = {"unknown": [{"glyphs": 1}]} | dict(reversed(project.items()))
    make(project)
    expected = (tmp_path / "font.otf").read_bytes()
    for text in ("\ufeff" + json.dumps(project, ensure_ascii=False), json.dumps(project), json.dumps(project, indent=3),
                 json.dumps(project, ensure_ascii=False, separators=(",", ":")), json.dumps(reversed_members)):
        make(text.encode("utf-8"))
        assert (tmp_path / "font.otf").read_bytes() == expected, text[:80]
