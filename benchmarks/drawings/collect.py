#!/usr/bin/python3
"""Makes the drawings that the judge judges, of what Debian ships: icons that were drawn elsewhere
and letters that other programs wrote.

    collect.py [--install] OUT

Writes OUT/SOURCE/*.svg, at most 50 a source, the same ones every time, and OUT/sources.json.
packages.json names the packages and the versions that the figures were made with; a source of which
a package is missing is "not there" unless --install lets apt fetch it.
"""

import argparse
import json
import multiprocessing
import random
import shutil
import subprocess
import sys
from pathlib import Path

import programs
import vector_editor

PINS = json.loads(Path(__file__).with_name("packages.json").read_text())
COUNT = 50
SEED = 10
SECONDS = 400  # for one source
LARGEST = 500_000  # bytes of an icon


def themes_drawings(package):
    """All SVGs of a theme that are files of their own, full-colour ones and symbolic ones apart."""
    listed = subprocess.run(["dpkg", "-L", package], capture_output=True, text=True).stdout
    drawings = sorted(Path(line) for line in listed.splitlines() if line.endswith(".svg"))
    symbolic = [file for file in drawings if "symbolic" in str(file)]
    return [file for file in drawings if "symbolic" not in str(file)], symbolic


def copy_icons(folder, package):
    chosen = random.Random(f"{SEED} {package}")
    full, symbolic = themes_drawings(package)
    half = COUNT // 2
    wanted = {"full": COUNT - min(half, len(symbolic)), "symbolic": min(half, len(symbolic))}
    if len(full) < half:
        wanted = {"full": len(full), "symbolic": COUNT - len(full)}
    for kind, files in (("full", full), ("symbolic", symbolic)):
        taken = 0
        seen = set()
        for file in chosen.sample(files, len(files)):
            # One icon in many sizes is one drawing, and a link none of its own.
            if taken == wanted[kind]:
                break
            if file.stem in seen or file.is_symlink() or not 0 < file.stat().st_size < LARGEST:
                continue
            seen.add(file.stem)
            shutil.copyfile(file, folder / f"{kind}_{file.stem}.svg")
            taken += 1


SOURCES = {
    **{theme: lambda folder, package=f"{theme}-icon-theme": copy_icons(folder, package)
       for theme in ("adwaita", "elementary", "mate", "papirus")},
    **{name: getattr(programs, name)
       for name in ("potrace", "cairo", "qt", "fontforge", "poppler", "matplotlib")},
    "inkscape": vector_editor.inkscape,
}


def version(package):
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${Status} ${Version}", package],
                           capture_output=True, text=True).stdout
    return shown.split()[-1] if shown.startswith("install ok installed") else None


def are_there(wanted, install):
    missing = [package for package in wanted if version(package) is None]
    if missing and install:
        subprocess.run(["apt-get", "install", "-y", "--no-install-recommends", *missing],
                       check=False)
    return all(version(package) is not None for package in wanted)


def make(source, folder):
    """In a process of its own: a library that breaks or hangs takes no other source with it."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    worker = multiprocessing.get_context("spawn").Process(target=_write, args=(source, folder))
    worker.start()
    worker.join(SECONDS)
    if worker.is_alive():
        worker.kill()
        worker.join()
        return "over time"
    return "made" if worker.exitcode == 0 else "failed"


def _write(source, folder):
    SOURCES[source](folder)


def main():
    options = argparse.ArgumentParser(description="makes the drawings that the judge judges")
    options.add_argument("out", type=Path)
    options.add_argument("--install", action="store_true", help="fetch missing packages with apt")
    options.add_argument("--only", nargs="*", choices=SOURCES, default=list(SOURCES))
    chosen = options.parse_args()
    record = {}
    if not are_there(PINS["judge"], chosen.install):
        print("the judge lacks packages; see packages.json", file=sys.stderr)
    for source in chosen.only:
        folder = (chosen.out / source).resolve()
        state = make(source, folder) if are_there(PINS["sources"][source], chosen.install) else "not there"
        packages = {package: version(package) for package in PINS["sources"][source]}
        differs = [package for package, found in packages.items()
                   if found != PINS["versions"][package]]
        record[source] = {"state": state, "drawings": len(list(folder.glob("*.svg"))),
                          "packages": packages, "not as pinned": differs}
        print(f"{source}: {state}, {record[source]['drawings']} drawings"
              + (f"; not as pinned: {', '.join(differs)}" if differs else ""), flush=True)
    chosen.out.mkdir(parents=True, exist_ok=True)
    (chosen.out / "sources.json").write_text(json.dumps(record, indent=1) + "\n")
    return 0 if all(row["state"] == "made" for row in record.values()) else 1


if __name__ == "__main__":
    sys.exit(main())
