"""How the font is called: family and style from the project's name, version, name table."""

import re
from dataclasses import dataclass
from unicodedata import category, normalize
from zlib import crc32

from .document import Document
from .errors import GeneratorError

_WEIGHTS = {
    "thin": ("Thin", 100), "hairline": ("Hairline", 100),
    "extralight": ("ExtraLight", 200), "ultralight": ("UltraLight", 200),
    "light": ("Light", 300), "regular": ("", 400), "normal": ("", 400), "medium": ("Medium", 500),
    "semibold": ("SemiBold", 600), "demibold": ("DemiBold", 600), "bold": ("Bold", 700),
    "extrabold": ("ExtraBold", 800), "ultrabold": ("UltraBold", 800),
    "black": ("Black", 900), "heavy": ("Heavy", 900),
}
_WEIGHT_PREFIXES = ("extra", "ultra", "semi", "demi")
_SLOPES = {"italic": "Italic", "oblique": "Oblique"}
_WIDTHS = {  # part of the family's name; what the OS/2 table says of it is the number
    "ultracondensed": 1, "extracondensed": 2, "condensed": 3, "compressed": 3, "narrow": 3,
    "semicondensed": 4, "semiexpanded": 6, "expanded": 7, "extended": 7, "wide": 7,
    "extraexpanded": 8, "ultraexpanded": 9,
}
_STYLE_WORD = re.compile("|".join(sorted([*_WEIGHTS, *_SLOPES], key=len, reverse=True)))

_LATIN = str.maketrans({"ß": "ss", "ẞ": "SS", "æ": "ae", "Æ": "AE", "œ": "oe", "Œ": "OE", "ø": "o",
                        "Ø": "O", "đ": "d", "Đ": "D", "ð": "d", "Ð": "D", "ł": "l", "Ł": "L",
                        "þ": "th", "Þ": "Th", "ı": "i"})
_LONGEST_POSTSCRIPT_NAME = 63
_LARGEST_STORAGE = 65535  # bytes that the offsets of a name table reach


@dataclass(frozen=True, slots=True)
class Naming:
    """`style` is "Regular" for the plain one; `weight` and `width` are those of an OS/2 table."""

    family: str
    style: str
    weight: int
    width: int
    slope: str  # "", "Italic" or "Oblique"
    revision: float
    postscript: str

    @property
    def bold(self) -> bool:
        return self.weight == 700

    @property
    def full(self) -> str:
        return self.family if self.style == "Regular" else f"{self.family} {self.style}"


def parse_naming(project_name: str, version: str) -> Naming:
    """Splits the weight and slope words off the end of a project's name.

    The family keeps at least one word. Words count in any case, written together or with
    hyphens ("Brush-BoldItalic", "Brush Semi Bold").
    """
    words = _printable(project_name).split() or ["Untitled"]
    weight: tuple[str, int] | None = None
    slope = ""
    if len(words) == 1 and "-" in words[0].strip("-"):
        family, _, suffix = words[0].rpartition("-")
        if family.strip("-") and _style_words(suffix):
            words = [family, suffix]
    while len(words) > 1:
        taken = 1
        styles = _style_words(words[-1])
        if len(words) > 2 and words[-2].lower() in _WEIGHT_PREFIXES:
            joined = _style_words(words[-2] + words[-1])
            if joined:
                styles, taken = joined, 2
        weights = [_WEIGHTS[style] for style in styles if style in _WEIGHTS]
        slopes = [_SLOPES[style] for style in styles if style in _SLOPES]
        if not styles or len(weights) + bool(weight) > 1 or len(slopes) + bool(slope) > 1:
            break
        weight = weights[0] if weights else weight
        slope = slopes[0] if slopes else slope
        del words[-taken:]
    family = " ".join(words)
    style = " ".join(filter(None, (weight[0] if weight else "", slope))) or "Regular"
    return Naming(family, style, weight[1] if weight else 400, _width(words), slope,
                  _revision(version), _postscript_name(family, style))


def _style_words(word: str) -> list[str]:
    """The style words that `word` consists of; none if it holds anything else."""
    text = word.lower().replace("-", "")
    found = _STYLE_WORD.findall(text)
    return found if found and "".join(found) == text else []


def _width(words: list[str]) -> int:
    lower = [word.lower() for word in words]
    for index in range(len(lower) - 1, -1, -1):
        for word in ("".join(lower[max(index - 1, 0):index + 1]).replace("-", ""), lower[index]):
            if word in _WIDTHS:
                return _WIDTHS[word]
    return 5


def _revision(version: str) -> float:
    """The first number in `version` to three places; 1 where there is none that a font holds."""
    match = re.search(r"[0-9]+(?:\.[0-9]+)?", version)
    number = float(match[0]) if match and len(match[0]) < 40 else 1.0
    return round(number, 3) if number < 32767 else 1.0


def _postscript_name(family: str, style: str) -> str:
    """Letters, digits and one hyphen. Names that lose letters on the way get a number made from
    the whole name, so that two of them are still told apart."""
    latin, lost = "", False
    for character in normalize("NFKD", family.translate(_LATIN)):
        if character.isascii():
            latin += character if character.isalnum() else ""
        elif category(character)[0] in "LNS":
            lost = True
    if lost or not latin:
        latin = f"{latin[:40] or 'Font'}{crc32(family.encode('utf-8')):08X}"
    style = style.replace(" ", "")
    return f"{latin[:_LONGEST_POSTSCRIPT_NAME - 1 - len(style)]}-{style}"


def _printable(text: str) -> str:
    """`text` with control characters turned to spaces."""
    return "".join(" " if category(character) == "Cc" else character for character in text)


def name_records(document: Document, naming: Naming) -> dict[int, str]:
    """The records of the name table, none of them empty. Raises GeneratorError if they are too long.

    Programs that know four styles a family find any other style as a family of its own (IDs 1
    and 2); the family as it is stands in IDs 16 and 17 then.
    """
    weight_word = naming.style.removesuffix(naming.slope).strip() if naming.slope else naming.style
    plain_style = " ".join(filter(None, ("Bold" if naming.bold else "",
                                         "Italic" if naming.slope else ""))) or "Regular"
    legacy_family = (naming.family if naming.bold or weight_word in ("", "Regular")
                     else f"{naming.family} {weight_word}")
    records = {0: document.copyright.strip(), 1: legacy_family, 2: plain_style,
               3: f"{naming.revision:.3f};{naming.postscript}", 4: naming.full,
               5: f"Version {naming.revision:.3f}", 6: naming.postscript, 9: document.designer.strip()}
    if (legacy_family, plain_style) != (naming.family, naming.style):
        records |= {16: naming.family, 17: naming.style}
    if sum(len(text.encode("utf-16-be")) for text in set(records.values())) > _LARGEST_STORAGE:
        raise GeneratorError("The name, designer and copyright of the project are too long for a "
                             f"font, which holds {_LARGEST_STORAGE:,} bytes of them in all.")
    return {identifier: text for identifier, text in records.items() if text}
