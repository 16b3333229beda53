"""The rules for setting text, as the statements of a feature file: kerning as the feature kern,
texts that one glyph stands for as ccmp, which no program lets its users switch off, and the classes
of glyphs."""

from collections.abc import Iterable, Mapping
from unicodedata import category

from fontTools.feaLib import ast
from fontTools.feaLib.builder import addOpenTypeFeatures
from fontTools.ttLib import TTFont

from .characters import scripts_of
from .document import Document
from .glyph_set import GlyphSet
from .kerning import Kern, resolve_kerning

_LARGEST_MATRIX = 20000  # kerning values of a subtable of classes, whose offsets have 16 bits


def add_layout(font: TTFont, document: Document, glyphs: GlyphSet) -> None:
    """Adds the GPOS, GSUB and GDEF tables, as far as there is anything to put in them."""
    names = [glyph.name for glyph in glyphs.glyphs]
    scalars = glyphs.characters.scalars
    sequences = {tuple(scalars[scalar] for scalar in text): glyph
                 for text, glyph in glyphs.characters.sequences.items()}
    classes = _glyph_classes(glyphs, sequences)
    kerning = resolve_kerning(document.pairs, glyphs.glyphs)
    if classes and not kerning:
        # Without a GPOS table, text engines place marks by their own lights and drop advances.
        kerning = [Kern([0], [0], 0)]
    if not kerning and not sequences:
        return
    kern = ast.FeatureBlock("kern")
    kern.statements = list(_kerning_statements(kerning, names))
    ccmp = ast.FeatureBlock("ccmp")
    ccmp.statements = [
        ast.LigatureSubstStatement([], [ast.GlyphName(names[part]) for part in parts], [], names[glyph], False)
        for parts, glyph in sequences.items()]
    features = ast.FeatureFile()
    features.statements = [ast.LanguageSystemStatement(script, "dflt")
                           for script in ("DFLT", *scripts_of(glyphs.characters.drawn))]
    features.statements += [block for block in (kern, ccmp) if block.statements]
    if classes:
        definition = ast.TableBlock("GDEF")
        definition.statements = [ast.GlyphClassDefStatement(
            *[_class([glyph for glyph, own in classes.items() if own == kind], names)
              for kind in ("base", "mark", "ligature")], None)]
        features.statements.append(definition)
    addOpenTypeFeatures(font, features)


def _class(glyphs: Iterable[int], names: list[str]) -> ast.GlyphClass:
    return ast.GlyphClass([names[glyph] for glyph in glyphs])


def _kerning_statements(kerning: Iterable[Kern], names: list[str]) -> Iterable[ast.Statement]:
    """A pair of single glyphs by itself, other groups as classes."""
    lefts: set[int] = set()
    rights: set[int] = set()
    for kern in sorted(kerning):
        value = ast.ValueRecord(xAdvance=kern.value)
        if len(kern.lefts) == len(kern.rights) == 1:
            left, right = (ast.GlyphName(names[glyph]) for glyph in (kern.lefts[0], kern.rights[0]))
        else:
            left, right = _class(kern.lefts, names), _class(kern.rights, names)
            # A left class stays in one subtable, for the first that knows it ends the search.
            if kern.lefts[0] not in lefts and len(lefts) * len(rights) > _LARGEST_MATRIX:
                yield ast.SubtableStatement()
                lefts, rights = set(), set()
            lefts.add(kern.lefts[0])
            rights.add(kern.rights[0])
        yield ast.PairPosStatement(left, value, right, None)


def _glyph_classes(glyphs: GlyphSet, sequences: Mapping[tuple[int, ...], int]) -> dict[int, str]:
    """The classes of glyphs in a font in which a combining mark has an advance; none otherwise.

    Text engines set combining marks without any advance, as Unicode has them, unless a font says
    what its glyphs are. A preview of the project advances by what a mark was given, and so does
    the font when the mark counts as a base. Marks without advance stay marks.
    """
    scalars = glyphs.characters.scalars
    marks = {glyph: "base" if glyphs.glyphs[glyph].advance else "mark"
             for scalar, glyph in scalars.items() if category(chr(scalar)) == "Mn"}
    if "base" not in marks.values():
        return {}
    return dict.fromkeys(scalars.values(), "base") | dict.fromkeys(sequences.values(), "ligature") | marks
