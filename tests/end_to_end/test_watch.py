"""A folder of drawings, a project and its fonts that are kept in step."""

import json
import os
import queue
import re
import signal
import subprocess
import threading
import time

import pytest

from conftest import PROGRAM, SQUARE

WIDE = SQUARE.replace("60", "80")


class Watch:
    """The program at work; every line that it prints is awaited, so nothing here sleeps to be sure."""

    def __init__(self, folder, *arguments, env=None):
        self.process = subprocess.Popen([PROGRAM, "watch", *arguments], cwd=folder, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, env=env)
        self.lines = queue.Queue()
        threading.Thread(target=lambda: [self.lines.put(line.rstrip("\n")) for line in self.process.stdout],
                         daemon=True).start()
        self.await_line("^Watching ")

    def await_line(self, pattern, seconds=20):
        """The next line that matches; the ones before it are passed over."""
        seen, end = [], time.monotonic() + seconds
        while True:
            try:
                seen.append(self.lines.get(timeout=max(0, end - time.monotonic())))
            except queue.Empty:
                pytest.fail(f"no line like {pattern} after {seen}")
            if re.search(pattern, seen[-1]):
                return seen[-1]

    def end(self):
        """The exit status, and the lines that nobody awaited."""
        self.process.send_signal(signal.SIGTERM)
        status = self.process.wait(20)
        return status, list(self.lines.queue)


@pytest.fixture
def watch(tmp_path):
    running = []

    def begin(*arguments, env=None):
        running.append(Watch(tmp_path, *arguments, env=env))
        return running[-1]

    (tmp_path / "letters").mkdir()
    yield begin
    for one in running:
        one.process.kill()
        one.process.wait()


def width(project, name):
    glyphs = json.loads(project.read_text())["glyphs"]
    return next((g["boundingBox"][1][0] for g in glyphs if g["name"] == name), None)


def test_a_drawing_saved_is_in_the_project_and_the_fonts(watch, draw, quillery, tmp_path):
    project = tmp_path / "p.fontproj"
    draw("letters/A.svg")
    quillery("import", project, "letters")
    quillery("metrics", project, "A", "--left-side-bearing", "80")
    env = dict(os.environ, XDG_DATA_HOME=str(tmp_path / "data"))
    watching = watch("letters", project, "out.otf", "out.woff2", "--install", env=env)
    draw("letters/A.svg", WIDE)
    assert "taken in" in watching.await_line("^A.svg: ")
    for _ in range(2):
        watching.await_line("^out.*: written and installed after")
    assert width(project, "A") == 800
    assert json.loads(project.read_text())["glyphs"][0]["leftSideBearing"] == 80
    for font in ("out.otf", "out.woff2"):
        subprocess.run(["ots-sanitize", tmp_path / font], check=True, capture_output=True)
        assert (tmp_path / font).read_bytes() == (tmp_path / "data/fonts" / font).read_bytes()

    # What another program saves meanwhile is kept.
    quillery("metrics", project, "A", "--advance-width", "777")
    watching.await_line("^out.*: written")
    watching.await_line("^out.*: written")
    draw("letters/B.svg")
    watching.await_line("^B.svg: taken in")
    watching.await_line("^out.*: written")
    watching.await_line("^out.*: written")
    assert json.loads(project.read_text())["glyphs"][0]["advanceWidth"] == 777
    status, rest = watching.end()
    assert (status, rest) == (0, [])


def test_programs_save_in_many_ways(watch, draw, tmp_path):
    project, letters = tmp_path / "p.fontproj", tmp_path / "letters"
    watching = watch("letters", project)
    new = draw("letters/.A.svg.part", WIDE)
    new.rename(letters / "A.svg")
    watching.await_line("^A.svg: taken in")
    (letters / "A.svg").rename(letters / "A.svg~")
    draw("letters/A.svg", SQUARE)
    watching.await_line("^A.svg: taken in")
    assert width(project, "A") == 600

    # In pieces, the file closed between them; and left open for a while.
    text = draw("whole.txt", WIDE).read_text()
    (letters / "A.svg").write_text(text[:40])
    time.sleep(0.1)
    with open(letters / "A.svg", "a") as file:
        file.write(text[40:60])
        file.flush()
        time.sleep(0.1)
        file.write(text[60:])
    watching.await_line("^A.svg: taken in")
    assert width(project, "A") == 800

    # What has no point to read leaves the glyph as it is.
    (letters / "A.svg").write_text('<svg><path d="M0 0" id="path7"/></svg>')
    watching.await_line("A.svg: left out: no readable point, another attribute")
    (letters / "A.svg").unlink()
    watching.await_line("^A.svg: deleted; its glyph stays")
    assert width(project, "A") == 800
    (letters / "A.svg").write_text(text)
    watching.await_line("^A.svg: taken in")
    assert watching.end() == (0, [])


def test_a_burst_is_one_import(watch, draw, tmp_path):
    project = tmp_path / "p.fontproj"
    watching = watch("letters", project, "out.otf")
    for number in range(1000):
        draw(f"letters/g{number:04}.svg")
    for number in range(1000):
        watching.await_line(f"^g{number:04}.svg: taken in")
    watching.await_line("^out.otf: written")
    written = 1
    status, rest = watching.end()
    assert status == 0 and written + len(rest) <= 3, "a few imports at most, whatever the machine"
    assert len(json.loads(project.read_text())["glyphs"]) == 1000


def test_a_folder_that_goes_is_waited_for(watch, draw, tmp_path):
    project, letters = tmp_path / "p.fontproj", tmp_path / "letters"
    draw("letters/A.svg")
    draw("letters/B.svg")
    watching = watch("letters", project)
    watching.await_line("^B.svg: taken in")
    letters.rename(tmp_path / "elsewhere")
    watching.await_line("moved or deleted")
    draw("elsewhere/A.svg", WIDE)
    (tmp_path / "elsewhere/B.svg").unlink()
    (tmp_path / "elsewhere").rename(letters)
    watching.await_line("there again")
    watching.await_line("^A.svg: taken in")
    watching.await_line("^B.svg: deleted")
    assert (width(project, "A"), width(project, "B")) == (800, 600)
    status, rest = watching.end()
    assert (status, rest) == (0, [])

    draw("letters/C.svg")
    again = watch("letters", project)
    again.await_line("^C.svg: taken in")
    assert again.end() == (0, []), "what the project holds is not taken in again"


def test_what_can_not_be_watched_is_told(quillery, tmp_path):
    assert quillery("watch", "none", "p.fontproj").status == 3
    assert quillery("watch", tmp_path, "p.fontproj", "font.pfb").status == 2
    assert quillery("watch", tmp_path, "p.fontproj", "--install").status == 2
