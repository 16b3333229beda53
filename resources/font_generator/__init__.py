"""Makes a font binary from a JSON font description.

The way through the package: `json_text` and `document` read and check the description, in `pieces`
that two processes share (`workers`) where it is long; what each of the `formats` makes of a drawing
is made while reading: `charstrings` encodes cubic outlines, `glyf` and `overlaps` quadratic ones. `glyph_set` decides which glyphs the
font has, under which names (`glyph_names`) and for which characters (`characters`), `kerning`
which pairs hold. `cff` and `truetype` are the tables of outlines, `gpos`, `gsub` and `gdef` the
rules of `layout`, `naming`, `metrics`, `slant`, `code_pages` and `cmap` the rest. `font` puts the
tables together, `woff2` packs them for the web, `output` puts the finished bytes in the place of
the old file. `cli` is the command line, and `command` how a command of ours ends. Lengths are font
units with y upwards throughout.
"""
