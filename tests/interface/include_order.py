"""Checks the picture in docs/architecture.md against the sources.

usage: include_order.py SOURCE_DIRECTORY

Every folder includes the public headers, itself, and folders further down the list; the system's own
macros are asked for in the halves of platform/ only.
"""

import pathlib
import re
import sys

# From the top down. A folder at the same height is not included.
HEIGHTS = [
    ["tools"],
    ["fortran"],
    ["common"],
    ["qzfile/qzpref_access"],
    ["qzfile/qzpref", "qzfile/qzfile/path"],
    ["qzfile/qzfile/qzfile"],
    ["tokens"],
    ["errors"],
    ["platform"],
]
HEIGHT_OF = {folder: -i for i, folders in enumerate(HEIGHTS) for folder in folders}
# Leaves: whoever likes includes them, and they include public headers only.
LEAVES = {"common/base64"}
# Programs outside the library see what any caller sees, and have their streams from the seam.
PUBLIC_ONLY = {"tools"}
FOR_PROGRAMS = {"platform/standard_streams.h"}
HALVES = ("platform/posix/", "platform/windows/")
SYSTEM_MACRO = re.compile(r"^\s*#\s*(?:el)?if.*\b(_WIN32|WIN32|_MSC_VER|__linux__|__unix__|__APPLE__)",
                          re.M)


def folder_of(path):
    known = [f for f in [*HEIGHT_OF, *LEAVES] if path.startswith(f + "/")]
    return max(known, key=len, default=None)


def faults_of(root, source):
    name = source.relative_to(root).as_posix()
    text = source.read_text()
    own = folder_of(name)
    if own is None:
        yield f"{name}: lies in no folder of the list"
        return
    if SYSTEM_MACRO.search(text) and not name.startswith(HALVES):
        yield f"{name}: asks for the system; only a half of platform/ may"
    for included in re.findall(r'^#include "([^"]+)"', text, re.M):
        # A public header, or one named from the program's own folder.
        if (root / "include" / included).exists() or (root / own / included).exists():
            continue
        other = folder_of(included)
        if other == own or other in LEAVES or (own in PUBLIC_ONLY and included in FOR_PROGRAMS):
            continue
        if other is None or own in LEAVES | PUBLIC_ONLY or HEIGHT_OF[other] >= HEIGHT_OF[own]:
            yield f"{name}: includes {included}"


def main(root):
    top = sorted({folder.split("/")[0] for folder in HEIGHT_OF})
    sources = [path for folder in top for path in sorted((root / folder).rglob("*"))
               if path.suffix in (".cpp", ".h", ".hpp", ".c")]
    faults = [fault for source in sources for fault in faults_of(root, source)]
    print(*faults, f"{len(sources)} sources, {len(faults)} faults", sep="\n")
    return bool(faults) or not sources


sys.exit(main(pathlib.Path(sys.argv[1])))
