#!/usr/bin/env python3
"""Writes the font that a JSON font description asks for. Exit status: 0 the font is written, 1 it could not be made,
2 wrong usage. A failure prints one sentence on standard error and leaves the output file as it was."""

import os
import sys

from font_generator.command import GeneratorError, Warnings, check_target, fail, quoted, run, write_whole


def main(*operands: str) -> int:
    quality = "11"
    if operands[:1] == ("--brotli-quality",):
        quality, operands = "".join(operands[1:2]), operands[2:]
    if len(operands) != 2 or quality not in map(str, range(12)):
        return fail("usage: generate_font.py [--brotli-quality 0..11] INPUT.json OUTPUT.(otf|ttf|woff|woff2)", 2)
    return run(lambda: make_font(*operands, int(quality)), "font")


def make_font(source: str, target: str, quality: int) -> Warnings:
    from font_generator.document import read_document
    from font_generator.font import FORMATS, build_font

    extension = os.path.splitext(target)[1].lower().removeprefix(".")
    if extension not in FORMATS:
        raise GeneratorError(f"The font {quoted(target)} cannot be written: its name ends in none of "
                             f"{', '.join('.' + known for known in FORMATS)}.")
    check_target(target, "font")
    date = os.environ.get("SOURCE_DATE_EPOCH") or "1704067200"  # 1 January 2024: the same project, the same bytes
    if not (date.isascii() and date.isdigit() and len(date) <= 15):
        raise GeneratorError(f"SOURCE_DATE_EPOCH is {quoted(date)}, which is no number of seconds.")
    data, warnings = build_font(read_document(source), extension, quality, int(date))
    write_whole(target, data, "font")
    return warnings


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
