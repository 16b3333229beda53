"""Whatever can't become a font ends with one sentence, status 1 and the old file untouched."""

import json
import os
import re
import shlex
import signal
import stat
import subprocess
from pathlib import Path

import pytest
from conftest import COMMANDS, run_generator, write_document
from drawings import CLOSE, box, circle, document, glyph, line, move, pair
from font_generator import command
from font_generator.command import GeneratorError

DEEP = b'{"glyphs":' + b"[" * 200000


def with_(**members):
    return document([glyph("A", "A", box(0, 0, 9, 9))], [pair("A", "A", 1)]) | members


def without(key):
    return {name: value for name, value in with_().items() if name != key}


def with_glyph(**members):
    return document([glyph("good"), glyph("bad", "B", box(0, 0, 9, 9)) | members])


def with_path(*commands):
    return with_glyph(fontPath=list(commands))


def raw(document, old, new):
    return json.dumps(document).replace(old, new).encode("utf-8", "surrogateescape")


# What is wrong: the document, and words that the sentence has to hold.
REFUSED = {
    "cut off": (json.dumps(with_()).encode()[:-9], "not JSON"),
    "not UTF-8": (raw(with_(name="X"), '"X"', '"\udcff"'), "not valid UTF-8 (byte 10)"),
    "not UTF-8 at the very end": (b"{" + b" " * 70000 + b"\xe2\x82", "byte 70001"),
    "a fault in an emoji": (raw(with_glyph(name="77", unicode=1), "77", "🎈"), '"🎈"'),
    "half a character": (with_glyph(name="\ud800"), "half a character"),
    "deep brackets": (DEEP, "nest too deep"),
    "no name": (without("name"), '"name"'),
    "no pairs": (without("kerningPairs"), '"kerningPairs"'),
    "a number as name": (with_(name=3), '"name"'),
    "an endless name": (with_(name="n" * 10_000_000), "10,000,000 characters"),
    "texts that are too long together": (with_(name="n" * 30000, copyright="c" * 30000), "too long"),
    "text as a measure": (with_(ascender="800"), '"ascender"'),
    "truth as a measure": (with_(xHeight=True), '"xHeight"'),
    "NaN": (with_(capHeight=float("nan")), "NaN"),
    "an overflowing number": (raw(with_(ascender=77), "77", "1e999"), "finite"),
    "10,000 digits": (raw(with_(ascender=77), "77", "9" * 10000), "digits"),
    "an object as glyphs": (with_(glyphs={}), '"glyphs"'),
    "no units in an em": (with_(unitsPerEm=15), "15 units per em"),
    "a high ascender": (with_(ascender=40000), "ascender"),
    "a negative advance": (with_glyph(advanceWidth=-1), '"bad" is -1'),
    "a name of several lines": (with_glyph(name="bä\nd\u202e", advanceWidth=-1), '"bä\\nd\\u202e" is -1'),
    "text as advance": (with_glyph(advanceWidth="600"), '"bad"'),
    "a number as character": (with_glyph(unicode=65), '"unicode"'),
    "a command of text": (with_path("M"), '"bad"'),
    "an unknown command": (with_path(move(0, 0), {"type": "arcTo"}), "command number 2"),
    "no point": (with_path({"type": "moveTo"}), "command number 1"),
    "text as coordinate": (with_path(move(0, 0), CLOSE, line("0", 0)), "command number 3"),
    "far out": (with_path(*box(0, 0, 32768, 9)), '"bad" reaches to the coordinate 32768'),
    "larger than steps": (with_path(*box(-20000, 0, 20000, 9)), '"bad" is 40000 units wide'),
    "a pair of text": (with_(kerningPairs=["AV"]), "pair number 1"),
    "far kerning": (with_(kerningPairs=[pair("A", "A", -40000)]), '"A" "A"'),
    "too many glyphs": (document([glyph("g")] * 65535), "65,536 glyphs"),
    "too many points": (with_path(*(line(i % 9 * 7, i * 7 % 11) for i in range(70000))), '"bad"'),
}


# Where the JSON parser of a generator speaks: it has its own words.
LEFT_TO_THE_PARSER = {"cut off", "deep brackets", "NaN", "an overflowing number", "10,000 digits",
                      "half a character"}


