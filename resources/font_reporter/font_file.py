"""Reads an exported font: its outlines, its names, and which glyph of the project is which."""

from collections.abc import Sequence
from dataclasses import dataclass
from io import BytesIO

from fontTools.pens.basePen import BasePen
from fontTools.ttLib import TTFont, TTLibError

from font_generator.command import GeneratorError, quoted

from .distances import Contour

_FORMATS = {b"OTTO": "otf", b"\0\1\0\0": "ttf", b"wOFF": "woff", b"wOF2": "woff2"}


@dataclass(slots=True)
class FontFile:
    """An opened font. `data` is the file as it is, `extension` the name of its format."""

    path: str
    data: bytes
    extension: str
    font: TTFont

    def contours(self) -> list[list[Contour]]:
        """The outlines of all glyphs, in the font's order."""
        glyphs = self.font.getGlyphSet()
        result = []
        for name in self.font.getGlyphOrder():
            pen = _ContourPen(glyphs)
            glyphs[name].draw(pen)
            result.append(pen.contours)
        return result

    def advances(self) -> list[int]:
        """The advance widths of all glyphs, in the font's order and in font units."""
        metrics = self.font["hmtx"].metrics
        return [metrics[name][0] for name in self.font.getGlyphOrder()]

    def name(self, *identifiers: int) -> str:
        """The first record of the name table with one of these numbers; empty if there is none."""
        for identifier in identifiers:
            record = self.font["name"].getName(identifier, 3, 1, 0x409)
            if record is not None:
                return record.toUnicode()
        return ""


def open_font(path: str) -> FontFile:
    """Reads the font at `path`; raises GeneratorError if it can't be read or is none."""
    try:
        with open(path, "rb") as file:
            data = file.read()
    except (OSError, ValueError) as error:
        reason = getattr(error, "strerror", None) or str(error)
        raise GeneratorError(f"The font {quoted(path)} cannot be read: {reason}.") from error
    extension = _FORMATS.get(data[:4])
    if extension is None:
        raise GeneratorError(f"The file {quoted(path)} is not a font.")
    try:
        font = TTFont(BytesIO(data))
        for tag in ("head", "hhea", "OS/2", "post", "name", "cmap", "hmtx"):
            font[tag]
        font.getGlyphOrder()
    except ImportError:
        raise
    except (TTLibError, KeyError) as error:
        raise GeneratorError(f"The font {quoted(path)} is damaged: {error}.".replace("\n", " ")) from error
    except Exception as error:  # a damaged table fails in as many ways as there are bytes in it
        raise GeneratorError(f"The font {quoted(path)} is damaged.") from error
    return FontFile(path, data, extension, font)


def check_made_from(file: FontFile, names: Sequence[str]) -> None:
    """Raises GeneratorError if the font's glyphs are not these, those of the project."""
    order = file.font.getGlyphOrder()
    # A post table of format 3 has no names to compare; an OTF has them elsewhere.
    named = "CFF " in file.font or file.font["post"].formatType == 2
    if len(order) != len(names) or named and list(order) != list(names):
        raise GeneratorError(f"The font {quoted(file.path)} was not made from this project: it has "
                             "other glyphs.")


class _ContourPen(BasePen):
    """Collects contours: a point, then segments of one, two or three points each."""

    def __init__(self, glyphs: object) -> None:
        super().__init__(glyphs)
        self.contours: list[Contour] = []

    def _moveTo(self, point: tuple[float, float]) -> None:
        self.contours.append([tuple(point)])

    def _lineTo(self, point: tuple[float, float]) -> None:
        self.contours[-1].append(tuple(point))

    def _qCurveToOne(self, control: tuple[float, float], end: tuple[float, float]) -> None:
        self.contours[-1].append((*control, *end))

    def _curveToOne(self, first: tuple[float, float], second: tuple[float, float],
                    end: tuple[float, float]) -> None:
        self.contours[-1].append((*first, *second, *end))
