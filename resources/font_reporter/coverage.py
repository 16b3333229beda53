"""What of Unicode a font covers: blocks, and languages of the Latin script."""

from collections.abc import Iterable
from dataclasses import dataclass
from unicodedata import category

from fontTools.unicodedata import Blocks, block

from .languages import LANGUAGES, letters_of

# A language is called nearly complete when no more than this many letters are missing.
_FEW = 4


@dataclass(frozen=True, slots=True)
class BlockCoverage:
    """How many of a block's characters the font has; `last` is the last code of the block."""

    name: str
    first: int
    last: int
    covered: int
    size: int


@dataclass(frozen=True, slots=True)
class Coverage:
    """`nearly` are languages of which only a few letters are missing, with those letters."""

    blocks: list[BlockCoverage]
    complete: list[str]
    nearly: list[tuple[str, str]]


def cover(drawn: Iterable[int], mapped: Iterable[int]) -> Coverage:
    """The coverage of a font in which these characters are drawn.

    `mapped` are those that can be typed. Twins of drawn ones are among them, the Greek question
    mark beside the semicolon say, which count for no block: nobody would call that Greek.
    """
    scalars = set(drawn)
    counts: dict[str, int] = {}
    for scalar in scalars:
        name = block(chr(scalar))
        counts[name] = counts.get(name, 0) + 1
    blocks = []
    for place, name in enumerate(Blocks.VALUES):
        if name in counts and name != "No_Block":
            first = Blocks.RANGES[place]
            after = Blocks.RANGES[place + 1] if place + 1 < len(Blocks.RANGES) else 0x110000
            # Private and newer characters are covered without being known.
            size = sum(category(chr(scalar)) not in ("Cn", "Cc") or scalar in scalars
                       for scalar in range(first, after))
            blocks.append(BlockCoverage(name, first, after - 1, counts[name], size))
    complete, nearly = [], []
    letters = set(map(chr, mapped))
    for language in LANGUAGES:
        missing = sorted(letters_of(language) - letters)
        if not missing:
            complete.append(language)
        elif len(missing) <= _FEW:
            nearly.append((language, "".join(missing)))
    return Coverage(blocks, complete, nearly)
