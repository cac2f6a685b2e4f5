#!/usr/bin/env python3
"""How long the functions of x11/, papier/ and host/ are. Fails when half of them are over 10 lines, one in ten has 35 or more,
or one is over 60. With --list it prints all of them, the longest first. A length counts the lines from the opening
brace of the body to the closing one, both included."""
import pathlib
import re
import statistics
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MEDIAN, NINE_IN_TEN, LONGEST = 10, 35, 60

NOISE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<tag>[^(\s]*)\(.*?\)(?P=tag)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.MULTILINE)
SCOPE = re.compile(r"^(?:inline\s+)?(?:namespace\b|extern\s*$)|^(?:template\s*<.*>\s*)?(?:class|struct|union)\b[^()=]*$",
                   re.DOTALL)
# "... name(...) ... {" with an optional trailing return type or list of initialisers.
FUNCTION = re.compile(r"(?P<name>[~\w:]+|operator\s*[^\s\w]+)\s*\(")


def blank(match):
    """The same number of lines with nothing on them; a text between quotes stays one token."""
    return ('""' if match.group(0)[0] in "\"'R" else "") + "\n" * match.group(0).count("\n")


def functions(text):
    """(name, first line, lines) of each function body at the scope of a file, namespace or class."""
    text = NOISE.sub(blank, DIRECTIVE.sub(lambda match: "\n" * match.group(0).count("\n"), text))
    stack, head, line = [], "", 1
    for letter in text:
        inside = any(kind != "scope" for kind, _, _ in stack)
        if letter == "{":
            stack.append((kind_of(head.strip(), inside), name_of(head), line))
            head = "" if not inside else head
        elif letter == "}" and stack:
            kind, name, first = stack.pop()
            if kind == "function":
                yield name, first, line - first + 1
            head = "" if not any(kind != "scope" for kind, _, _ in stack) else head
        elif letter == ";" and not inside:
            head = ""
        elif not inside:
            head += letter
        line += letter == "\n"


def kind_of(head, inside):
    if inside:
        return "inner"
    if SCOPE.search(head) or head.endswith('extern ""'):
        return "scope"
    assigned = re.sub(r"operator\s*[=<>!]=?|[=!<>]=|\([^()]*\)", "", head)
    return "function" if "(" in head and "=" not in assigned else "inner"


def name_of(head):
    match = FUNCTION.search(head)
    return match.group("name") if match else "?"


def main():
    rows = []
    for folder in ("x11", "papier", "host"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                where = path.relative_to(ROOT)
                rows += [(lines, f"{where}:{first}: {name}")
                         for name, first, lines in functions(path.read_text(encoding="utf-8"))]
    if not rows:
        return 0
    rows.sort(reverse=True)
    lengths = [lines for lines, _ in rows]
    median = statistics.median(lengths)
    ninth = lengths[len(lengths) // 10]
    print(f"{len(rows)} functions: median {median:g} lines, nine in ten up to {ninth}, longest {lengths[0]}")
    shown = rows if "--list" in sys.argv[1:] else [row for row in rows if row[0] > LONGEST]
    for lines, where in shown:
        print(f"{where}: {lines} lines")
    if ninth >= NINE_IN_TEN and shown is not rows:
        for lines, where in rows[: len(rows) // 10 + 1]:
            print(f"{where}: {lines} lines")
    return 1 if median > MEDIAN or ninth >= NINE_IN_TEN or lengths[0] > LONGEST else 0


if __name__ == "__main__":
    sys.exit(main())
