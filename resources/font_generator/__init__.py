"""Makes a font out of a JSON font description.

`document` reads and checks the description. `glyph_set` decides which glyphs the font has, under
which names (`glyph_names`) and for which characters (`characters`), `kerning` which pairs hold,
`naming` how the font is called. `outlines` are what is drawn, `shapes` what a format makes of it,
`layout` the rules for setting text, `tables` the numbers of the other tables. `font` puts it all
together by means of fontTools, `cli` is the command line. Lengths are font units, y upwards.
"""
