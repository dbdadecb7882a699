"""The rules of this tree, each with its reason. A rule takes the project and yields findings."""

import re
from typing import NamedTuple

import functions


class Finding(NamedTuple):
    path: str
    line: int
    what: str
    why: str

    def __str__(self):
        return f"{self.path}:{self.line}: {self.what} ({self.why})"


# What a folder of src may include besides itself.
ACCOUNTING = {"data", "grid", "reports", "ledger"}
BELOW_CLI = ACCOUNTING | {"system", "sample", "receivables", "plan", "projstat", "catalogue"}
MAY_INCLUDE = {
    "system": set(),
    "data": {"system"},
    "grid": {"system"},
    "sample": {"data"},
    "reports": {"data", "grid"},
    "ledger": {"data", "grid", "reports"},
    "receivables": ACCOUNTING,
    "plan": ACCOUNTING,
    "projstat": ACCOUNTING,
    "catalogue": ACCOUNTING | {"receivables", "plan", "projstat"},
    "cli": BELOW_CLI,
    "res": set(),
    "suite": BELOW_CLI | {"res"},
    "ui": BELOW_CLI | {"res", "suite"},
    "shell": BELOW_CLI | {"res", "suite", "ui"},
    "host": BELOW_CLI | {"res", "suite", "ui", "shell"},
}
# "images" is a test folder: pictures of windows for the documents.
WINDOW_FOLDERS = {"suite", "ui", "shell", "host", "res", "images"}
# Libraries that one folder hides from the others.
AT_HOME = {
    re.compile(r"sqlite3|libpq|postgres|pg_"): ({"data"}, "only src/data knows which database it talks to"),
    re.compile(r"xlsxwriter"): ({"grid"}, "every file is written from the grid"),
    re.compile(r"CLI/"): ({"cli"}, "conditions are the same for the window, so they are no matter of one parser"),
}


def layering(project):
    why = "a folder knows only what lies below it, so that the computation runs without windows"
    for file in project.cpp:
        if not file.path.startswith("src/"):
            continue
        home = file.path.split("/")[1]
        if home not in MAY_INCLUDE:
            yield Finding(file.path, 1, f"src/{home} has no place in the table of folders", why)
            continue
        for line, name, quoted in file.includes:
            target = name.split("/")[0]
            if quoted and "/" in name and target != home and target not in MAY_INCLUDE[home]:
                yield Finding(file.path, line, f"src/{home} includes {name}", why)
            for library, (homes, reason) in AT_HOME.items():
                if library.match(name) and not quoted and home not in homes:
                    yield Finding(file.path, line, f"src/{home} includes {name}", reason)


def no_windows_below(project):
    why = "the core and its tests are built where no window toolkit is installed"
    for file in project.cpp:
        if file.path.count("/") < 2 or file.path.split("/")[1] in WINDOW_FOLDERS:
            continue
        for line, name, _ in file.includes:
            if re.match(r"Q[A-Z]|Qt[A-Z]\w*/", name):
                yield Finding(file.path, line, f"includes {name} of the window toolkit", why)


def full_include_paths(project):
    why = "an include says which folder it comes from"
    for file in project.cpp:
        for line, name, quoted in file.includes:
            if quoted and ("/" not in name or ".." in name):
                yield Finding(file.path, line, f'"{name}" is no path from a root of the code', why)


MAX_LINE, MAX_FILE, MAX_FUNCTION = 120, 600, 70


def line_length(project):
    for file in project.files:
        if not file.path.endswith((".cpp", ".h", ".py", ".sh", ".cmake", "CMakeLists.txt")):
            continue
        for number, line in enumerate(file.lines, 1):
            if len(line) > MAX_LINE:
                yield Finding(file.path, number, f"{len(line)} columns, at most {MAX_LINE}",
                              "two files fit side by side")


def file_length(project):
    for file in project.files:
        if file.path.endswith((".cpp", ".h", ".py", ".sh")) and len(file.lines) > MAX_FILE:
            yield Finding(file.path, MAX_FILE, f"{len(file.lines)} lines, at most {MAX_FILE}",
                          "a longer file holds more than one idea")


def function_length(project):
    for file in project.cpp:
        for line, name, length in functions.lengths(file.code):
            if length > MAX_FUNCTION:
                yield Finding(file.path, line, f"{name} has {length} lines, at most {MAX_FUNCTION}",
                              "a function fits on a screen")


def header_comment(project):
    for file in project.cpp:
        if not file.path.endswith(".h"):
            continue
        if not file.text.startswith(("//", "/*")):
            yield Finding(file.path, 1, "the header does not open with a comment",
                          "a reader learns first what it is for: purpose, units, errors, where figures come from")
        if "#pragma once" not in file.text:
            yield Finding(file.path, 1, "no #pragma once", "a header may be included twice")


def orphans(project):
    """Sources that the build does not take in and headers that nobody includes."""
    included = {target.path for file in project.cpp for _, name, quoted in file.includes
                if quoted and (target := project.included_file(name))}
    for file in project.cpp:
        parts = file.path.split("/")
        if file.path.endswith(".h") and file.path not in included:
            yield Finding(file.path, 1, "nobody includes this header", "dead code misleads")
        if file.path.endswith(".cpp") and not built(project, parts):
            yield Finding(file.path, 1, "the build does not take this file in", "dead code misleads")


def built(project, parts):
    """Sources stand in a folder that the build files above it name, in src directly in it."""
    build_files = "".join(file.text for file in project.files
                          if re.fullmatch(rf"{parts[0]}/(CMakeLists\.txt|\w+\.cmake)", file.path))
    if parts[0] == "src" and len(parts) != 3:
        return False
    return re.search(rf"(?<!\w){re.escape(parts[1])}(?!\w)", build_files) is not None


# The words are put together here, so that this file does not hold them.
FORBIDDEN = [
    (r"\b(the |our |this )?specifi" + r"cation\b|\bspec\." + r"md\b|\bPart [0-9]+\.[0-9]+|\bcontract" + r" says\b",
     "the code stands for itself; where it came from belongs in an issue"),
    (r"(?<![a-zA-Z])/(?:work|root)/", "a path of one machine helps nobody else"),
    (r"\b(?:TO" + r"DO|FIX" + r"ME)\b", "what is left to do is an issue, where it can be found and closed"),
]


def forbidden_words(project):
    for file in project.files:
        for pattern, why in FORBIDDEN:
            for match in re.finditer(pattern, file.text, re.I if "specifi" in pattern else 0):
                yield Finding(file.path, file.text.count("\n", 0, match.start()) + 1, f'"{match.group().strip()}"', why)


def no_clock_in_tests(project):
    clock = re.compile(r"system_clock::now|\bstd::time\(|\btime\((?:nullptr|NULL|0)\)|currentDate(?:Time)?\(")
    for file in project.cpp:
        if file.path.startswith("tests/"):
            for match in clock.finditer(file.code):
                yield Finding(file.path, file.code.count("\n", 0, match.start()) + 1,
                              f"reads the clock: {match.group()}", "a test gives the same result on every day")


RULES = (layering, no_windows_below, full_include_paths, line_length, file_length, function_length, header_comment,
         orphans, forbidden_words, no_clock_in_tests)
