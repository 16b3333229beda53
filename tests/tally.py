"""Sums the results of several test runs, told as JUnit files, to one closing line."""

import sys
import xml.etree.ElementTree as ElementTree


def main() -> int:
    total = failed = skipped = 0
    for path in sys.argv[1:]:
        for case in ElementTree.parse(path).getroot().iter("testcase"):
            total += 1
            failed += case.find("failure") is not None or case.find("error") is not None
            skipped += case.find("skipped") is not None
    print(f"{total - failed - skipped} passed, {failed} failed, {skipped} skipped")
    return 0 if total > 0 and failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
