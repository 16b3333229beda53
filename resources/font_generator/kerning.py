"""Which kerning holds between the glyphs of the font."""

from collections.abc import Sequence
from dataclasses import dataclass

from .document import KerningPair, pair_label
from .errors import GeneratorError, plain
from .glyph_set import FontGlyph, round_half_up

LEAST_VALUE, GREATEST_VALUE = -32768, 32767


@dataclass(slots=True)
class Kerning:
    """Kerning by groups: project names may repeat, and a pair holds for every glyph of a name.

    `lefts` and `rights` give the glyph indices of each group, which overlap in no side; `rows`
    gives, for a left group, the values by right group: whole font units, never zero.
    """

    lefts: list[list[int]]
    rights: list[list[int]]
    rows: list[dict[int, int]]


def resolve_kerning(pairs: Sequence[KerningPair], glyphs: Sequence[FontGlyph]) -> Kerning:
    """The kerning of the pairs as a preview of the project applies it.

    Of pairs with the same two names the first counts, even where its value is zero; pairs of
    glyphs that are not there are left out. Glyph 0 never kerns on the right side, for there it
    stands for whatever character the font lacks. Raises GeneratorError for a value that 16
    bits don't hold.
    """
    by_name: dict[str, list[int]] = {}
    for index, glyph in enumerate(glyphs):
        if glyph.project_name is not None:
            by_name.setdefault(glyph.project_name, []).append(index)
    right_names = {name: [index for index in indices if index]
                   for name, indices in by_name.items()}
    right_groups: dict[str, int] = {}
    by_left: dict[str, dict[int, int]] = {}
    seen: set[tuple[str, str]] = set()
    for pair in pairs:
        names = (pair.left, pair.right)
        if names in seen or pair.left not in by_name or not right_names.get(pair.right):
            continue
        seen.add(names)
        if not LEAST_VALUE - 0.5 <= pair.value < GREATEST_VALUE + 0.5:
            raise GeneratorError(
                f"The kerning of {pair_label(*names)} is {plain(pair.value)}, and a font holds "
                f"{LEAST_VALUE} to {GREATEST_VALUE}.")
        value = round_half_up(pair.value)
        if value:
            group = right_groups.setdefault(pair.right, len(right_groups))
            by_left.setdefault(pair.left, {})[group] = value
    return Kerning(lefts=[by_name[name] for name in by_left],
                   rights=[right_names[name] for name in right_groups],
                   rows=list(by_left.values()))
