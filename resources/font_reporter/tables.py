"""The sections with measures: vertical metrics as a diagram, and what of Unicode is covered."""

from .facts import Facts
from .markup import code, facts_list, number, path_data, section, table, text

# What stands in the diagram, as far as the font has it: capitals, ascenders, descenders.
_LETTERS = "Hxdgp"
_MOST_LETTERS = 5


def metrics(facts: Facts) -> str:
    """The measures of the font, drawn and listed."""
    values = facts.metrics
    left, bottom, right, top = values.box
    listed = facts_list([
        ("Units per em", number(facts.units_per_em)), ("Ascender", number(values.ascender)),
        ("Cap height", number(values.cap_height)), ("x-height", number(values.x_height)),
        ("Descender", number(values.descender)), ("Line gap", "0"),
        ("Line height", f"{number((values.ascender - values.descender) / facts.units_per_em, 2)} em"),
        ("Clipping on Windows", f"{number(values.win_ascent)} above, {number(values.win_descent)} below"),
        ("Box of all glyphs", f"x {number(left)} to {number(right)}, y {number(bottom)} to {number(top)}"),
        ("Underline", f"{number(values.underline_position)}, {number(values.underline_thickness)} thick"),
        ("Average advance", number(values.average_advance)),
        ("Widest advance", number(values.widest_advance)),
        ("Fixed pitch", "yes" if values.fixed_pitch else "no")])
    return section("metrics", "Metrics", _diagram(facts) + listed, "In font units, from the baseline upwards.")


def _diagram(facts: Facts) -> str:
    values, em = facts.metrics, facts.units_per_em
    by_text = {glyph.text: glyph for glyph in facts.glyphs if glyph.exported}
    shown = [by_text[letter] for letter in _LETTERS if letter in by_text]
    if len(shown) < 2:
        shown = [glyph for glyph in facts.glyphs if glyph.exported and glyph.text][:_MOST_LETTERS]
    # In a thousand units to the em, so that lines and labels are as heavy in every font.
    scale = 1000 / em
    letters, pen = [], 60.0
    for glyph in shown:
        letters.append(f'<path class="frame" d="M{pen:.0f} {-values.ascender * scale:.0f}'
                       f'V{-values.descender * scale:.0f}"/>'
                       f'<path transform="translate({pen:.1f} 0) scale({scale:.5f})" '
                       f'd="{path_data(glyph.exported)}"/>')
        pen += glyph.advance * scale
    width = max(pen + 60, 1800.0)
    lines, last = [], None
    marks = [("Ascender", values.ascender), ("Cap height", values.cap_height), ("x-height", values.x_height),
             ("Baseline", 0), ("Descender", values.descender)]
    for name, value in sorted(marks, key=lambda mark: -mark[1]):
        y = -value * scale
        # Labels of lines that lie close to each other move down until they can be read.
        label = y if last is None else max(y, last + 62)
        last = label
        lines.append(f'<path class="{"base" if name == "Baseline" else "guide"}" d="M0 {y:.1f}H{width:.0f}"/>'
                     f'<text x="{width + 30:.0f}" y="{label + 15:.1f}">{name}</text>'
                     f'<text class="n" x="{width + 520:.0f}" y="{label + 15:.1f}">{number(value)}</text>')
    high = max(values.ascender, values.cap_height, values.x_height, 0) * scale + 60
    low = -min(values.descender, 0) * scale
    height = high + max(low, last or 0) + 60
    return (f'<svg class="diagram" viewBox="0 {-high:.0f} {width + 540:.0f} {height:.0f}" role="img" '
            f'aria-label="Vertical metrics">{"".join(letters)}{"".join(lines)}</svg>')


def coverage(facts: Facts) -> str:
    """Blocks of Unicode with how much of them is there, and the languages that can be written."""
    found = facts.coverage
    rows = [(text(block.name.replace("_", " ")), f"{code(block.first)}–{code(block.last)[2:]}",
             f'<i class="bar" style="--share:{block.covered / block.size:.3f}"></i>',
             f"{number(block.covered)} of {number(block.size)}") for block in found.blocks]
    body = table(("Block", "Codes", "", "Characters"), rows, (3,)) if rows else "<p>No characters.</p>"
    if found.complete:
        chips = "".join(f"<li>{language}</li>" for language in found.complete)
        body += f'<h3>Languages in Latin letters, complete</h3><ul class="chips">{chips}</ul>'
    if found.nearly:
        chips = "".join(f"<li>{language} <span>lacks {' '.join(missing)}</span></li>"
                        for language, missing in found.nearly)
        body += f'<h3>Nearly complete</h3><ul class="chips nearly">{chips}</ul>'
    return section("coverage", "Characters", body,
                   f"{number(len(facts.characters))} characters can be typed, in {number(len(found.blocks))} "
                   "blocks of Unicode. A language is complete when all its letters are there, both cases.")
