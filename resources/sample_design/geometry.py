"""Curves and outlines in font units, y pointing up.

A point is a complex number, a segment a tuple of two points (line) or four
points (cubic curve), an outline a list of segments that closes on itself.
"""

import cmath
import math

FLATTEN_STEPS = 32


def unit(degrees):
    """The direction of an angle; the four main directions come out exact."""
    exact = {0: 1 + 0j, 90: 1j, 180: -1 + 0j, 270: -1j}
    degrees %= 360
    return exact.get(degrees) or cmath.rect(1, math.radians(degrees))


def cross(a, b):
    return a.real * b.imag - a.imag * b.real


def dot(a, b):
    return a.real * b.real + a.imag * b.imag


def rounded(point):
    return complex(math.floor(point.real + 0.5), math.floor(point.imag + 0.5))


def point_at(segment, t):
    if len(segment) == 2:
        return segment[0] + (segment[1] - segment[0]) * t
    a, b, c, d = segment
    s = 1 - t
    return a * s**3 + 3 * b * s * s * t + 3 * c * s * t * t + d * t**3


def tangent_at(segment, t):
    if len(segment) == 2:
        return segment[1] - segment[0]
    a, b, c, d = segment
    s = 1 - t
    tangent = (b - a) * s * s + 2 * (c - b) * s * t + (d - c) * t * t
    return 3 * tangent if abs(tangent) > 1e-9 else d - a


def part_of(segment, t0, t1):
    """The piece of a segment between two parameters."""
    if len(segment) == 2:
        return (point_at(segment, t0), point_at(segment, t1))
    third = (t1 - t0) / 3
    start, end = point_at(segment, t0), point_at(segment, t1)
    return (start, start + tangent_at(segment, t0) * third,
            end - tangent_at(segment, t1) * third, end)


def reverse(segment):
    return segment[::-1]


def reverse_outline(outline):
    return [reverse(segment) for segment in reversed(outline)]


def flatten(segment):
    """The points of a fine polyline along the segment, without its last one."""
    if len(segment) == 2:
        return [segment[0]]
    return [point_at(segment, i / FLATTEN_STEPS) for i in range(FLATTEN_STEPS)]


def polygon_of(outline):
    return [point for segment in outline for point in flatten(segment)]


def area(outline):
    """Signed area: positive for a counter-clockwise outline."""
    polygon = polygon_of(outline)
    return sum(cross(p, q) for p, q in zip(polygon, polygon[1:] + polygon[:1])) / 2


def winding(polygons, point):
    """How often the polygons run around the point, counter-clockwise positive."""
    turns = 0
    for polygon in polygons:
        p = polygon[-1]
        for q in polygon:
            if (p.imag <= point.imag) != (q.imag <= point.imag):
                side = cross(q - p, point - p)
                if q.imag > p.imag and side > 0:
                    turns += 1
                elif q.imag < p.imag and side < 0:
                    turns -= 1
            p = q
    return turns


def box(outlines):
    """(left, bottom, right, top) over all points, handles included."""
    points = [p for outline in outlines for segment in outline for p in segment]
    xs, ys = [p.real for p in points], [p.imag for p in points]
    return min(xs), min(ys), max(xs), max(ys)


def curve(start, start_direction, end, end_direction, squareness, pull=(1, 1)):
    """A curve that leaves and arrives in the given directions.

    The handles point to where both tangents meet. Their length is that of a
    circular arc for the angle turned, times the squareness, so that all rounds
    of the face share the same fullness; `pull` lengthens one handle alone.
    """
    turn = cross(start_direction, end_direction)
    chord = end - start
    if abs(turn) > 0.02:
        reach_out = cross(chord, end_direction) / turn
        reach_in = cross(start_direction, chord) / turn
        if reach_out > 0 and reach_in > 0:
            angle = abs(cmath.phase(end_direction / start_direction))
            fraction = 4 / 3 * math.tan(angle / 4) / math.tan(angle / 2) * squareness
            return (start,
                    start + start_direction * reach_out * min(1, fraction * pull[0]),
                    end - end_direction * reach_in * min(1, fraction * pull[1]),
                    end)
    reach = abs(chord) * 0.4
    return (start, start + start_direction * reach * pull[0],
            end - end_direction * reach * pull[1], end)
