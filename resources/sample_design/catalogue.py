"""All glyphs of the typeface by name."""

from functools import lru_cache

from .geometry import box
from .overlap import merge

_DRAWINGS = {}


class Glyph:
    """A finished glyph: outlines in font units and its side bearings."""

    def __init__(self, name, outlines, bearings):
        left, _, right, _ = box(outlines)
        self.name = name
        self.outlines = outlines
        self.left_bearing, self.right_bearing = bearings(int(right - left))


def glyph(name, left_bearing, right_bearing):
    """Registers a drawing function under a glyph name, with its side bearings."""
    def register(draw):
        _DRAWINGS[name] = (draw, lambda width: (left_bearing, right_bearing))
        return draw
    return register


def centred_glyph(name, advance, shift=0):
    """Registers a drawing that stands in the middle of a fixed advance."""
    def bearings(width):
        left = (advance - width) // 2 + shift
        return left, advance - width - left

    def register(draw):
        _DRAWINGS[name] = (draw, bearings)
        return draw
    return register


def accented_glyph(name, base, mark):
    """Registers a letter with a mark; it keeps the bearings of the letter."""
    draw, bearings = _DRAWINGS[base]
    _DRAWINGS[name] = (lambda: draw() + mark, bearings)


def shape_of(name):
    """The raw shape of a glyph, to build another one from it."""
    return _DRAWINGS[name][0]()


@lru_cache(maxsize=None)
def all_glyphs():
    return [Glyph(name, merge(draw()), bearings)
            for name, (draw, bearings) in _DRAWINGS.items()]
