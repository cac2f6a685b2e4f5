#!/usr/bin/env python3
"""Words that have no place in the sources, their names and the commit messages: references to papers that readers do
not have, to the machine something was written on, and marks of unfinished work."""
import re
import subprocess
import sys

WORDS = re.compile(
    r"\bspec(ification)?s?\b|\bspec\.md\b"
    r"|\bparts? +[0-9]+\.[0-9x]+"
    r"|\bshared[/]([s]pec|design|decisions|interface|facts)"
    r"|[/]work[/]|[/]tmp[/](brief|build-)"
    r"|\b(ai|coding|helper|sub) ?agents?\b|\bassistants?\b"
    r"|\bto[d]o\b|\bfix[m]e\b|\bx[x]x\b|\bnot implemented\b",
    re.IGNORECASE)
PICTURES_AND_DATA = re.compile(r"\.(svg|dxf|png|bmp|ppm)$")


def git(*arguments):
    return subprocess.run(("git",) + arguments, capture_output=True, check=True).stdout.decode("utf-8", "replace")


def places():
    for name in git("ls-files").splitlines():
        yield name, name
        if PICTURES_AND_DATA.search(name):
            continue
        try:
            content = open(name, encoding="utf-8", errors="replace").read()
        except OSError:
            continue
        for number, line in enumerate(content.splitlines(), 1):
            yield f"{name}:{number}", line
    for commit in git("log", "--format=%h%x00%B%x01").split("\x01"):
        identifier, _, message = commit.strip().partition("\0")
        for line in message.splitlines():
            yield f"commit {identifier}", line


def main():
    found = [(place, line.strip()[:140]) for place, line in places() if WORDS.search(line)]
    for place, line in found:
        print(f"{place}: {line}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
