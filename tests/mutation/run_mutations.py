#!/usr/bin/python3
"""Makes one small mistake at a time in a copy of the source tree and tells which the tests notice.

The mistakes are those of mutations.json, or of the files whose names contain an argument.
"""

import argparse
import json
import random
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LONGEST = 900  # seconds; no suite takes as long, so that what hangs has been noticed

BUILD = "cmake --build --preset dev --target"
PYTEST = "/usr/bin/python3 -m pytest -q -x -p no:cacheprovider"
WINDOWS = ["gui_outlines", "gui_main_window", "gui_preview", "gui_kerning", "gui_editor", "gui_qt_desktop"]
# Name, what is built for it, and how it is run.
CORE = ("core", f"{BUILD} quillery_tests", "build/dev/bin/quillery_tests --gtest_brief=1 --gtest_fail_fast")
WINDOW = ("window", f"{BUILD} {' '.join(WINDOWS)}",
          f"ctest --preset dev --stop-on-failure -R ^({'|'.join(WINDOWS)})$")
PROGRAM = ("program", f"{BUILD} quillery", f"{PYTEST} tests/end_to_end --ignore tests/end_to_end/test_window.py")
GENERATOR = ("generator", f"{BUILD} generate_font", f"{PYTEST} tests/generator")
FONT = ("font", f"{BUILD} font_tests", "build/dev/bin/font_tests --gtest_brief=1 --gtest_fail_fast")


def lines_of(*command):
    return subprocess.run(command, cwd=ROOT, check=True, capture_output=True, text=True).stdout.splitlines()


def drawn_files(seed=30, count=30):
    """A blind draw from the files that hold rules of ours; what the list was made from."""
    files = [file for file in lines_of("git", "ls-files", "src", "resources/font_generator")
             if file.endswith((".cpp", ".py")) and not file.endswith("__init__.py")
             and "/ui/" not in file and not file.startswith("src/desktop/")]
    return sorted(random.Random(seed).sample(sorted(files), count))


def copy_tree(work):
    """Brings the copy up to date. What is the same keeps its time, and so what was built of it."""
    wanted = {name for name in lines_of("git", "ls-files", "-co", "--exclude-standard") if (ROOT / name).is_file()}
    for name in wanted:
        target = work / name
        if not target.is_file() or target.read_bytes() != (ROOT / name).read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, target)
    for path in [path for folder in ("src", "tests", "resources") for path in (work / folder).rglob("*")]:
        if path.is_file() and path.relative_to(work).as_posix() not in wanted:
            path.unlink()


def passes(command, work):
    with (work / "mutation.log").open("a") as log:
        print(f"\n$ {command}", file=log, flush=True)
        try:
            return subprocess.run(command.split(), cwd=work, stdout=log, stderr=log, timeout=LONGEST).returncode == 0
        except subprocess.TimeoutExpired:
            return False


def verdict_of(suites, work):
    for name, build, run in suites:
        if build and not passes(build, work):
            return "does not compile"
        if not passes(run, work):
            return f"noticed by {name}"
    return "NOT NOTICED"


def suites_for(path):
    if path.suffix == ".py":
        return [GENERATOR, PROGRAM]
    return [FONT, GENERATOR] if path.parent.name == "font" else [CORE, WINDOW, PROGRAM]


def fault_of(mutation):
    path = ROOT / mutation["file"]
    count = path.read_text().count(mutation["replace"]) if path.is_file() else 0
    return "" if count == 1 else f"{mutation['file']}: {mutation['replace']!r} stands there {count} times"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--work", type=Path, default=ROOT / "build/mutation", help="folder of the copy")
    parser.add_argument("--cmake", action="append", default=[], help="a further argument for configuring")
    parser.add_argument("--draw", action="store_true", help="print the files that would be drawn today")
    parser.add_argument("file", nargs="*", help="only the mistakes in these files")
    options = parser.parse_args()
    if options.draw:
        sys.exit(print("\n".join(drawn_files())))
    mutations = [mutation for mutation in json.loads(Path(__file__).with_name("mutations.json").read_text())
                 if not options.file or any(part in mutation["file"] for part in options.file)]
    if faults := list(filter(None, map(fault_of, mutations))):
        sys.exit("\n".join(faults))

    work = options.work.resolve()
    copy_tree(work)
    (work / "mutation.log").unlink(missing_ok=True)
    if not passes(" ".join(["cmake --preset dev", *options.cmake]), work):
        sys.exit(f"the copy can't be configured, see {work}/mutation.log")
    if (verdict := verdict_of([CORE, FONT, WINDOW, PROGRAM, GENERATOR], work)) != "NOT NOTICED":
        sys.exit(f"without a mistake: {verdict}, see {work}/mutation.log")
    noticed = 0
    for mutation in mutations:
        begin, path = time.monotonic(), work / mutation["file"]
        original = path.read_text()
        path.write_text(original.replace(mutation["replace"], mutation["with"]))
        try:
            verdict = verdict_of(suites_for(path), work)
        finally:
            path.write_text(original)
        noticed += verdict.startswith("noticed")
        print(f"{verdict:20} {time.monotonic() - begin:4.0f} s  {mutation['file']}: "
              f"{mutation['replace'].strip()} -> {mutation['with']}", flush=True)
    print(f"{noticed} of {len(mutations)} noticed")
    sys.exit(noticed < len(mutations))


if __name__ == "__main__":
    main()
