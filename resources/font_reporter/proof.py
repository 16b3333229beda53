"""The sections that prove: how true the outlines are, and every glyph as a card."""

from math import isinf

from .facts import Facts, GlyphFacts
from .markup import code, number, path_data, section, table, text

# More outlines than this make a page that browsers open slowly; rows of a table are cheaper.
MOST_CARDS, MOST_ROWS = 1000, 6000
_CLOSE_LOOKS = 6
_LOOK = 3.0  # half the width of a close look, in thousandths of the em
_BOUNDS = (0.05, 0.25, 0.5, 0.75, 1.0)


def accuracy(facts: Facts) -> str:
    """What the distances mean, how they are spread, and the largest ones magnified."""
    measured = [glyph for glyph in facts.glyphs if glyph.exported and not isinf(glyph.distance.length)]
    em = facts.units_per_em
    cubic = facts.file.extension == "otf"
    cause = ("Curves are stored as drawn, so all of it comes from rounding." if cubic else
             "The rest is the difference between the drawing’s cubic curves and the quadratic ones of this "
             "format.")
    explanation = (
        "<p>Points are taken all along the drawing’s outline and all along the exported one. For each of "
        "them the nearest point of the other outline is found; the largest of these distances is the "
        "glyph’s deviation, in thousandths of the em. So a piece that is missing counts as much as one "
        "that is too much. Distances below 0.05 are not told apart from none.</p>"
        f"<p>A font stores whole units, of which this one has {number(em)} to the em: rounding alone can "
        f"move a point by {number(707 / em, 2)} thousandths. {cause} At a text size of 12 points, one "
        "thousandth of the em is 0.004&nbsp;mm.</p>")
    looks = sorted((glyph for glyph in measured if glyph.distance.length),
                   key=lambda glyph: -glyph.distance.length)[:_CLOSE_LOOKS]
    shown = "".join(_close_look(facts, glyph) for glyph in looks)
    body = f'<div class="two"><div class="prose">{explanation}</div>{_spread(facts, measured)}</div>'
    if shown:
        body += (f'<h3>The largest deviations, magnified</h3><div class="looks">{shown}</div>'
                 '<p class="key"><i class="ink"></i> exported outline <i class="line"></i> drawing '
                 "<i class=\"dot\"></i> where they are farthest apart; the grid is one thousandth of the em</p>")
    return section("accuracy", "True to the drawing", body)


def _spread(facts: Facts, glyphs: list[GlyphFacts]) -> str:
    counts = [0] * (len(_BOUNDS) + 1)
    for glyph in glyphs:
        distance = facts.thousandths(glyph.distance)
        counts[sum(distance > bound for bound in _BOUNDS)] += 1
    labels = [f"up to {_BOUNDS[0]}", *(f"{low} – {high}" for low, high in zip(_BOUNDS, _BOUNDS[1:])),
              f"over {_BOUNDS[-1]}"]
    most = max(max(counts), 1)
    rows = "".join(f'<div><span>{label}</span><i style="--share:{count / most:.3f}"></i><b>{number(count)}</b>'
                   "</div>" for label, count in zip(labels, counts))
    return f'<div class="spread"><h3>Glyphs by deviation, em/1000</h3>{rows}</div>'


