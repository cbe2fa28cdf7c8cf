#!/usr/bin/env python3
"""The rules of tidy.py catch what they are there for, and nothing in sound sources."""
import unittest

import tidy

SOUND = {
    "README.md": "Two commands.\n",
    "docs/store.md": "The log is flushed once.\n",
    "src/common/CMakeLists.txt": "tarvex_layer(common SOURCES date.cpp)\n",
    "src/common/date.h": "#pragma once\n#include <string_view>\n",
    "src/common/date.cpp": '#include "common/date.h"\n',
    "src/session/CMakeLists.txt": "tarvex_layer(session SOURCES company.cpp)\n",
    "src/session/session.h": '#include <array>\n#include <fstream>\n#include <memory>\n'
                             '#include "common/date.h"\n'
                             "struct Session {\n"
                             "  void CheckArchiveResult(Operation operation, int archive, int position) {\n"
                             "    store.CheckArchiveResult(operation, archive, position);\n"
                             "  }\n"
                             "};\n"
                             "class OpenArchive {\n"
                             " public:\n"
                             "  OpenArchive(Session& session, int openPosition, int closePosition)\n"
                             "      : closePosition_(closePosition), archive_{session} {\n"
                             "    session.CheckArchiveResult(Operation::open, 1, openPosition);\n"
                             "  }\n"
                             "  OpenArchive(const OpenArchive&) = delete;\n"
                             "};\n",
    "src/session/company.cpp": '#include "session/session.h"\n'
                               "struct Creation { std::string_view prefix; int position; };\n"
                               'constexpr std::array<Creation, 2> kAll{{{"pc", 41}, {"iv", 42}}};\n'
                               "void closeCompany(Session& session) {\n"
                               "  const auto close = [&](auto& archive, int position) {\n"
                               "    session.CheckArchiveResult(Operation::close, archive.code, position);\n"
                               "  };\n"
                               "  close(session.pc, 25);\n"
                               "  std::ofstream file(name);  // exit(1), QMessageBox\n"
                               "}\n",
    "src/ledger/CMakeLists.txt": "tarvex_layer(ledger SOURCES mcfv.cpp parts/rows.cpp)\n",
    "src/ledger/mcfv.cpp": '#include "session/session.h"\n'
                           "namespace {\n"
                           "class Mcfv : public ui::Form {\n"
                           "  OpenArchive<rec::mc> mc_;\n"
                           "  Mcfv() : mc_(session, 1210, 1211) {}\n"
                           "};\n"
                           "void post(Session& session) {\n"
                           "  OpenArchive<rec::iv> iv(session, 1212, 1213);\n"
                           "  session.CheckArchiveResult(Operation::write, code(\"a,b\", 2), 1214);\n"
                           "}\n"
                           "}\n",
    "src/ledger/parts/rows.cpp": "",
    "tests/ledger/CMakeLists.txt": "tarvex_tests(ledger SOURCES mcfv_test.cpp)\n",
    "tests/ledger/mcfv_test.cpp": 'TEST_CASE("mcfv refuses") {}\n',
}

POSTING = "src/ledger/posting.cpp"


def findings(change):
    return [(found.path, found.text) for found in tidy.check(tidy.Tree({**SOUND, **change}))]


def in_posting(body):
    """What the rules say to a further source of the ledger."""
    return findings({
        "src/ledger/CMakeLists.txt": "mcfv.cpp parts/rows.cpp posting.cpp",
        POSTING: '#include "session/session.h"\n' + body,
    })


