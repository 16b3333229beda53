"""Kerning as a shaper finds it in the font, for the pairs that the project has."""

from dataclasses import dataclass
from typing import Any

from fontTools.ttLib import TTFont

from font_generator.document import Document
from font_generator.glyph_set import GlyphSet
from font_generator.layout import resolve_kerning

_PAIR_ADJUSTMENT, _EXTENSION = 2, 9


@dataclass(frozen=True, slots=True)
class ShapedPair:
    """Two glyphs by index. `value` is what the font adds to the first one's advance, `wanted`
    what the project does, both in whole font units."""

    left: int
    right: int
    value: int
    wanted: int


def shaped_pairs(document: Document, glyphs: GlyphSet, font: TTFont) -> list[ShapedPair]:
    """The pairs of the project that hold between glyphs of the font, the largest values first.

    A pair holds for every glyph that has its names; the first of each stand for them all.
    """
    lookup = _PairLookup(font)
    pairs = []
    for kern in resolve_kerning(document, glyphs):
        left, right = kern.lefts[0], kern.rights[0]
        pairs.append(ShapedPair(left, right, lookup.value(left, right), kern.value))
    pairs.sort(key=lambda pair: (-abs(pair.value), pair.left, pair.right))
    return pairs


class _PairLookup:
    """The pair adjustments of a font, searched in the order in which a shaper does."""

    def __init__(self, font: TTFont) -> None:
        self._names = font.getGlyphOrder()
        # For each left glyph, a function of the right one's name: the first subtable that covers
        # the left glyph and knows the pair decides.
        self._rows: dict[str, list[Any]] = {}
        if "GPOS" not in font:
            return
        table = font["GPOS"].table
        kern = {index for record in table.FeatureList.FeatureRecord if record.FeatureTag == "kern"
                for index in record.Feature.LookupListIndex}
        for index in sorted(kern):
            for subtable in table.LookupList.Lookup[index].SubTable:
                if subtable.LookupType == _EXTENSION:
                    subtable = subtable.ExtSubTable
                if subtable.LookupType == _PAIR_ADJUSTMENT:
                    self._add(subtable)

    def _add(self, subtable: Any) -> None:
        covered = subtable.Coverage.glyphs
        if subtable.Format == 1:
            for left, pair_set in zip(covered, subtable.PairSet):
                values = {record.SecondGlyph: _advance(record.Value1) for record in pair_set.PairValueRecord}
                self._rows.setdefault(left, []).append(values.get)
            return
        rows: dict[int, list[int]] = {}
        classes = subtable.ClassDef2.classDefs
        for left in covered:
            first = subtable.ClassDef1.classDefs.get(left, 0)
            if first not in rows:
                rows[first] = [_advance(record.Value1)
                               for record in subtable.Class1Record[first].Class2Record]
            self._rows.setdefault(left, []).append(
                lambda right, row=rows[first]: row[classes.get(right, 0)])

    def value(self, left: int, right: int) -> int:
        """What the font adds between the glyphs of these indices."""
        for row in self._rows.get(self._names[left], ()):
            value = row(self._names[right])
            if value is not None:
                return value
        return 0


def _advance(record: Any) -> int:
    return getattr(record, "XAdvance", 0) if record is not None else 0
