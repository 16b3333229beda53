#!/usr/bin/python3
"""Holds the levels of the source tree: reads every #include and names those that point the wrong way.

usage: check_includes.py SOURCE_FOLDER
"""

import pathlib
import re
import sys
import tempfile

LEVELS = {
    "base": 0,
    "model": 1,
    "project": 2,
    "svg": 3,
    "editor": 3,
    "kerning": 3,
    "export": 3,
    "preview": 3,
    "desktop": 4,
    "app": 5,
}
UI_LEVEL = 4
SIDEWAYS = {("preview", "kerning")}
FIRST_LEVEL_WITH_QT = 4

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room_of(path):
    """The room of a path below the source folder: "svg", or "svg/ui" for the views of svg.

    The views of a room that is above all views belong to the room.
    """
    parts = pathlib.PurePosixPath(path).parts
    views = len(parts) > 2 and parts[1] == "ui" and LEVELS.get(parts[0], 0) < UI_LEVEL
    return "/".join(parts[:2]) if views else parts[0]


def level_of(room):
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
    if other == room or other_level < level or (room, other) in SIDEWAYS or views_look:
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


def check_itself():
    """The check finds each of these faults, and nothing in what is right."""
    right = {
        "preview/a.cpp": '#include "kerning/a.h"\n#include "preview/b.h"\n#include <vector>\n#include "base/a.h"\n',
        "svg/ui/view.cpp": '#include <QWidget>\n#include "svg/a.h"\n#include "svg/ui/b.h"\n',
        "base/a.cpp": "#include <unicode/uchar.h>\n",
        "app/main.cpp": '#include "export/ui/sheet.h"\n#include "app/ui/a.h"\n#include <QApplication>\n',
        "app/ui/a.cpp": '#include "desktop/a.h"\n#include "app/main.h"\n#include "svg/ui/a.h"\n',
    }
    wrong = {
        "base/a.h": '#include "model/glyph.h"\n',
        "kerning/a.h": '#include "preview/text_layout.h"\n',
        "svg/a.h": '\n  #  include "editor/a.h"\n',
        "model/a.cpp": "#include <QString>\n",
        "export/a.cpp": "#include <QtCore/qstring.h>\n",
        "editor/a.cpp": '#include "editor/ui/canvas.h"\n',
        "editor/ui/a.cpp": '#include "kerning/ui/a.h"\n',
        "project/a.cpp": "#include <unicode/coll.h>\n",
        "preview/a.cpp": '#include "text_layout.h"\n',
        "desktop/a.cpp": '#include "app/commands.h"\n',
        "attic/a.cpp": "\n",
        "stray.cpp": "\n",
    }
    for tree, expected in ((right, set()), (wrong, set(wrong))):
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder)
            for name, content in tree.items():
                (source / name).parent.mkdir(parents=True, exist_ok=True)
                (source / name).write_text(content, encoding="utf-8")
            _, faults = faults_below(source)
            found = {name for name in tree for fault in faults if fault.startswith(f"{source / name}:")}
            if found != expected or len(faults) != len(expected):
                sys.exit(f"the check itself is wrong: expected {sorted(expected)}, found {faults}")


def main():
    check_itself()
    count, faults = faults_below(pathlib.Path(sys.argv[1]))
    print("\n".join(faults) or f"{count} files keep to their levels")
    if count == 0 or faults:
        sys.exit(1)


if __name__ == "__main__":
    main()
