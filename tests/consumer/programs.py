#!/usr/bin/env python3
"""programs.py FOLDER: writes the programs of README.md and of the pages in docs/ to FOLDER.

A program is a block of C++ with a `main`. When a block of plain text follows it, that is what it
prints, and is written beside it as NAME.out."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def main():
    folder = pathlib.Path(sys.argv[1])
    for page in [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]:
        blocks = BLOCK.findall(page.read_text(encoding="utf-8")) + [("", "")]
        programs = [(code, follower) for (kind, code), follower in zip(blocks, blocks[1:])
                    if kind == "cpp" and "int main(" in code]
        for number, (code, (kind, text)) in enumerate(programs, 1):
            name = f"{page.stem.lower()}-{number}"
            (folder / f"{name}.cpp").write_text(code, encoding="utf-8")
            if kind == "text":
                (folder / f"{name}.out").write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
