"""Which kerning holds between the glyphs of the font."""

from collections.abc import Sequence
from typing import NamedTuple

from .document import KerningPair
from .errors import GeneratorError, plain
from .glyph_set import FontGlyph
from .outlines import round_half_up

LEAST_VALUE, GREATEST_VALUE = -32768, 32767


class Kern(NamedTuple):
    """What is added between any of the left and any of the right glyphs, which are indices and all
    the glyphs of a name: of two kerns, the lefts are the same or have no glyph in common, and so
    have the rights."""

    lefts: list[int]
    rights: list[int]
    value: int


def resolve_kerning(pairs: Sequence[KerningPair], glyphs: Sequence[FontGlyph]) -> list[Kern]:
    """The kerning of the pairs as a preview of the project applies it, without zeros.

    Of pairs with the same two names the first counts, even where its value is zero; pairs of
    glyphs that are not there are left out. Glyph 0 never kerns on the right side, for there it
    stands for whatever character the font lacks. Raises GeneratorError for a value that 16
    bits don't hold.
    """
    lefts: dict[str, list[int]] = {}
    for index, glyph in enumerate(glyphs):
        if glyph.project_name is not None:
            lefts.setdefault(glyph.project_name, []).append(index)
    rights = {name: [index for index in indices if index] for name, indices in lefts.items()}
    kerning: dict[tuple[str, str], Kern] = {}
    for pair in pairs:
        names = pair.left, pair.right
        if names in kerning or pair.left not in lefts or not rights.get(pair.right):
            continue
        if not LEAST_VALUE - 0.5 <= pair.value < GREATEST_VALUE + 0.5:
            raise GeneratorError(f"The kerning of {pair.label} is {plain(pair.value)}, and a font holds "
                                 f"{LEAST_VALUE} to {GREATEST_VALUE}.")
        kerning[names] = Kern(lefts[pair.left], rights[pair.right], round_half_up(pair.value))
    return [kern for kern in kerning.values() if kern.value]
