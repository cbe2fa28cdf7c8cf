#!/usr/bin/env python3
"""Rules about the sources that no compiler checks. Each rule is one function, which says why it is there.

  tidy.py ROOT         reads the project below ROOT; prints what breaks a rule, one line each; status 1 if any
"""
import os
import re
import sys
from collections import namedtuple

Finding = namedtuple("Finding", "path line text")

WIDTH = 110
FILE_LINES = 600
FUNCTION_LINES = 70

# "path: function" -> why it may be longer.
LONG_FUNCTIONS = {}

# What a folder of src/ may include: all layers below it, and what its row grants it beyond that.
LAYERS = ["common", "store", "archives", "ui", "session", "chart"]
ROW = ["parameters", "documents", "warehouse", "yearend", "assets", "parties", "vat", "duedates", "ledger"]
ROW_ARROWS = {
    "ledger": {"duedates", "vat"},
    "parties": {"duedates", "vat"},
    "documents": set(ROW),
    "yearend": {"ledger", "warehouse"},
}
HOST_ARROWS = {"driver": set(), "demo": {"driver"}, "desktop": set()}

# The positions of the failure boxes, by folder: the number that a user reads out tells what failed.
BANDS = {
    "store": (1, 999), "session": (1, 999), "parameters": (1, 999),
    "chart": (1000, 2999), "ledger": (1000, 2999),
    "vat": (3000, 3999), "duedates": (3000, 3999),
    "parties": (4000, 4999),
    "documents": (5000, 6999),
    "warehouse": (7000, 8299),
    "assets": (8300, 9800), "yearend": (8300, 9800),
}


class Tree:
    """The text files of the project by their path from its root, '/' between the parts."""

    FOLDERS = ("src", "tests", "bench", "benchmarks", "docs")
    SUFFIXES = (".cpp", ".h", ".c", ".py", ".txt", ".md", ".scn", ".in")

    def __init__(self, files):
        self.files = files
        self._code = {}

    @classmethod
    def read(cls, root):
        files = {}
        for folder in cls.FOLDERS:
            for place, _, names in os.walk(os.path.join(root, folder)):
                for name in names:
                    if name.endswith(cls.SUFFIXES):
                        path = os.path.join(place, name)
                        files[os.path.relpath(path, root).replace(os.sep, "/")] = read_text(path)
        for name in os.listdir(root):
            if name.startswith("README"):
                files[name] = read_text(os.path.join(root, name))
        return cls(files)

    def paths(self, folders, suffixes):
        tops = tuple(folder + "/" for folder in folders)
        return [path for path in sorted(self.files) if path.startswith(tops) and path.endswith(suffixes)]

    def code(self, path):
        """The text with comments and the insides of literals blanked out, every line in its place."""
        if path not in self._code:
            self._code[path] = blank(self.files[path])
        return self._code[path]


