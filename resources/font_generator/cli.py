"""The command line: reads the operands, makes the font, and says in one sentence what failed."""

import gc
import logging
import os
import signal
import sys
from collections.abc import Sequence

from .errors import GeneratorError, quoted

USAGE = "usage: generate_font.py [--brotli-quality 0..11] INPUT.json OUTPUT.(otf|ttf|woff|woff2)"
BEST_QUALITY = 11  # of brotli
DONE, FAILED, WRONG_USAGE = 0, 1, 2


def main(arguments: Sequence[str]) -> int:
    """Makes the font that the arguments ask for; returns the exit status."""
    for stream in filter(None, (sys.stdout, sys.stderr)):  # None when whoever started us closed it
        stream.reconfigure(encoding="utf-8", errors="backslashreplace")
    # What libraries have to say about a font in the making is no sentence for a designer.
    logging.disable(logging.CRITICAL)
    # A request to end is an ordinary failure: the temporary file goes, the old font stays.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    # Everything made here lives until the end, so that looking for garbage only takes time.
    gc.disable()
    quality = BEST_QUALITY
    operands = list(arguments)
    if operands[:1] == ["--brotli-quality"]:
        if len(operands) < 2 or operands[1] not in map(str, range(BEST_QUALITY + 1)):
            return _fail(USAGE, WRONG_USAGE)
        quality = int(operands[1])
        del operands[:2]
    if len(operands) != 2:
        return _fail(USAGE, WRONG_USAGE)
    try:
        warnings = _make(operands[0], operands[1], quality)
    except GeneratorError as error:
        return _fail(str(error), FAILED)
    except KeyboardInterrupt:
        return _fail("The font was not made: it was interrupted.", FAILED)
    except MemoryError:
        return _fail("There is not enough memory to make the font.", FAILED)
    except ImportError as error:
        return _fail(f"The font generator needs a Python package that is missing: {error.name}.", FAILED)
    except Exception as error:  # a fault of ours: still no traceback, still the old file
        return _fail(f"The font could not be made: {type(error).__name__}: {quoted(str(error))}.", FAILED)
    _report(warnings)
    return DONE


def _make(source: str, target: str, quality: int) -> list[tuple[str, str]]:
    from .document import read_document
    from .font import FORMATS, build_font
    from .output import check_target, write_whole

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
    if not text:
        return None
    if not (text.isascii() and text.isdigit() and len(text) <= 15):
        raise GeneratorError(f"SOURCE_DATE_EPOCH is {quoted(text)}, which is no number of seconds.")
    return int(text)


def _report(warnings: Sequence[tuple[str, str]]) -> None:
    """Prints the warnings. The font is written by now: nobody listening is no failure."""
    if sys.stdout is None:
        return
    try:
        for glyph, message in warnings:
            print(f"{quoted(glyph)[1:-1]}: {message}")
        sys.stdout.flush()
    except OSError:
        # Or the interpreter would try once more to empty the stream, and complain.
        os.dup2(os.open(os.devnull, os.O_WRONLY), 1)


def _fail(sentence: str, status: int) -> int:
    try:
        if sys.stderr is not None:
            print(sentence, file=sys.stderr, flush=True)
    except OSError:
        pass
    return status
