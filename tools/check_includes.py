#!/usr/bin/env python3
"""Fails when an include breaks the table of who may include whom.

Usage: check_includes.py [ROOT]      ROOT: the folder with platform/, module/ ...
The table here is the one that docs/architecture.md shows.
"""

import re
import sys
from pathlib import Path

# Folder -> what it may include beside its own files. The longest matching folder counts.
ALLOWED = {
    "platform/dxf": [],
    "platform/win": [],
    "platform/mfc": ["platform/win"],
    "platform/spread": ["platform/win"],
    "platform/arx": ["platform/dxf", "platform/win"],
    "companions": ["module/frame/companions", "platform"],
    "module/frame": [],
    "module/drawing": ["module/frame"],
    "module/params": ["module/frame", "module/drawing"],
    "module/textcmd": ["module/frame", "module/drawing", "module/params"],
    "module/countup": ["module/frame", "module/drawing"],
    "module/text7": [
        "module/frame", "module/drawing", "module/params", "module/textcmd", "module/countup",
    ],
    "module/propedit": ["module/frame", "module/drawing", "module/params", "module/text7"],
    "module/align": ["module/frame", "module/drawing"],
    "module/propcopy": ["module/frame", "module/drawing", "module/params"],
    "module/grid": ["module/frame"],
    "module/options": ["module/frame", "module/params", "module/grid"],
    "launch": ["platform"],
    "host": ["launch", "platform"],
    "host/terminal": [
        "launch/completion.h", "host/program/line_source.h",
        "host/libraries/terminal_library.h", "platform",
    ],
    "host/picture": ["launch/picture_library.h", "platform"],
    "desktop": ["launch", "platform", "companions/project_listing.h"],
}

# Folders with rooms, from the ground up: a room may include itself and the rooms below it. "." stands
# for the files of the folder itself. A folder in there that isn't a room is included by none of them.
ROOMS = {
    "platform/arx": ["base", "geometry", "database", "entities", "lists", "drawing", "editor"],
    "platform/arx/editor": [".", "documents", "prompts", "picks", "commands", "host"],
    "platform/win": ["base", "resources", "windows", "controls", "dialogs", "desktop", "."],
    "host": ["program", "libraries", "texts", "compare", "batch", "lines", "subcommands", "."],
    "desktop": ["loop", "mirror", "view", "frame", "."],
}

# Single files that may include more than their folder.
EXCEPTIONS = {
    "module/frame/seam.h": ["platform"],
    "platform/arx/editor/host/dialog_bases.h": ["platform/mfc"],
    "platform/arx/editor/host/dialog_bases.cpp": ["platform/mfc"],
    "platform/arx/editor/host/dialog_resize.h": ["platform/mfc"],
}

# Headers of libraries, by the folder that may use them; the C++ standard library is open to all.
LIBRARIES = {
    "platform/dxf": ["iconv.h"],
    "platform/win": ["sqlite3.h"],
    "launch": ["CLI/"],
    "host": ["CLI/", "nlohmann/"],
    "host/terminal": ["histedit.h"],
    "host/picture": ["cairo.h", "pango/"],
    "desktop": ["Q", "boost/", "CLI/"],
}

# Folders whose code must not know what operating system it runs on.
PORTABLE = ["module"]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
STANDARD = re.compile(r"^[a-z_0-9]+$")  # <vector>, <cstdint>: no path, no ".h"


def folder_of(path: str, table: dict) -> str | None:
    fitting = [name for name in table if path == name or path.startswith(name + "/")]
    return max(fitting, key=len, default=None)


def below(path: str, folders: list[str]) -> bool:
    return any(path == f or path.startswith(f + "/") for f in folders)


def own_header_allowed(source: str, folder: str, target: str) -> bool:
    return below(target, [folder, *ALLOWED[folder], *EXCEPTIONS.get(source, [])])


def room_of(path: str, parent: str) -> str | None:
    """The room of a file below a folder with rooms; None for a file elsewhere."""
    if not path.startswith(parent + "/"):
        return None
    inside = path[len(parent) + 1 :]
    return inside.split("/")[0] if "/" in inside else "."


def runs_up(source: str, target: str) -> bool:
    """Whether an include leads to a room above the source's own."""
    for parent, rooms in ROOMS.items():
        own, other = room_of(source, parent), room_of(target, parent)
        if own is None or other is None or own == other or own not in rooms:
            continue
        if other not in rooms or rooms.index(other) > rooms.index(own):
            return True
    return False


def library_allowed(folder: str, header: str) -> bool:
    if STANDARD.match(header):
        return True
    if any(header.startswith(name) for name in LIBRARIES.get(folder, [])):
        return True
    system_header = header.endswith(".h") and not any(
        header.startswith(name) for names in LIBRARIES.values() for name in names
    )
    return system_header and not below(folder, PORTABLE)


def check_file(root: Path, source: str) -> list[str]:
    folder = folder_of(source, ALLOWED)
    if folder is None:
        return []
    faults = []
    for number, line in enumerate((root / source).read_text("utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        kind, header = match.groups()
        if kind == "<":
            fine = library_allowed(folder, header)
        else:
            fine = (
                (root / header).is_file()
                and own_header_allowed(source, folder, header)
                and not runs_up(source, header)
            )
        if not fine:
            faults.append(f"{source}:{number}: {folder}/ may not include {header}")
    return faults


def main() -> int:
    root = Path(sys.argv[1] if len(sys.argv) > 1 else ".")
    faults = []
    for top in ("platform", "companions", "module", "launch", "host", "desktop"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                faults += check_file(root, path.relative_to(root).as_posix())
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
