#!/usr/bin/env python3
"""Compares what the public headers promise with what the shared library exports and imports.

exports.py --check LIB [--host HOSTLIB]   say what is wrong; status 1 when anything is
exports.py --update                       rewrite the lists of cmake/symbols

Every name marked GRX_API in inc/ must be exported, and nothing else, under the symbol version of its
header: GRX_1.1 for the additions of grx_plus*.h, GRX_1.0 for the contract, GRXPAPIER_1.1 for what the
library of the paper exports.  cmake/symbols has a sorted list for each.  Imported names that no linked library brings must be the host's, declared in host/host_f.h
and host/host_g.h.
"""
import argparse
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SYMBOLS = ROOT / "cmake" / "symbols"


def run(*command):
    """Standard output of a command; the program ends when it fails."""
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: {done.stderr.strip()}")
    return done.stdout


def declarations(path, marks):
    """The declarations of a header that carry one of the marks, comments and directives removed."""
    text = re.sub(r"/\*.*?\*/|//[^\n]*", " ", path.read_text(encoding="utf-8"), flags=re.S)
    text = re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", "", text, flags=re.M)
    return re.findall(rf"\b(?:{'|'.join(marks)})\b([^;]*);", text)


def declared_name(declaration):
    """The name that a declaration introduces: in front of the parameters, or of the dimensions."""
    match = re.search(r"(\w+)\s*\(", declaration) or re.search(r"(\w+)\s*(?:\[[^]]*\]\s*)*$", declaration)
    return match.group(1)


def names_in(paths, *marks):
    return sorted({declared_name(d) for path in sorted(paths) for d in declarations(path, marks)})


def public_names(library=None):
    """The names of the public headers by their symbol versions: of one library, or of all."""
    headers = set((ROOT / "inc").glob("*.h"))
    additions = set((ROOT / "inc").glob("grx_plus*.h"))
    paper = {ROOT / "inc" / "grx_plus_papier.h"}
    places = {"GRX_1.0": headers - additions, "GRX_1.1": additions - paper, "GRXPAPIER_1.1": paper}
    if library:
        of_paper = library.name.startswith("libgrxpapier")
        places = {v: paths for v, paths in places.items() if v.startswith("GRXPAPIER") == of_paper}
    return {version: names_in(paths, "GRX_API") for version, paths in places.items()}


def versioned(lists):
    return {f"{name}@{version}" for version, names in lists.items() for name in names}


def host_names():
    return names_in([ROOT / "host" / "host_f.h", ROOT / "host" / "host_g.h"], "HOST_SERVICE", "HOST_DONNEE")


def defined_names(library):
    """Dynamic symbols that a library defines, as name@version, without the versions' own and the linker's."""
    lines = [line.split() for line in run("nm", "-D", "--defined-only", library).splitlines()]
    linker = {"_init", "_fini", "_edata", "_end", "__bss_start"}
    return {fields[-1].replace("@@", "@") for fields in lines if fields[-2] != "A"} - linker


def unresolved_names(library):
    """Symbols that neither the library nor those it is linked with define."""
    done = subprocess.run(["ldd", "-r", library], capture_output=True, text=True, check=False)
    return sorted(set(re.findall(r"undefined symbol: (\w+)", done.stdout + done.stderr)))


def read_list(path):
    return path.read_text(encoding="utf-8").split() if path.exists() else []


def findings(library, host):
    """Pairs of a complaint and the names that it is about."""
    public = versioned(public_names(library))
    exported = defined_names(library)
    listed = versioned({version: read_list(SYMBOLS / f"{version}.txt") for version in public_names(library)})
    yield "exported, but not declared in inc/", exported - public
    yield "declared in inc/, but not exported", public - exported
    yield "declared in inc/, but not in cmake/symbols", public - listed
    yield "in cmake/symbols, but no longer declared in inc/", listed - public
    yield "imported, but neither the host's nor of a linked library", set(unresolved_names(library)) - set(host_names())
    if host:
        yield "service or global of the host that it does not define", set(host_names()) - defined_names(host)


def check(library, host):
    wrong = [(complaint, sorted(names)) for complaint, names in findings(library, host) if names]
    for complaint, names in wrong:
        print(f"{complaint}:", *(f"  {name}" for name in names), sep="\n")
    print(f"{len(versioned(public_names(library)))} public names, {len(wrong)} complaints")
    return 1 if wrong else 0


def update():
    for version, names in public_names().items():
        (SYMBOLS / f"{version}.txt").write_text("".join(name + "\n" for name in names), encoding="utf-8")
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    what = parser.add_mutually_exclusive_group(required=True)
    what.add_argument("--check", metavar="LIB", type=Path)
    what.add_argument("--update", action="store_true")
    parser.add_argument("--host", metavar="HOSTLIB", type=Path, help="default host to compare with host/")
    options = parser.parse_args()
    return check(options.check, options.host) if options.check else update()


if __name__ == "__main__":
    sys.exit(main())
