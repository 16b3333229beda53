"""What one does with FontForge to make a font of a folder of drawings: import each into the slot
of its character, turn its contours the right way, round, generate.

    fontforge_font.py FOLDER FONT [FLAG...]

Flags are those of FontForge's generate(), "no-hints" say.
"""

import sys
from pathlib import Path

import fontforge

folder, target, *flags = sys.argv[1:]
font = fontforge.font()
font.encoding = "UnicodeFull"
font.em = 1000
font.fontname = font.familyname = font.fullname = "Benchmark"
for drawing in sorted(Path(folder).glob("*.svg")):
    scalar = int(drawing.stem.removeprefix("u+"), 16)
    glyph = font.createChar(scalar, f"u{scalar:05X}")
    glyph.importOutlines(str(drawing))
    glyph.correctDirection()
    glyph.round()
    glyph.width = 600
font.generate(target, flags=tuple(flags))
