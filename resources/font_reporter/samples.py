"""The sections in which the font itself speaks: title, specimen, waterfall, kerning."""

from math import isinf

from .facts import Facts
from .markup import facts_list, number, path_data, section, stands_alone, table, text
from .pairs import ShapedPair

_SIZES = (96, 72, 60, 48, 36, 30, 24, 18, 14, 12, 10)
MOST_TILES, MOST_ROWS = 200, 3000

# Sentences with many letters of their languages; the first ones that the font has are shown.
_SENTENCES = (
    "Sphinx of black quartz, judge my vow",
    "The quick brown fox jumps over the lazy dog",
    "Zwölf Boxkämpfer jagen Viktor quer über den Sylter Deich",
    "Voix ambiguë d’un cœur qui préfère les jattes de kiwis",
    "El pingüino Wenceslao hizo kilómetros bajo exhaustiva lluvia",
    "Pchnąć w tę łódź jeża lub ośm skrzyń fig",
    "Съешь же ещё этих мягких французских булок",
    "Ξεσκεπάζω την ψυχοφθόρα βδελυγμία",
    "SPHINX OF BLACK QUARTZ JUDGE MY VOW",
    "sphinx of black quartz judge my vow",
    "0123456789",
)
_LARGE = ("Hamburgefonstiv", "HAMBURGEFONSTIV", "hamburgefonstiv", "Agf 123", "Aa Bb Cc", "ABC", "abc", "123")
_OWN_LETTERS = 48  # of the font, where no sentence fits


def _has(facts: Facts, sample: str) -> bool:
    return all(ord(character) in facts.characters for character in sample if character != " ")


def _fitting(facts: Facts, sample: str, largest: float) -> float:
    """The em size at which a line of text is as wide as the page, in widths of the page."""
    advances = {scalar: glyph.advance for glyph in facts.glyphs for scalar in glyph.characters}
    width = sum(advances.get(ord(character), facts.units_per_em / 2) for character in sample)
    return max(min(largest, 0.98 * facts.units_per_em / max(width, 1)), 0.03)


def own_letters(facts: Facts, most: int) -> str:
    """The first characters in the project's order that can be set side by side."""
    found: list[str] = []
    for glyph in facts.glyphs:
        if len(found) == most:
            break
        if len(glyph.text) == 1 and glyph.exported and stands_alone(ord(glyph.text)):
            found.append(glyph.text)
    return "".join(found)


def title(facts: Facts) -> str:
    """The head of the page: the font's name set in itself where it can, and what it is."""
    name = facts.family if facts.style == "Regular" else f"{facts.family} {facts.style}"
    face = "face" if _has(facts, name) else "plain"
    document = facts.document
    warnings = len(facts.warnings)
    figures = [
        (number(len(facts.glyphs)), "glyphs"), (number(len(facts.characters)), "characters"),
        (number(len(facts.pairs)), "kerning pairs"), (number(facts.units_per_em), "units per em"),
        (worst(facts), "largest deviation, em/1000"), (number(warnings), f'warning{"s" * (warnings != 1)}')]
    strip = "".join(f'<div><b>{value}</b><span>{label}</span></div>' for value, label in figures)
    details = facts_list([
        ("Family", text(facts.family)), ("Style", f"{text(facts.style)}, weight {facts.weight}"),
        ("Version", text(facts.version.removeprefix("Version "))),
        ("PostScript name", text(facts.postscript)), ("Designer", text(document.designer.strip())),
        ("Copyright", text(document.copyright.strip())), ("Format", facts.format_name),
        ("File size", f"{number(len(facts.file.data) / 1024, 1)} KB")])
    return (f'<header class="cover"><p class="kicker">Font report</p>'
            f'<h1 class="{face}" style="--size:{_fitting(facts, name, 0.13):.4f}">{text(name)}</h1>{details}'
            f'<div class="figures">{strip}</div></header>\n')


def worst(facts: Facts) -> str:
    """The largest distance of the font, in thousandths of the em."""
    return number(facts.worst, 2) if facts.worst else "< 0.05"


def specimen(facts: Facts) -> str:
    """One line as large as it gets, and everyday text."""
    large = next((sample for sample in _LARGE if _has(facts, sample)), "") or own_letters(facts, 8)
    sentences = [sentence for sentence in _SENTENCES if _has(facts, sentence)][:4]
    if not large:
        return ""
    if not sentences:
        sentences = [own_letters(facts, _OWN_LETTERS)]
    lines = "".join(f"<p>{text(sentence)}</p>" for sentence in sentences)
    return (f'<section class="wide" id="specimen"><p class="face large" '
            f'style="--size:{_fitting(facts, large, 0.3):.4f}">'
            f'{text(large)}</p><div class="face sentences">{lines}</div></section>\n')


