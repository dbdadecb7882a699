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


# The rooms of src, each with what it may include besides itself: rooms that stand before it.
ACCOUNTING = ["core/platform", "core/data", "core/grid", "core/output", "core/reports"]
FAMILIES = ["core/ledger", "core/receivables", "core/plan", "core/projstat"]
CORE = [*ACCOUNTING, "core/sample", "core/check", "core/archives", "core/voucher", "core/receivables", "core/catalogue",
        "core/operators", "core/manual"]
# The windows are one stair: each room may include every one before it.
STAIR = ["desktop/res", "desktop/theme", "desktop/frame", "desktop/manual", "desktop/gridview", "desktop/page",
         "desktop/picking", "desktop/query", "desktop/report", "desktop/archives", "desktop/receivables",
         "desktop/shell", "desktop/host"]
MAY_INCLUDE = {
    "core/platform": set(),
    "core/data": {"core/platform"},
    "core/grid": {"core/data"},
    "core/output": {"core/platform", "core/data", "core/grid"},
    "core/sample": {"core/data"},
    "core/check": {"core/data"},
    "core/reports": set(ACCOUNTING[:-1]),
    "core/archives": set(ACCOUNTING),
    "core/voucher": set(ACCOUNTING),
    **{family: set(ACCOUNTING) for family in FAMILIES},
    "core/catalogue": {*ACCOUNTING, *FAMILIES},
    "core/operators": {*ACCOUNTING, "core/catalogue"},
    "core/manual": {*ACCOUNTING, "core/catalogue"},
    "cli": set(CORE),
    **{room: {*CORE, *STAIR[:place]} for place, room in enumerate(STAIR)},
    "pages": {"cli", *CORE, *STAIR},
}
# Libraries that one room hides from the others.
AT_HOME = {
    re.compile(r"sqlite3|libpq|postgres|pg_"): ({"core/data"}, "only core/data knows which database it talks to"),
    re.compile(r"xlsxwriter"): ({"core/output"}, "every file is written from the grid"),
    re.compile(r"CLI/"): ({"cli"}, "conditions are the same for the window, so they are no matter of one parser"),
}


def room_of(path):
    """"core/data" of "core/data/value.h", "cli" of "cli/cli.h"; "" for a path that names no room."""
    parts = path.split("/")[:-1]
    return "/".join(parts[:2]) if parts[:1] in (["core"], ["desktop"]) else "/".join(parts[:1])


def layering(project):
    why = "a room knows only what stands before it, so that the computation runs without windows"
    for file in project.cpp:
        if not file.path.startswith("src/"):
            continue
        home = room_of(file.path.removeprefix("src/"))
        if home not in MAY_INCLUDE:
            yield Finding(file.path, 1, f"src/{home} has no place in the table of rooms", why)
            continue
        for line, name, quoted in file.includes:
            target = room_of(name)
            if quoted and "/" in name and target != home and target not in MAY_INCLUDE[home]:
                yield Finding(file.path, line, f"src/{home} includes {name}", why)
            for library, (homes, reason) in AT_HOME.items():
                if library.match(name) and not quoted and home not in homes:
                    yield Finding(file.path, line, f"src/{home} includes {name}", reason)


# Where the window toolkit may be used; bench and tools have sources for both.
WINDOW_FOLDERS = ("src/desktop/", "src/pages/", "tests/desktop/", "tools/images/", "bench/")


def no_windows_below(project):
    why = "the core and its tests are built where no window toolkit is installed"
    for file in project.cpp:
        if file.path.startswith(WINDOW_FOLDERS):
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
    """Sources stand in a room that the build files name: its last folder is a word of theirs."""
    build_files = "".join(file.text for file in project.files
                          if re.fullmatch(rf"{parts[0]}/([\w/]*/)?(CMakeLists\.txt|\w+\.cmake)", file.path))
    deepest = {"core": 4, "desktop": 4}.get(parts[1], 3)
    if parts[0] == "src" and len(parts) != deepest:
        return False
    return re.search(rf"(?<!\w){re.escape(parts[-2 if parts[0] == 'src' else 1])}(?!\w)", build_files) is not None


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


def named_paths(project):
    """What the documents name in backticks or link to is there; "…" and "*" stand for something."""
    why = "a document that names a file that is gone sends its reader astray"
    paths = {file.path for file in project.files} | set(project.others)
    folders = {"/".join(path.split("/")[:end]) for path in paths for end in range(1, path.count("/") + 1)}
    for file in project.files:
        if not file.path.endswith(".md"):
            continue
        for match in NAMED_PATH.finditer(file.text):
            name = match[1].rstrip("/")
            if not {name, f"src/{name}"} & (paths | folders):
                yield Finding(file.path, file.text.count("\n", 0, match.start()) + 1, f"there is no {name}", why)


NAMED_PATH = re.compile(r"`((?:src|tests|docs|scripts|tools|bench|cmake|core|cli|desktop)/[\w./-]+)`")

RULES = (layering, no_windows_below, full_include_paths, line_length, file_length, function_length, header_comment,
         orphans, forbidden_words, no_clock_in_tests, named_paths)
