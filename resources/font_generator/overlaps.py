"""Whether contours of a glyph overlap, for which rasterizers want to be prepared."""

from collections.abc import Sequence

from .outlines import Box

Point = tuple[int, int]
Edge = tuple[int, int, int, int]

# Comparing more pairs of contours than this takes longer than it is worth: a flag that is set
# without need only makes rasterizing slower.
_MOST_COMPARISONS = 20000


def contours_overlap(contours: Sequence[Sequence[Point]]) -> bool:
    """Whether any two contours cross or touch, or fill the same place in the same direction.

    Curves are judged by the polygon of their points, so that a few contours that only come close
    to each other count as well. A hole, which turns the other way, is no overlap.
    """
    if len(contours) < 2:
        return False
    boxes = [_box(contour) for contour in contours]
    # How often each contour's inside is wound around, by itself and by those around it.
    turns = [1 if _twice_area(contour) > 0 else -1 for contour in contours]
    windings = list(turns)
    order = sorted(range(len(contours)), key=lambda index: boxes[index][0])
    comparisons = 0
    for place, first in enumerate(order):
        left, bottom, right, top = boxes[first]
        for second in order[place + 1:]:
            other = boxes[second]
            if other[0] > right:
                break
            comparisons += 1
            if comparisons > _MOST_COMPARISONS:
                return True
            if other[1] > top or other[3] < bottom:
                continue
            if _cross(contours[first], boxes[first], contours[second], other):
                return True
            if _contains(contours[first], contours[second][0]):
                windings[second] += turns[first]
            elif _contains(contours[second], contours[first][0]):
                windings[first] += turns[second]
    return any(abs(winding) > 1 for winding in windings)


def _box(contour: Sequence[Point]) -> Box:
    xs, ys = zip(*contour)
    return min(xs), min(ys), max(xs), max(ys)


def _edges_within(contour: Sequence[Point], box: Box) -> list[Edge]:
    """The edges of a contour whose own boxes meet `box`."""
    left, bottom, right, top = box
    result = []
    x0, y0 = contour[-1]
    for x, y in contour:
        if (not (x0 < left and x < left or x0 > right and x > right)
                and not (y0 < bottom and y < bottom or y0 > top and y > top)):
            result.append((x0, y0, x, y))
        x0, y0 = x, y
    return result


def _cross(first: Sequence[Point], first_box: Box, second: Sequence[Point], second_box: Box) -> bool:
    edges = _edges_within(first, second_box)
    others = _edges_within(second, first_box) if edges else []
    for ax, ay, bx, by in edges:
        abx, aby = bx - ax, by - ay
        for cx, cy, dx, dy in others:
            # Each edge has to have the other's ends on both of its sides, or on itself.
            if (cx < ax and cx < bx and dx < ax and dx < bx) or (cx > ax and cx > bx and dx > ax and dx > bx):
                continue
            if (cy < ay and cy < by and dy < ay and dy < by) or (cy > ay and cy > by and dy > ay and dy > by):
                continue
            if (abx * (cy - ay) - aby * (cx - ax)) * (abx * (dy - ay) - aby * (dx - ax)) > 0:
                continue
            cdx, cdy = dx - cx, dy - cy
            if (cdx * (ay - cy) - cdy * (ax - cx)) * (cdx * (by - cy) - cdy * (bx - cx)) <= 0:
                return True
    return False


def _contains(contour: Sequence[Point], point: Point) -> bool:
    """Whether a ray to the right of `point` leaves the contour's polygon once more than it enters."""
    x, y = point
    inside = False
    x0, y0 = contour[-1]
    for x1, y1 in contour:
        if (y0 > y) != (y1 > y) and ((x1 - x0) * (y - y0) - (x - x0) * (y1 - y0) > 0) == (y1 > y0):
            inside = not inside
        x0, y0 = x1, y1
    return inside


def _twice_area(contour: Sequence[Point]) -> int:
    twice = 0
    x0, y0 = contour[-1]
    for x, y in contour:
        twice += x0 * y - x * y0
        x0, y0 = x, y
    return twice
