#!/usr/bin/env python3
"""umbrella.py [--write]: zarnic.h includes every public header but those of the window host and the
stage, which belong to other libraries. With --write, makes it so."""

import re
import sys

import sources

UMBRELLA = "include/zarnic/zarnic.h"
ELSEWHERE = ("include/zarnic/sdl/", "include/zarnic/testing/", UMBRELLA)


def wanted():
    names = sorted(name.removeprefix("include/") for name in sources.files()
                   if name.startswith("include/") and not name.startswith(ELSEWHERE))
    return "".join(f'#include "{name}"\n' for name in names)


def main():
    path = sources.ROOT / UMBRELLA
    text = path.read_text(encoding="utf-8")
    right = re.sub(r'(#include "[^"]+"\n)+', wanted(), text, count=1)
    if "--write" in sys.argv[1:]:
        path.write_text(right, encoding="utf-8")
    elif right != text:
        print(f"{UMBRELLA} misses a header; run scripts/checks/umbrella.py --write")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
