"""The rules for setting text, as statements of a feature file. Texts that one glyph stands for are the feature
ccmp, which no program lets its users switch off."""

from collections.abc import Iterable, Mapping
from typing import NamedTuple
from unicodedata import category

from fontTools.feaLib import ast
from fontTools.feaLib.builder import addOpenTypeFeatures
from fontTools.misc.roundTools import otRound
from fontTools.ttLib import TTFont

from .characters import scripts_of
from .command import GeneratorError, plain, quoted
from .document import Document
from .glyph_set import GlyphSet
from .outlines import GREATEST, LEAST

_LARGEST_MATRIX = 20000  # kerning values of a subtable of classes, whose offsets have 16 bits

# What is added between any of the left and any of the right glyphs, which are all the glyphs of a name.
Kern = NamedTuple("Kern", [("lefts", list[int]), ("rights", list[int]), ("value", int)])


def resolve_kerning(document: Document, glyphs: GlyphSet) -> list[Kern]:
    """The kerning as a preview of the project applies it: of pairs with the same two names the first counts, even
    where its value is zero. Glyph 0 never kerns on the right side, for there it stands for whatever character the
    font lacks. Raises GeneratorError."""
    lefts: dict[str | None, list[int]] = {}
    for index, glyph in enumerate(glyphs.glyphs):
        lefts.setdefault(glyph.project_name, []).append(index)
    rights = {name: [index for index in group if index] for name, group in lefts.items()}
    kerning: dict[tuple[str, str], Kern] = {}
    for left, right, value in document.pairs:
        if (left, right) in kerning or left not in lefts or not rights.get(right):
            continue
        if not LEAST - 0.5 <= value < GREATEST + 0.5:
            raise GeneratorError(f"The kerning of {quoted(left)} {quoted(right)} is {plain(value)}, and a font "
                                 f"holds {LEAST} to {GREATEST}.")
        kerning[left, right] = Kern(lefts[left], rights[right], otRound(value))
    return [kern for kern in kerning.values() if kern.value]


def add_layout(font: TTFont, document: Document, glyphs: GlyphSet) -> None:
    """Adds the GPOS, GSUB and GDEF tables, as far as there is anything to put in them."""
    names, scalars = [glyph.name for glyph in glyphs.glyphs], glyphs.characters.scalars
    sequences = {tuple(map(scalars.get, text)): glyph for text, glyph in glyphs.characters.sequences.items()}
    classes = _glyph_classes(glyphs, sequences)
    # Without a GPOS table, text engines place marks by their own lights and drop advances.
    kerning = resolve_kerning(document, glyphs) or ([Kern([0], [0], 0)] if classes else [])
    kern, ccmp, definitions = ast.FeatureBlock("kern"), ast.FeatureBlock("ccmp"), ast.TableBlock("GDEF")
    kern.statements += _kerning_statements(kerning, names)
    for parts, glyph in sequences.items():
        parts = [ast.GlyphName(names[part]) for part in parts]
        ccmp.statements.append(ast.LigatureSubstStatement([], parts, [], names[glyph], False))
    if classes:
        definitions.statements.append(ast.GlyphClassDefStatement(*[
            ast.GlyphClass([names[glyph] for glyph, own in classes.items() if own == kind])
            for kind in ("base", "mark", "ligature")], None))
    features = ast.FeatureFile()
    features.statements += [ast.LanguageSystemStatement(script, "dflt")
                            for script in ("DFLT", *scripts_of(glyphs.characters.drawn))]
    features.statements += [block for block in (kern, ccmp, definitions) if block.statements]
    addOpenTypeFeatures(font, features)


def _kerning_statements(kerning: Iterable[Kern], names: list[str]) -> Iterable[ast.Statement]:
    """A pair of single glyphs by itself, other groups as classes."""
    lefts, rights = set(), set()
    for kern in sorted(kerning):
        left, right = ([names[glyph] for glyph in group] for group in (kern.lefts, kern.rights))
        is_single = len(left) == len(right) == 1
        left, right = (ast.GlyphName(*group) if is_single else ast.GlyphClass(group) for group in (left, right))
        # A left class stays in one subtable, for the first that knows it ends the search.
        if not is_single and kern.lefts[0] not in lefts and len(lefts) * len(rights) > _LARGEST_MATRIX:
            yield ast.SubtableStatement()
            lefts, rights = set(), set()
        lefts.add(kern.lefts[0])
        rights.add(kern.rights[0])
        yield ast.PairPosStatement(left, ast.ValueRecord(xAdvance=kern.value), right, None)


def _glyph_classes(glyphs: GlyphSet, sequences: Mapping[tuple[int, ...], int]) -> dict[int, str]:
    """The classes of glyphs in a font in which a combining mark has an advance, as a preview of the project sets it:
    text engines take it away unless the mark counts as a base. Marks without advance stay marks."""
    scalars = glyphs.characters.scalars
    marks = {glyph: "base" if glyphs.glyphs[glyph].advance else "mark"
             for scalar, glyph in scalars.items() if category(chr(scalar)) == "Mn"}
    if "base" not in marks.values():
        return {}
    return dict.fromkeys(scalars.values(), "base") | dict.fromkeys(sequences.values(), "ligature") | marks
