"""Files that are not what they should be: clear errors, nothing lost."""

import json
import os
import resource
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

import pytest

from conftest import PROGRAM, SAMPLE

MEGABYTE = 1024 * 1024


def test_unreadable_drawings_are_told_and_the_rest_is_imported(quillery, draw, tmp_path):
    good = draw("A.svg")
    os.mkfifo(tmp_path / "pipe.svg")
    (tmp_path / "folder.svg").mkdir()
    (tmp_path / "empty.svg").write_bytes(b"")
    (tmp_path / "latin.svg").write_bytes(b'<path d="M0 0 L1 1"/>\xe9')
    (tmp_path / "utf16.svg").write_bytes('<path d="M0 0 L1 1"/>'.encode("utf-16"))
    (tmp_path / "hostile.svg").write_bytes(b"<path d=" * 6_000_000)
    (tmp_path / "marked.svg").write_bytes(b'\xef\xbb\xbf<path d="M0 0 L1 1"/>')
    names = ["pipe", "folder", "empty", "latin", "utf16", "hostile", "marked", "absent"]
    done = quillery("import", "p.fontproj", *(tmp_path / f"{name}.svg" for name in names), "/dev/zero", good)
    assert done.status == 1
    where = tmp_path.as_uri()
    assert done.out[:-1] == [
        f"Failed to read SVG file: {where}/pipe.svg", "Failed to extract path data from: empty",
        f"Failed to read SVG file: {where}/latin.svg", f"Failed to read SVG file: {where}/utf16.svg",
        "Failed to extract path data from: hostile", f"Failed to read SVG file: {where}/absent.svg",
        "Failed to read SVG file: file:///dev/zero"]
    saved = json.loads((tmp_path / "p.fontproj").read_text())
    assert [g["name"] for g in saved["glyphs"]] == ["A", "marked"]


def test_a_drawing_without_points_cannot_be_saved(quillery, draw, tmp_path):
    quillery("import", "p.fontproj", draw("A.svg"))
    before = (tmp_path / "p.fontproj").read_bytes()
    refused = quillery("import", "p.fontproj", draw("B.svg", "no numbers"))
    assert refused.status == 3
    assert "boundingBox" in refused.errors[0] and '"B"' in refused.errors[0]
    assert (tmp_path / "p.fontproj").read_bytes() == before


def document(**changes):
    made = json.loads(SAMPLE.read_text())
    made["glyphs"] = made["glyphs"][:2]
    return {**made, **changes}


@pytest.mark.parametrize("content, place", [
    (b"", "line 1, byte 1"),
    (b"\x00" * 100, "line 1, byte 1"),
    (b"[" * 10_000 + b"]" * 10_000, "nested"),
    (json.dumps(document(ascender="800")).encode(), "ascender"),
    (json.dumps(document(unitsPerEm=1000.5)).encode(), "unitsPerEm"),
    (json.dumps(document(glyphs=[{}])).encode(), "glyphs[0]"),
    (json.dumps(document()).encode().replace(b"Quillery", b"Quill\xffery"), "line 1, byte"),
    (json.dumps(document()).encode()[:-3], "line 1, byte"),
    (b'{"id": 1' + b" " * 50 * MEGABYTE, "line 1, byte"),
    (json.dumps(document(lineGap="@")).encode().replace(b'"@"', b"9" * 400), "line 1, byte"),
], ids=["empty", "zeros", "brackets", "type", "fraction", "members", "utf-8", "cut", "50 MB", "400 digits"])
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


@pytest.mark.skipif(os.geteuid() != 0, reason="only root may become a user who may not have threads")
def test_a_user_without_threads_gets_everything_done(draw, tmp_path):
    source = tmp_path / "drawings"
    source.mkdir()
    for i in range(100):
        draw(f"drawings/g{i}.svg")
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o777)
        shutil.copytree(source, f"{folder}/drawings")

        def run(*arguments):
            return subprocess.run(
                [PROGRAM, *arguments], cwd=folder, user=54321, capture_output=True, text=True, timeout=60, check=False,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NPROC, (1, 1)),
                env={"TMPDIR": folder, "PATH": os.environ["PATH"]})

        for arguments in (("import", "p.fontproj", "drawings"), ("metrics", "p.fontproj", "--all", "--scale", "2"),
                          ("convert", "p.fontproj", "-o", "q.fontproj")):
            assert run(*arguments).returncode == 0, arguments
        assert [len(json.loads(Path(folder, f"{name}.fontproj").read_text())["glyphs"]) for name in "pq"] == [100, 100]
        # The generator is a process of its own, which this user may not have either.
        export = run("export", "p.fontproj", "font.otf")
        assert export.returncode == 3 and export.stderr.startswith("quillery: Cannot generate font: ")
        assert sorted(os.listdir(folder)) == ["drawings", "p.fontproj", "q.fontproj"]


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
