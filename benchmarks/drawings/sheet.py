"""Pictures of drawings beside what a road made of them, for the eye."""

import numpy
from PIL import Image, ImageDraw, ImageFont

import pictures

SIDE = 210
GAP = 6
LABEL = 30
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


def _shrunk(mask_or_pixels):
    image = Image.fromarray(mask_or_pixels)
    image.thumbnail((SIDE, SIDE), Image.Resampling.BOX)
    tile = Image.new("RGB", (SIDE, SIDE), "#e8e4dc")
    tile.paste(image.convert("RGB"), ((SIDE - image.width) // 2, (SIDE - image.height) // 2))
    return tile


def _painted(svg, page):
    pixels = pictures.paint(svg, page, stylesheet="").astype(numpy.int16)
    white = 255 - pixels[..., 3:]
    return (pixels[..., 2::-1] + white).astype(numpy.uint8)


def difference(ours, drawn):
    """Ink that both have is grey, what ours lacks red, what ours adds blue."""
    picture = numpy.full((*ours.shape, 3), 255, numpy.uint8)
    picture[ours & drawn] = (205, 205, 205)
    picture[drawn & ~ours] = (210, 30, 30)
    picture[ours & ~drawn] = (20, 70, 220)
    return picture


def tile(label, svg, page, drawn, ours):
    """Drawing, ours and the difference, side by side."""
    image = Image.new("RGB", (3 * SIDE + 2 * GAP, SIDE + LABEL), "white")
    shown = [_painted(svg, page), numpy.where(ours, 0, 255).astype(numpy.uint8),
             difference(ours, drawn)]
    for column, part in enumerate(shown):
        image.paste(_shrunk(part), (column * (SIDE + GAP), LABEL))
    font = ImageFont.truetype(FONT, 11)
    ImageDraw.Draw(image).multiline_text((0, 1), label, fill="black", font=font, spacing=1)
    return image


def write(tiles, file, columns=2):
    """Tiles in rows, as a picture of few colours."""
    if not tiles:
        return
    rows = -(-len(tiles) // columns)
    wide, high = tiles[0].width + 3 * GAP, tiles[0].height + 2 * GAP
    image = Image.new("RGB", (columns * wide, rows * high), "white")
    for number, one in enumerate(tiles):
        image.paste(one, (number % columns * wide + GAP, number // columns * high + GAP))
    image.quantize(96, dither=Image.Dither.NONE).save(file, optimize=True)
