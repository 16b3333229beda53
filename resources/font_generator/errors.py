"""The one way in which making a font fails, and the wording that failures share."""

LONGEST_QUOTE = 60


class GeneratorError(Exception):
    """A failure that the user can act on; its text is one sentence on one line."""


def quoted(text: str) -> str:
    """`text` in double quotes, printable, on one line and cut to LONGEST_QUOTE characters."""
    cut = text[:LONGEST_QUOTE] + "…" if len(text) > LONGEST_QUOTE else text
    shown = "".join(c if c.isprintable() else c.encode("unicode_escape").decode() for c in cut)
    return f'"{shown}"'


def plain(number: float) -> str:
    """`number` as a person writes it: 1000 rather than 1000.0."""
    return str(int(number)) if number == int(number) and abs(number) < 1e15 else repr(number)
