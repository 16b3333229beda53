"""What the generator's tests share: both generators, run as the program does, and looking at their fonts.

The environment variable GENERATE_FONT says which executable is tested.
"""

import io
import json
import os
import subprocess
import sys
from contextlib import redirect_stderr, redirect_stdout
from dataclasses import dataclass
from pathlib import Path

import pytest
from fontTools.ttLib import TTFont

ROOT = Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "resources/generate_font.py"
EXECUTABLE = os.environ.get("GENERATE_FONT") or str(ROOT / "build/dev/bin/generate_font")
COMMANDS = {"script": [sys.executable, "-u", str(SCRIPT)], "executable": [EXECUTABLE]}
sys.path.insert(0, str(ROOT / "resources"))

import generate_font  # noqa: E402 (found by the line above)

FORMATS = ("otf", "ttf", "woff", "woff2")


@dataclass
class Run:
    """How a generator ended, what it said, and where its font is if there is one."""

    status: int
    warnings: list[str]
    error: str
    font: Path


def run_generator(generator, source, font, *options):
    """Runs a generator as quickly as that goes: the script in this process."""
    if generator == "executable":
        return run_process(generator, source, font, *options)
    output, error = (io.TextIOWrapper(io.BytesIO(), encoding="utf-8") for _ in range(2))
    with redirect_stdout(output), redirect_stderr(error):
        status = generate_font.main(*options, str(source), str(font))
    said, sentence = (stream.buffer.getvalue().decode() for stream in (output, error))
    return Run(status, said.splitlines(), sentence, font)


def run_process(generator, source, font, *options, environment=None):
    result = subprocess.run([*COMMANDS[generator], *options, str(source), str(font)], capture_output=True,
                            env=environment, timeout=60)
    return Run(result.returncode, result.stdout.decode().splitlines(), result.stderr.decode(), font)


def write_document(document, folder):
    """The file of a document, or of the bytes of one."""
    source = folder / "document.json"
    try:
        source.write_bytes(document if isinstance(document, bytes) else
                           json.dumps(document, ensure_ascii=False).encode("utf-8"))
    except UnicodeEncodeError:  # half a character, which only an escape can stand for
        source.write_text(json.dumps(document))
    return source


@pytest.fixture(scope="module", params=COMMANDS)
def generator(request):
    """The name of either generator: a test that asks for it, or for what follows, is done with both."""
    return request.param


@pytest.fixture
def generate(tmp_path, generator):
    """Runs the generator as a process on a document and returns the Run."""
    def run(document, target="font.otf", environment=None, options=()):
        source = write_document(document, tmp_path)
        return run_process(generator, source, tmp_path / target, *options, environment=environment)
    return run


@pytest.fixture
def make(tmp_path, generator):
    """Makes a font that has to succeed and opens it."""
    def run(document, target="font.otf"):
        made = run_generator(generator, write_document(document, tmp_path), tmp_path / target, "--brotli-quality", "4")
        assert (made.status, made.error) == (0, "")
        return TTFont(made.font)
    return run


def sanitize(font: TTFont) -> str:
    """What ots-sanitize says against a font; nothing when it is accepted without remarks."""
    result = subprocess.run(["ots-sanitize", font.reader.file.name], capture_output=True, text=True)
    said = (result.stdout + result.stderr).replace("File sanitized successfully!", "").strip()
    return said or ("" if result.returncode == 0 else f"status {result.returncode}")


def unpacked(font: TTFont) -> str:
    """The path of the font as an sfnt file, for programs that read no compressed ones."""
    if font.flavor is None:
        return font.reader.file.name
    path = font.reader.file.name + ".sfnt"
    opened = TTFont(font.reader.file.name)
    opened.flavor = None
    opened.save(path)
    return path


def shape(font: TTFont, text: str) -> list[tuple[str, int]]:
    """The glyph names and advances that HarfBuzz sets the text with."""
    scalars = ",".join(f"{ord(character):04X}" for character in text)
    result = subprocess.run(["hb-shape", "--output-format=json", f"--unicodes={scalars}", unpacked(font)],
                            capture_output=True, text=True, check=True)
    return [(glyph["g"], glyph["ax"]) for glyph in json.loads(result.stdout)]
