#!/usr/bin/env python3
"""Finds what a command needs and its lists of packages do not bring: packages.py ROOT. Status 1 when there is a gap.

A gap is seen on any Debian machine, also where the package is installed by chance: every header in angle brackets,
and every program that scripts and tests call, must belong to a package of the command's lists, to one that those pull
in, or to an essential one.
"""

import os
import re
import shutil
import subprocess
import sys
from dataclasses import dataclass

from project import Project

TEST = ("core", "test", "desktop", "package")


@dataclass(frozen=True)
class Command:
    """What installs its lists, and which files it compiles or runs."""
    name: str
    lists: tuple
    files: tuple  # folders end in "/"


COMMANDS = (
    Command("./run", ("core", "desktop"), ("run", "scripts/common.sh", "src/", "cmake/", "CMakeLists.txt")),
    Command("./test", TEST, ("test", "scripts/common.sh", "src/", "tests/", "tools/", "cmake/", ".ci/")),
    Command("scripts/package", ("core", "desktop", "package"), ("scripts/package", "scripts/common.sh", "cmake/")),
    Command("./test --long", (*TEST, "fuzz"), ("tests/fuzz/", "tests/support/")),
    Command("bench/run", (*TEST, "bench"), ("bench/",)),
    Command("scripts/screenshots", TEST, ("scripts/screenshots", "tools/")),
    Command("scripts/fresh-root", ("fresh-root",), ("scripts/fresh-root",)),
)

# Words that stand where a program's name may stand, and are none.
SHELL_WORDS = set(
    "alias bg break builtin case cd command compgen compopt complete continue declare do done echo elif else esac eval "
    "exec exit export false fg fi for function getopts hash if in jobs kill let local mapfile popd printf pushd pwd "
    "read readonly return select set shift shopt source test then time times trap true type typeset ulimit umask unset "
    "until wait while".split())
OPTIONAL = {"sudo"}  # asked for where the person is not root, and not missed where there is none
# Behind these stands a program again.
CARRIERS = r"(?:then|do|else|if|elif|while|until|exec|command -v|command|xargs|as_root|as_server|sudo)"
COMMAND_WORD = re.compile(
    rf"(?:^|[;&|!]|(?<!=)\(|(?<!\$)\{{|\b{CARRIERS}\s)\s*(?:[A-Za-z_]\w*=[^\s$(]*\s+)*(?:[A-Za-z_]\w*=\$\()?"
    r"(?=([a-z][\w.+-]*)(?=[\s;|&)]|$))", re.M)
ENV_WORD = re.compile(r"\benv\s+(?:[A-Z_]\w*=\S*\s+)+([a-z][\w.+-]*)")
FUNCTION = re.compile(r"^\s*([a-z_]\w*)\s*\(\)", re.M)
HERE_DOCUMENT = re.compile(r"<<-?'?(\w+)'?[^\n]*\n.*?\n\s*\1$", re.S | re.M)
PYTHON_CALL = re.compile(r'(?:\brun|check_output|check_call|Popen|\bcall)\(\s*\[?\s*"([\w.+-]+)[" ]')
CPP_CALL = re.compile(r'(?:runCommand\(\s*\{\s*|Words command = \{|printedBy\(\s*|popen\(\s*)"([\w.+-]+)[" ]')
CMAKE_CALL = re.compile(r"find_program\(\w+ ([\w.+-]+)")


# A comment, a text in single quotes, one in double quotes, an escape: whichever begins first.
NOT_COMMANDS = re.compile(r"""(?<![^\s;(])#[^\n]*|'[^']*'|"(?:\\.|\$\((?:[^()]|\([^()]*\))*\)|[^"\\])*"|\\.""", re.S)
SUBSTITUTION = re.compile(r"\$\((?:[^()]|\([^()]*\))*\)")
CASE_PATTERN = re.compile(r"^\s*[\w|*. -]+\)\s", re.M)


def shell_code(text):
    """The script without comments, here-documents and the insides of quotes; what "$( ... )" calls in them stays."""
    def inside(match):
        quoted = match.group()
        if quoted[0] == "#":
            return ""
        called = [shell_code(one) for one in SUBSTITUTION.findall(quoted)] if quoted[0] == '"' else []
        return " ".join(called) or "_"
    return CASE_PATTERN.sub("", NOT_COMMANDS.sub(inside, HERE_DOCUMENT.sub("", text.replace("\\\n", " "))))


def shell_programs(text, functions):
    code = shell_code(text)
    words = {match[1] for match in COMMAND_WORD.finditer(code)} | set(ENV_WORD.findall(code))
    return words - SHELL_WORDS - OPTIONAL - functions


def is_shell(file):
    return file.path.endswith(".sh") or re.match(r"#!.*\b(?:ba)?sh\b", file.text) is not None


