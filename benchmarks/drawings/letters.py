"""The letters that every program is asked to write, each in a font that Debian packages."""

from pathlib import Path

CHARACTERS = "ABCDEFGHJKMNOPQRSVWXabcdefghijkmopqrstwyz368&@%$?ß"

# (family, style as fontconfig names it, file)
FONTS = (
    ("DejaVu Sans", "Book", "dejavu/DejaVuSans.ttf"),
    ("Noto Serif", "Regular", "noto/NotoSerif-Regular.ttf"),
    ("DejaVu Serif", "Bold", "dejavu/DejaVuSerif-Bold.ttf"),
    ("Lato", "Black", "lato/Lato-Black.ttf"),
    ("Noto Sans", "Italic", "noto/NotoSans-Italic.ttf"),
)
ROOT = Path("/usr/share/fonts/truetype")


class Letter:
    def __init__(self, index):
        self.index = index
        self.character = CHARACTERS[index]
        self.name = f"u+{ord(self.character):04x}"
        # Programs draw letters in five ways by turns; shifted, so that every font meets every way.
        self.family, self.style, file = FONTS[(index + index // 5) % len(FONTS)]
        self.file = str(ROOT / file)

    def css(self):
        weight = {"Bold": 700, "Black": 900}.get(self.style, 400)
        style = "italic" if self.style == "Italic" else "normal"
        return f"font-family:'{self.family}';font-weight:{weight};font-style:{style}"


LETTERS = [Letter(index) for index in range(len(CHARACTERS))]
assert len(LETTERS) == 50
