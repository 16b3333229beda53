"""Documents made at random from a seed: what drawings, names, characters and pairs can be, and a
little beyond."""

import random

from drawings import CLOSE, box, circle, curve, document, glyph, line, move, pair

_SCRIPTS = ["ABCHIlhi|xyz0123", "äßÅé€Ł", "бвжЖ", "αΩ", "הא", "عربي", "कखग", "กข", "あア", "一丁丂", "한글", "🎈🎉𝒜",
            "\u0301\u0302\u0323\u05b8\u0941\u0e48", " \u00a0-.\u2126\u212b", "\uffff\ue000\U000f0000", "ກ"]
_SEQUENCES = ["🇩🇪", "🇩", "🇪", "fi", "ffi", "f", "i", "e\u0301", "e", "o\u0302\u0323", "o", "❤️", "❤", "葛\U000e0100", "葛",
              "👩\u200d🚀", "", "\u0344", "\u0958", "a\ufe00", "क\u093c"]
_NAMES = ["A", "V", "A.alt", "space", ".notdef", "notdef", ".NOTDEF", "", "x y", "naïve", "あ", "7up", "n" * 80, "uni0041",
          "T_h", "afii10068", "Euro", "tab\tline\n", "\u202e", "sub", "NULL", "g.1", "u1F389"]
_FONT_NAMES = ["Brush", "Brush Bold", "Brush Semi Bold Italic", "Big Brush Light Oblique", "Кисть Condensed", "Straße-Black",
               "Bold", " ", "A-B Extra Expanded Thin", "x" * 90, "日本 Italic", "Ultra Wide Heavy"]


def random_project(seed):
    """The same document for the same seed."""
    pick = random.Random(seed)
    em = pick.choice([16, 17, 64, 250, 999, 1000, 1000, 1000, 1024, 2048, 16384])
    texts = list("".join(pick.sample(_SCRIPTS, pick.randint(1, 5)))) + pick.sample(_SEQUENCES, pick.randint(0, 12))
    if pick.random() < 0.1:
        texts += [chr(scalar) for scalar in range(0xC0, 0x250)]
    names = pick.sample(_NAMES, pick.randint(3, 12))
    alike = pick.random() < 0.2  # every advance

    def advance():
        return em // 2 if alike else pick.choice([0, em / 3, pick.randint(0, 2 * em), pick.uniform(-0.5, 2 * em), 40000])

    glyphs = [glyph(pick.choice(names) if pick.random() < 0.5 else f"g{index}",
                    pick.choice(texts) if pick.random() < 0.8 else None, _random_path(pick, em), advance())
              for index in range(pick.randint(0, 40))]
    named = [entry["name"] for entry in glyphs] + ["gone"]
    pairs = [pair(pick.choice(named), pick.choice(named), pick.choice([0, 0.5, -0.5, pick.uniform(-em, em)]))
             for _ in range(pick.choice([0, 0, 5, 60]))]
    return document(
        glyphs, pairs, unitsPerEm=em, name=pick.choice(_FONT_NAMES), version=pick.choice(["1.0", "v2.5 b", "", "0.0004", "7.12345"]),
        designer=pick.choice(["", " Dé "]), copyright=pick.choice(["", "© " + "c" * 99]),
        ascender=pick.uniform(0, em), descender=-pick.uniform(-9, em), capHeight=pick.choice([0, em * 0.7, 9 * em]),
        xHeight=pick.choice([0, -3.5, em / 2]))


_SPOILT = [None, True, False, "", "x", -1, 0, 0.5, 40000, -40000, 70000.5, 1e300, [], [[]], {}, {"type": 1}]


def spoilt_project(seed):
    """A random project in which one value has become another, or is gone."""
    project, pick = random_project(seed), random.Random(-seed)
    place = project
    while True:
        key = pick.choice(list(place) if isinstance(place, dict) else range(len(place)))
        if not isinstance(place[key], (dict, list)) or not place[key] or pick.random() < 0.15:
            break
        place = place[key]
    if pick.random() < 0.2:
        del place[key]
    else:
        place[key] = pick.choice(_SPOILT)
    return project


def _random_path(pick, em):
    def number():
        return pick.choice([pick.randint(0, em), round(pick.uniform(-em, 2 * em), 3), pick.randint(0, 4) * em / 4 + 0.5])

    path = []
    for _ in range(pick.choice([0, 1, 1, 1, 2, 3])):
        kind = pick.choice(["box", "circle", "ring", "italic", "any", "any"])
        x, y, size = number(), number(), pick.uniform(0.2, em)
        if kind == "box":
            path += box(x, y, x + pick.choice([-1, 1]) * size, y + size)
        elif kind == "circle":
            path += circle(x, y, size, pick.choice([-1, 1]))
        elif kind == "ring":
            path += circle(x, y, size) + circle(x, y, size * 0.7, pick.choice([-1, 1]))
        elif kind == "italic":
            lean, height = pick.uniform(-0.5, 0.5) * em, pick.uniform(0.2, 1) * em
            path += [move(x, 0), line(x + em / 10, 0), line(x + em / 10 + lean, height), line(x + lean, height), CLOSE]
        else:
            path += _random_contour(pick, number)
    return path


def _random_contour(pick, number):
    """Commands in any order: contours left open, closed twice, of a point, with segments that lead nowhere."""
    commands, last = [], (0, 0)
    for _ in range(pick.randint(1, 12)):
        kind = pick.choices(["M", "L", "C", "Z", "same", "flat"], [1, 4, 4, 1, 1, 1])[0]
        if kind == "Z":
            commands.append(CLOSE)
            continue
        first, second = last, (number(), number())
        end = last if kind == "same" else (number(), number())
        if kind == "M":
            commands.append(move(*end))
        elif kind == "C":
            commands.append(curve(number(), number(), *second, *end))
        elif kind == "flat":
            commands.append(curve(*first, *end, *end))
        else:
            commands.append(line(*end))
        last = end
    return commands