def programs(file, functions):
    """The names of the programs that a file calls."""
    if is_shell(file):
        found = shell_programs(file.text, functions)
        interpreter = re.match(r"#!\s*(?:/usr/bin/env )?(?:\S*/)?(\w+)", file.text)
        return found | ({interpreter[1]} if interpreter else set())
    if file.path.endswith(".py"):
        return set(PYTHON_CALL.findall(file.text)) | {"python3"}
    if file.is_cpp:
        return set(CPP_CALL.findall(file.text))
    if file.path.endswith((".cmake", "CMakeLists.txt")):
        return set(CMAKE_CALL.findall(file.text))
    return set()


def headers(file):
    code = file.is_cpp or file.path.endswith(".c")
    return {name for _, name, quoted in file.includes if code and not quoted}


def dpkg(*arguments):
    return subprocess.run(["dpkg-query", *arguments], capture_output=True, text=True, check=False).stdout


class Machine:
    """What is installed here: which package needs which, and what each brings."""

    def __init__(self):
        self.needs, self.provided, self.essential = {}, {}, {"apt", "dpkg"}
        form = "${db:Status-Status}\t${Package}\t${Essential}\t${Pre-Depends}, ${Depends}\t${Provides}\n"
        for line in dpkg("-W", "-f", form).splitlines():
            status, name, essential, needs, provides = line.split("\t")
            if status != "installed":
                continue
            self.needs[name] = [alternatives(one) for one in needs.split(",") if one.strip()]
            for other in alternatives(provides.replace(",", "|")):
                self.provided.setdefault(other, []).append(name)
            if essential == "yes":
                self.essential.add(name)

    def chosen(self, names):
        """The package that stands for "a | b": the first that is installed, by its name or by one that it provides."""
        for name in names:
            if name in self.needs:
                return [name]
        return next((self.provided[name][:1] for name in names if name in self.provided), [])

    def closure(self, names):
        found, open_names = set(), list(names)
        while open_names:
            name = open_names.pop()
            if name not in found and name in self.needs:
                found.add(name)
                open_names += [one for names in self.needs[name] for one in self.chosen(names)]
        return found

    def files(self, packages):
        return set(dpkg("-L", *sorted(packages)).splitlines()) - {""}


def alternatives(text):
    return [re.split(r"[ (:]", one.strip())[0] for one in text.split("|") if one.strip()]


def wanted(project, name):
    file = project.by_path[f"scripts/packages-{name}.txt"]
    return {word for line in file.lines for word in line.split("#")[0].split()}


def brings_program(files, name):
    """Through the alternatives of Debian too, whose links belong to nobody."""
    places = [f"{folder}/{name}" for folder in ("/usr/bin", "/bin", "/usr/sbin", "/sbin")]
    place = shutil.which(name)
    real = os.path.realpath(place) if place else ""
    return any(one in files for one in (*places, real))


def owners(pattern):
    found = subprocess.run(["dpkg", "-S", pattern], capture_output=True, text=True, check=False).stdout
    return sorted({line.split(":")[0] for line in found.splitlines() if "diversion" not in line})


def gaps(project, machine, command):
    """A line for each header and program that the command's packages do not bring."""
    files = [file for file in project.files
             if any(file.path == one or (one.endswith("/") and file.path.startswith(one)) for one in command.files)]
    functions = {name for file in project.files if is_shell(file) for name in FUNCTION.findall(file.text)}
    lists = set().union(*(wanted(project, name) for name in command.lists))
    brought = machine.files(machine.closure(lists | machine.essential))
    ends = {path.split("/include/", 1)[1] for path in brought if "/include/" in path}
    ends |= {"/".join(end.split("/")[start:]) for end in ends for start in range(1, 5)}
    built = {target for file in project.files for target in re.findall(r"add_executable\((\w+)", file.text)}
    for file in files:
        for header in sorted(headers(file) - ends):
            yield f"{command.name}: {file.path} includes <{header}>, which no package of its lists brings; " \
                  f"it belongs to {', '.join(owners('*/include/*' + header)) or 'no package that is installed'}"
        for name in sorted(programs(file, functions) - built):
            if not brings_program(brought, name):
                yield f"{command.name}: {file.path} calls {name}, which no package of its lists brings; " \
                      f"it belongs to {', '.join(owners('*bin/' + name)) or 'no package that is installed'}"


def main():
    if shutil.which("dpkg-query") is None:
        print("skipped: this is no Debian system, and nothing says which package brings what")
        return 77
    project, machine = Project.read(sys.argv[1]), Machine()
    found = 0
    for command in COMMANDS:
        absent = sorted(set().union(*(wanted(project, name) for name in command.lists)) - set(machine.needs))
        if absent:
            print(f"{command.name}: skipped, not installed here: {' '.join(absent)}")
            continue
        for gap in gaps(project, machine, command):
            print(gap)
            found += 1
    print(f"{len(COMMANDS)} commands, {found} gaps")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