class Rules(unittest.TestCase):
    def caught(self, found, path, part):
        self.assertEqual([(path, True)], [(where, part in text) for where, text in found], found)

    def test_sound_sources_pass(self):
        self.assertEqual([], findings({}))
        self.assertEqual([], in_posting('#include <QuietNaN>\n// exit(1)\nconst char* kText = "fopen(";\n'
                                        "bool atexit(int n);\nint n = 1'000; int exitCode(int m);\n"))

    def test_includes(self):
        def include(layer, target):
            files = {"src/" + target: "#pragma once\n", f"src/{layer}/x.h": f'#include "{target}"\n'}
            return findings({**SOUND, **files})

        for layer, target in (("common", "session/s.h"), ("vat", "ledger/s.h"), ("ledger", "parties/s.h"),
                              ("app", "driver/s.h"), ("desktop", "driver/s.h")):
            part = f"{layer} may not include {target[:-4]}"
            self.caught(include(layer, target), f"src/{layer}/x.h", part)
        for layer, target in (("ledger", "vat/s.h"), ("ledger", "duedates/s.h"), ("documents", "ledger/s.h"),
                              ("yearend", "warehouse/s.h"), ("demo", "driver/s.h"), ("app", "vat/s.h")):
            self.assertEqual([], include(layer, target))
        self.caught(findings({"src/vat/x.h": '#include "session.h"\n'}), "src/vat/x.h", "no path from src/")
        self.caught(in_posting("#include <QString>\n"), POSTING, "Qt")
        self.caught(in_posting("#include <QtWidgets/QLabel>\n"), POSTING, "Qt")
        self.assertEqual([], findings({"src/desktop/x.h": "#include <QString>\n"}))

    def test_standard_headers(self):
        sort = "void f() { std::ranges::sort(rows); }\n"
        self.caught(in_posting(sort), POSTING, "std::ranges::sort wants <algorithm>")
        self.assertEqual([], in_posting("#include <algorithm>\n" + sort))
        header = {"src/common/rows.h": "#include <algorithm>\n"}
        listed = {"src/ledger/CMakeLists.txt": "mcfv.cpp parts/rows.cpp posting.cpp"}
        through = {POSTING: '#include "common/rows.h"\n' + sort}
        self.assertEqual([], findings({**listed, **header, **through}))

    def test_calls(self):
        self.caught(in_posting("std::ofstream file;\n"), POSTING, "store and session")
        self.caught(in_posting('FILE* f = fopen("a", "r");\n'), POSTING, "store and session")
        box = findings({"src/desktop/x.h": "void f() { QMessageBox box; }\n"})
        self.caught(box, "src/desktop/x.h", "desk's")
        for call in ("exit(1)", "std::abort()", "::_exit(2)", "std::terminate ()"):
            self.caught(in_posting(f"void f() {{ {call}; }}\n"), POSTING, "nothing but main")

    def test_size(self):
        self.caught(in_posting("//" + 109 * "x" + "\n"), POSTING, "111 columns")
        self.assertEqual([], in_posting("//" + 108 * "à" + "\n"))
        self.caught(in_posting("// x\n" * 601), POSTING, "602 lines")
        line = "  if (a) { b({1, 2}); }\n"
        self.assertEqual([], in_posting("int f(int a) {\n" + 68 * line + "}\n"))
        for head in ("int f(int a)", "Form::Form(int a)\n : a_(a), b_{a}", "auto g() const -> List<int>"):
            found = in_posting("namespace n {\nstruct S;\n\n" + head + " {\n" + 69 * line + "}\n}\n")
            self.caught(found, POSTING, f"{71 + head.count(chr(10))} lines")
        self.assertEqual([], in_posting("constexpr Row kRows[] = {\n" + 80 * "  {f(1), 2},\n" + "};\n"))

    def test_exceptions(self):
        tidy.LONG_FUNCTIONS["src/ledger/gone.cpp: f"] = "no more"
        self.caught(findings({}), "tests/tidy/tidy.py", "short or gone")
        tidy.LONG_FUNCTIONS.clear()

    def test_targets(self):
        self.caught(findings({POSTING: ""}), POSTING, "no target")
        self.caught(findings({"src/ledger/fv.cpp": ""}), "src/ledger/fv.cpp", "no target")
        self.caught(findings({"tests/vat/x_test.cpp": ""}), "tests/vat/x_test.cpp", "no target")

    def test_positions(self):
        def check(position):
            return in_posting(f"void f(Session& s) {{ s.CheckArchiveResult(read(a, b), 1, {position}); }}\n")

        self.assertEqual([], check(1300))
        self.caught(check(3000), POSTING, "the band of ledger is 1000 to 2999")
        self.caught(check("1300 + n"), POSTING, "no literal")
        self.caught(check("kReadPosition"), POSTING, "no literal")
        constant = "constexpr int kReadPosition = {};\nvoid f() {{ read(s, 1, kReadPosition); }}\n"
        taker = "void read(Session& s, int archive, int position);\n"
        self.assertEqual([], in_posting(taker + constant.format(1300)))
        self.caught(in_posting(taker + constant.format(1212)), POSTING, "mcfv.cpp:8, too")
        self.caught(check(1214), POSTING, "stands at src/ledger/mcfv.cpp:9, too")
        self.caught(in_posting("OpenArchive<rec::mc> mc(session, 1211, 1300);\n"), POSTING, "mcfv.cpp:5, too")
        made = "auto mc = std::make_unique<OpenArchive<rec::mc>>(session, 1300, n);\n"
        self.caught(in_posting(made), POSTING, "no literal")
        path = "src/session/company.cpp"
        self.caught(findings({path: SOUND[path].replace("42}", "41}")}), path, "position 41 stands")
        helper = "bool read(Session& s, int position);\n"
        self.assertEqual([], in_posting(helper + "bool f(int position) { return read(s, position); }\n"))
        self.caught(in_posting(helper + "bool f() { return read(s, 99); }\n"), POSTING, "position 99")
        path = "src/archives/x.h"
        self.caught(findings({path: "int x(int position); int y = x(5);\n"}), path, "is none")

    def test_forms(self):
        form = "class Varpc final : public Form {\n};\n"
        path = "src/ledger/VARPC.cpp"
        listed = {"src/ledger/CMakeLists.txt": "mcfv.cpp parts/rows.cpp VARPC.cpp", path: form}
        self.caught(findings(listed), path, "no test names the form VARPC")
        self.caught(findings({**listed, "tests/session/menu_test.h": "VARPC"}), path, "no test names")
        self.assertEqual([], findings({**listed, "tests/scenarios/chart.scn": "open VARPC\n"}))

    def test_words(self):
        for word in ("TO" + "DO", "FIX" + "ME", "X" * 3, "the " + "spec", "spec" + ".md",
                     "specifi" + "cation", "Part" + " 2.1"):
            self.caught(findings({"docs/a.md": f"See {word}.\n"}), "docs/a.md", word)
            self.caught(findings({"README.md": word}), "README.md", word)
        self.assertEqual([], findings({"docs/a.md": "Part 2 of the specialist's TODOS, mkstemp XXXXXX\n"}))


if __name__ == "__main__":
    unittest.main()
