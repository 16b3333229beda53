"""Makes a font out of a JSON font description: `document` reads it, `font` builds the tables by
means of fontTools, `command` runs the whole. Lengths are font units, y upwards, throughout."""
