"""Puts a finished file in its place, whole or not at all. `product` is what messages call it."""

import os
import stat
import tempfile

from .errors import GeneratorError, quoted


def check_target(path: str, product: str = "font") -> None:
    """Raises GeneratorError if no file can be written at `path`, before any work is done."""
    target = os.path.realpath(path)
    try:
        mode = os.stat(target).st_mode
    except FileNotFoundError:
        mode = stat.S_IFREG
    except (OSError, ValueError) as error:
        raise _failure(path, product, getattr(error, "strerror", None) or str(error)) from error
    if stat.S_ISDIR(mode):
        raise _failure(path, product, "it is a folder")
    if not stat.S_ISREG(mode):
        raise _failure(path, product, "it is not a regular file")
    if not os.path.isdir(os.path.dirname(target)):
        raise _failure(path, product, "its folder does not exist")


def write_whole(path: str, data: bytes, product: str = "font") -> None:
    """Replaces the file at `path` by `data`; whatever fails, an old file stays as it was.

    Links are followed, and an old file's mode is kept. Raises GeneratorError.
    """
    target = os.path.realpath(path)
    temporary = ""
    try:
        descriptor, temporary = tempfile.mkstemp(".part", ".font-", os.path.dirname(target))
        with open(descriptor, "wb") as file:
            file.write(data)
            os.fchmod(descriptor, _mode_for(target))
            file.flush()
            os.fsync(descriptor)
        os.replace(temporary, target)
    except OSError as error:
        raise _failure(path, product, str(error.strerror)) from error
    finally:
        if os.path.lexists(temporary):
            os.unlink(temporary)


def _mode_for(target: str) -> int:
    try:
        return stat.S_IMODE(os.stat(target).st_mode)
    except FileNotFoundError:
        # Reading the mask that new files get means setting it for a moment.
        mask = os.umask(0)
        os.umask(mask)
        return 0o666 & ~mask


def _failure(path: str, product: str, reason: str) -> GeneratorError:
    return GeneratorError(f"The {product} {quoted(path)} cannot be written: {reason}.")
