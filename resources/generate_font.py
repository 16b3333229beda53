#!/usr/bin/env python3
"""Writes the font that a JSON font description asks for.

    python3 -u generate_font.py [--brotli-quality N] INPUT.json OUTPUT.(otf|ttf|woff|woff2)

Exit status: 0 the font is written, 1 it could not be made, 2 wrong usage. A failure prints
one sentence on standard error and leaves the output file as it was.
"""

import sys

from font_generator.cli import main

if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
