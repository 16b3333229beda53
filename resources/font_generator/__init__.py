"""Makes a font binary from a JSON font description.

The way through the package: `json_text` and `document` read and check the description,
`glyph_set` decides which glyphs the font has, under which names (`glyph_names`) and for which
characters (`characters`), `kerning` which pairs hold. `charstrings` and `cff` encode cubic
outlines, `glyf`, `overlaps` and `truetype` quadratic ones, `gpos` and `gsub` the rules of
`layout`, `naming`, `metrics`, `code_pages` and `cmap` the remaining tables. `font` puts the
tables together, `woff2` packs them for the web, `output` puts the finished bytes in the place of
the old file, `cli` is the command line. Lengths are font units with y upwards throughout.
"""
