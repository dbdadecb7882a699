"""Each rule finds what it is for in a tree of a few lines, and leaves sound code alone."""

import unittest

import functions
import lint
import rules
from project import File, Project

HEADER = "// Purpose.\n#pragma once\n"


def tree(**texts):
    """Files by name, "__" for "/" and a single "_" before the ending for ".": src__core__data__a_h."""
    files = []
    for name, text in texts.items():
        stem, _, ending = name.replace("__", "/").rpartition("_")
        files.append(File(f"{stem}.{ending}", text))
    files.append(File("src/CMakeLists.txt", "set(TZ_CORE_ROOMS data grid)"))
    return Project(files)


def found(rule, **texts):
    return [(finding.path, finding.line) for finding in rule(tree(**texts))]


class RulesTest(unittest.TestCase):
    def test_layering(self):
        self.assertEqual(found(rules.layering,
                               src__core__data__a_cpp='\n#include "core/grid/b.h"\n#include "core/data/c.h"\n'),
                         [("src/core/data/a.cpp", 2)])
        self.assertEqual(found(rules.layering, src__core__ledger__a_cpp="#include <sqlite3.h>\n"),
                         [("src/core/ledger/a.cpp", 1)])
        self.assertEqual(found(rules.layering, src__stray__a_cpp=""), [("src/stray/a.cpp", 1)])
        self.assertEqual(found(rules.layering, src__desktop__frame__a_cpp='#include "desktop/query/b.h"\n'),
                         [("src/desktop/frame/a.cpp", 1)])
        sound = '#include "core/catalogue/b.h"\n#include <CLI/CLI.hpp>\n'
        self.assertEqual(found(rules.layering, src__cli__a_cpp=sound), [])

    def test_no_windows_below(self):
        self.assertEqual(found(rules.no_windows_below, src__desktop__frame__c_cpp="#include <QString>\n",
                               src__cli__a_cpp="#include <QString>\n",
                               tests__core__grid__b_cpp="#include <QtCore/QString>\n"),
                         [("src/cli/a.cpp", 1), ("tests/core/grid/b.cpp", 1)])

    def test_full_include_paths(self):
        self.assertEqual(found(rules.full_include_paths,
                               src__core__data__a_cpp='#include "b.h"\n#include "core/data/c.h"\n'),
                         [("src/core/data/a.cpp", 1)])

    def test_lengths(self):
        self.assertEqual(found(rules.line_length, src__core__data__a_cpp="往" * 120 + "\n" + "x" * 121),
                         [("src/core/data/a.cpp", 2)])
        self.assertEqual(found(rules.file_length, src__core__data__a_h="\n" * 601), [("src/core/data/a.h", 600)])
        long = "\nint f() {\n" + "  g();\n" * 69 + "}\n"
        self.assertEqual(found(rules.function_length, src__core__data__a_cpp=long), [("src/core/data/a.cpp", 2)])
        self.assertEqual(found(rules.function_length, src__core__data__a_cpp=long.replace("  g();\n", "", 1)), [])

    def test_header_comment(self):
        self.assertEqual(found(rules.header_comment, src__core__data__a_h="#pragma once\n",
                               src__core__data__b_h="// Purpose.\n",
                               src__core__data__c_h=HEADER), [("src/core/data/a.h", 1), ("src/core/data/b.h", 1)])

    def test_orphans(self):
        self.assertEqual(found(rules.orphans, src__core__data__a_h=HEADER, src__core__data__b_h=HEADER,
                               src__stray__d_cpp="",
                               src__core__data__c_cpp='#include "core/data/b.h"\n', src__core__data__deep__e_cpp=""),
                         [("src/core/data/a.h", 1), ("src/stray/d.cpp", 1), ("src/core/data/deep/e.cpp", 1)])

    def test_forbidden_words(self):
        self.assertEqual(found(rules.forbidden_words, docs__a_md="as the Specifi" + "cation says\n",
                               src__core__data__b_cpp="\n// TO" + "DO\n", scripts__c_sh="cd /wor" + "k/x\n",
                               docs__d_md="specific, http://x.org/work/, part of"),
                         [("docs/a.md", 1), ("src/core/data/b.cpp", 2), ("scripts/c.sh", 1)])

    def test_no_clock_in_tests(self):
        text = "// system_clock::now\nauto t = std::chrono::system_clock::now();\n"
        self.assertEqual(found(rules.no_clock_in_tests, tests__core__data__a_cpp=text, src__core__data__b_cpp=text),
                         [("tests/core/data/a.cpp", 2)])

    def test_named_paths(self):
        text = "`core/data/a.h` `src/core/data` `docs/x-*.md` `tests/gone`\n\n`core/data/b.h`\n"
        self.assertEqual(found(rules.named_paths, docs__a_md=text, src__core__data__a_h=HEADER),
                         [("docs/a.md", 1), ("docs/a.md", 3)])


class FunctionsTest(unittest.TestCase):
    def test_finds_bodies_and_nothing_else(self):
        code = """#define M(x) { \\
  x }
namespace tz {
enum class Kind { a, b };
const Table table = {
    {1, f(2)},
};
template <class T>
class Box : public Base {
 public:
  explicit Box(T t) : t_(t) {}
  [[nodiscard]] T get() const {
    if (t_) {
      return t_;
    }
    return {};
  }
};
template <class Record>
void write(const Record& r) {
  each([&](auto x) { put(x); });
}
}  // namespace tz
"""
        self.assertEqual(list(functions.lengths(File("a.cpp", code).code)),
                         [(11, "Box", 1), (12, "get", 6), (19, "write", 4)])

    def test_code_has_no_comments_and_strings(self):
        code = File("a.cpp", 'f("{", \'{\', R"(\n{)", 1\'000\'000); // {\n/* {\n{ */ g();').code
        self.assertNotIn("{", code)
        self.assertEqual(code.count("\n"), 3)
        self.assertIn("1'000'000", code)
        self.assertIn("g();", code)


class LintTest(unittest.TestCase):
    def test_result_depends_on_what_is_included(self):
        def key(header):
            project = tree(src__core__data__a_cpp='#include "core/data/b.h"\n',
                           src__core__data__b_h='#include "core/data/c.h"\n',
                           src__core__data__c_h=header, src__core__data__d_h=header)
            return lint.key_of(project, project.files[0], [], b"")
        self.assertEqual(key("int a;"), key("int a;"))
        self.assertNotEqual(key("int a;"), key("int b;"))

    def test_clang_gets_no_words_of_another_compiler(self):
        command = ("/usr/bin/cmake -E env X=1 ccache /usr/bin/c++ -DA=\\\"x\\\" -Isrc -Winvalid-pch -include p.hxx "
                   "-o a.o -c a.cpp")
        self.assertEqual(lint.clang_arguments(command), [*lint.ADDED, '-DA="x"', "-Isrc"])


if __name__ == "__main__":
    unittest.main()
