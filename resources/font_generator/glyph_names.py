"""Glyph names that every reader of fonts accepts."""

import re
from typing import Iterable
from unicodedata import normalize

from fontTools.agl import AGL2UV, LEGACY_AGL2UV, UV2AGL

# The rule of the Adobe Glyph List: letters, digits, periods and underscores, a letter or
# an underscore first, 63 characters at most. ".notdef" is the one exception.
LONGEST_NAME = 63
_LEGAL = re.compile(r"[A-Za-z_][A-Za-z0-9._]{0,62}\Z")
_NUMBERED = re.compile(r"u(ni)?[0-9A-F]{4,6}")
_ILLEGAL_CHARACTERS = re.compile(r"[^A-Za-z0-9._]+")


class GlyphNames:
    """Gives out names, each only once."""

    def __init__(self, reserved: Iterable[str] = ()) -> None:
        self._taken = set(reserved)
        self._counters: dict[str, int] = {}

    def take(self, wish: str) -> str:
        """`wish`, or `wish` with the first free number after a period if that name is taken."""
        name = wish
        while name in self._taken:
            count = self._counters.get(wish, 0) + 1
            self._counters[wish] = count
            name = f"{wish[:LONGEST_NAME - 1 - len(str(count))]}.{count}"
        self._taken.add(name)
        return name


def name_for_character(character: str, project_name: str) -> str:
    """The name of the glyph that a character maps to.

    Software that has nothing but glyph names reads text back from them: a name that the glyph
    list gives to the character comes first, then the project's own unless it means some other
    character, then the character's number.
    """
    scalar = ord(character)
    listed = UV2AGL.get(scalar)
    if listed:
        return listed
    by_number = f"uni{scalar:04X}" if scalar <= 0xFFFF else f"u{scalar:05X}"
    if not _LEGAL.match(project_name):
        return by_number
    # Readers take the part before a period for the character, underscores for several of them.
    meaning = project_name.split(".", 1)[0]
    listed_meaning = AGL2UV.get(meaning) or LEGACY_AGL2UV.get(meaning)
    if listed_meaning is not None:
        return project_name if listed_meaning == (scalar,) else by_number
    return by_number if _NUMBERED.match(meaning) or "_" in meaning else project_name


def name_for_project_name(project_name: str, index: int) -> str:
    """The legal name closest to `project_name`; `index` makes one up where nothing is left."""
    if _LEGAL.match(project_name):
        return project_name
    start = project_name[:4 * LONGEST_NAME]
    latin = normalize("NFKD", start).encode("ascii", "ignore").decode()
    name = _ILLEGAL_CHARACTERS.sub("_", latin).strip("_.")[:LONGEST_NAME]
    if not name:
        return f"glyph{index:05d}"
    return name if _LEGAL.match(name) else f"_{name}"[:LONGEST_NAME]
