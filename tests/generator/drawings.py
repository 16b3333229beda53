"""Documents for the tests, drawn by hand."""

CIRCLE = 0.5522847498  # length of the controls of a quarter of a circle


def move(x, y):
    return {"type": "moveTo", "point": {"x": x, "y": y}}


def line(x, y):
    return {"type": "lineTo", "point": {"x": x, "y": y}}


def curve(x1, y1, x2, y2, x, y):
    return {"type": "curveTo", "control1": {"x": x1, "y": y1}, "control2": {"x": x2, "y": y2},
            "point": {"x": x, "y": y}}


CLOSE = {"type": "closePath"}


def box(left, bottom, right, top):
    """An anticlockwise rectangle; right < left turns it round."""
    return [move(left, bottom), line(right, bottom), line(right, top), line(left, top), CLOSE]


def circle(x, y, r, turn=1):
    """Anticlockwise with `turn` 1, clockwise with -1."""
    k, t = CIRCLE * r, turn
    return [move(x + r, y), curve(x + r, y + t * k, x + k, y + t * r, x, y + t * r),
            curve(x - k, y + t * r, x - r, y + t * k, x - r, y),
            curve(x - r, y - t * k, x - k, y - t * r, x, y - t * r),
            curve(x + k, y - t * r, x + r, y - t * k, x + r, y), CLOSE]


def glyph(name, text=None, path=(), advance=600):
    result = {"name": name, "advanceWidth": advance, "leftSideBearing": 0, "rightSideBearing": 0,
              "fontPath": list(path)}
    return result if text is None else result | {"unicode": text}


def pair(left, right, value):
    return {"leftGlyph": left, "rightGlyph": right, "value": value}


def document(glyphs=(), pairs=(), **members):
    return {"name": "Test", "designer": "", "version": "1.0", "copyright": "", "unitsPerEm": 1000,
            "ascender": 800, "descender": -200, "capHeight": 700, "xHeight": 500,
            "glyphs": list(glyphs), "kerningPairs": list(pairs)} | members


def hard_project():
    """Every kind of outline, name, text and pair that has to work, in one project."""
    glyphs = [
        glyph("A", "A", box(50, 0, 550, 700)),
        glyph("V", "V", circle(300, 350, 300.4)),
        glyph("A", "Å", box(40.5, 0, 500.5, 700)),
        glyph("ring", "O", circle(300, 350, 300) + circle(300, 350, 200, -1)),
        glyph("turned ring", "Q", circle(300, 350, 300, -1) + circle(300, 350, 200)),
        glyph("overlap", "+", box(0, 0, 400, 400) + box(200, 200, 600, 600)),
        glyph("dot", ".", [move(100, 100), CLOSE]),
        glyph("open", "l", [move(50, 0), line(100, 700), curve(200, 700, 300, 300, 100, 0)]),
        glyph("moves", "m", [move(0, 0), move(9, 9), move(50, 0), line(99, 0), line(99, 0), line(9, 99)]),
        glyph("no move", "n", [line(10, 10), line(100, 10), line(100, 100)]),
        glyph("after close", "z", box(0, 0, 100, 100) + [line(50, 150), line(0, 190)]),
        glyph("thin", "i", [move(100, 0), line(100, 700), CLOSE], 0),
        glyph("empty", "e"),
        glyph("later A", "A", box(60, 0, 560, 710)),
        glyph("flag", "🇩🇪", box(0, 0, 1000, 700), 1000),
        glyph("letter D", "🇩", box(0, 0, 10, 10)),
        glyph("letter E", "🇪", box(0, 0, 10, 10)),
        glyph("lost flag", "🇩🇫", box(0, 0, 9, 9)),
        glyph("heart", "❤️", box(0, 0, 500, 500)),
        glyph("composed", "e\u0301", box(0, 0, 400, 500)),
        glyph("layered", "o\u0302\u0323", box(0, 0, 400, 700)),
        glyph("o", "o", box(0, 0, 400, 400)),
        glyph("circumflex", "\u0302", box(0, 600, 90, 690), 0),
        glyph("dot below", "\u0323", box(0, -200, 90, -110), 0),
        glyph("quo\"te\nb " + "x" * 100, "一", box(0, 0, 1000, 900), 1000),
        glyph("", "丁", box(0, 0, 1000, 900), 1000),
        glyph("Ж", "Ж", box(-100, -250, 1000.5, 900.49), 40000),
        glyph("tiny", "-", circle(200, 200, 0.2)),
        glyph("huge", "x", [move(-16000.5, -16000), curve(-16000, 16000, 16000, -16000, 16000, 16000.5),
                            line(0, 0)]),
        glyph(".notdef", None, box(30, 0, 470, 700), 500),
    ]
    pairs = [pair("A", "V", -80.4), pair("A", "V", -10), pair("V", "A", 0), pair("V", "A", -5),
             pair("V", "gone", -8), pair("later A", "V", -33.5), pair("ring", "A", 12),
             pair("V", "open", 7), pair(".notdef", "V", -44), pair("V", ".notdef", -4),
             pair("Ж", "ring", 5), pair("A", "A", 3), pair("flag", "V", -50)]
    return document(glyphs, pairs, name="Hard Ж Semi Bold Italic", designer="Dé", version="v1.25 beta",
                    copyright="© me")
