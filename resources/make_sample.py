#!/usr/bin/python3
"""Builds resources/Sample.fontproj from the sample drawings.

    resources/make_sample.py build/release/bin/quillery

Everything goes through the program's own command line, as a user's script
would do it: import the drawings, set the spacing, set the kerning, check.
"""

import json
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
PROJECT = HERE / "Sample.fontproj"
DRAWINGS = HERE / "sample-drawings"
SPACING = HERE / "sample-spacing.json"

# An import stores this left side bearing while the outline itself starts at
# x = 0; setting a bearing moves the outline by the difference.
IMPORTED_BEARING = 50


def run(program, *arguments, accepted=(0,)):
    command = [str(program), *map(str, arguments)]
    result = subprocess.run(command, check=False)
    if result.returncode not in accepted:
        sys.exit(f"status {result.returncode}: {' '.join(command)}")


def spacing_groups(glyphs):
    """The glyphs that share the same three values, by these values."""
    groups = {}
    for name, values in sorted(glyphs.items()):
        key = (values["bottom"], values["leftSideBearing"], values["rightSideBearing"])
        groups.setdefault(key, []).append(name)
    return groups


def build(program):
    design = json.loads(SPACING.read_text(encoding="utf-8"))
    PROJECT.unlink(missing_ok=True)
    run(program, "import", PROJECT, DRAWINGS, "--name", design["familyName"],
        "--units-per-em", design["unitsPerEm"])
    for (bottom, left, right), names in spacing_groups(design["glyphs"]).items():
        # The right bearing comes last: it is measured from where the outline
        # has arrived by then.
        run(program, "metrics", PROJECT, *names,
            f"--vertical-offset={bottom}",
            f"--left-side-bearing={left + IMPORTED_BEARING}",
            f"--right-side-bearing={right}")
    pairs = [word for pair in design["kerning"] for word in ("--set", *pair)]
    run(program, "kern", PROJECT, *pairs)
    run(program, "check", PROJECT, "--fix", accepted=(0, 1))


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make_sample.py PATH-OF-QUILLERY")
    program = Path(sys.argv[1]).resolve()
    if not program.is_file():
        sys.exit(f"no program at {program}")
    build(program)


if __name__ == "__main__":
    main()
