"""The measures of the typeface, in thousandths of the em.

Change a number here and every letter that uses it follows.
"""

FAMILY = "Quillery Sans"
UNITS_PER_EM = 1000

# Heights
ASCENDER = 800      # line metrics of the font
DESCENDER = -200
CAP = 700
XHEIGHT = 500
TALL = 740          # stems of b d h k l
DEPTH = -200        # stems of p q
OVER = 12           # rounds reach this far beyond straight letters

# Lowercase strokes
STEM = 84           # verticals
SIDE = 88           # rounds at their left and right
ARCH = 67           # rounds at their top and bottom
BAR = 68            # horizontals
JOIN = 44           # where an arch leaves its stem
THICK = 87          # diagonals going down, as a pen would thicken them
THIN = 76           # diagonals going up

# Capital strokes
CAP_STEM = 93
CAP_SIDE = 99
CAP_ARCH = 77
CAP_BAR = 78
CAP_THICK = 95
CAP_THIN = 82

# Shape
SQUARENESS = 1.06   # 1 = ellipse, more = fuller shoulders
SLANT = 18          # how much the pen cut drops over the width of a stem
DOT = 112           # diameter of the dots
LIGHT_DOT = 104     # the dots of accents

# Figures share one advance so that columns line up
FIGURE_STEM = 86
FIGURE_SIDE = 90
FIGURE_ARCH = 72
FIGURE_WIDTH = 560
