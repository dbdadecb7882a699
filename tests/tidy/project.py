"""The project's files as the checks see them: which there are, what they include, their code without comments.

Paths are relative to the project's root and use "/". Nothing here judges; the rules stand in rules.py.
"""

import pathlib
import re
from dataclasses import dataclass, field
from functools import cached_property

CODE_FOLDERS = ("src", "tests", "bench", "tools")
TEXT_FOLDERS = (*CODE_FOLDERS, "cmake", "docs", "scripts", ".ci")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.M)
# A comment, a raw string, a string or a character, whichever begins first. A quote between digits is a separator.
NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])*\'', re.S)


@dataclass
class File:
    path: str
    text: str

    @property
    def folder(self):
        """"src/data" of "src/data/value.h"; "" for a file at the root."""
        return "/".join(self.path.split("/")[:2]) if self.path.count("/") > 1 else self.path.rpartition("/")[0]

    @property
    def is_cpp(self):
        return self.path.endswith((".cpp", ".h"))

    @cached_property
    def lines(self):
        return self.text.splitlines()

    @cached_property
    def code(self):
        """The text with comments and the insides of strings blanked; line numbers stay."""
        return NOT_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), self.text)

    @cached_property
    def includes(self):
        """(line number, name, whether quoted) of every #include."""
        return [(self.text.count("\n", 0, match.start()) + 1, match[1] or match[2], match[1] is not None)
                for match in INCLUDE.finditer(self.text)]


@dataclass
class Project:
    files: list = field(default_factory=list)
    others: list = field(default_factory=list)  # paths of files that are no text

    @staticmethod
    def read(root):
        root = pathlib.Path(root)
        paths = [path for folder in TEXT_FOLDERS for path in (root / folder).rglob("*") if path.is_file()]
        paths += [path for path in root.iterdir() if path.is_file()]
        files, others = [], []
        for path in sorted(paths):
            if "__pycache__" in path.parts:
                continue
            try:
                files.append(File(path.relative_to(root).as_posix(), path.read_text(encoding="utf-8")))
            except UnicodeDecodeError:
                others.append(path.relative_to(root).as_posix())  # a picture, or what a test reads in another encoding
        return Project(files, others)

    @cached_property
    def cpp(self):
        return [file for file in self.files if file.is_cpp and file.path.split("/")[0] in CODE_FOLDERS]

    @cached_property
    def by_path(self):
        return {file.path: file for file in self.files}

    def included_file(self, name):
        """The project's file that #include "name" means, or None. The roots are those of the build."""
        candidates = (self.by_path.get(path) for path in (name, *(f"{root}/{name}" for root in CODE_FOLDERS)))
        return next(filter(None, candidates), None)

    def reach(self, file):
        """The project's files that a file includes, directly or through others, itself first."""
        found, open_files = {file.path: file}, [file]
        while open_files:
            for _, name, quoted in open_files.pop().includes:
                target = self.included_file(name) if quoted else None
                if target and target.path not in found:
                    found[target.path] = target
                    open_files.append(target)
        return list(found.values())
