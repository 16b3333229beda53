"""What the generator's tests share: running it as the program does, and looking at its fonts."""

import json
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

import pytest
from fontTools.ttLib import TTFont

RESOURCES = Path(__file__).resolve().parents[2] / "resources"
SCRIPT = RESOURCES / "generate_font.py"
sys.path.insert(0, str(RESOURCES))

from generate_font import make_font  # noqa: E402 (found by the line above)

FORMATS = ("otf", "ttf", "woff", "woff2")


@dataclass
class Run:
    status: int
    warnings: list[str]
    error: str
    font: Path


@pytest.fixture
def generate(tmp_path):
    """Runs the generator on a document (or on the bytes of one) and returns the Run."""
    def run(document, target="font.otf", environment=None, options=()):
        source = tmp_path / "document.json"
        if isinstance(document, bytes):
            source.write_bytes(document)
        else:
            source.write_text(json.dumps(document), encoding="utf-8")
        font = tmp_path / target
        result = subprocess.run([sys.executable, "-u", str(SCRIPT), *options, str(source), str(font)],
                                capture_output=True, env=environment, timeout=60)
        return Run(result.returncode, result.stdout.decode().splitlines(), result.stderr.decode(), font)
    return run


@pytest.fixture
def make(tmp_path):
    """Makes a font that has to succeed, in this process, which is faster, and opens it."""
    def run(document, target="font.otf"):
        source = tmp_path / "document.json"
        source.write_text(json.dumps(document, ensure_ascii=False), encoding="utf-8")
        make_font(str(source), str(tmp_path / target), 4)
        return TTFont(tmp_path / target)
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
