#!/usr/bin/python3
"""Times the program as a whole process and takes its peak memory from the system's own account.

    benchmarks/whole_process.py build/bench/bin/quillery

Prints a Markdown table. Every figure stands beside its floor, measured in turn with it.
"""

import os
import random
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

RUNS = 5


def run(*command):
    """Wall seconds and peak memory in MB of one run."""
    begin = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in (0, 1):
        sys.exit(f"status {process.returncode}: {command}")
    return time.perf_counter() - begin, usage.ru_maxrss / 1024


def medians(*commands):
    """Medians of the commands, run in turn so that they see the same machine."""
    rounds = [[run(*command) for command in commands] for _ in range(RUNS + 1)][1:]
    return [tuple(statistics.median(values) for values in zip(*(r[i] for r in rounds)))
            for i in range(len(commands))]


def path_data(number):
    """A drawing of about 25 curves and lines, as large as that of a Latin letter."""
    draw = random.Random(number)

    def place():
        return f"{draw.uniform(0, 100):.1f} {draw.uniform(0, 100):.1f}"

    contours = []
    for _ in range(2):
        segments = [f"L {place()}" if i % 3 == 2 else f"C {place()} {place()} {place()}" for i in range(12)]
        contours.append(f"M {place()} {' '.join(segments)} Z")
    return " ".join(contours)


def make_drawings(folder, count):
    folder.mkdir()
    for number in range(count):
        (folder / f"g{number:05}.svg").write_text(
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100"><path d="{path_data(number)}"/></svg>\n')


def main():
    if sys.argv[1] == "--enlarge":
        return enlarge(Path(sys.argv[2]), Path(sys.argv[3]))
    quillery = Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory(dir=".") as made:
        folder = Path(made).resolve()
        print("| what | floor s | s | ratio | peak MB |\n|---|---|---|---|---|")
        for count in (100, 1000, 5000, 20000):
            drawings = folder / f"d{count}"
            make_drawings(drawings, count)
            project = folder / f"p{count}.fontproj"

            def import_anew():
                project.unlink(missing_ok=True)
                return run(quillery, "import", project, drawings)

            floor, imported = [], []
            for _ in range(RUNS + 1):
                floor.append(run("sh", "-c", 'find "$0" -name "*.svg" -print0 | xargs -0 cat | wc -c', drawings))
                imported.append(import_anew())
            low = statistics.median(wall for wall, _ in floor[1:])
            wall = statistics.median(wall for wall, _ in imported[1:])
            peak = statistics.median(memory for _, memory in imported[1:])
            print(f"| import {count:,} drawings (floor: cat of them) | {low:.3f} | {wall:.3f} | {wall / low:.2f} | {peak:.0f} |",
                  flush=True)

        large = folder / "large.fontproj"
        # In a process of its own: a child's peak counts the memory that its parent had at the fork.
        subprocess.run([sys.executable, __file__, "--enlarge", project, large], check=True)
        size = large.stat().st_size / 1e6
        opened, saved, copied = medians((quillery, "check", large),
                                        (quillery, "convert", large, "-o", folder / "copy.fontproj"),
                                        ("dd", f"if={large}", f"of={folder / 'copy'}", "bs=1M", "conv=fsync", "status=none"))
        save = saved[0] - opened[0]
        print(f"| open {size:.0f} MB | | {opened[0]:.3f} | | {opened[1]:.0f} ({opened[1] * 1.048576 / size:.1f} times the file) |")
        print(f"| save {size:.0f} MB (open and save less open; floor: copy and flush) | {copied[0]:.3f} | {save:.3f} | "
              f"{save / copied[0]:.2f} | {saved[1]:.0f} ({saved[1] * 1.048576 / size:.1f} times the file) |")


def enlarge(source, target):
    """A project with the glyphs of another several times over."""
    text = source.read_text()
    head, rest = text.split('"glyphs" : [', 1)
    glyphs, tail = rest.rsplit('\n  ],\n  "kerningPairs"', 1)
    copies = 100_000_000 // len(text) + 1
    target.write_text(head + '"glyphs" : [' + ",".join([glyphs] * copies) + '\n  ],\n  "kerningPairs"' + tail)


if __name__ == "__main__":
    main()