@pytest.mark.parametrize("case", REFUSED)
def test_a_document_is_refused_in_one_sentence(generator, tmp_path, case):
    refused, words = REFUSED[case]
    source = write_document(refused, tmp_path)
    for target in (tmp_path / "font.otf", tmp_path / "font.ttf"):
        target.write_bytes(b"the old font")
        run = run_generator(generator, source, target)
        assert (run.status, run.warnings, run.error.count("\n")) == (1, [], 1)
        assert words in run.error or case in LEFT_TO_THE_PARSER and "not JSON" in run.error
        assert run.error.endswith(".\n") and len(run.error) < 400
        assert "Error" not in run.error and target.read_bytes() == b"the old font"
    assert sorted(os.listdir(tmp_path)) == ["document.json", "font.otf", "font.ttf"]


def test_a_refusal_is_one_line_on_standard_error_and_status_1(generate):
    for case in ("no name", "half a character", "a negative advance"):
        run = generate(REFUSED[case][0])
        assert (run.status, run.error.count("\n"), run.warnings) == (1, 1, [])
        assert REFUSED[case][1] in run.error and "Traceback" not in run.error
        assert not run.font.exists()


GOOD = document([glyph("A", "A", box(0, 0, 9, 9))])


def test_a_target_that_can_not_be_written_is_refused(generate, tmp_path):
    (tmp_path / "folder.otf").mkdir()
    os.mkfifo(tmp_path / "pipe.otf")
    (tmp_path / "loop.otf").symlink_to("loop.otf")
    for target, words in {
        "folder.otf": "it is a folder", "pipe.otf": "not a regular file", "loop.otf": "symbolic links",
        "absent/font.otf": "folder does not exist", "font.xyz": "ends in none of", "font": ".woff2",
        "n" * 300 + ".otf": "too long", "document.json/font.otf": "Not a directory", "/proc/x.otf": "",
    }.items():
        run = generate(GOOD, target)
        assert (run.status, run.error.count("\n")) == (1, 1) and words in run.error, target
    assert stat.S_ISFIFO(os.stat(tmp_path / "pipe.otf").st_mode)


def test_a_font_takes_the_place_of_the_old_one(generate, tmp_path):
    """Links are followed, the mode is kept, the extension counts in any case."""
    old = tmp_path / "the real.OTF"
    old.write_bytes(b"old")
    old.chmod(0o640)
    (tmp_path / "link.otf").symlink_to(old)
    assert generate(GOOD, "link.otf").status == 0
    assert (tmp_path / "link.otf").is_symlink() and old.read_bytes()[:4] == b"OTTO"
    assert stat.S_IMODE(old.stat().st_mode) == 0o640
    assert generate(GOOD, "-a 'b'\n\"c\".TtF").status == 0
    mask = os.umask(0)
    os.umask(mask)
    assert stat.S_IMODE((tmp_path / "-a 'b'\n\"c\".TtF").stat().st_mode) == 0o666 & ~mask


def test_a_full_disk_leaves_the_old_font(tmp_path, monkeypatch):
    target = tmp_path / "font.otf"
    target.write_bytes(b"old")

    def full(descriptor):
        raise OSError(28, "No space left on device")

    monkeypatch.setattr(command.os, "fsync", full)
    with pytest.raises(GeneratorError, match="No space left"):
        command.write_whole(str(target), b"new", "font")
    assert target.read_bytes() == b"old" and os.listdir(tmp_path) == ["font.otf"]


def test_nobody_listening_is_no_failure(generator, tmp_path):
    source = write_document(document([glyph("a", "A"), glyph("b", "A")]), tmp_path)
    for closing in (">&-", "2>&-", "> /dev/full", "| true"):
        command = shlex.join([*COMMANDS[generator], str(source), str(tmp_path / "f.otf")])
        run = subprocess.run(["bash", "-c", f"set -o pipefail; {command} {closing}"], capture_output=True, text=True)
        assert (run.returncode, run.stderr) == (0, ""), closing


def test_a_request_to_end_leaves_the_old_font(generator, tmp_path):
    source = write_document(document([glyph("g", None, circle(300.5, 300, 200) * 9)] * 3000), tmp_path)
    (tmp_path / "f.woff2").write_bytes(b"old")
    process = subprocess.Popen([*COMMANDS[generator], str(source), str(tmp_path / "f.woff2")],
                               stderr=subprocess.PIPE, text=True)
    while not catches(process, signal.SIGTERM):
        assert process.poll() is None
    process.terminate()
    error = process.communicate(timeout=60)[1]
    assert (process.returncode, error) == (1, "The font was not made: it was interrupted.\n")
    assert (tmp_path / "f.woff2").read_bytes() == b"old"
    assert sorted(os.listdir(tmp_path)) == ["document.json", "f.woff2"]


def catches(process, number):
    """Whether the process has a handler for the signal by now."""
    status = Path(f"/proc/{process.pid}/status").read_text()
    return int(re.search("SigCgt:\t(.*)", status)[1], 16) >> number - 1 & 1
