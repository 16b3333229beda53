"""How the font is called: family and style from the project's name, version, name table."""

import re
from typing import NamedTuple
from unicodedata import category, normalize
from zlib import crc32

from .command import GeneratorError
from .document import Document

_WEIGHTS = {"Thin": 100, "Hairline": 100, "ExtraLight": 200, "UltraLight": 200, "Light": 300, "Regular": 400,
            "Medium": 500, "SemiBold": 600, "DemiBold": 600, "Bold": 700, "ExtraBold": 800, "UltraBold": 800,
            "Black": 900, "Heavy": 900}
_SLOPES = ("Italic", "Oblique")
_STYLES = {style.lower(): style for style in (*_WEIGHTS, *_SLOPES)} | {"normal": "Regular"}
_STYLE_WORD = re.compile("|".join(sorted(_STYLES, key=len, reverse=True)))
_WEIGHT_PREFIXES = ("extra", "ultra", "semi", "demi")
_WIDTHS = {  # part of the family's name; what the OS/2 table says of it is the number
    "ultracondensed": 1, "extracondensed": 2, "condensed": 3, "compressed": 3, "narrow": 3, "semicondensed": 4,
    "semiexpanded": 6, "expanded": 7, "extended": 7, "wide": 7, "extraexpanded": 8, "ultraexpanded": 9}
_LATIN = str.maketrans({"ß": "ss", "ẞ": "SS", "æ": "ae", "Æ": "AE", "œ": "oe", "Œ": "OE", "ø": "o", "Ø": "O", "đ": "d",
                        "Đ": "D", "ð": "d", "Ð": "D", "ł": "l", "Ł": "L", "þ": "th", "Þ": "Th", "ı": "i"})
_LONGEST_POSTSCRIPT_NAME, _LARGEST_STORAGE = 63, 65535  # bytes; those of all names are reached by 16 bits

# `style` is "Regular" for the plain one, `slope` "Italic", "Oblique" or empty; weight and width are for OS/2.
Naming = NamedTuple("Naming", [("family", str), ("style", str), ("slope", str), ("weight", int), ("width", int),
                               ("revision", float), ("full", str), ("postscript", str)])


def parse_naming(project_name: str, version: str) -> Naming:
    """Splits the weight and slope words, written together or with hyphens or not ("Brush-BoldItalic", "Brush Semi
    Bold"), off the end of a project's name, of which the family keeps at least one word."""
    words = re.sub(r"[\x00-\x1f\x7f-\x9f]", " ", project_name).split() or ["Untitled"]
    if len(words) == 1:
        family, _, suffix = words[0].rpartition("-")
        words = [family, suffix] if family.strip("-") and _style_words(suffix) else words
    weights, slopes = [], []
    while len(words) > 1:
        joined = words[-2:] if len(words) > 2 and words[-2].lower() in _WEIGHT_PREFIXES else []
        styles = _style_words("".join(joined))
        taken = 2 if styles else 1
        styles = styles or _style_words(words[-1])
        found = [style for style in styles if style in _WEIGHTS], [style for style in styles if style in _SLOPES]
        if not styles or len(weights + found[0]) > 1 or len(slopes + found[1]) > 1:
            break
        weights, slopes = weights + found[0], slopes + found[1]
        del words[-taken:]
    # The first number, where there is one that a font holds.
    match = re.search(r"[0-9]+(?:\.[0-9]+)?", version)
    revision = round(float(match[0]), 3) if match and len(match[0]) < 40 and float(match[0]) < 32767 else 1.0
    family, weight = " ".join(words), "".join(weights) or "Regular"
    style = " ".join([weight, *slopes]).removeprefix("Regular ")
    return Naming(family, style, "".join(slopes), _WEIGHTS[weight], _width(words), revision,
                  f"{family} {style}".removesuffix(" Regular"), _postscript_name(family, style.replace(" ", "")))


def _postscript_name(family: str, style: str) -> str:
    """Letters, digits and one hyphen. Names that lose letters on the way get a number made from the whole name,
    so that two of them are still told apart."""
    characters = normalize("NFKD", family.translate(_LATIN))
    latin = "".join(character for character in characters if character.isascii() and character.isalnum())
    if not latin or any(not character.isascii() and category(character)[0] in "LNS" for character in characters):
        latin = f"{latin[:40] or 'Font'}{crc32(family.encode('utf-8')):08X}"
    return f"{latin[:_LONGEST_POSTSCRIPT_NAME - 1 - len(style)]}-{style}"


def _style_words(word: str) -> list[str]:
    """The styles that `word` consists of; none if it holds anything else."""
    text = word.lower().replace("-", "")
    found = _STYLE_WORD.findall(text)
    return [_STYLES[style] for style in found] if "".join(found) == text else []


def _width(words: list[str]) -> int:
    lower = [word.lower() for word in words]
    for before, word in reversed(list(zip(["", *lower], lower))):
        if width := _WIDTHS.get((before + word).replace("-", "")) or _WIDTHS.get(word):
            return width
    return 5


def name_records(document: Document, naming: Naming) -> dict[int, str]:
    """The records of the name table, none of them empty. Raises GeneratorError if they are too long."""
    # Programs that know four styles a family find any other as a family of its own (1 and 2), and so 16 and 17.
    is_bold = naming.weight == 700
    plain_style = " ".join(["Bold"] * is_bold + ["Italic"] * bool(naming.slope)) or "Regular"
    weight_word = "" if is_bold else naming.style.removesuffix(naming.slope).replace("Regular", "")
    legacy_family = f"{naming.family} {weight_word}".strip()
    records = {0: document.copyright.strip(), 1: legacy_family, 2: plain_style,
               3: f"{naming.revision:.3f};{naming.postscript}", 4: naming.full,
               5: f"Version {naming.revision:.3f}", 6: naming.postscript, 9: document.designer.strip()}
    if (legacy_family, plain_style) != (naming.family, naming.style):
        records |= {16: naming.family, 17: naming.style}
    if sum(len(text.encode("utf-16-be")) for text in set(records.values())) > _LARGEST_STORAGE:
        raise GeneratorError("The name, designer and copyright of the project are too long for a "
                             f"font, which holds {_LARGEST_STORAGE:,} bytes of them in all.")
    return {identifier: text for identifier, text in records.items() if text}
