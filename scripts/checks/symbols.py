#!/usr/bin/env python3
"""symbols.py LIBRARY...: the libraries export namespace zn and the listed C names, no more."""

import pathlib
import re
import subprocess
import sys

MAP = pathlib.Path(__file__).resolve().parents[2] / "cmake/exports.map"
# Members of namespace zn as the compiler spells them, with their tables, thunks and guards.
OURS = re.compile(r"_Z(GV)?Z?(T[VTISC])?(T[hvc][\dn_]+)?NK?2zn")


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    return {line.split()[-1].split("@")[0] for line in lines}


def main():
    listed = set(re.findall(r"^ *([A-Za-z]\w*);$", MAP.read_text(), re.MULTILINE))
    found, problems = set(), []
    for library in sys.argv[1:]:
        names = exported(library)
        found |= names
        problems += [f"{library}: exports {name}" for name in sorted(names - listed)
                     if not OURS.match(name)]
    problems += [f"cmake/exports.map lists {name}, which nothing exports"
                 for name in sorted(listed - found)]
    print("\n".join(problems) or f"{len(found)} symbols, all intended")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
