#!/usr/bin/env python3
"""Who may include and call whom. A room of x11/ knows itself and the rooms before it in ROOMS; inside a room no files
call each other in a circle. Everything may read inc/ and the headers of host/; pure/, the tools and the default host see
nothing of X, not even by way of another header; demo/ sees the public headers only. Calls are read from the object
files of a build: layers.py [BUILD_FOLDER]. `layers.py --files` prints docs/files.md, what each file says that it is."""
import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ["pure", "system", "display", "fonts", "toolkit", "events", "registry", "drawing",
         "menus", "windows", "controls", "session", "panels", "dialogs"]
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SEARCH = ("inc", "host", "x11", ".")
PUBLIC = {"inc", "host"}

# Place of a file -> places of project files it may include, and whether it may reach X. Rooms are added below.
RULES = {
    "inc": ({"inc", "host"}, True),
    "host": ({"host"}, False),
    "standalone": ({"standalone", "host"}, False),
    "papier": ({"papier"} | PUBLIC, True),
    "tools": ({"tools", "pure"} | PUBLIC, False),
    "demo": ({"demo"} | PUBLIC, True),
}
for number, name in enumerate(ROOMS):
    RULES[name] = (set(ROOMS[:number + 1]) | PUBLIC, name != "pure")


# --------------------------------------------------------------------------------------------------------- includes

def place(path):
    parts = path.relative_to(ROOT).parts
    if parts[:2] == ("host", "standalone"):
        return "standalone"
    if parts[0] == "x11":
        return parts[1] if len(parts) > 2 else "x11"
    return parts[0] if parts[0] in RULES else None


def includes(path):
    for number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(2), resolve(path, match.group(2)) if match.group(1) == '"' else None


def resolve(path, name):
    for folder in (path.parent, *(ROOT / place for place in SEARCH)):
        if (folder / name).is_file():
            return (folder / name).resolve()
    return None


def way_to_x(path, seen):
    """The chain of includes that leads to a header of X, or None."""
    for _, name, target in includes(path):
        if name.startswith(("X11/", "Xm/")):
            return [name]
        if target and target not in seen:
            seen.add(target)
            rest = way_to_x(target, seen)
            if rest:
                return [name] + rest
    return None


def include_complaints(path):
    own = place(path)
    if own not in RULES:
        yield f"{path.relative_to(ROOT)} stands in no room"
        return
    allowed, may_reach_x = RULES[own]
    where = path.relative_to(ROOT)
    for number, name, target in includes(path):
        other = place(target) if target and target.is_relative_to(ROOT) else None
        if other and other not in allowed:
            yield f"{where}:{number}: {own} must not include {other} ({name})"
    chain = None if may_reach_x else way_to_x(path, {path})
    if chain:
        yield f"{where}: {own} must not reach X, but does by {' -> '.join(chain)}"


def name_complaints(files):
    by_name = collections.defaultdict(list)
    for path in files:
        if path.is_relative_to(ROOT / "x11"):
            by_name[path.name].append(str(path.relative_to(ROOT)))
    return [f"one name for two files: {' '.join(paths)}" for paths in by_name.values() if len(paths) > 1]


# ------------------------------------------------------------------------------------------------------------ calls

def symbols(objects):
    """file -> (names defined, names used), by nm; what only the headers define (weak) binds nobody."""
    table = {}
    for path in objects:
        defined, used = set(), set()
        for line in subprocess.run(["nm", path], capture_output=True, text=True, check=True).stdout.splitlines():
            kind, name = line.split()[-2:]
            (used if kind == "U" else defined if kind in "TDBRVC" else set()).add(name)
        source = path.relative_to(next(p for p in path.parents if p.name == "x11"))
        table[str(source).removesuffix(".o")] = (defined, used)
    return table


def readable(names):
    return subprocess.run(["c++filt"], input="\n".join(sorted(names)), capture_output=True, text=True,
                          check=True).stdout.split("\n")


def arrows(table):
    """(file, file) -> the names that the first uses of the second."""
    home = {name: source for source, (defined, _) in table.items() for name in defined}
    found = collections.defaultdict(set)
    for source, (_, used) in table.items():
        for name in used:
            if home.get(name, source) != source:
                found[source, home[name]].add(name)
    return found


def upward(found):
    for (source, target), names in sorted(found.items()):
        if ROOMS.index(source.split("/")[0]) < ROOMS.index(target.split("/")[0]):
            yield f"{source} must not call {target} ({', '.join(readable(names))})"


def circles(found):
    """Each circle of files inside a room, as one line."""
    calls = collections.defaultdict(set)
    for source, target in found:
        if source.split("/")[0] == target.split("/")[0]:
            calls[source].add(target)
    def reached(start):
        seen, ahead = set(), [start]
        while ahead:
            for target in calls[ahead.pop()] - seen:
                seen.add(target)
                ahead.append(target)
        return seen
    reach = {source: reached(source) for source in list(calls)}
    told = set()
    for source in sorted(reach):
        if source in reach[source] and source not in told:
            members = [other for other in sorted(reach) if other in reach[source] and source in reach[other]]
            told.update(members)
            rides = [f"{a} -> {b} ({', '.join(readable(found[a, b]))})" for a in members for b in members if (a, b) in found]
            yield "a circle of calls: " + "; ".join(rides)


def call_complaints(build):
    objects = sorted(build.glob("CMakeFiles/grx_objects.dir/x11/*/*.o"))
    if not objects:
        return [f"no object files in {build}: build first"]
    table = {source: names for source, names in symbols(objects).items() if (ROOT / "x11" / source).is_file()}
    found = arrows(table)
    return [*upward(found), *circles(found)]


# ------------------------------------------------------------------------------------------------------ docs/files.md

def first_sentence(path):
    comment = re.match(r"(//[^\n]*\n)+", path.read_text(encoding="utf-8"))
    text = re.sub(r"\n?// ?", " ", comment.group(0)).strip() if comment else ""
    return re.split(r"(?<=[.])\s", text)[0]


def file_list():
    lines = ["# The files of x11/", "",
             "The first sentence of each, by rooms from the ground up. Written by `scripts/layers.py --files`; the gate `layers`",
             "keeps it true."]
    for room in ROOMS:
        lines += ["", f"## {room}/", "", "| file | what it is |", "|---|---|"]
        for stem in sorted({path.stem for path in (ROOT / "x11" / room).iterdir()}):
            found = [(ROOT / "x11" / room / (stem + ending)) for ending in (".cpp", ".h")]
            lines.append(f"| `{stem}` | {first_sentence(next(path for path in found if path.is_file()))} |")
    return "\n".join(lines) + "\n"


def list_complaints():
    kept = ROOT / "docs/files.md"
    if not kept.is_file() or kept.read_text(encoding="utf-8") != file_list():
        yield "docs/files.md is not what the files say: scripts/layers.py --files > docs/files.md"


def main():
    if sys.argv[1:] == ["--files"]:
        print(file_list(), end="")
        return 0
    build = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/default").resolve()
    files = [path for folder in ("inc", "host", "x11", "papier", "tools", "demo")
             for path in sorted((ROOT / folder).rglob("*")) if path.suffix in (".h", ".c", ".cpp")]
    found = [line for path in files if place(path) for line in include_complaints(path)]
    found += [*name_complaints(files), *call_complaints(build), *list_complaints()]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
