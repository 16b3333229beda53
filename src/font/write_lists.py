#!/usr/bin/python3
"""Writes the C++ source of the lists declared in font/lists.h.

    write_lists.py OUTPUT.cpp

The lists are facts of font standards that fontTools and Python have: taken from there when the
program is built, both generators go by the same ones.
"""

import sys
from pathlib import Path

from fontTools.agl import LEGACY_AGL2UV, AGL2UV, UV2AGL
from fontTools.ttLib.standardGlyphOrder import standardGlyphOrder
from fontTools.ttLib.tables.O_S_2f_2 import OS2_UNICODE_RANGES
from fontTools.unicodedata import Scripts, ot_tags_from_script

# Bit of ulCodePageRange1 and the code page. A page counts when the font has all of its letters;
# the pages of Han characters count with those that their scripts can't do without.
ALPHABETS = {0: "cp1252", 1: "cp1250", 2: "cp1251", 3: "cp1253", 4: "cp1254", 5: "cp1255",
             6: "cp1256", 7: "cp1257", 8: "cp1258", 16: "cp874"}
# Bit, encoding and the lead bytes of the rows that count: kana or the commonest characters.
HAN = {17: ("shift_jis", (0x82, 0x83)), 18: ("gb2312", range(0xB0, 0xD8)),
       19: ("euc_kr", range(0xB0, 0xC9)), 20: ("big5", range(0xA4, 0xC7))}
FIRST_KANA, LAST_HANGUL = 0x3040, 0xD7A3


def letters(data, encoding):
    return {ord(character) for character in data.decode(encoding, "ignore") if character.isalpha()}


def code_pages():
    for bit, encoding in ALPHABETS.items():
        yield bit, letters(bytes(range(0x80, 0x100)), encoding)
    for bit, (encoding, rows) in HAN.items():
        found = set()
        for row in rows:
            for trail in range(0x40, 0xFF):
                found |= letters(bytes((row, trail)), encoding)
        # The rows hold full-width Latin, Greek and the like besides.
        yield bit, {scalar for scalar in found if FIRST_KANA <= scalar <= LAST_HANGUL}


def meaning(name):
    """The character that the glyph list gives a name; 0 for a text of several."""
    if name in AGL2UV:
        return AGL2UV[name]
    listed = LEGACY_AGL2UV[name]
    return listed[0] if len(listed) == 1 else 0


def rows(entries, width=8):
    entries = list(entries)
    return ",\n    ".join(", ".join(entries[i:i + width]) for i in range(0, len(entries), width))


def array(kind, name, entries):
    entries = list(entries)
    return (f"constexpr {kind} {name}Entries[] = {{\n    {rows(entries)}}};\n"
            f"const std::span<const {kind}> {name} = {name}Entries;\n")


def main():
    names = sorted(AGL2UV.keys() | LEGACY_AGL2UV.keys())
    ranges = sorted((first, last, bit) for bit, blocks in enumerate(OS2_UNICODE_RANGES)
                    for _, (first, last) in blocks)
    pages = [(bit, sorted(found)) for bit, found in code_pages()]
    parts = ['#include "font/lists.h"', "namespace quillery::font {"]
    parts.append(array("GlyphListEntry", "kGlyphList", (f'{{"{name}", {meaning(name):#x}}}' for name in names)))
    parts.append(array("GlyphListEntry", "kListedNames",
                       (f'{{"{name}", {scalar:#x}}}' for scalar, name in sorted(UV2AGL.items()))))
    parts.append(array("std::string_view", "kMacintoshNames", (f'"{name}"' for name in standardGlyphOrder)))
    parts.append(array("UnicodeRange", "kUnicodeRanges",
                       (f"{{{first:#x}, {last:#x}, {bit}}}" for first, last, bit in ranges)))
    tags = [(code, tag) for code in sorted(Scripts.NAMES) for tag in ot_tags_from_script(code)]
    parts.append(array("ScriptTag", "kScriptTags", (f'{{"{code}", "{tag}"}}' for code, tag in tags)))
    for bit, found in pages:
        parts.append(f"constexpr char16_t kLetters{bit}[] = {{\n    {rows((f'{scalar:#x}' for scalar in found), 12)}}};")
    parts.append(array("CodePage", "kCodePages", (f"{{{bit}, kLetters{bit}}}" for bit, _ in pages)))
    parts.append("} // namespace quillery::font")
    Path(sys.argv[1]).write_text("\n".join(parts) + "\n", encoding="ascii")


if __name__ == "__main__":
    main()
