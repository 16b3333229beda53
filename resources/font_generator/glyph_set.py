"""Which glyphs the font has, under which names, so that it shows what a preview of the project does."""

import re
from collections import Counter
from typing import NamedTuple
from unicodedata import normalize

from fontTools.agl import AGL2UV, LEGACY_AGL2UV, UV2AGL
from fontTools.misc.roundTools import otRound

from .characters import SPACE, CharacterMap
from .command import GeneratorError, plain
from .document import Document, Glyph
from .outlines import Outline

NOTDEF = ".notdef"
_MOST_GLYPHS = _WIDEST_ADVANCE = 65535
_LONGEST_NAME, _LEGAL = 63, re.compile(r"[A-Za-z_][A-Za-z0-9._]{0,62}\Z")  # by the Adobe Glyph List

# A glyph of the font; `project_name` is what kerning pairs call it, if they can.
FontGlyph = NamedTuple("FontGlyph", [("name", str), ("project_name", str | None), ("advance", int), ("source", Glyph)])
# The glyphs, `.notdef` first; characters and pairs refer to them by index.
GlyphSet = NamedTuple("GlyphSet", [("glyphs", list[FontGlyph]), ("characters", CharacterMap), ("warnings", list)])


def build_glyph_set(document: Document) -> GlyphSet:
    """Decides on the glyphs of the font; raises GeneratorError for those it can't hold."""
    warnings: list[tuple[str, str]] = []
    # The glyph for missing characters is the one that the preview shows, else one whose name says the same.
    named = [glyph for glyph in document.glyphs if glyph.name.lower() in (NOTDEF, "notdef")]
    notdef = next((glyph for glyph in named if glyph.name == NOTDEF), next(iter(named), None))
    # Glyph 0 means that the font lacks a character: one that stands for a character as well is there twice.
    sources = [(notdef or _default_notdef(document))._replace(text=None)]
    sources += [glyph for glyph in document.glyphs if glyph is not notdef or glyph.text]
    # The preview advances a quarter em for a space that nobody drew, unless it has a glyph for missing characters.
    if SPACE not in CharacterMap([glyph.text for glyph in sources]).scalars:
        if notdef and notdef.name == NOTDEF:
            warnings.append(("space", "there is no space glyph, so a space shows .notdef"))
        elif len(sources) < _MOST_GLYPHS:
            sources.append(Glyph(0, "space", " ", document.units_per_em / 4, Outline([])))
    if len(sources) > _MOST_GLYPHS:
        raise GeneratorError(f"The project makes {len(sources):,} glyphs with .notdef, "
                             f"and a font holds at most {_MOST_GLYPHS:,}.")
    characters = CharacterMap([glyph.text for glyph in sources])
    said = {index: f"{sources[winner].label} comes later and has the same character"
            for index, winner in characters.overruled.items()} | dict.fromkeys(
        characters.unmapped, "its text can't be typed with the font, which lacks a glyph for a part of it")
    warnings += [(sources[index].name or sources[index].label, message) for index, message in said.items()]
    glyphs = []
    for name, source in zip(_names(sources, characters), sources):
        if not -0.5 <= source.advance < _WIDEST_ADVANCE + 0.5:
            raise GeneratorError(f"The advance width of {source.label} is {plain(source.advance)}, "
                                 f"and a font holds 0 to {_WIDEST_ADVANCE}.")
        glyphs.append(FontGlyph(name, source.name if source.number else None, otRound(source.advance), source))
    if notdef and not notdef.outline.rounded().contours:
        warnings.append((notdef.name, "has no drawing, so missing characters stay invisible"))
    return GlyphSet(glyphs, characters, warnings)


def _default_notdef(document: Document) -> Glyph:
    """An upright frame as high as the capitals; as wide as every glyph if all are equally wide."""
    em, height = document.units_per_em, document.cap_height
    advances = {glyph.advance for glyph in document.glyphs if glyph.advance}
    advance = advances.pop() if len(advances) == 1 and em / 8 <= min(advances) <= em * 2 else em / 2
    top = height if em / 8 <= height <= em * 2 else em * 0.7
    left, right, stem = advance * 0.1, advance * 0.9, advance * 0.1
    return Glyph(0, NOTDEF, None, advance, Outline([
        [(left, 0), (right, 0), (right, top), (left, top)],
        [(left + stem, stem), (left + stem, top - stem), (right - stem, top - stem), (right - stem, stem)]]))


def _names(sources: list[Glyph], characters: CharacterMap) -> list[str]:
    """A legal name of its own for every glyph: the wish, or the wish with the first free number after a period."""
    # Glyphs that characters map to choose first, since their names say which characters they are.
    wishes = {0: NOTDEF} | {index: _name_for_character(chr(scalar), sources[index].name)
                            for scalar, index in characters.drawn.items()}
    for index, source in enumerate(sources):
        wishes.setdefault(index, _name_for_project_name(source.name, index))
    taken, counts = {}, Counter()
    for index, wish in wishes.items():
        name = wish
        while name in taken:
            counts[wish] += 1
            name = f"{wish[:_LONGEST_NAME - 1 - len(str(counts[wish]))]}.{counts[wish]}"
        taken[name] = index
    return sorted(taken, key=taken.__getitem__)


def _name_for_character(character: str, project_name: str) -> str:
    """The name that the glyph list gives to the character, for software that reads text back from names, else the
    project's own unless it means some other character, else the character's number."""
    scalar = ord(character)
    by_number = f"uni{scalar:04X}" if scalar <= 0xFFFF else f"u{scalar:05X}"
    # Readers take the part before a period for the character, underscores for several of them.
    meaning = project_name.split(".", 1)[0]
    listed = AGL2UV.get(meaning) or LEGACY_AGL2UV.get(meaning)
    means_other = listed not in (scalar, [scalar]) if listed else re.match(r"u(ni)?[0-9A-F]{4,6}", meaning) or "_" in meaning
    return UV2AGL.get(scalar) or (by_number if means_other or not _LEGAL.match(project_name) else project_name)


def _name_for_project_name(project_name: str, index: int) -> str:
    """The legal name closest to `project_name`; `index` makes one up where nothing is left."""
    if _LEGAL.match(project_name):
        return project_name
    latin = normalize("NFKD", project_name[:4 * _LONGEST_NAME]).encode("ascii", "ignore").decode()
    name = re.sub("[^A-Za-z0-9._]+", "_", latin).strip("_.")[:_LONGEST_NAME]
    return name if _LEGAL.match(name) else f"_{name}"[:_LONGEST_NAME] if name else f"glyph{index:05d}"
