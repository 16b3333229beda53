"""How a command of ours, which makes a `product` ("font"), runs, what it says, and how its file is written."""

import logging
import os
import signal
import stat
import sys
import tempfile
from collections.abc import Callable, Sequence
from typing import TextIO

Warnings = Sequence[tuple[str, str]]  # of glyphs: what the project calls one, and a message


class GeneratorError(Exception):
    """A failure that the user can act on; its text is one sentence on one line."""


def quoted(text: str) -> str:
    """`text` in double quotes, printable, on one line and cut to 60 characters."""
    shown = "".join(c if c.isprintable() else c.encode("unicode_escape").decode() for c in text[:60])
    return f'"{shown}…"' if len(text) > 60 else f'"{shown}"'


def plain(number: float) -> str:
    """`number` as a person writes it: 1000 rather than 1000.0."""
    return str(int(number)) if number == int(number) and abs(number) < 1e15 else repr(number)


def run(work: Callable[[], Warnings], product: str) -> int:
    """Does `work` and prints the warnings that it returns, or one sentence; returns the exit status."""
    # A request to end is an ordinary failure: the temporary file goes, the old one stays.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    # What libraries have to say about a font in the making is no sentence for a designer.
    logging.disable(logging.CRITICAL)
    try:
        warnings = work()
    except GeneratorError as error:
        return fail(str(error))
    except KeyboardInterrupt:
        return fail(f"The {product} was not made: it was interrupted.")
    except MemoryError:
        return fail(f"There is not enough memory to make the {product}.")
    except ImportError as error:
        return fail(f"Making the {product} needs a Python package that is missing: {error.name}.")
    except Exception as error:  # a fault of ours: still no traceback, still the old file
        return fail(f"The {product} could not be made: {type(error).__name__}: {quoted(str(error))}.")
    return _say(sys.stdout, "".join(f"{quoted(glyph)[1:-1]}: {message}\n" for glyph, message in warnings), 0)


def fail(sentence: str, status: int = 1) -> int:
    return _say(sys.stderr, sentence + "\n", status)


def _say(stream: TextIO | None, text: str, status: int) -> int:
    """Prints the text if anybody listens; the stream is None when whoever started us closed it."""
    try:
        if stream is not None:
            stream.reconfigure(encoding="utf-8", errors="backslashreplace")
            print(text, end="", file=stream, flush=True)
    except OSError:  # or the interpreter would try once more to empty the stream, and complain
        os.dup2(os.open(os.devnull, os.O_WRONLY), stream.fileno())
    return status


def check_target(path: str, product: str) -> None:
    """Raises GeneratorError if no file can be written at `path`, before any work is done."""
    target = os.path.realpath(path)
    try:
        mode = os.stat(target).st_mode
        fault = "it is a folder" if stat.S_ISDIR(mode) else "" if stat.S_ISREG(mode) else "it is not a regular file"
    except FileNotFoundError:
        fault = "" if os.path.isdir(os.path.dirname(target)) else "its folder does not exist"
    except (OSError, ValueError) as error:
        fault = getattr(error, "strerror", None) or str(error)
    if fault:
        raise GeneratorError(f"The {product} {quoted(path)} cannot be written: {fault}.")


def write_whole(path: str, data: bytes, product: str) -> None:
    """Replaces the file at `path` by `data`, following links and keeping the mode; raises GeneratorError."""
    target, temporary = os.path.realpath(path), ""
    try:
        descriptor, temporary = tempfile.mkstemp(".part", ".font-", os.path.dirname(target))
        with open(descriptor, "wb") as file:
            file.write(data)
            file.flush()
            os.umask(mask := os.umask(0))  # which can't be read otherwise
            os.fchmod(descriptor, os.stat(target).st_mode & 0o7777 if os.path.exists(target) else 0o666 & ~mask)
            os.fsync(descriptor)
        os.replace(temporary, target)
    except OSError as error:
        raise GeneratorError(f"The {product} {quoted(path)} cannot be written: {error.strerror}.") from error
    finally:
        if os.path.exists(temporary):
            os.unlink(temporary)
