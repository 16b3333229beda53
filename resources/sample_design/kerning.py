"""Pairs that need more or less room than their side bearings give.

Each row: left glyphs, right glyphs, and the change of the distance between
them in font units.
"""

ROWS = [
    # Slanted and overhanging capitals against each other
    ("A", "T", -64), ("A", "V W", -58), ("A", "Y", -70), ("A", "O C G Q", -18),
    ("Adieresis", "T", -64), ("Adieresis", "V W", -54), ("Adieresis", "Y", -66),
    ("T", "A", -64), ("V W", "A", -58), ("Y", "A", -70), ("F P", "A", -56),
    ("T Y", "Adieresis", -52), ("V W", "Adieresis", -46),
    ("L", "T", -84), ("L", "V", -72), ("L", "W", -58), ("L", "Y", -90),
    ("D O", "A", -18), ("D O", "T V", -16), ("D O", "Y", -30),
    ("R", "Y", -18), ("T Y", "O", -20), ("L K", "O", -26),
    # Capitals against small letters
    ("A", "v w", -28), ("A", "y", -28), ("L", "y", -44),
    ("T", "a c e o", -72), ("T", "s", -64), ("T", "r u n", -52),
    ("T", "y w", -50),
    ("V", "a", -40), ("V", "e o", -36), ("V", "r u", -22),
    ("W", "a", -32), ("W", "e o", -28), ("W", "r u", -16),
    ("Y", "a", -62), ("Y", "e o", -62), ("Y", "u", -42),
    ("T", "adieresis odieresis", -48), ("T", "udieresis", -32),
    ("V", "adieresis odieresis", -16), ("W", "adieresis odieresis", -10),
    ("Y", "adieresis odieresis", -34),
    ("T", "eacute", -56),
    ("P", "a e o", -18), ("F", "a", -20), ("K", "o e", -22),
    ("K", "y", -26),
    # Small letters against each other
    ("r", "a", -14), ("r", "c d e g o q", -16), ("r", "adieresis odieresis", -12),
    ("v w y", "a", -8), ("v w y", "e o", -10), ("o", "v w y", -10),
    ("k", "e o", -18), ("f", "a e o", -8), ("x", "e o", -12), ("r", "t", 6), ("r", "v w y", 12),
    # Full stops and quotation marks
    ("F P", "period comma", -96), ("T", "period comma", -88),
    ("V", "period comma", -82), ("W", "period comma", -68),
    ("Y", "period comma", -96), ("r", "period comma", -58),
    ("v w y", "period comma", -56), ("f", "period comma", -24),
    ("A L", "quotesingle quotedbl", -60), ("f", "quotesingle quotedbl", 40),
    ("T", "hyphen", -64), ("Y", "hyphen", -60), ("V", "hyphen", -34),
    ("T", "colon semicolon", -24),
]

PAIRS = [(left, right, value) for lefts, rights, value in ROWS
         for left in lefts.split() for right in rights.split()]
