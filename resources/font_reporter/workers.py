"""Does part of the work in a second process, for Python keeps to one processor."""

import os
import pickle
from collections.abc import Callable
from typing import TypeVar

Result = TypeVar("Result")


def processors() -> int:
    """How many processors this process may use."""
    try:
        return len(os.sched_getaffinity(0))
    except AttributeError:  # a system that doesn't tell
        return os.cpu_count() or 1


def beside(work: Callable[[], Result]) -> Callable[[], Result | None]:
    """Starts `work` in a second process; returns a function that waits for its result.

    None comes back when the second process could not start or failed, whatever the reason:
    whoever needs the result then does the work once more, where errors can be reported.
    """
    try:
        receiving, sending = os.pipe()
        child = os.fork()
    except (OSError, AttributeError):
        return lambda: None
    if child == 0:
        status = 1
        try:
            os.close(receiving)
            with open(sending, "wb") as pipe:
                pickle.dump(work(), pipe, pickle.HIGHEST_PROTOCOL)
            status = 0
        finally:
            # No more than that: buffers and files of the other process are not ours to close.
            os._exit(status)
    os.close(sending)

    def wait() -> Result | None:
        with open(receiving, "rb") as pipe:
            data = pipe.read()
        _, status = os.waitpid(child, 0)
        return pickle.loads(data) if status == 0 else None

    return wait
