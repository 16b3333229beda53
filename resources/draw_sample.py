#!/usr/bin/python3
"""Draws the sample typeface: one SVG file per glyph, and its spacing.

    resources/draw_sample.py

writes resources/sample-drawings/*.svg and resources/sample-spacing.json. The
design is in the package sample_design: measures in parameters.py, letters in
one module per group. Needs nothing but Python; a second run writes the same
bytes again.
"""

from pathlib import Path

from sample_design import output

HERE = Path(__file__).resolve().parent


def main():
    output.write(HERE / "sample-drawings", HERE / "sample-spacing.json")


if __name__ == "__main__":
    main()
