#!/usr/bin/python3
"""Makes a font in every format of each document that the fuzzer of the font compiler keeps, and has
ots-sanitize judge it.

    sanitize_fonts.py GENERATE_FONT FOLDER...

Prints what is said against a font, and ends with status 1 when there is anything. A document that is
refused makes no font; a compiler that falls over is told apart from one that refuses.
"""

import subprocess
import sys
import tempfile
from pathlib import Path

# What a browser remarks upon and takes nevertheless, since the project wants it so.
_WANTED = ("huge advance width", "File sanitized successfully")


def main(compiler, *folders):
    made = against = 0
    with tempfile.TemporaryDirectory() as place:
        for document in sorted(path for folder in folders for path in Path(folder).iterdir() if path.is_file()):
            for extension in ("otf", "ttf", "woff", "woff2"):
                font = Path(place) / f"font.{extension}"
                status = subprocess.run([compiler, "--brotli-quality", "0", document, font],
                                        capture_output=True, timeout=60).returncode
                if status == 0:
                    made += 1
                    judged = subprocess.run(["ots-sanitize", font], capture_output=True, text=True, timeout=60)
                    status = judged.returncode
                    said = [line for line in (judged.stdout + judged.stderr).splitlines()
                            if line and not any(words in line for words in _WANTED)]
                elif status == 1:
                    status, said = 0, []
                else:
                    said = ["the compiler fell over"]
                if status or said:
                    against += 1
                    print(f"{document} as {extension}: status {status}: {'; '.join(said)}")
    print(f"{made} fonts, {against} of them with something to say against them")
    return int(against > 0 or made == 0)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) > 2 else __doc__)
