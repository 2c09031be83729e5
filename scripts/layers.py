#!/usr/bin/env python3
"""The library's layers: checks that every include points down and writes the umbrella headers.

    scripts/layers.py check      fails (exit 1) on an include from a lower layer to a higher one,
                                 on a project include in src/ that is not <persona/...>, and on
                                 umbrella headers that do not match the tree
    scripts/layers.py umbrella   rewrites src/persona/persona.h and src/persona/json.h

Layers, lowest first (a file may include its own layer and any below it):
    framework -> core (record bases) -> systems, conventional, calls, options (record families)
    -> personality -> integrity -> io, report -> the umbrella headers.
The JSON, diff and CSV library (io/json, io/csv) sits with io. Generated headers
(<persona/version.h>, <persona/export.h>, <persona/json_export.h>) may be included anywhere.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SRC = ROOT / "src" / "persona"

RANKS = {
    "framework": 0,
    "core": 1,
    "systems": 2,
    "conventional": 2,
    "calls": 2,
    "options": 2,
    "personality": 3,
    "integrity": 4,
    "io": 5,
    "report": 5,
}
GENERATED = {"version.h", "export.h", "json_export.h"}
UMBRELLAS = {"persona.h", "json.h"}
JSON_FOLDERS = ("io/json", "io/csv")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')

UMBRELLA_TEXT = {
    "persona.h": (
        "// The whole public API of the record library (persona::persona): the framework, the "
        "record\n// bases and families, the personality, integrity, files and reports. The JSON, "
        "diff and CSV\n// forms are in <persona/json.h> (persona::json). Written by "
        "scripts/layers.py umbrella.\n"
    ),
    "json.h": (
        "// The public API of the JSON, diff and CSV library (persona::json, on nlohmann-json), "
        "with\n// everything of <persona/persona.h>. Written by scripts/layers.py umbrella.\n"
    ),
}


def layer_of(rel):
    """The layer folder of a path below src/persona ("io/json/x.h" -> "io"), or None."""
    first = rel.split("/", 1)[0]
    return first if first in RANKS else None


def headers():
    """Every header below src/persona except the umbrellas, as paths relative to it, in layer
    order and then by name."""
    found = []
    for path in SRC.rglob("*.h"):
        rel = path.relative_to(SRC).as_posix()
        if rel in UMBRELLAS or layer_of(rel) is None:
            continue
        found.append(rel)
    return sorted(found, key=lambda r: (RANKS[layer_of(r)], list(RANKS).index(layer_of(r)), r))


def is_json(rel):
    return any(rel.startswith(folder + "/") for folder in JSON_FOLDERS)


def umbrella(name):
    """The text of umbrella header name."""
    if name == "persona.h":
        names = ["version.h"] + [rel for rel in headers() if not is_json(rel)]
    else:
        names = ["persona.h"] + [rel for rel in headers() if is_json(rel)]
    # In name order, as clang-format keeps them; every header stands on its own.
    includes = [f"#include <persona/{rel}>\n" for rel in sorted(names)]
    return "".join([UMBRELLA_TEXT[name], "#pragma once\n\n"] + includes)


def check_file(path, rank, problems):
    """Appends to problems every include of path that points up or is not namespaced."""
    text = path.read_text(encoding="utf-8", errors="replace")
    rel_file = path.relative_to(ROOT).as_posix()
    for number, line in enumerate(text.splitlines(), 1):
        m = INCLUDE.match(line)
        if not m:
            continue
        quote, target = m.groups()
        where = f"{rel_file}:{number}"
        if quote == '"':
            if (SRC / target).exists():
                problems.append(f'{where}: "{target}": write #include <persona/{target}>')
            continue
        if not target.startswith("persona/"):
            continue
        inner = target[len("persona/"):]
        if inner in GENERATED:
            continue
        if inner in UMBRELLAS:
            if rank is not None:
                problems.append(f"{where}: <{target}> is the umbrella header; include what you use")
            continue
        layer = layer_of(inner)
        if layer is None:
            problems.append(f"{where}: <{target}> is no header of a known layer")
        elif rank is not None and RANKS[layer] > rank:
            problems.append(f"{where}: {layer_of_file(path)} includes <{target}> of the higher "
                            f"layer {layer}")


def layer_of_file(path):
    return layer_of(path.relative_to(SRC).as_posix())


def check():
    if not (SRC / "core").is_dir():
        print(f"layers: {SRC.relative_to(ROOT)}/core does not exist: the layers are not in place")
        return 1
    problems = []
    for path in sorted(SRC.rglob("*")):
        if path.suffix not in (".h", ".cpp") or path.name in UMBRELLAS:
            continue
        layer = layer_of_file(path)
        if layer is None:
            if path.parent != SRC:
                problems.append(f"{path.relative_to(ROOT)}: outside every layer folder")
            continue
        check_file(path, RANKS[layer], problems)
    for top in ("tools", "tests", "bench", "fuzz", "examples"):
        for path in sorted((ROOT / top).rglob("*")):
            if path.suffix in (".h", ".cpp") and "build" not in path.parts:
                check_file(path, None, problems)
    for name in UMBRELLAS:
        path = SRC / name
        if not path.exists() or path.read_text(encoding="utf-8") != umbrella(name):
            problems.append(f"src/persona/{name}: out of date; run scripts/layers.py umbrella")
    for problem in problems:
        print(problem)
    print(f"layers: {len(problems)} problem(s)" if problems else "layers: every include points down")
    return 1 if problems else 0


def main(argv):
    if argv[1:] == ["check"]:
        return check()
    if argv[1:] == ["umbrella"]:
        for name in UMBRELLAS:
            (SRC / name).write_text(umbrella(name), encoding="utf-8")
        return 0
    print(__doc__, file=sys.stderr)
    return 64


if __name__ == "__main__":
    sys.exit(main(sys.argv))