def _close_look(facts: Facts, glyph: GlyphFacts) -> str:
    em = facts.units_per_em
    unit = em / 1000
    x, y = glyph.distance.point
    reach = max(_LOOK * unit, glyph.distance.length * 1.6)
    nearest_x, nearest_y = glyph.distance.nearest
    # Scaled up to numbers that SVG's numbers of single precision keep apart.
    scale = 100 / reach

    def placed(contours: list) -> str:
        moved = [[tuple((value - (x, y)[axis % 2]) * scale for axis, value in enumerate(points))
                  for points in contour] for contour in contours]
        return path_data(moved, 1)

    step = unit * scale
    lines = int(reach / unit)
    # At most a few dozen lines, however far apart the outlines are.
    grid = "" if lines > 40 else "".join(
        f"M{place * step:.1f} -100V100M-100 {place * step:.1f}H100" for place in range(-lines, lines + 1))
    end_x, end_y = (nearest_x - x) * scale, -(nearest_y - y) * scale
    return (f'<figure><svg viewBox="-100 -100 200 200" aria-hidden="true">'
            f'<path class="ink" d="{placed(glyph.exported)}"/><path class="grid" d="{grid}"/>'
            f'<path class="line" d="{placed(glyph.drawing)}"/>'
            f'<path class="gap" d="M0 0L{end_x:.1f} {end_y:.1f}"/><circle class="dot" r="3"/></svg>'
            f"<figcaption><bdi>{text(glyph.name)}</bdi><b>{number(facts.thousandths(glyph.distance), 2)}</b>"
            "</figcaption></figure>")


def glyphs(facts: Facts) -> str:
    """Every glyph: a card for the first ones, a row of a table for the others."""
    cards = "".join(_card(facts, glyph) for glyph in facts.glyphs[:MOST_CARDS])
    body = f'<div class="cards">{cards}</div>'
    others = facts.glyphs[MOST_CARDS:MOST_CARDS + MOST_ROWS]
    note = (f"All {number(len(facts.glyphs))} glyphs, exported outlines at one scale with baseline and "
            "advance width. Below each: name, character, advance, deviation from its drawing in em/1000.")
    if others:
        rows = ((text(glyph.name), _codes(glyph), number(glyph.advance), _deviation(facts, glyph))
                for glyph in others)
        body += ("<details><summary>" + f"{number(len(others))} more glyphs" + '</summary><div class="columns">'
                 + table(("Name", "Character", "Advance", "Deviation"), rows, (2, 3)) + "</div></details>")
        note = note.replace("All", "The first " + number(MOST_CARDS) + " of", 1)
    left_out = len(facts.glyphs) - MOST_CARDS - MOST_ROWS
    if left_out > 0:
        body += f'<p class="note">{number(left_out)} further glyphs are measured but not listed here.</p>'
    return section("glyphs", "Glyphs", body, note)


def _codes(glyph: GlyphFacts) -> str:
    if glyph.characters:
        own = ord(glyph.text) if len(glyph.text) == 1 else glyph.characters[0]
        return code(own if own in glyph.characters else glyph.characters[0])
    return " ".join(map(code, map(ord, glyph.text[:8])))


def _deviation(facts: Facts, glyph: GlyphFacts) -> str:
    if isinf(glyph.distance.length):
        return "lost"
    if not glyph.exported:
        return "–"
    return number(facts.thousandths(glyph.distance), 2) if glyph.distance.length else "0"


def _card(facts: Facts, glyph: GlyphFacts) -> str:
    metrics = facts.metrics
    top = max(metrics.ascender, metrics.cap_height, 1)
    height = max(top - metrics.descender, facts.units_per_em // 2)
    margin = height // 8
    # As wide as high, or wider where the glyph is, so that most cards are drawn at one scale.
    width = max(height, glyph.advance + height // 4)
    left = (glyph.advance - width) // 2
    bad = facts.thousandths(glyph.distance) > 1
    frame = (f"M{left - margin} 0h{width + 2 * margin}M0 {-top}v{height}M{glyph.advance} {-top}v{height}")
    return (f'<figure><svg viewBox="{left - margin} {-top - margin} {width + 2 * margin} {height + 2 * margin}" '
            f'aria-hidden="true"><path class="frame" d="{frame}"/><path d="{path_data(glyph.exported)}"/></svg>'
            f"<figcaption><bdi>{text(glyph.name) or '(no name)'}</bdi><span>{_codes(glyph) or '–'}</span>"
            f'<span>{number(glyph.advance)}</span><b{" class=bad" if bad else ""}>{_deviation(facts, glyph)}</b>'
            "</figcaption></figure>")
