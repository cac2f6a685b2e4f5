#!/usr/bin/env python3
"""Who may include whom. Dependencies run one way: x11/*.cpp -> x11/kit -> x11/pure; everything may read inc/ and the
headers of host/; x11/pure, the tools and the default host see nothing of X, not even by way of another header;
demo/ sees the public headers only."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SEARCH = ("inc", "host", "x11", ".")

# Layer of a file -> layers of project files it may include, and whether it may reach X.
RULES = {
    "inc": ({"inc", "host"}, True),
    "host": ({"host"}, False),
    "standalone": ({"standalone", "host"}, False),
    "pure": ({"pure", "host", "inc"}, False),
    "kit": ({"kit", "pure", "host", "inc"}, True),
    "x11": ({"x11", "kit", "pure", "host", "inc"}, True),
    "tools": ({"tools", "pure", "host", "inc"}, False),
    "demo": ({"demo", "host", "inc"}, True),
}


def layer(path):
    parts = path.relative_to(ROOT).parts
    if parts[:2] == ("host", "standalone"):
        return "standalone"
    if parts[0] == "x11" and len(parts) > 2:
        return parts[1]
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


def complaints(path):
    own = layer(path)
    allowed, may_reach_x = RULES[own]
    where = path.relative_to(ROOT)
    for number, name, target in includes(path):
        other = layer(target) if target and target.is_relative_to(ROOT) else None
        if other and other not in allowed:
            yield f"{where}:{number}: {own} must not include {other} ({name})"
    chain = None if may_reach_x else way_to_x(path, {path})
    if chain:
        yield f"{where}: {own} must not reach X, but does by {' -> '.join(chain)}"


def main():
    files = [path for folder in ("inc", "host", "x11", "tools", "demo") if (ROOT / folder).is_dir()
             for path in sorted((ROOT / folder).rglob("*")) if path.suffix in (".h", ".c", ".cpp")]
    found = [line for path in files if layer(path) for line in complaints(path)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
