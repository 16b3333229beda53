"""Puts a finished file in its place, whole or not at all. `product` is what messages call it."""

import os
import stat

from .errors import GeneratorError, quoted


def check_target(path: str, product: str = "font") -> None:
    """Raises GeneratorError if no file can be written at `path`, before any work is done."""
    target = os.path.realpath(path)
    folder = os.path.dirname(target)
    try:
        mode = os.stat(target).st_mode
    except FileNotFoundError:
        mode = None
    except (OSError, ValueError) as error:
        raise _failure(path, product, error) from error
    if mode is not None and stat.S_ISDIR(mode):
        raise GeneratorError(f"The {product} {quoted(path)} cannot be written: it is a folder.")
    if mode is not None and not stat.S_ISREG(mode):
        raise GeneratorError(f"The {product} {quoted(path)} cannot be written: it is not a regular file.")
    if not os.path.isdir(folder):
        raise GeneratorError(f"The {product} {quoted(path)} cannot be written: its folder does not exist.")


def write_whole(path: str, data: bytes, product: str = "font") -> None:
    """Replaces the file at `path` by `data`; whatever fails, an old file stays as it was.

    Links are followed, and an old file's mode is kept. Raises GeneratorError.
    """
    target = os.path.realpath(path)
    folder = os.path.dirname(target)
    temporary = None
    try:
        descriptor, temporary = _new_file(folder)
        with open(descriptor, "wb") as file:
            file.write(data)
            os.fchmod(descriptor, _mode_for(target))
            file.flush()
            os.fsync(descriptor)
        os.replace(temporary, target)
        temporary = None
        _sync_folder(folder)
    except OSError as error:
        raise _failure(path, product, error) from error
    finally:
        if temporary is not None:
            try:
                os.unlink(temporary)
            except OSError:
                pass


def _new_file(folder: str) -> tuple[int, str]:
    """An empty file of its own in the folder, opened for writing, and its path."""
    flags = os.O_WRONLY | os.O_CREAT | os.O_EXCL | getattr(os, "O_NOFOLLOW", 0)
    while True:
        path = os.path.join(folder, f".font-{os.urandom(6).hex()}.part")
        try:
            return os.open(path, flags, 0o600), path
        except FileExistsError:
            continue


def _mode_for(target: str) -> int:
    try:
        return stat.S_IMODE(os.stat(target).st_mode)
    except FileNotFoundError:
        # Reading the mask that new files get means setting it for a moment.
        mask = os.umask(0)
        os.umask(mask)
        return 0o666 & ~mask


def _sync_folder(folder: str) -> None:
    """Makes the new name last. The file is complete by now: that a file system knows no such
    thing for folders is no failure."""
    try:
        descriptor = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    except OSError:
        return
    try:
        os.fsync(descriptor)
    except OSError:
        pass
    finally:
        os.close(descriptor)


def _failure(path: str, product: str, error: Exception) -> GeneratorError:
    reason = getattr(error, "strerror", None) or str(error)
    return GeneratorError(f"The {product} {quoted(path)} cannot be written: {reason}.")
