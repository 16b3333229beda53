#!/usr/bin/env python3
"""Writes a page that shows a font and proves it against its drawings.

    python3 -u font_report.py INPUT.json FONT.(otf|ttf|woff|woff2) OUTPUT.html

INPUT.json is the description that the font was made from. Exit status: 0 the page is written,
1 it could not be made, 2 wrong usage. A failure prints one sentence on standard error and
leaves the output file as it was.
"""

import sys

from font_reporter.cli import main

if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
