"""The generator's command line: reads the operands, makes the font and writes it."""

import os
from collections.abc import Sequence

from .command import WRONG_USAGE, Warnings, fail, run
from .errors import GeneratorError, quoted
from .output import check_target, write_whole

USAGE = "usage: generate_font.py [--brotli-quality 0..11] INPUT.json OUTPUT.(otf|ttf|woff|woff2)"
BEST_QUALITY = 11  # of brotli


def main(arguments: Sequence[str]) -> int:
    """Makes the font that the arguments ask for; returns the exit status."""
    quality = str(BEST_QUALITY)
    operands = list(arguments)
    if operands[:1] == ["--brotli-quality"]:
        _, quality, *operands = [*operands, ""] if len(operands) == 1 else operands
    if len(operands) != 2 or quality not in map(str, range(BEST_QUALITY + 1)):
        return fail(USAGE, WRONG_USAGE)
    return run(lambda: make_font(*operands, int(quality)), "font")


def make_font(source: str, target: str, quality: int) -> Warnings:
    """Writes the font `target` of the description `source`; raises GeneratorError."""
    from .document import read_document
    from .font import FORMATS, build_font

    extension = os.path.splitext(target)[1].lower().removeprefix(".")
    if extension not in FORMATS:
        raise GeneratorError(f"The font {quoted(target)} cannot be written: its name ends in none of "
                             f"{', '.join('.' + known for known in FORMATS)}.")
    check_target(target)
    data, warnings = build_font(read_document(source), extension, quality, build_date())
    write_whole(target, data)
    return warnings


def build_date() -> int | None:
    """The date that SOURCE_DATE_EPOCH gives, in seconds since 1970, if it gives any."""
    text = os.environ.get("SOURCE_DATE_EPOCH", "")
    if text and not (text.isascii() and text.isdigit() and len(text) <= 15):
        raise GeneratorError(f"SOURCE_DATE_EPOCH is {quoted(text)}, which is no number of seconds.")
    return int(text) if text else None
