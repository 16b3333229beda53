"""What all parts of the page are written with: text, numbers, outlines."""

from collections.abc import Iterable, Sequence
from html import escape
from unicodedata import bidirectional, category

from .distances import Contour

# The directions of characters that can stand in a sample without turning it round, and the
# categories of those that draw nothing or need a base.
_LEFT_TO_RIGHT = {"L", "EN", "ES", "ET", "AN", "CS", "ON", "WS"}
_NOT_ALONE = {"Mn", "Me", "Mc", "Cc", "Cf", "Cs", "Cn", "Zl", "Zp"}
_LONGEST_TEXT = 400


def text(value: str) -> str:
    """Text of the project or the font as it can stand anywhere in a page: escaped, without
    characters that HTML has no place for or that reach out of their line."""
    if len(value) > _LONGEST_TEXT:
        value = value[:_LONGEST_TEXT] + "…"
    shown = "".join(character if _is_harmless(character) else f"\\u{{{ord(character):x}}}"
                    for character in value)
    return escape(shown)


def _is_harmless(character: str) -> bool:
    return category(character) not in ("Cc", "Cs", "Zl", "Zp") and bidirectional(character) not in (
        "LRE", "RLE", "LRO", "RLO", "PDF", "LRI", "RLI", "FSI", "PDI")


def stands_alone(scalar: int) -> bool:
    """Whether the character can be set by itself, or beside another one, from left to right."""
    character = chr(scalar)
    return category(character) not in _NOT_ALONE and bidirectional(character) in _LEFT_TO_RIGHT


def code(scalar: int) -> str:
    """A character's number as one writes it."""
    return f"U+{scalar:04X}"


def number(value: float, places: int = 0) -> str:
    """A number with a true minus, and from 10,000 on with thousands set apart by a narrow space."""
    grouped = f"{value:,.{places}f}" if abs(value) >= 10000 else f"{value:.{places}f}"
    return grouped.replace(",", "\u202f").replace("-", "−")


def path_data(contours: Sequence[Contour], places: int = 0) -> str:
    """The outlines as the data of an SVG path, y downwards, with so many decimal places."""
    parts = []
    for contour in contours:
        for index, points in enumerate(contour):
            letter = "M" if index == 0 else {2: "L", 4: "Q", 6: "C"}[len(points)]
            signed = (-value if axis % 2 else value for axis, value in enumerate(points))
            parts.append(letter + " ".join(f"{value + 0.0:.{places}f}" for value in signed))
        parts.append("Z")
    return "".join(parts)


def section(identifier: str, title: str, body: str, note: str = "") -> str:
    """A section of the page; `note` stands beside its title."""
    aside = f'<p class="note">{note}</p>' if note else ""
    return (f'<section id="{identifier}"><header><h2>{title}</h2>{aside}</header>'
            f'<div class="body">{body}</div></section>\n')


def table(head: Sequence[str], rows: Iterable[Sequence[str]], numbers: Sequence[int] = ()) -> str:
    """A table of cells that are markup already; the columns `numbers` are set to the right."""
    def cells(tag: str, row: Sequence[str]) -> str:
        return "".join(f'<{tag} class="n">{cell}</{tag}>' if column in numbers else f"<{tag}>{cell}</{tag}>"
                       for column, cell in enumerate(row))

    body = "\n".join(f"<tr>{cells('td', row)}</tr>" for row in rows)
    return f"<table><thead><tr>{cells('th', head)}</tr></thead><tbody>{body}</tbody></table>"


def facts_list(entries: Iterable[tuple[str, str]]) -> str:
    """Terms and what they are, two by two, as a list."""
    return "<dl>" + "".join(f"<div><dt>{term}</dt><dd>{value}</dd></div>"
                            for term, value in entries if value) + "</dl>"
