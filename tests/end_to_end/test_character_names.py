"""The names that drawings have after characters, against the glyph list that font makers share."""

import json
from unicodedata import lookup

from fontTools.agl import UV2AGL

# Characters that have a name: ASCII but for its letters, Latin-1 and four others.
NAMED = ([character for character in map(chr, range(0x20, 0x7F)) if not character.isalpha()]
         + [character for character in map(chr, range(0xA1, 0x100)) if character not in "\xad÷ÿ"]
         + [*"€•…™"])
# Names that the list has for no character or for another one.
OTHERS = {
    "dot": "FULL STOP", "doublequote": "QUOTATION MARK", "quotedouble": "QUOTATION MARK", "hash": "NUMBER SIGN",
    "exclamation": "EXCLAMATION MARK", "singlequote": "APOSTROPHE", "pipe": "VERTICAL LINE", "tilde": "TILDE",
    "minus": "HYPHEN-MINUS", "micro": "MICRO SIGN", "notsign": "NOT SIGN", "onesuperior": "SUPERSCRIPT ONE",
    "twosuperior": "SUPERSCRIPT TWO", "threesuperior": "SUPERSCRIPT THREE", "euro": "EURO SIGN",
}


def test_drawings_named_after_characters_get_them(quillery, draw, tmp_path):
    others = {name: lookup(character) for name, character in OTHERS.items()}
    expected = others | {UV2AGL[ord(character)]: character for character in NAMED if character not in "¬²³µ¹€"}
    assert len(expected) == 148
    for name in expected:
        draw(f"{name}.svg")
    assert quillery("import", "p.fontproj", tmp_path).status == 0
    glyphs = json.loads((tmp_path / "p.fontproj").read_text())["glyphs"]
    assert {glyph["name"]: glyph.get("unicode") for glyph in glyphs} == expected
