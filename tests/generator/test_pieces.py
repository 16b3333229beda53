"""A description that is read piece by piece, by two processes, reads as it does as a whole."""

import json

import pytest
from drawings import box, circle, document, glyph, pair
from font_generator import document as reading
from font_generator import pieces
from font_generator.document import read_document
from font_generator.formats import FORMATS, encoder_for

GLYPHS = [glyph(f'g{index} é "}},{{', chr(0x4E00 + index), box(0, 0, index + 1, 9) + circle(90, 90, 50.5))
          for index in range(60)]
PAIRS = [pair(GLYPHS[index]["name"], GLYPHS[0]["name"], index) for index in range(60)]


@pytest.fixture
def read(tmp_path, monkeypatch):
    """Reads a text in pieces of some hundred bytes; says whether it was cut at all."""
    monkeypatch.setattr(pieces, "_PIECE", 700)

    def run(text, whole=False, extension="otf", processors=2):
        monkeypatch.setattr(reading, "cut", (lambda data: None) if whole else pieces.cut)
        monkeypatch.setattr(reading, "processors", lambda: processors)
        (tmp_path / "d.json").write_text(text, encoding="utf-8")
        return read_document(str(tmp_path / "d.json"), encoder_for(extension))
    return run


def texts():
    """One description in the forms that writers give it, and what a cut must not fall for."""
    plain = document(GLYPHS, PAIRS, name="Ünits")
    yield "spread", json.dumps(plain, ensure_ascii=False, indent=2), True
    yield "dense", json.dumps(plain, ensure_ascii=False, separators=(",", ":")), True
    yield "escaped", json.dumps(plain), False
    last = {key: plain[key] for key in ("unitsPerEm", "glyphs", "kerningPairs", "name", "designer", "version",
                                        "copyright", "ascender", "descender", "capHeight", "xHeight")}
    yield "glyphs early", json.dumps(last, ensure_ascii=False), True
    yield "pairs first", json.dumps({"kerningPairs": PAIRS} | plain, ensure_ascii=False), True
    yield "another list of glyphs", json.dumps(plain | {"x": {"glyphs": GLYPHS}}, ensure_ascii=False), False
    yield "a list like it", json.dumps(plain | {"x": GLYPHS}, ensure_ascii=False), True


@pytest.mark.parametrize("case", texts(), ids=lambda case: case[0])
def test_pieces_read_as_the_whole_does(read, case):
    _, text, is_cut = case
    assert (pieces.cut(text.encode()) is not None) == is_cut
    for extension in FORMATS:
        whole = read(text, whole=True, extension=extension)
        assert read(text, extension=extension) == whole
        assert read(text, extension=extension, processors=1) == whole
    assert [entry.number for entry in whole.glyphs] == list(range(1, 61))

