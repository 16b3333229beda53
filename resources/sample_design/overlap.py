"""Joins overlapping shapes into outlines that no longer overlap."""

import cmath

from .geometry import (FLATTEN_STEPS, area, cross, dot, part_of, point_at,
                       polygon_of, reverse, rounded, tangent_at, winding)

SIDE_STEP = 0.8  # how far beside an edge we look whether there is ink
END_MARGIN = 1e-4


def merge(shapes):
    """The outlines of everything inked by the shapes.

    All points land on whole units. Outer outlines run counter-clockwise,
    counters clockwise.
    """
    shapes = [[tuple(rounded(p) for p in segment) for segment in shape]
              for shape in shapes]
    shapes = [[s for s in shape if any(p != s[0] for p in s)] for shape in shapes]
    pieces = _cut_at_crossings([s for shape in shapes for s in shape])
    polygons = [polygon_of(shape) for shape in shapes]
    edges = {}
    for piece in pieces:
        middle = point_at(piece, 0.5)
        tangent = tangent_at(piece, 0.5)
        beside = tangent / abs(tangent) * 1j * SIDE_STEP
        ink_left = winding(polygons, middle + beside) != 0
        ink_right = winding(polygons, middle - beside) != 0
        if ink_left == ink_right:
            continue
        edge = piece if ink_left else reverse(piece)
        # Edges lying on each other are one edge of the joined shape.
        edges[(edge[0], edge[-1], rounded(middle / 2))] = edge
    return [_simplified(outline) for outline in _chained(list(edges.values()))]


def _cut_at_crossings(segments):
    cuts = [{} for _ in segments]
    boxes = [_bounds(s) for s in segments]
    for i, first in enumerate(segments):
        for j in range(i + 1, len(segments)):
            a, b = boxes[i], boxes[j]
            if a[0] > b[2] or b[0] > a[2] or a[1] > b[3] or b[1] > a[3]:
                continue
            for t, u in crossings(first, segments[j]):
                place = _place(first, t, segments[j], u)
                if END_MARGIN < t < 1 - END_MARGIN:
                    cuts[i][t] = place
                if END_MARGIN < u < 1 - END_MARGIN:
                    cuts[j][u] = place
    pieces = []
    for segment, inner in zip(segments, cuts):
        stops = [(0.0, segment[0])] + sorted(inner.items()) + [(1.0, segment[-1])]
        for (t0, start), (t1, end) in zip(stops, stops[1:]):
            if start == end:
                continue
            piece = part_of(segment, t0, t1)
            if len(piece) == 4:
                piece = (start, rounded(piece[1] + start - piece[0]),
                         rounded(piece[2] + end - piece[3]), end)
            else:
                piece = (start, end)
            pieces.append(piece)
    return pieces


def _bounds(segment):
    xs, ys = [p.real for p in segment], [p.imag for p in segment]
    return min(xs) - 0.1, min(ys) - 0.1, max(xs) + 0.1, max(ys) + 0.1


def _place(first, t, second, u):
    """Where two segments cross; an end point of either is kept as it is."""
    for segment, at in ((first, t), (second, u)):
        if at <= END_MARGIN:
            return segment[0]
        if at >= 1 - END_MARGIN:
            return segment[-1]
    return rounded(point_at(first, t))


def crossings(first, second):
    """Parameter pairs (t, u) at which two segments meet."""
    if len(first) == 2 and len(second) == 2:
        return _line_crossings(first, second)
    found = []
    for t0, t1 in _steps(first):
        a = (point_at(first, t0), point_at(first, t1))
        for u0, u1 in _steps(second):
            b = (point_at(second, u0), point_at(second, u1))
            for t, u in _line_crossings(a, b, 0.02):
                pair = _refined(first, t0 + t * (t1 - t0), second, u0 + u * (u1 - u0))
                if pair and all(abs(pair[0] - p[0]) + abs(pair[1] - p[1]) > 1e-3
                                for p in found):
                    found.append(pair)
    return found


def _steps(segment):
    count = 1 if len(segment) == 2 else FLATTEN_STEPS
    return [(i / count, (i + 1) / count) for i in range(count)]


def _line_crossings(a, b, slack=1e-6):
    p, q = a[1] - a[0], b[1] - b[0]
    gap = b[0] - a[0]
    turn = cross(p, q)
    if abs(turn) > 1e-9 * abs(p) * abs(q):
        t, u = cross(gap, q) / turn, cross(gap, p) / turn
        inside = -slack <= t <= 1 + slack and -slack <= u <= 1 + slack
        return [(t, u)] if inside else []
    if abs(cross(gap, p)) > 1e-6 * abs(p):
        return []
    # Both lie on the same line: each is cut where the other ends.
    on_b = [(dot(b[i] - a[0], p) / dot(p, p), i) for i in (0, 1)]
    on_a = [(i, dot(a[i] - b[0], q) / dot(q, q)) for i in (0, 1)]
    return [(t, u) for t, u in on_b + on_a
            if -slack <= t <= 1 + slack and -slack <= u <= 1 + slack]


def _refined(first, t, second, u):
    for _ in range(8):
        miss = point_at(second, u) - point_at(first, t)
        dt, du = tangent_at(first, t), tangent_at(second, u)
        turn = cross(dt, du)
        if abs(turn) < 1e-9:
            break
        t += cross(miss, du) / turn
        u += cross(miss, dt) / turn
    if abs(point_at(second, u) - point_at(first, t)) > 0.3:
        return None
    if not (-1e-3 < t < 1.001 and -1e-3 < u < 1.001):
        return None
    return min(1, max(0, t)), min(1, max(0, u))


def _chained(edges):
    leaving = {}
    for edge in edges:
        leaving.setdefault(edge[0], []).append(edge)
    outlines = []
    while edges:
        edge = min(edges, key=lambda e: (e[0].imag, e[0].real))
        outline, start = [], edge[0]
        while True:
            outline.append(edge)
            edges.remove(edge)
            leaving[edge[0]].remove(edge)
            if edge[-1] == start:
                break
            ways = leaving.get(edge[-1])
            if not ways:
                raise ValueError(f"outline is open at {edge[-1]}")
            heading = tangent_at(edge, 1)
            # Where outlines touch, the sharpest turn towards the ink keeps
            # them apart.
            edge = max(ways, key=lambda e: cmath.phase(tangent_at(e, 0) / heading))
        if abs(area(outline)) > 2:
            outlines.append(outline)
    return outlines


def _simplified(outline):
    """Without points in the middle of a straight line."""
    result = []
    for segment in outline:
        if (result and len(segment) == len(result[-1]) == 2
                and _straight_on(result[-1], segment)):
            result[-1] = (result[-1][0], segment[1])
        else:
            result.append(segment)
    if len(result) > 2 and len(result[0]) == len(result[-1]) == 2 \
            and _straight_on(result[-1], result[0]):
        result[0] = (result.pop()[0], result[0][1])
    return result


def _straight_on(first, second):
    p, q = first[1] - first[0], second[1] - second[0]
    return dot(p, q) > 0 and abs(cross(p, q)) <= 0.6 * max(abs(p), abs(q))
