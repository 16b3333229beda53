"""The generator's command line: reads the operands, makes the font and writes it."""

import os
from collections.abc import Sequence

from .command import WRONG_USAGE, Warnings, fail, prepare, run, silence_libraries
from .errors import GeneratorError, quoted

USAGE = "usage: generate_font.py [--brotli-quality 0..11] INPUT.json OUTPUT.(otf|ttf|woff|woff2)"
BEST_QUALITY = 11  # of brotli


def main(arguments: Sequence[str]) -> int:
    """Makes the font that the arguments ask for; returns the exit status."""
    prepare()
    quality = BEST_QUALITY
    operands = list(arguments)
    if operands[:1] == ["--brotli-quality"]:
        if len(operands) < 2 or operands[1] not in map(str, range(BEST_QUALITY + 1)):
            return fail(USAGE, WRONG_USAGE)
        quality = int(operands[1])
        del operands[:2]
    if len(operands) != 2:
        return fail(USAGE, WRONG_USAGE)
    return run(lambda: _make(operands[0], operands[1], quality), "font")


def _make(source: str, target: str, quality: int) -> Warnings:
    from .document import read_document
    from .formats import FORMATS, encoder_for
    from .output import check_target, write_whole

    extension = os.path.splitext(target)[1].lower().removeprefix(".")
    if extension not in FORMATS:
        raise GeneratorError(f"The font {quoted(target)} cannot be written: its name ends in none of "
                             f"{', '.join('.' + known for known in FORMATS)}.")
    check_target(target)
    document = read_document(source, encoder_for(extension), meanwhile=_load_the_rest)
    silence_libraries()
    from .font import build_font
    data, warnings = build_font(document, extension, quality, build_date())
    write_whole(target, data)
    return warnings


def _load_the_rest() -> None:
    """Loads what is needed once the description is read."""
    from . import font  # noqa: F401 (loading is all there is to it)


def build_date() -> int | None:
    """The date that SOURCE_DATE_EPOCH gives, in seconds since 1970, if it gives any."""
    text = os.environ.get("SOURCE_DATE_EPOCH", "")
    if not text:
        return None
    if not (text.isascii() and text.isdigit() and len(text) <= 15):
        raise GeneratorError(f"SOURCE_DATE_EPOCH is {quoted(text)}, which is no number of seconds.")
    return int(text)
