#!/usr/bin/python3
"""Holds the levels of the source tree: reads every #include and names those that point the wrong way.

usage: check_includes.py SOURCE_FOLDER
"""

import pathlib
import re
import sys

LEVELS = {
    "base": 0,
    "model": 1,
    "font": 1,
    "project": 2,
    "svg": 3,
    "drawing": 3,
    "editor": 3,
    "kerning": 3,
    "export": 3,
    "preview": 3,
    "desktop": 4,
    "app": 5,
}
UI_LEVEL = 4
PROGRAMS_OF_THEIR_OWN = {"drawing/convert": 4}  # links a toolkit, and nobody links it
FIRST_LEVEL_WITH_QT = 4

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room_of(path):
    """The room of a path below the source folder: "svg", or "svg/ui" for the views of svg.

    The views of a room that is above all views belong to the room.
    """
    parts = pathlib.PurePosixPath(path).parts
    if "/".join(parts[:2]) in PROGRAMS_OF_THEIR_OWN:
        return "/".join(parts[:2])
    views = len(parts) > 2 and parts[1] == "ui" and LEVELS.get(parts[0], 0) < UI_LEVEL
    return "/".join(parts[:2]) if views else parts[0]


def level_of(room):
    if room in PROGRAMS_OF_THEIR_OWN:
        return PROGRAMS_OF_THEIR_OWN[room]
    owner, _, views = room.partition("/")
    if owner not in LEVELS:
        return None
    return UI_LEVEL if views else LEVELS[owner]


def fault_in(room, bracket, target):
    """Why a file of `room` may not include `target`; None when it may."""
    level = level_of(room)
    if bracket == "<":
        if re.match(r"Q[A-Z]|Qt|q[a-z]+\.h", target) and level < FIRST_LEVEL_WITH_QT:
            return f"{room} is built without Qt"
        if target.startswith("unicode/") and room != "base":
            return "only base includes ICU"
        return None
    other = room_of(target)
    other_level = level_of(other) if "/" in target else None
    if other_level is None:
        return "names no room of the source folder"
    views_look = other == "desktop" and room.endswith("/ui")
    if other == room or other_level < level or views_look:
        return None
    return f"{room} (level {level}) may not include {other} (level {other_level})"


def faults_below(source):
    faults = []
    files = sorted(p for p in source.rglob("*") if p.suffix in {".h", ".cpp"})
    for file in files:
        relative = file.relative_to(source).as_posix()
        room = room_of(relative)
        if "/" not in relative or level_of(room) is None:
            faults.append(f"{file}: stands in no known room")
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            include = INCLUDE.match(line)
            fault = include and fault_in(room, *include.groups())
            if fault:
                faults.append(f"{file}:{number}: {line.strip()}: {fault}")
    return len(files), faults


# Includes that must not pass, by the room that has them.
FAULTS = [("base", '"model/glyph.h"'), ("kerning", '"preview/text_layout.h"'), ("svg", '"editor/a.h"'),
          ("model", "<QString>"), ("export", "<QtCore/qstring.h>"), ("editor", '"editor/ui/canvas.h"'),
          ("editor/ui", '"kerning/ui/a.h"'), ("project", "<unicode/coll.h>"), ("preview", '"text_layout.h"'),
          ("desktop", '"app/commands.h"')]


def main():
    for room, include in FAULTS:
        assert fault_in(room, include[0], include[1:-1]), f"{room} may include {include}"
    count, faults = faults_below(pathlib.Path(sys.argv[1]))
    print("\n".join(faults) or f"{count} files keep to their levels")
    if count == 0 or faults:
        sys.exit(1)


if __name__ == "__main__":
    main()
