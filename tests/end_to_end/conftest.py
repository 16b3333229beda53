"""Runs the built program as a user's shell would."""

import os
import subprocess
from dataclasses import dataclass
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = Path(os.environ.get("QUILLERY", ROOT / "build/dev/bin/quillery"))
SAMPLE = ROOT / "resources/Sample.fontproj"

SQUARE = "M0 0 L60 0 L60 70 L0 70 Z"


@dataclass
class Run:
    status: int
    out: list[str]
    errors: list[str]


@pytest.fixture
def quillery(tmp_path):
    """Calls the program in an empty folder; fails the test when it prints anything odd."""

    def call(*arguments, env=None, **options) -> Run:
        # Without a display, so that no test can be waiting for a window.
        env = {name: value for name, value in (env or os.environ).items()
               if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        done = subprocess.run([PROGRAM, *map(os.fspath, arguments)], cwd=tmp_path, env=env, capture_output=True,
                              timeout=120, check=False, **options)
        out, errors = (text.decode(errors="surrogateescape").split("\n")[:-1]
                       for text in (done.stdout, done.stderr))
        assert done.returncode in (0, 1, 2, 3), (arguments, done)
        if not errors:
            assert done.returncode in (0, 1)
        return Run(done.returncode, out, errors)

    return call


@pytest.fixture
def draw(tmp_path):
    """Writes a drawing into the folder of the test."""

    def write(name: str, data: str = SQUARE) -> Path:
        path = tmp_path / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(f'<svg viewBox="0 0 100 100"><path fill="black" d="{data}"/></svg>\n')
        return path

    return write
