#!/usr/bin/env python3
"""tidy.py BUILD: runs clang-tidy over the sources of the libraries. What passed once is not looked
at again before it, a header that it includes, or the rules change. What changed last comes first,
and no file is begun after ZARNIC_TIDY_SECONDS (180, or 0 for no limit): `scripts/test --soak` looks
at all of them."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys
import time

import sources

CLANG_TIDY = "clang-tidy"
# Gcc's own options, which clang would take for mistakes.
EXTRA = ["--quiet", "--extra-arg=-Wno-unknown-warning-option"]


def sources_to_look_at(build):
    commands = json.loads((build / "compile_commands.json").read_text())
    names = [os.path.relpath(command["file"], sources.ROOT) for command in commands]
    return sorted({name for name in names
                   if sources.floor_of_folder(name) and not name.startswith(("tests/", "bench/"))})


def state(name, salt):
    digest = hashlib.sha256(salt)
    for member in sorted(sources.closure(name)):
        digest.update(member.encode() + b"\0" + (sources.ROOT / member).read_bytes())
    return digest.hexdigest()


def latest_first(names):
    log = subprocess.run(["git", "log", "--format=", "--name-only", "--max-count=200"],
                         cwd=sources.ROOT, capture_output=True, text=True).stdout.split()
    age = {name: place for place, name in reversed(list(enumerate(log)))}
    return sorted(names, key=lambda name: age.get(name, len(log)))


def look_at(name, build, deadline):
    if time.monotonic() > deadline:
        return None
    return subprocess.run([CLANG_TIDY, "-p", build, *EXTRA, name], cwd=sources.ROOT,
                          capture_output=True, text=True)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    passed = build / "tidy"
    passed.mkdir(exist_ok=True)
    version = subprocess.run([CLANG_TIDY, "--version"], check=True, capture_output=True).stdout
    salt = version + (sources.ROOT / ".clang-tidy").read_bytes()
    states = {name: state(name, salt) for name in sources_to_look_at(build)}
    waiting = latest_first(name for name in states if not (passed / states[name]).exists())
    seconds = float(os.environ.get("ZARNIC_TIDY_SECONDS", "180"))
    deadline = time.monotonic() + seconds if seconds > 0 else float("inf")
    failures = left = 0
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for name, run in zip(waiting, pool.map(lambda name: look_at(name, build, deadline), waiting)):
            if run is None:
                left += 1
            elif run.returncode == 0:
                (passed / states[name]).touch()
            else:
                failures += 1
                print(run.stdout, run.stderr, sep="")
    print(f"{len(states)} sources, {len(waiting) - left} looked at, {left} left for another time, "
          f"{failures} with warnings")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
