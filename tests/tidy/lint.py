#!/usr/bin/env python3
"""Runs clang-tidy over the sources of src that the build compiles: lint.py ROOT BUILD core|desktop [FILE...].

The sources of the desktop include the window toolkit and take several times as long as the others.

A clean file is remembered in BUILD/lint under a hash of all that its result depends on: its own text, the project's
headers it reaches, its compile command, the checks and clang-tidy itself. It is looked at again when one of them
changes.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

from project import Project

# Precompiled headers of one compiler are of no use to another, and without them a missing #include shows.
DROPPED = ("-Winvalid-pch", "-fpch-preprocess")
# g++ has warnings that clang does not know. The analyzer's deep mode takes a minute for a file with templates, the
# shallow one a second or two.
ADDED = ["-Wno-unknown-warning-option", "-Xclang", "-analyzer-config", "-Xclang", "mode=shallow"]


# The toolkit's parents own their children, which the search for leaks takes for lost.
DESKTOP_CHECKS = ["--checks=-clang-analyzer-cplusplus.NewDeleteLeaks"]
DESKTOP = ("src/desktop/",)


def clang_arguments(command):
    """The compile command without its compiler, launcher, output and precompiled header."""
    words = iter(shlex.split(command))
    for word in words:
        if word.endswith(("c++", "g++", "clang++")):
            break
    kept = []
    for word in words:
        if word in ("-o", "-c", "-include"):
            next(words)
        elif word not in DROPPED:
            kept.append(word)
    return ADDED + kept


def key_of(project, file, arguments, common):
    digest = hashlib.sha256(common)
    digest.update("\0".join(arguments).encode())
    for reached in sorted(project.reach(file), key=lambda one: one.path):
        digest.update(f"\0{reached.path}\0{reached.text}".encode())
    return digest.hexdigest()


def check(root, file, arguments, mark):
    """clang-tidy's words about a file. A clean file leaves its mark at once, so that a broken-off run is not lost."""
    checks = DESKTOP_CHECKS if file.path.startswith(DESKTOP) else []
    done = subprocess.run(["clang-tidy", "--quiet", *checks, file.path, "--", *arguments], cwd=root, text=True,
                          check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode == 0:
        mark.touch()
        return ""
    return done.stdout or done.stderr or f"{file.path}: clang-tidy failed silently\n"


def jobs(root, build, project, part, wanted):
    """(file, arguments, mark of a clean result) of every source that is compiled."""
    common = (root / ".clang-tidy").read_bytes() + subprocess.check_output(["clang-tidy", "--version"])
    marks = build / "lint" / part
    marks.mkdir(parents=True, exist_ok=True)
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        path = os.path.relpath(entry["file"], root)
        file = project.by_path.get(path)
        of_part = path.startswith("src/") and path.startswith(DESKTOP) == (part == "desktop")
        if file and of_part and (not wanted or path in wanted):
            arguments = clang_arguments(entry["command"])
            yield file, arguments, marks / key_of(project, file, arguments, common)


def main():
    root, build = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    part, wanted = sys.argv[3], set(sys.argv[4:])
    every = list(jobs(root, build, Project.read(root), part, wanted))
    if not wanted:
        for stale in set((build / "lint" / part).iterdir()) - {mark for _, _, mark in every}:
            stale.unlink()
    open_jobs = [job for job in every if not job[2].exists()]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for words in pool.map(lambda job: check(root, *job), open_jobs):
            if words:
                failed += 1
                print(words, end="", flush=True)
    print(f"{len(every)} sources, {len(open_jobs)} looked at anew, {failed} with findings")
    return 1 if failed or not every else 0


if __name__ == "__main__":
    sys.exit(main())
