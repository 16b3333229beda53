"""Runs programs to their end and measures them: time, processor time and memory."""

import os
import signal
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path
from statistics import median


@dataclass(frozen=True)
class Run:
    """Seconds by the clock and of all processors."""

    seconds: float
    processor: float

    def __add__(self, other):
        return Run(self.seconds + other.seconds, self.processor + other.processor)


def run(command):
    """Runs the command; its children count in as far as it waits for them."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    said = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode:
        raise SystemExit(f"{command[0]} failed: {said.decode(errors='replace')[-400:]}")
    return Run(seconds, usage.ru_utime + usage.ru_stime)


def run_all(commands):
    """The commands one after the other, as one Run."""
    return sum((run(command) for command in commands[1:]), run(commands[0]))


def peak_memory(commands):
    """The most memory in MB that one of the commands takes with all its children at a time: pages
    that processes share count once. Sampled, in a run that is not timed."""
    most = 0
    for command in commands:
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   start_new_session=True)
        try:
            while process.poll() is None:
                most = max(most, sum(map(_proportional_size, _session(process.pid))))
                time.sleep(0.005)
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGTERM)
    return most / 1024


def _session(leader):
    for entry in Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                if os.getsid(int(entry.name)) == leader:
                    yield entry
            except OSError:
                pass


def _proportional_size(process):
    try:
        for line in (process / "smaps_rollup").read_text().splitlines():
            if line.startswith("Pss:"):
                return int(line.split()[1])
    except OSError:
        pass
    return 0


def middle(runs):
    """The median Run, by the clock and by processor time each."""
    return Run(median(run.seconds for run in runs), median(run.processor for run in runs))


def ratios(runs, others):
    """Median ratios of runs that were made in turn: by the clock and by processor time."""
    return (median(one.seconds / other.seconds for one, other in zip(runs, others)),
            median(one.processor / other.processor for one, other in zip(runs, others)))
