"""What makes an outline fit for a font, measured: its points, slivers and points that nearly meet."""

import math
import re

import numpy
from lxml import etree

import pictures

EM = 1000  # the page's height in font units
SLIVER = 1  # square unit
CLOSE = 0.01  # unit
NUMBERS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "S": 4, "Q": 4, "T": 2, "A": 7, "Z": 0}
# Shares of the cross products of a cubic curve's points in the area that it sweeps.
CUBIC = {(0, 1): 6 / 20, (0, 2): 3 / 20, (0, 3): 1 / 20, (1, 2): 3 / 20, (1, 3): 3 / 20,
         (2, 3): 6 / 20}
TOKEN = re.compile(r"([MLHVCSQTAZmlhvcsqtaz])|([-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?)")


def contours(path):
    """Lists of points, off-curve ones included and marked, of absolute M, L, C and Z."""
    found, letter, numbers = [], "", []

    def take():
        if letter == "M":
            found.append([(*numbers[:2], True)])
        elif letter in ("L", "C") and found:
            points = list(zip(numbers[::2], numbers[1::2]))
            found[-1] += [(*point, point is points[-1]) for point in points]

    for command, number in TOKEN.findall(path):
        if command:
            letter, numbers = command, []
        else:
            numbers.append(float(number))
        if letter in NUMBERS and len(numbers) == NUMBERS[letter] > 0:
            take()
            letter, numbers = ("L" if letter == "M" else letter), []
    return found


def _area(contour):
    """Of the contour's curves, exactly: a sum of cross products of their points."""
    total, segment = 0.0, [contour[0][:2]]
    for x, y, on in [*contour[1:], contour[0]]:
        segment.append((x, y))
        if on:
            weights = CUBIC if len(segment) == 4 else {(0, len(segment) - 1): 1 / 2}
            for (i, j), weight in weights.items():
                (ax, ay), (bx, by) = segment[i], segment[j]
                total += weight * (ax * by - ay * bx)
            segment = [(x, y)]
    return total


def fitness(path, height):
    """Points, slivers and close points of an outline on a page of `height`."""
    unit = EM / height
    points = slivers = close = 0
    for contour in contours(path):
        ends = [point for point in contour if point[2]]
        points += len(ends)
        flat = numpy.array([point[:2] for point in contour]) * unit
        if abs(_area([(*place, point[2]) for place, point in zip(flat, contour)])) < SLIVER:
            slivers += 1
        gaps = [math.dist(a[:2], b[:2]) * unit for a, b in zip(ends, ends[1:])]
        close += sum(gap < CLOSE for gap in gaps)
        # A contour that ends where it began says so twice; that is no pair of points.
        if len(ends) > 1 and 0 < math.dist(ends[0][:2], ends[-1][:2]) * unit < CLOSE:
            close += 1
    return {"points": points, "slivers": slivers, "close": close}


SVG = "{http://www.w3.org/2000/svg}"
PLAIN_TAGS = {SVG + tag for tag in ("svg", "g", "path", "title", "desc", "metadata", "defs")}
# Every path half-transparent: what is painted twice is darker.
HALF = ("path{fill:#000 !important;fill-opacity:.5 !important;stroke:none !important;"
        "opacity:1 !important;fill-rule:%s !important}" + pictures.CRISP)


def _segments(path):
    """Points of path data of any grammar but arcs; nothing when there are some."""
    count = 0
    for letter, numbers in re.findall(r"([A-Za-z])([^A-DF-Za-df-z]*)", path):
        size = NUMBERS.get(letter.upper())
        if size is None or letter in "Aa":
            return None
        if size:
            count += len(TOKEN.findall(numbers)) // size
    return count


def drawn_points(svg, page, ink):
    """Points of a drawing that is made of filled paths only, none of which overlaps; else nothing.
    `ink` is its mask."""
    try:
        root = etree.fromstring(svg, etree.XMLParser(resolve_entities=False, no_network=True))
    except etree.XMLSyntaxError:
        return None
    elements = [element for element in root.iter() if isinstance(element.tag, str)]
    paths = [element for element in elements if element.tag == SVG + "path"]
    own = {element.tag for element in elements if element.tag.startswith(SVG)}
    if not paths or not own <= PLAIN_TAGS or root.findall(f".//{SVG}defs//{SVG}path"):
        return None
    for element in elements:
        words = f"{element.get('style', '')};stroke:{element.get('stroke', 'none')}"
        if re.search(r"stroke\s*:\s*(?!none)", words) or "display" in words:
            return None
    counts = [_segments(path.get("d", "")) for path in paths]
    if None in counts:
        return None
    rules = [pictures.paint(svg, page, HALF % rule)[..., 3] for rule in ("nonzero", "evenodd")]
    overlap = max(int((alpha > 140).sum()) for alpha in rules)
    odd = b"evenodd" in svg
    differs = numpy.logical_xor(rules[odd] > 0, ink).sum()
    crossed = 0 if odd else numpy.logical_xor(rules[0] > 0, rules[1] > 0).sum()
    return sum(counts) if overlap + differs + crossed <= 1e-4 * ink.sum() else None
