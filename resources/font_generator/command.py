"""How a command of ours runs: what it says, and with which status it ends, whatever happens."""

import gc
import os
import signal
import sys
from collections.abc import Callable, Sequence

from .errors import GeneratorError, quoted

DONE, FAILED, WRONG_USAGE = 0, 1, 2

Warnings = Sequence[tuple[str, str]]  # of glyphs: what the project calls one, and a message


def prepare() -> None:
    """Sets up the process of a command, before its operands are read."""
    for stream in filter(None, (sys.stdout, sys.stderr)):  # None when whoever started us closed it
        stream.reconfigure(encoding="utf-8", errors="backslashreplace")
    # A request to end is an ordinary failure: the temporary file goes, the old one stays.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    # Everything made here lives until the end, so that looking for garbage only takes time.
    gc.disable()


def silence_libraries() -> None:
    """What libraries have to say about a font in the making is no sentence for a designer."""
    import logging
    logging.disable(logging.CRITICAL)


def run(work: Callable[[], Warnings], product: str) -> int:
    """Does `work`, which makes the product ("font"), and prints the warnings that it returns.

    Returns the exit status; a failure prints one sentence on standard error.
    """
    try:
        warnings = work()
    except GeneratorError as error:
        return fail(str(error), FAILED)
    except KeyboardInterrupt:
        return fail(f"The {product} was not made: it was interrupted.", FAILED)
    except MemoryError:
        return fail(f"There is not enough memory to make the {product}.", FAILED)
    except ImportError as error:
        return fail(f"Making the {product} needs a Python package that is missing: {error.name}.", FAILED)
    except Exception as error:  # a fault of ours: still no traceback, still the old file
        return fail(f"The {product} could not be made: {type(error).__name__}: "
                    f"{quoted(str(error))}.", FAILED)
    _report(warnings)
    return DONE


def leave(status: int) -> None:
    """Ends the process, whose output is written by now, without taking its objects apart one by
    one: the system frees memory at once."""
    for stream in filter(None, (sys.stdout, sys.stderr)):
        try:
            stream.flush()
        except OSError:
            pass
    os._exit(status)


def fail(sentence: str, status: int) -> int:
    """Prints the sentence on standard error, if anybody listens; returns the status."""
    try:
        if sys.stderr is not None:
            print(sentence, file=sys.stderr, flush=True)
    except OSError:
        pass
    return status


def warning_line(glyph: str, message: str) -> str:
    """A warning on one line."""
    return f"{quoted(glyph)[1:-1]}: {message}"


def _report(warnings: Warnings) -> None:
    """Prints the warnings. The file is written by now: nobody listening is no failure."""
    if sys.stdout is None:
        return
    try:
        for glyph, message in warnings:
            print(warning_line(glyph, message))
        sys.stdout.flush()
    except OSError:
        # Or the interpreter would try once more to empty the stream, and complain.
        os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
