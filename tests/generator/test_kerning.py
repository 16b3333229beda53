"""The font sets text as a preview of the project does, whatever the form of its kerning."""

import random

import pytest
from conftest import sanitize, shape
from drawings import box, document, glyph, pair


def previewed(project, text):
    """The advances that a preview of the project sets the text with, character by character."""
    by_text = {entry["unicode"]: entry for entry in project["glyphs"] if "unicode" in entry}
    notdef = next((entry for entry in project["glyphs"] if entry["name"] == ".notdef"), None)
    kerning = {}
    for entry in project["kerningPairs"]:
        kerning.setdefault((entry["leftGlyph"], entry["rightGlyph"]), entry["value"])
    advances = []
    for character, follower in zip(text, [*text[1:], None]):
        found = by_text.get(character, notdef)
        if found is None:
            advances += [project["unitsPerEm"] / 4] if character == " " else []
        else:
            right = by_text.get(follower, {"name": None})["name"]
            advances.append(found["advanceWidth"] + kerning.get((found["name"], right), 0))
    return advances


@pytest.mark.parametrize("with_notdef", [False, True])
@pytest.mark.parametrize("target", ["font.otf", "font.ttf"])
def test_random_projects_are_set_as_previewed(make, target, with_notdef):
    random.seed(f"{target}{with_notdef}")
    names = ["A", "V", "T.alt", "o", ".notdef" if with_notdef else "o", "", "x y"]
    alphabet = "AVToaб€🎈-" + (" " if random.random() < 0.5 else "")
    for _ in range(4):
        glyphs = [glyph(random.choice(names), random.choice(alphabet), box(0, 0, 9, 9),
                        random.randrange(200, 900)) for _ in range(14)]
        if with_notdef:
            glyphs.insert(random.randrange(14), glyph(".notdef", None, box(0, 0, 9, 9), 333))
        pairs = [pair(random.choice(names + ["absent"]), random.choice(names), random.randrange(-90, 90))
                 for _ in range(30)]
        project = document(glyphs, pairs)
        font = make(project, target)
        drawn = {entry.get("unicode") for entry in glyphs}
        letters = [c for c in alphabet + "? " if with_notdef or c in drawn or c == " "]
        text = "".join(random.choices(letters, k=200))
        assert [advance for _, advance in shape(font, text)] == previewed(project, text)
        assert sanitize(font) == ""


def named(count):
    return [glyph(f"g{index}", chr(0x4E00 + index)) for index in range(count)]


# Pairs of glyph numbers with values, made so that each comes out in another form.
FORMS = {
    "a few": {(1, 2): -5, (2, 1): 7},
    "more than fit in one subtable": {(l, r): -1 - (l * 7 + r * 13) % 90
                                      for l in range(300) for r in range(l % 7, 600, 7)},
    "a row longer than a subtable": {(3, r): 1 + r % 50 for r in range(20000)},
    "classes": {(l, r): -10 - (l // 10 + r // 10) for l in range(200) for r in range(200)},
    "a matrix of no equals": {(l, r): (l * 7919 + r * 104729) % 601 + 1
                              for l in range(250) for r in range(250)},
}


@pytest.mark.parametrize("form", FORMS)
def test_pairs_of_every_form_shape_as_they_are(make, form):
    values = FORMS[form]
    glyphs = named(max(map(max, values)) + 1) + [glyph("gap", "A")]
    font = make(document(glyphs, [pair(f"g{l}", f"g{r}", v) for (l, r), v in values.items()]), "f.ttf")
    assert sanitize(font) == ""
    pick = random.Random(form)
    last = len(glyphs) - 1
    sample = pick.sample(sorted(values), min(len(values), 400))
    sample += [tuple(pick.choices(range(last), k=2)) for _ in range(100)]
    text = "".join(f"{chr(0x4E00 + left)}{chr(0x4E00 + right)}A" for left, right in sample)
    advances = [advance for _, advance in shape(font, text)]
    assert advances[::3] == [600 + values.get(one, 0) for one in sample]
    assert set(advances[1::3] + advances[2::3]) == {600}


def test_a_name_that_half_the_project_has_makes_no_pairs_of_all_of_them(make):
    glyphs = [glyph("same", chr(0x4E00 + index)) for index in range(3000)]
    font = make(document(glyphs, [pair("same", "same", -7)]), "f.ttf")
    assert len(font.getTableData("GPOS")) < 60000


def test_kerning_holds_in_every_script_that_occurs(make):
    glyphs = [glyph("A", "A"), glyph("be", "б"), glyph("ka", "क"), glyph("zero", "0")]
    font = make(document(glyphs, [pair("A", "be", -9)]))
    table = font["GPOS"].table
    tags = [record.ScriptTag for record in table.ScriptList.ScriptRecord]
    assert tags == sorted(tags) and set(tags) >= {"DFLT", "latn", "cyrl", "dev2"}
    for record in table.ScriptList.ScriptRecord:
        assert record.Script.DefaultLangSys.FeatureIndex == [0]
    unkerned = make(document(glyphs, [pair("A", "be", 0.4), pair("A", "gone", 5)]))
    assert "GPOS" not in unkerned
    assert (font["OS/2"].usMaxContext, unkerned["OS/2"].usMaxContext) == (2, 1)


@pytest.mark.parametrize("kerned", [False, True])
@pytest.mark.parametrize("target", ["font.otf", "font.ttf", "font.woff2"])
def test_combining_marks_advance_as_previewed(make, target, kerned):
    """Text engines take the advance away from marks unless the font says that they have one."""
    glyphs = [glyph(name, text, box(0, 0, 99, 99), advance) for name, text, advance in (
        ("A", "A", 600), ("acute", "\u0301", 300), ("grave", "\u0300", 0), ("he", "ה", 500),
        ("qamats", "\u05b8", 222), ("ka", "क", 700), ("u", "\u0941", 123), ("mai", "\u0e48", 77))]
    project = document(glyphs, [pair("A", "A", -20)] if kerned else [])
    font = make(project, target)
    assert sanitize(font) == ""
    for text in ("\u0301", "A\u0301A", "\u0301A\u0300", "\u0941", "क\u0941", "\u0e48A", "AA"):
        assert [advance for _, advance in shape(font, text)] == previewed(project, text), text
    assert sorted(advance for _, advance in shape(font, "ה\u05b8")) == [222, 500]
    assert "GDEF" not in make(document([glyph("A", "A"), glyph("grave", "\u0300", (), 0)]), target)
