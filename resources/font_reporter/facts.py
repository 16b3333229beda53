"""Everything that the report says, as values."""

from dataclasses import dataclass
from math import isinf

from font_generator.document import Document
from font_generator.glyph_set import build_glyph_set
from font_generator.font import checked_units_per_em

from .coverage import Coverage, cover
from .distances import Contour, Distance, largest_distance
from .font_file import FontFile, check_made_from, open_font
from .pairs import ShapedPair, shaped_pairs
from .workers import beside, processors

_MANY = 300  # glyphs that are worth a second process

_FORMAT_NAMES = {"otf": "OpenType, cubic outlines (OTF)", "ttf": "OpenType, quadratic outlines (TTF)",
                 "woff": "Web font (WOFF)", "woff2": "Web font (WOFF2)"}


@dataclass(frozen=True, slots=True)
class GlyphFacts:
    """A glyph of the font. `text` is what it stands for, as in the project; `characters` are the
    characters that the font maps to it. `distance` is between drawing and exported outline."""

    name: str
    text: str
    characters: list[int]
    advance: int
    drawing: list[Contour]
    exported: list[Contour]
    distance: Distance


@dataclass(frozen=True, slots=True)
class Metrics:
    """Vertical measures of the font in font units, and the box of all its outlines."""

    ascender: int
    descender: int
    cap_height: int
    x_height: int
    box: tuple[int, int, int, int]
    win_ascent: int
    win_descent: int
    underline_position: int
    underline_thickness: int
    average_advance: int
    widest_advance: int
    fixed_pitch: bool


@dataclass(frozen=True, slots=True)
class Facts:
    """A font and what is to be said about it; `characters` are those that it maps."""

    file: FontFile
    document: Document
    family: str
    style: str
    version: str
    postscript: str
    weight: int
    width: int
    units_per_em: int
    format_name: str
    metrics: Metrics
    glyphs: list[GlyphFacts]
    characters: set[int]
    coverage: Coverage
    pairs: list[ShapedPair]
    warnings: list[tuple[str, str]]

    def thousandths(self, distance: Distance) -> float:
        """A distance in thousandths of the em."""
        return distance.length * 1000 / self.units_per_em

    @property
    def worst(self) -> float:
        """The largest distance of all glyphs in thousandths of the em; glyphs that lost their
        outline aside, which the warnings name."""
        return max((self.thousandths(glyph.distance) for glyph in self.glyphs
                    if not isinf(glyph.distance.length)), default=0.0)


def collect(document: Document, font_path: str) -> Facts:
    """Opens the font and measures it against the project; raises GeneratorError."""
    units_per_em = checked_units_per_em(document)
    glyph_set = build_glyph_set(document)
    file = open_font(font_path)
    check_made_from(file, [glyph.name for glyph in glyph_set.glyphs])
    font = file.font
    characters = font.getBestCmap() or {}
    by_name: dict[str, list[int]] = {}
    for scalar, name in characters.items():
        by_name.setdefault(name, []).append(scalar)
    drawings, exported = [glyph.source.outline.contours for glyph in glyph_set.glyphs], file.contours()
    distances = _distances(drawings, exported, units_per_em)
    glyphs = [GlyphFacts(glyph.project_name or glyph.name, glyph.source.text or "", by_name.get(name, []),
                         advance, *rest)
              for glyph, name, advance, *rest in zip(glyph_set.glyphs, font.getGlyphOrder(),
                                                     file.advances(), drawings, exported, distances)]
    warnings = list(glyph_set.warnings)
    warnings += [(glyph.name, "its drawing is too small for the font's units, so it shows nothing")
                 for glyph in glyphs if isinf(glyph.distance.length)]
    os2 = font["OS/2"]
    return Facts(
        file=file, document=document, family=file.name(16, 1), style=file.name(17, 2),
        version=file.name(5), postscript=file.name(6), weight=os2.usWeightClass, width=os2.usWidthClass,
        units_per_em=units_per_em, format_name=_FORMAT_NAMES[file.extension],
        metrics=_metrics(file), glyphs=glyphs, characters=set(characters),
        coverage=cover(glyph_set.characters.drawn.keys() & characters.keys(), characters),
        pairs=shaped_pairs(document, glyph_set, font), warnings=warnings)


def _distances(drawings: list[list[Contour]], exported: list[list[Contour]],
               units_per_em: float) -> list[Distance]:
    """The distance of each glyph's outlines. Two processes share them where there are many."""
    def measured(indices: range) -> list[Distance]:
        return [largest_distance(drawings[index], exported[index], units_per_em) for index in indices]

    count = len(drawings)
    mine = count // 2 if count >= _MANY and processors() > 1 else count
    wait = beside(lambda: measured(range(mine, count))) if mine < count else list
    own, others = measured(range(mine)), wait()
    return own + (measured(range(mine, count)) if others is None else others)


def _metrics(file: FontFile) -> Metrics:
    head, hhea, os2, post = (file.font[tag] for tag in ("head", "hhea", "OS/2", "post"))
    return Metrics(
        ascender=hhea.ascent, descender=hhea.descent, cap_height=os2.sCapHeight, x_height=os2.sxHeight,
        box=(head.xMin, head.yMin, head.xMax, head.yMax), win_ascent=os2.usWinAscent,
        win_descent=os2.usWinDescent, underline_position=post.underlinePosition,
        underline_thickness=post.underlineThickness, average_advance=os2.xAvgCharWidth,
        widest_advance=hhea.advanceWidthMax, fixed_pitch=bool(post.isFixedPitch))
