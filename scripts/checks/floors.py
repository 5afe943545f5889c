#!/usr/bin/env python3
"""Proves from the includes that no floor looks up, and that each third-party library stays in the
folders that may use it."""

import re
import sys

import sources

# What an include from outside begins with, and the folders that may see it (docs/dependencies.md).
THIRD_PARTY = [
    (r"unicode/", ["platform/foundation"]),
    (r"(simdjson|rapidjson/|nlohmann/)", []),
    (r"plist/", ["platform/foundation"]),
    (r"(cairo|pango|hb|harfbuzz/|ft2build|freetype|fontconfig/|glib)", ["platform/drawing"]),
    (r"(gif_lib|jerror|jpeglib|turbojpeg|spng|png|webp/|qrencode)", ["platform/drawing"]),
    (r"curl/", ["platform/services/linux"]),
    (r"systemd/", ["platform/services/linux"]),
    (r"ZXing/", ["platform/drawing"]),
    (r"openssl/", ["model", "platform/services/linux"]),
    (r"sqlite3\.h", ["storage"]),
    (r"(SDL|wayland-)", ["host/sdl"]),
    (r"(gtest|gmock)/", []),
    (r"benchmark/", []),
    (r"Q[A-Z]", []),
]
# Those that may see anything: they stand outside the library.
FREE_FOLDERS = ("tests/", "bench/")

SYSTEM = re.compile(
    r"([a-z_0-9]+"                                     # the C++ library
    r"|(assert|errno|dirent|dlfcn|fcntl|fenv|ftw|glob|grp|langinfo|limits|locale|math|poll|pthread"
    r"|pwd|sched|signal|spawn|stddef|stdint|stdio|stdlib|string|strings|syslog|termios|time|unistd"
    r"|utime|wchar|cxxabi|execinfo|link|malloc|semaphore|iconv|ifaddrs|netdb|getopt|endian)\.h"
    r"|(arpa|linux|net|netinet|sys)/.*\.h)")


def library_rule(included):
    for pattern, folders in THIRD_PARTY:
        if re.match(pattern, included):
            return folders
    return None


def check_direction(name, floor, problems):
    for found in sources.ours(name):
        other = sources.floor_of(found)
        if other and sources.RANKS[other] > sources.RANKS[floor]:
            problems.append(f"{name}: {floor} may not include {found} of {other}, above it")


def check_third_party(name, problems):
    """Headers count with what they include: a library's types may not leak through one of ours."""
    if name.startswith(FREE_FOLDERS):
        return
    for member in sources.closure(name):
        for included in sources.foreign(member):
            if SYSTEM.fullmatch(included):
                continue
            folders = library_rule(included)
            through = "" if member == name else f" (through {member})"
            if folders is None:
                problems.append(f"{name}: unknown header {included}{through}")
            elif not name.startswith(tuple(folder + "/" for folder in folders)):
                problems.append(f"{name}: {included} does not belong here{through}")


def check_neighbours(problems):
    """Folders of one row may lean on each other one way only."""
    leans = {}
    for name in sources.files():
        floor = sources.floor_of(name)
        for found in sources.ours(name) if floor else []:
            other = sources.floor_of(found)
            if other and other != floor and sources.RANKS[other] == sources.RANKS[floor]:
                leans[floor, other] = name
    for (floor, other), name in leans.items():
        if floor < other and (other, floor) in leans:
            problems.append(f"{floor} and {other} include each other: {name}, "
                            f"{leans[other, floor]}")


def main():
    problems = []
    for name in sources.files():
        floor = sources.floor_of(name)
        if floor is None:
            problems.append(f"{name}: belongs to no floor (one source of the same name, or an "
                            "entry of HEADER_ONLY in scripts/checks/sources.py)")
            continue
        check_direction(name, floor, problems)
        check_third_party(name, problems)
    check_neighbours(problems)
    print("\n".join(sorted(set(problems))) or f"{len(sources.files())} files, no include looks up")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