def waterfall(facts: Facts) -> str:
    """One sentence at many sizes, each on a line that ends where the page does."""
    sample = next((sentence for sentence in _SENTENCES if _has(facts, sentence)),
                  own_letters(facts, _OWN_LETTERS))
    if not sample:
        return ""
    rows = "".join(f'<div><span>{size}</span><p class="face" style="font-size:{size}px">{text(sample)}</p>'
                   "</div>" for size in _SIZES)
    return section("waterfall", "Waterfall", f'<div class="waterfall">{rows}</div>',
                   "Sizes in pixels of the screen, unhinted.")


def kerning(facts: Facts) -> str:
    """The pairs as the font sets them, the largest as samples and the rest in a table."""
    if not facts.pairs:
        return section("kerning", "Kerning", "<p>The project has no kerning pairs.</p>")
    tiles = "".join(_tile(facts, pair) for pair in facts.pairs[:MOST_TILES])
    body = f'<div class="pairs">{tiles}</div>'
    rest = facts.pairs[MOST_TILES:MOST_TILES + MOST_ROWS]
    if rest:
        rows = ((text(facts.glyphs[pair.left].name), text(facts.glyphs[pair.right].name), _value(pair))
                for pair in rest)
        body += (f"<details><summary>{number(len(rest))} more pairs</summary><div class=\"columns\">"
                 + table(("Left", "Right", "Value"), rows, (2,)) + "</div></details>")
    left_out = len(facts.pairs) - MOST_TILES - MOST_ROWS
    if left_out > 0:
        body += f"<p class=\"note\">{number(left_out)} pairs of smaller values are left out here.</p>"
    wrong = sum(pair.value != pair.wanted for pair in facts.pairs)
    check = ("every one as the project has it" if not wrong else
             f"{number(wrong)} of them other than in the project, marked “wanted”")
    return section("kerning", "Kerning", body,
                   f"{number(len(facts.pairs))} pairs, looked up in the font as a text engine does: {check}. "
                   "Values in font units, the largest first; samples are set by this page’s own text engine.")


def _value(pair: ShapedPair) -> str:
    value = ("+" if pair.value > 0 else "") + number(pair.value)
    return value if pair.value == pair.wanted else f"{value} <em>wanted {number(pair.wanted)}</em>"


def _tile(facts: Facts, pair: ShapedPair) -> str:
    left, right = facts.glyphs[pair.left], facts.glyphs[pair.right]
    letters = [next((scalar for scalar in glyph.characters if stands_alone(scalar)), None)
               for glyph in (left, right)]
    if None in letters:
        sample = _drawn_pair(facts, pair)
    else:
        sample = f'<p class="face" dir="ltr">{text("".join(map(chr, filter(None, letters))))}</p>'
    return (f'<div>{sample}<span class="names"><bdi>{text(left.name)}</bdi> <bdi>{text(right.name)}</bdi>'
            f'</span><b>{_value(pair)}</b></div>')


def _drawn_pair(facts: Facts, pair: ShapedPair) -> str:
    """A pair of glyphs that no text reaches from left to right, put together from outlines."""
    left, right = facts.glyphs[pair.left], facts.glyphs[pair.right]
    metrics = facts.metrics
    top, height = metrics.ascender, max(metrics.ascender - metrics.descender, 1)
    step = left.advance + pair.value
    width = max(step + right.advance, 1)
    return (f'<svg viewBox="0 {-top} {width} {height}" aria-hidden="true"><path d="{path_data(left.exported)}"/>'
            f'<path transform="translate({step} 0)" d="{path_data(right.exported)}"/></svg>')


def warnings(facts: Facts) -> str:
    """What a designer may want to act on."""
    if not facts.warnings:
        body = '<p class="good">Nothing to remark: every glyph of the project is in the font as drawn.</p>'
    else:
        rows = "".join(f"<li><bdi>{text(glyph)}</bdi>: {text(message)}</li>"
                       for glyph, message in facts.warnings[:MOST_ROWS])
        body = f'<ul class="warnings">{rows}</ul>'
        left_out = len(facts.warnings) - MOST_ROWS
        body += f'<p class="note">{number(left_out)} more are left out here.</p>' if left_out > 0 else ""
    lost = sum(isinf(glyph.distance.length) for glyph in facts.glyphs)
    note = f"{number(lost)} glyphs lost their drawing." if lost else ""
    return section("warnings", "Warnings", body, note)