def read_text(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read()


LITERAL = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<tag>[^(\s]*)\(.*?\)(?P=tag)"|"(?:\\.|[^"\\\n])*"|'
    r"(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'",  # a quote behind a digit parts thousands
    re.S)


def blank(text):
    def hide(match):
        found = match.group()
        hidden = re.sub(r"[^\n]", " ", found)
        return hidden if found.startswith("/") else found[0] + hidden[1:-1] + found[-1]

    return LITERAL.sub(hide, text)


def line_at(text, offset):
    return text.count("\n", 0, offset) + 1


def folder_of(path):
    return path.split("/")[1]


def matches(tree, pattern, paths, message, raw=False):
    for path in paths:
        text = tree.files[path] if raw else tree.code(path)
        for match in re.finditer(pattern, text):
            yield Finding(path, line_at(text, match.start()), message)


# ---- includes and calls ---------------------------------------------------


def allowed_includes(folder):
    if folder in LAYERS:
        return set(LAYERS[:LAYERS.index(folder) + 1])
    if folder in ROW:
        return set(LAYERS) | {folder} | ROW_ARROWS.get(folder, set())
    below_hosts = set(LAYERS) | set(ROW) | {"app"}
    return below_hosts if folder == "app" else below_hosts | {folder} | HOST_ARROWS.get(folder, set())


def rule_includes_run_down(tree):
    """A layer that knows what stands on it can be neither tested nor replaced by itself."""
    for path in tree.paths(["src"], (".cpp", ".h")):
        if path.count("/") < 2:
            continue
        allowed = allowed_includes(folder_of(path))
        for match in re.finditer(r'^\s*#include "([^"]+)"', tree.files[path], re.M):
            target = match.group(1).split("/")[0]
            line = line_at(tree.files[path], match.start())
            if "src/" + match.group(1) not in tree.files:
                yield Finding(path, line, f'"{match.group(1)}" is no path from src/ on')
            elif target not in allowed:
                yield Finding(path, line, f"{folder_of(path)} may not include {target}")


# Names of the standard library by the header that a file must reach by itself.
STANDARD = {
    "algorithm": r"ranges::(find|find_if|sort|stable_sort|any_of|all_of|none_of|count|count_if|max_element|"
                 r"min_element|copy|reverse|unique|lower_bound|upper_bound|equal|contains)|sort|stable_sort|"
                 r"find|find_if|any_of|all_of|none_of|count_if|max_element|min_element|lower_bound|"
                 r"upper_bound|unique|reverse|copy|copy_n|clamp|min|max|replace|remove_if|transform",
    "array": "array", "charconv": "(from|to)_chars", "cmath": "f?abs|floor|ceil|round|trunc|pow|isfinite",
    "cstdint": "u?int(8|16|32|64)_t", "filesystem": "filesystem", "functional": "function",
    "map": "map|multimap", "memory": "unique_ptr|shared_ptr|weak_ptr|make_unique|make_shared",
    "optional": "optional|nullopt", "set": "set|multiset", "span": "span", "string": "string|to_string",
    "string_view": "string_view", "unordered_map": "unordered_map", "vector": "vector",
    "utility": "pair|move|exchange|swap|forward", "fstream": "[io]?fstream", "chrono": "chrono",
}


def reached(tree, path, seen=None):
    """The standard headers that a file includes, by itself or through the project's own."""
    seen = set() if seen is None else seen
    if path in seen or path not in tree.files:
        return set()
    seen.add(path)
    found = set(re.findall(r"^\s*#include <([a-z_]+)>", tree.files[path], re.M))
    for target in re.findall(r'^\s*#include "([^"]+)"', tree.files[path], re.M):
        for place in ("src/", "tests/", os.path.dirname(path) + "/"):
            found |= reached(tree, place + target, seen)
    return found


def rule_standard_headers_are_included(tree):
    """The precompiled header hides what is missing, until a build goes without it."""
    for path in tree.paths(["src", "tests", "benchmarks"], (".cpp", ".h")):
        headers = reached(tree, path)
        for header, names in STANDARD.items():
            match = None if header in headers else re.search(rf"\bstd::({names})\b", tree.code(path))
            if match:
                line = line_at(tree.code(path), match.start())
                yield Finding(path, line, f"{match.group()} wants <{header}>")


def rule_no_toolkit_in_the_core(tree):
    """Forms run without a screen, in the driver and in the tests; only the desktop draws."""
    paths = [path for path in tree.paths(["src", "tests", "bench", "benchmarks"], (".cpp", ".h"))
             if folder_of(path) != "desktop"]
    pattern = r'(?m)^\s*#include [<"](Q[A-Z]|Qt|q[a-z]+\.h)'
    return matches(tree, pattern, paths, "Qt stands in desktop alone", raw=True)


def rule_no_message_box(tree):
    """All boxes pass through the desk, so that scripts answer them as a user does."""
    paths = tree.paths(["src", "tests"], (".cpp", ".h"))
    return matches(tree, r"\bQMessageBox\b", paths, "boxes are the desk's")


def rule_files_are_written_in_few_places(tree):
    """Stores and sessions know what a full disk and a dead station leave of a file; others ask them."""
    paths = [path for path in tree.paths(["src"], (".cpp", ".h"))
             if folder_of(path) not in ("store", "session")]
    return matches(tree, r"\b(ofstream|fopen)\b", paths, "files are written by store and session alone")


def rule_nothing_ends_the_program(tree):
    """The program ends through its main: whatever ends it elsewhere skips what closes the archives."""
    return matches(tree, r"(?<![\w.>])(_?exit|_Exit|quick_exit|abort|terminate)\s*\(",
                   tree.paths(["src"], (".cpp", ".h")), "nothing but main ends the program")


# ---- size and place -------------------------------------------------------


def rule_lines_are_short(tree):
    """Two files side by side on one screen."""
    suffixes = (".cpp", ".h", ".c", ".py", "CMakeLists.txt")
    for path in tree.paths(["src", "tests", "bench", "benchmarks"], suffixes):
        for number, line in enumerate(tree.files[path].split("\n"), 1):
            if len(line) > WIDTH:
                yield Finding(path, number, f"{len(line)} columns; {WIDTH} at most")


def rule_files_are_short(tree):
    """A file that is longer is more than one thing."""
    for path in tree.paths(["src"], (".cpp", ".h")):
        lines = tree.files[path].count("\n")
        if lines > FILE_LINES:
            yield Finding(path, lines, f"{lines} lines; {FILE_LINES} at most")


def functions(code):
    """Name, first and last line of each function body outside other bodies."""
    code = re.sub(r"(?m)^\s*#(?:\\\n|.)*", lambda match: re.sub(r"[^\n]", " ", match.group()), code)
    kinds, heads, head = [], [], 0
    for match in re.finditer(r"[{};]", code):
        at, sign = match.start(), match.group()
        inside = any(kind in ("function", "values") for kind in kinds)
        if sign == "{":
            text = code[head:at]
            kinds.append("inner" if inside else kind_of_block(text))
            heads.append(head)
            if kinds[-1] in ("scope", "function"):
                head = at + 1
        elif sign == "}" and kinds:
            kind, start = kinds.pop(), heads.pop()
            if kind == "function":
                text = code[start:at]
                begin = start + len(text) - len(text.lstrip())
                yield name_of_function(text), line_at(code, begin), line_at(code, at)
            if not any(outer in ("function", "values") for outer in kinds) and kind != "values":
                head = at + 1
        elif not inside:
            head = at + 1


def kind_of_block(head):
    head = re.sub(r"\b(public|private|protected):", "", head)
    if re.search(r"\)\s*(noexcept\s*)?:[^:].*[\w>]\s*$", head, re.S):
        return "values"  # a member that is initialised with braces, before the body
    if re.search(r"\b(namespace|class|struct|union|enum|extern)\b", head) and "(" not in head:
        return "scope"
    if "(" in head and not re.search(r"=\s*$", head):
        return "function"
    return "values"


def name_of_function(text):
    match = re.search(r"([~\w:]+|operator[^\w\s(]+)\s*\(", text)
    return match.group(1) if match else "?"


def rule_functions_are_short(tree):
    """What does not fit one screen is not read as one thing."""
    for path in tree.paths(["src"], (".cpp", ".h")):
        for name, first, last in functions(tree.code(path)):
            if last - first + 1 > FUNCTION_LINES and f"{path}: {name}" not in LONG_FUNCTIONS:
                yield Finding(path, first, f"{name} has {last - first + 1} lines; {FUNCTION_LINES} at most")


def rule_exceptions_are_needed(tree):
    """An exception that outlives its cause would cover the next case unseen."""
    long = {f"{path}: {name}" for path in tree.paths(["src"], (".cpp", ".h"))
            for name, first, last in functions(tree.code(path)) if last - first + 1 > FUNCTION_LINES}
    for known in LONG_FUNCTIONS:
        if known not in long:
            yield Finding("tests/tidy/tidy.py", 1, f"LONG_FUNCTIONS names {known}, which is short or gone")


def rule_sources_are_built(tree):
    """A source that no target builds rots unseen, and a test among them proves nothing."""
    for path in tree.paths(["src", "tests", "bench", "benchmarks"], (".cpp",)):
        folder = os.path.dirname(path)
        while folder and folder + "/CMakeLists.txt" not in tree.files:
            folder = os.path.dirname(folder)
        listed = tree.files.get(folder + "/CMakeLists.txt", "")
        name = path[len(folder) + 1:]
        if not re.search(r"(?<![\w./-])" + re.escape(name) + r"(?![\w.-])", listed):
            yield Finding(path, 1, f"stands in no target of {folder}/CMakeLists.txt")


# ---- positions ------------------------------------------------------------

POSITION_CONSTANT = re.compile(r"\b(k\w*Position) = (\d+)[,;]")
POSITION_PARAMETER = re.compile(r"\bint (\w*[pP]osition)\b")


def opening_before(code, at):
    """Offset of the bracket that is open at `at`."""
    depth = 0
    for offset in range(at - 1, -1, -1):
        if code[offset] in ")}]":
            depth += 1
        elif code[offset] in "({[":
            if depth == 0:
                return offset
            depth -= 1
    return None


def pieces(code, opening):
    """What stands between the bracket at `opening` and its end, parted at commas, each with its offset."""
    depth, begin, found = 0, opening + 1, []
    for offset in range(opening, len(code)):
        sign = code[offset]
        depth += (sign in "({[") - (sign in ")}]")
        if depth == 0 or (depth == 1 and sign == ","):
            found.append((begin, code[begin:offset].strip()))
            begin = offset + 1
        if depth == 0:
            return found
    return found


# A function, or a table's struct, that takes a position: its name, how many values it takes, and how many
# stand from the position to the end; counted from there, as a comma of a template may stand before.
Taker = namedtuple("Taker", "name count from_end table")


def takers_in(code):
    takers = set()
    for match in POSITION_PARAMETER.finditer(code):
        opening = opening_before(code, match.start())
        if opening is None:
            continue
        before = code[:opening].rstrip()
        if code[opening] == "(":
            values = [text for _, text in pieces(code, opening)]
            name = re.search(r"(\w+)(\s*=\s*\[[^\]]*\])?$", before)
        else:
            values = re.findall(r"[^;]+;", code[opening + 1:code.index("}", opening)])
            name = re.search(r"\bstruct (\w+)$", before)
        index = next(n for n, text in enumerate(values) if re.search(rf"\bint {match.group(1)}\b", text))
        if name:
            takers.add(Taker(name.group(1), len(values), len(values) - index, code[opening] == "{"))
    return takers


def files_seen_by(tree, path):
    """The file itself and what it includes, directly or not."""
    seen, left = set(), [path]
    while left:
        path = left.pop()
        if path in seen or path not in tree.files:
            continue
        seen.add(path)
        left += ["src/" + name for name in re.findall(r'(?m)^#include "([^"]+)"', tree.files[path])]
    return seen


def values_given(code, taker):
    """Offset and text of each position that is handed to `taker`."""
    template = r"(?:\s*<[^;(){}]*>)?"
    if taker.table:
        for match in re.finditer(rf"\b{taker.name}\b[^;{{}}()]*\{{", code):
            end = match.end() + len("".join(text for _, text in pieces(code, match.end() - 1)))
            for inner in re.finditer(r"\{[^{}]*\}", code[match.end():end + 1]):
                values = pieces(code, match.end() + inner.start())
                if len(values) == taker.count:
                    yield values[-taker.from_end]
        return
    members = re.findall(rf"\b{taker.name}\b{template}\s*>?\s+(\w+);", code)
    names = "|".join([rf"{taker.name}\b{template}(?:\s+\w+|>)?"] +
                     [rf"{name}(?:\.emplace)?" for name in members])
    for match in re.finditer(rf"\b(?:{names})\s*[({{]", code):
        values = pieces(code, match.end() - 1)
        before = code[:match.start()].rstrip()
        declares = (any(POSITION_PARAMETER.search(text) for _, text in values) or
                    re.search(r"[\w>&*]$", before) and not re.search(r"\b(return|else|do|&&)$", before))
        if len(values) >= taker.count and not declares:
            yield values[-taker.from_end]


def rule_positions_are_literal_and_unique(tree):
    """A position that is computed, or stands at two places, does not tell which statement failed."""
    paths = tree.paths(["src"], (".cpp", ".h"))
    takers = {path: takers_in(tree.code(path)) for path in paths}
    seen = {}
    for path in paths:
        code = tree.code(path)
        seen_by = files_seen_by(tree, path)
        known = set().union(*(takers[name] for name in seen_by))
        constants = dict(match for name in seen_by for match in POSITION_CONSTANT.findall(tree.code(name)))
        given = {value for taker in known for value in values_given(code, taker)}
        for offset, text in sorted(given):
            line = line_at(code, offset + len(code[offset:]) - len(code[offset:].lstrip()))
            if re.fullmatch(r"(?:.*\W)?(?!k[A-Z])\w*[pP]osition_?", text, re.S):
                continue  # handed on: the literal stands at the call
            text = constants.get(text, text)
            if not text.isdigit():
                yield Finding(path, line, f"the position is no literal: {text}")
                continue
            low, high = BANDS.get(folder_of(path), (1, 0))
            if not low <= int(text) <= high:
                band = f"{low} to {high}" if high else "none"
                yield Finding(path, line, f"position {text}; the band of {folder_of(path)} is {band}")
            if text in seen:
                yield Finding(path, line, f"position {text} stands at {seen[text]}, too")
            seen.setdefault(text, f"{path}:{line}")


# ---- tests and words ------------------------------------------------------


def rule_forms_are_tested(tree):
    """A form that no test of its folder and no scenario opens is proved by its first user."""
    for path in tree.paths(["src"], (".cpp",)):
        name = os.path.basename(path)[:-len(".cpp")]
        form = re.search(r"\bclass \w+( final)? : public (ui::)?Form\b", tree.code(path))
        if not form:
            continue
        places = tuple(f"tests/{folder}/" for folder in (folder_of(path), "app", "scenarios"))
        tests = [text for place, text in tree.files.items()
                 if place.endswith(".scn") or place.startswith(places) and place.endswith((".cpp", ".h"))]
        if not any(re.search(rf"\b{name}\b", text) for text in tests):
            yield Finding(path, line_at(tree.files[path], form.start()), f"no test names the form {name}")


def rule_words_that_stay_out(tree):
    """Code and its documents speak for themselves, and what is not done stands in the issues."""
    pattern = r"\bspec\.md\b|\bthe spec\b|\b[Ss]pecification\b|\bParts? \d\.\d|\b(TODO|FIXME|XXX)\b"
    paths = [path for path in sorted(tree.files) if not path.startswith("tests/tidy/")]
    for path in paths:
        for match in re.finditer(pattern, tree.files[path]):
            yield Finding(path, line_at(tree.files[path], match.start()), f'"{match.group()}" stays out')


RULES = [rule for name, rule in list(globals().items()) if name.startswith("rule_")]


def check(tree):
    return [finding for rule in RULES for finding in rule(tree)]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    findings = check(Tree.read(sys.argv[1]))
    for finding in findings:
        print(f"{finding.path}:{finding.line}: {finding.text}")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
