"""The search for packages that no list brings finds the programs of scripts and tests, and the gaps."""

import pathlib
import shutil
import unittest

import packages
from project import File, Project

ROOT = pathlib.Path(__file__).resolve().parents[2]


class ProgramsTest(unittest.TestCase):
    def programs(self, path, text, functions=()):
        return packages.programs(File(path, text), set(functions))

    def test_of_scripts(self):
        text = """#!/usr/bin/env bash
# A comment that speaks of gzip; it isn't called.
say() { printf '%s\\n' "it's said by awk"; }
names=$(sort list | tr -d x) && FOO=1 env A=1 unzip file || exit 1
if ! mktemp "$(basename "$(realpath x)")"; then as_root flock 9; fi
list=(zip tar); say zip "$program" ledger
case $1 in
  gzip) find . ;;
esac
cat <<end
comm of a document
end
"""
        self.assertEqual(self.programs("scripts/a", text, ["say", "as_root"]),
                         {"bash", "sort", "tr", "env", "unzip", "mktemp", "basename", "realpath", "flock", "find",
                          "cat"})

    def test_of_tests(self):
        self.assertEqual(self.programs("tests/a.py", 'subprocess.run(["groff", "-x"])\ncheck_output("man x")'),
                         {"python3", "groff", "man"})
        self.assertEqual(self.programs("tests/a.cpp", 'runCommand({"zsh", "-n"});\nprintedBy("unzip -p " + x);'),
                         {"zsh", "unzip"})


@unittest.skipUnless(shutil.which("dpkg-query"), "no Debian system: nothing says which package brings what")
class GapsTest(unittest.TestCase):
    def test_are_found_where_the_package_is_installed_by_chance(self):
        files = [File("scripts/packages-core.txt", "g++\n"), File("scripts/packages-desktop.txt", "# nothing\n"),
                 File("run", "#!/bin/sh\nsort x\nninja\n"),
                 File("src/a.cpp", "#include <vector>\n#include <gtest/gtest.h>\n#include <dlfcn.h>\n")]
        found = list(packages.gaps(Project(files), packages.Machine(), packages.COMMANDS[0]))
        self.assertEqual([line.split(", which")[0] for line in found],
                         ["./run: run calls ninja", "./run: src/a.cpp includes <gtest/gtest.h>"])

    def test_a_list_that_loses_a_package_shows(self):
        project = Project.read(ROOT)
        for name, lost, what in (("desktop", "libspdlog-dev", "includes <spdlog/spdlog.h>"),
                                 ("test", "unzip", "calls unzip")):
            text = project.by_path[f"scripts/packages-{name}.txt"].text.replace(lost, "")
            changed = Project([File(file.path, text) if file.path.endswith(f"packages-{name}.txt") else file
                               for file in project.files])
            found = [gap for command in packages.COMMANDS[:2]
                     for gap in packages.gaps(changed, packages.Machine(), command)]
            self.assertTrue(any(what in gap and lost in gap for gap in found), found)


if __name__ == "__main__":
    unittest.main()
