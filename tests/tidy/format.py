#!/usr/bin/env python3
"""Checks that clang-format would change nothing: format.py ROOT. With --fix it changes the files."""

import subprocess
import sys

from project import Project


def main():
    root = sys.argv[1]
    action = ["-i"] if "--fix" in sys.argv[2:] else ["--dry-run", "-Werror"]
    files = [file.path for file in Project.read(root).cpp]
    done = subprocess.run(["clang-format", "--style=file", *action, *files], cwd=root, check=False)
    print(f"{len(files)} files")
    return 1 if done.returncode or not files else 0


if __name__ == "__main__":
    sys.exit(main())
