"""Files that are not what they should be: clear errors, nothing lost."""

import json
import os
import resource
import signal
import subprocess
import tempfile
from pathlib import Path

import pytest

from conftest import PROGRAM, SAMPLE

MEGABYTE = 1024 * 1024


def document(**changes):
    made = json.loads(SAMPLE.read_text())
    made["glyphs"] = made["glyphs"][:2]
    return {**made, **changes}


@pytest.mark.parametrize("content, place", [
    (b"", "line 1, byte 1"),
    (b"[" * 10_000 + b"]" * 10_000, "nested"),
    (json.dumps(document(glyphs=[{}])).encode(), "glyphs[0]"),
    (json.dumps(document()).encode().replace(b"Quillery", b"Quill\xffery"), "line 1, byte"),
    (b'{"id": 1' + b" " * 5 * MEGABYTE, "line 1, byte"),
], ids=["empty", "brackets", "members", "utf-8", "5 MB"])
def test_a_malformed_project_is_refused_with_its_place(quillery, tmp_path, content, place):
    path = tmp_path / "p.fontproj"
    path.write_bytes(content)
    for command in (("metrics", path, "--all", "--scale", "2"), ("convert", path, "-o", "other")):
        refused = quillery(*command)
        assert refused.status == 3 and len(refused.errors) == 1
        assert refused.errors[0].startswith(f"quillery: Could not open project: {path}: ")
        assert place in refused.errors[0] and len(refused.errors[0]) < 600
    assert path.read_bytes() == content and list(tmp_path.iterdir()) == [path]


def test_what_is_no_file_is_not_waited_for(quillery, tmp_path):
    os.mkfifo(tmp_path / "pipe")
    for path in (tmp_path / "pipe", tmp_path, "/dev/zero", tmp_path / "absent"):
        assert quillery("check", path).status == 3, path
    for target in (tmp_path / "pipe.svg", "/dev/full"):
        if not os.path.exists(target):
            os.mkfifo(target)
        assert quillery("convert", SAMPLE, "-o", tmp_path).status in (0, 3)
    os.mkfifo(tmp_path / "out.fontproj")
    assert quillery("convert", SAMPLE, "-o", tmp_path / "out.fontproj").status == 3


def test_a_full_disk_leaves_the_old_project(quillery, draw, tmp_path):
    quillery("import", "p.fontproj", draw("A.svg"))
    path = tmp_path / "p.fontproj"
    before = path.read_bytes()

    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (len(before) - 10, len(before) - 10))

    done = subprocess.run([PROGRAM, "metrics", path, "A", "--scale", "2"], preexec_fn=limit, check=False,
                          capture_output=True, text=True)
    assert done.returncode == 3 and "File too large" in done.stderr
    assert path.read_bytes() == before
    assert sorted(p.name for p in tmp_path.iterdir()) == ["A.svg", "p.fontproj"]


def test_a_generator_that_fails_is_quoted(quillery, tmp_path):
    bad = tmp_path / "p.fontproj"
    bad.write_text(json.dumps(document(unitsPerEm=5)))
    old = tmp_path / "font.otf"
    old.write_bytes(b"old")
    failed = quillery("export", bad, old, tmp_path / "font.ttf")
    assert failed.status == 3 and len(failed.errors) == 2
    assert all("Font generation failed: " in line for line in failed.errors)
    assert old.read_bytes() == b"old" and not (tmp_path / "font.ttf").exists()
    some = quillery("export", SAMPLE, tmp_path / "good.otf", tmp_path / "missing/x.ttf")
    assert some.status == 1 and (tmp_path / "good.otf").stat().st_size > 1000
    assert some.errors[-1] == (f"quillery: Written: {tmp_path}/good.otf; not written: {tmp_path}/missing/x.ttf")
    packaged = tmp_path / "resources/generate_font/generate_font"
    packaged.parent.mkdir(parents=True)
    packaged.write_text("#!/bin/sh\nkill -9 $$\n")
    packaged.chmod(0o755)
    killed = quillery("export", SAMPLE, tmp_path / "font.ttf", "--resources", tmp_path / "resources")
    assert killed.errors[0].endswith(f"Process crashed with signal {signal.SIGKILL.value}")


@pytest.mark.skipif(os.geteuid() != 0, reason="only root may become a user who may not have threads")
def test_a_user_without_threads_gets_everything_done():
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o777)
        for i in range(100):
            Path(folder, f"g{i}.svg").write_text('<path d="M0 0 L9 9 L0 9 Z"/>')
        for arguments, status in ((("import", "p.fontproj", "."), 0), (("convert", "p.fontproj", "-o", "q.fontproj"), 0),
                                  (("metrics", "p.fontproj", "--all", "--scale", "2"), 0),
                                  (("export", "p.fontproj", "font.otf"), 3)):  # the generator is a process
            run = subprocess.run(
                [PROGRAM, *arguments], cwd=folder, user=54321, capture_output=True, timeout=60, check=False,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NPROC, (1, 1)),
                env={"TMPDIR": folder, "PATH": os.environ["PATH"]})
            assert run.returncode == status, arguments
        # What the generator would have been told stays beside them, as after every failure.
        assert sorted(f for f in os.listdir(folder) if not f.endswith((".svg", ".json"))) == ["p.fontproj", "q.fontproj"]
