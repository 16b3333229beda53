"""How a command of ours runs: what it says, and with which status it ends, whatever happens."""

import logging
import os
import signal
import sys
from collections.abc import Callable, Sequence

from .errors import GeneratorError, quoted

DONE, FAILED, WRONG_USAGE = 0, 1, 2

Warnings = Sequence[tuple[str, str]]  # of glyphs: what the project calls one, and a message


def run(work: Callable[[], Warnings], product: str) -> int:
    """Does `work`, which makes the product ("font"), and prints the warnings that it returns.

    Returns the exit status; a failure prints one sentence on standard error.
    """
    # A request to end is an ordinary failure: the temporary file goes, the old one stays.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    # What libraries have to say about a font in the making is no sentence for a designer.
    logging.disable(logging.CRITICAL)
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
    _say(sys.stdout, "".join(f"{quoted(glyph)[1:-1]}: {message}\n" for glyph, message in warnings))
    return DONE


def fail(sentence: str, status: int) -> int:
    """Prints the sentence on standard error; returns the status."""
    _say(sys.stderr, sentence + "\n")
    return status


def _say(stream: object, text: str) -> None:
    """Prints the text, if anybody listens: nobody listening is no failure."""
    if stream is None:  # closed by whoever started us
        return
    try:
        stream.reconfigure(encoding="utf-8", errors="backslashreplace")
        stream.write(text)
        stream.flush()
    except OSError:
        # Or the interpreter would try once more to empty the stream, and complain.
        os.dup2(os.open(os.devnull, os.O_WRONLY), stream.fileno())
