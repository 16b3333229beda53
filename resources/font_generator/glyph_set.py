"""Which glyphs the font has: their order, names and advances, and what a preview of the
project shows for a character made true for the font.
"""

from collections.abc import Sequence
from dataclasses import dataclass

from .characters import SPACE, CharacterMap, map_characters
from .document import Document, Glyph
from .errors import GeneratorError, plain
from .glyph_names import GlyphNames, name_for_character, name_for_project_name
from .outlines import Outline, round_half_up

MOST_GLYPHS = 65535
WIDEST_ADVANCE = 65535
NOTDEF = ".notdef"


@dataclass(slots=True)
class FontGlyph:
    """A glyph of the font. `project_name` is what kerning pairs call it, if they can."""

    name: str
    project_name: str | None
    advance: int
    source: Glyph


@dataclass(slots=True)
class GlyphSet:
    """The font's glyphs, `.notdef` first; characters and pairs refer to them by index."""

    glyphs: list[FontGlyph]
    characters: CharacterMap
    warnings: list[tuple[str, str]]


def build_glyph_set(document: Document) -> GlyphSet:
    """Decides on the glyphs of the font; raises GeneratorError for those it can't hold."""
    warnings: list[tuple[str, str]] = []
    notdef = _notdef_of(document.glyphs)
    sources: list[Glyph] = [notdef or _default_notdef(document)]
    texts: list[str | None] = [None]
    for glyph in document.glyphs:
        # A character can't map to glyph 0, which means that the font lacks it: a missing-glyph
        # glyph that stands for a character as well is therefore there twice.
        if glyph is not notdef or glyph.text:
            sources.append(glyph)
            texts.append(glyph.text)
    characters = map_characters(texts)
    # The preview advances a quarter em for a space that nobody drew, unless it has a glyph for
    # missing characters: then that is what it shows, and so does a font without a space.
    if SPACE not in characters.scalars:
        if notdef and notdef.name == NOTDEF:
            warnings.append(("space", "there is no space glyph, so a space shows .notdef"))
        elif len(sources) < MOST_GLYPHS:
            sources.append(Glyph(0, "space", " ", document.units_per_em / 4, Outline([])))
            texts.append(" ")
            characters = map_characters(texts)
    if len(sources) > MOST_GLYPHS:
        raise GeneratorError(f"The project makes {len(sources):,} glyphs with .notdef, "
                             f"and a font holds at most {MOST_GLYPHS:,}.")
    _warn_about_characters(sources, characters, warnings)
    names = _names(sources, characters)
    glyphs = [FontGlyph(name, source.name if source.number else None, _checked_advance(source), source)
              for name, source in zip(names, sources)]
    if notdef and not notdef.outline.rounded().contours:
        warnings.append((notdef.name, "has no drawing, so missing characters stay invisible"))
    return GlyphSet(glyphs, characters, warnings)


def _notdef_of(glyphs: Sequence[Glyph]) -> Glyph | None:
    """The project's own glyph for missing characters: the one the preview shows, else one whose
    name says the same in other letters."""
    exact = (glyph for glyph in glyphs if glyph.name == NOTDEF)
    alike = (glyph for glyph in glyphs if glyph.name.lower() in (NOTDEF, "notdef"))
    return next(exact, None) or next(alike, None)


def _default_notdef(document: Document) -> Glyph:
    """An upright frame as high as the capitals; as wide as every glyph if all are equally wide."""
    em = document.units_per_em
    advances = {glyph.advance for glyph in document.glyphs if glyph.advance}
    advance = advances.pop() if len(advances) == 1 else em / 2
    if not em / 8 <= advance <= em * 2:
        advance = em / 2
    height = document.cap_height if em / 8 <= document.cap_height <= em * 2 else em * 0.7
    left, right, stem = advance * 0.1, advance * 0.9, advance * 0.1
    frame = Outline([[(left, 0), (right, 0), (right, height), (left, height)],
                     [(left + stem, stem), (left + stem, height - stem),
                      (right - stem, height - stem), (right - stem, stem)]])
    return Glyph(0, NOTDEF, None, advance, frame)


def _names(sources: Sequence[Glyph], characters: CharacterMap) -> list[str]:
    """A legal name for every glyph. Glyphs that characters map to choose first, since their
    names say which characters they are."""
    taken = GlyphNames(reserved=(NOTDEF,))
    names = [""] * len(sources)
    names[0] = NOTDEF
    for scalar, index in characters.drawn.items():
        names[index] = taken.take(name_for_character(chr(scalar), sources[index].name))
    for index, name in enumerate(names):
        if not name:
            names[index] = taken.take(name_for_project_name(sources[index].name, index))
    return names


def _checked_advance(glyph: Glyph) -> int:
    # Compared before rounding, which numbers of any size have to pass through.
    if not -0.5 <= glyph.advance < WIDEST_ADVANCE + 0.5:
        raise GeneratorError(f"The advance width of {glyph.label} is {plain(glyph.advance)}, "
                             f"and a font holds 0 to {WIDEST_ADVANCE}.")
    return round_half_up(glyph.advance)


def _warn_about_characters(sources: Sequence[Glyph], characters: CharacterMap,
                           warnings: list[tuple[str, str]]) -> None:
    for index, winner in characters.overruled.items():
        warnings.append((_caption(sources[index]),
                         f"{sources[winner].label} comes later and has the same character"))
    for index in characters.unmapped:
        warnings.append((_caption(sources[index]), "its text can't be typed with the font, which "
                                                   "lacks a glyph for a part of it"))


def _caption(glyph: Glyph) -> str:
    return glyph.name or glyph.label
