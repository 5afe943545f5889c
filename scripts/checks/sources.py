"""What the checks know about the tree: its floors, its files and who includes whom."""

import functools
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]

# From the ground up; folders of one row stand side by side.
FLOORS = [
    ["platform/foundation"],
    ["platform/services"],
    ["platform/drawing"],
    ["platform/layers"],
    ["platform/uikit"],
    ["model"],
    ["storage", "localisation", "device", "utilities"],
    ["imagecache", "graphics"],
    ["controllers", "controls"],
    ["windows"],
    ["host"],
    ["testing"],
    ["examples", "tests", "bench", "fuzz"],
]
RANKS = {folder: rank for rank, row in enumerate(FLOORS) for folder in row}

# Public headers without a source of the same name.
HEADER_ONLY = {
    "zarnic/platform/services/DeviceFacts.h": "platform/services",
    "zarnic/platform/foundation/Export.h": "platform/foundation",
    "zarnic/platform/drawing/NSTextAttributes.h": "platform/drawing",
    "zarnic/platform/foundation/ObjectList.h": "platform/foundation",
    "zarnic/platform/foundation/ObjectMap.h": "platform/foundation",
    "zarnic/zarnic.h": "host",
}

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


@functools.cache
def files():
    """Every C++ file of the tree that is not ignored, as paths from the root."""
    names = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp"],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout.split("\n")
    return [name for name in names if name and (ROOT / name).exists()]


@functools.cache
def includes(name):
    return INCLUDE.findall((ROOT / name).read_text(encoding="utf-8"))


@functools.cache
def resolve(included, folder):
    """The file of this tree that an include in `folder` names, or None for one from outside."""
    for name in (f"{folder}/{included}", "include/" + included, included):
        if (ROOT / name).is_file():
            return name
    return None


@functools.cache
def ours(name):
    """The files of this tree that the file includes."""
    folder = name.rpartition("/")[0]
    return [found for found in (resolve(included, folder) for included in includes(name)) if found]


@functools.cache
def foreign(name):
    """The headers that the file includes from outside."""
    folder = name.rpartition("/")[0]
    return [included for included in includes(name) if not resolve(included, folder)]


def floor_of_folder(name):
    """The longest floor folder that holds the file, or None."""
    parts = name.split("/")
    for length in (2, 1):
        if "/".join(parts[:length]) in RANKS:
            return "/".join(parts[:length])
    return None


@functools.cache
def sources_by_stem():
    found = {}
    for name in files():
        floor = floor_of_folder(name)
        if floor and name.endswith(".cpp") and RANKS[floor] <= RANKS["testing"]:
            found.setdefault(pathlib.Path(name).stem, set()).add(floor)
    return found


def floor_of(name):
    """The floor of a file; a public header's is that of the source of the same name."""
    if not name.startswith("include/"):
        return floor_of_folder(name)
    public = name.removeprefix("include/")
    if public.startswith("zarnic/testing/"):
        return "testing"
    if public in HEADER_ONLY:
        return HEADER_ONLY[public]
    floors = sources_by_stem().get(pathlib.Path(name).stem, set())
    return floors.copy().pop() if len(floors) == 1 else None


@functools.cache
def closure(name):
    """The file and everything of this tree that it includes, directly or not."""
    seen, waiting = set(), [name]
    while waiting:
        current = waiting.pop()
        if current not in seen:
            seen.add(current)
            waiting += ours(current)
    return seen
