"""Expansion of names, and the search path."""

from __future__ import annotations

import ctypes
import os

from ._library import decoded_path, encoded_path, library, taken


def native_path(path: str | os.PathLike[str]) -> str:
    """The spelling that this system opens: the library separates with backslashes everywhere."""
    text = os.fspath(path)
    return text if os.sep == "\\" else text.replace("\\", os.sep)


def expand(text: str | os.PathLike[str]) -> str:
    """Expands a leading "~" or "~user" and each "$NAME".

    LookupError when a home or one of the suite's own directories is not found.
    """
    out = ctypes.c_void_p()
    status = library.qzfile_dir_expand(encoded_path(text), ctypes.byref(out))
    expansion = taken(out.value)
    if status != 0 or expansion is None:
        raise LookupError(f"cannot expand {os.fspath(text)!r}")
    return decoded_path(expansion)


def exists(name: str | os.PathLike[str], *, directory: bool = False) -> bool:
    """Whether a file or directory is found: absolute, or in a directory of the search path."""
    return bool(library.qzfile_exists(encoded_path(name), int(directory)) == 0)


def find(name: str | os.PathLike[str], *, directory: bool = False) -> str | None:
    """The path of a file or directory, as the library spells it; None when it is not found."""
    out = ctypes.c_void_p()
    library.qzfile_find(encoded_path(name), int(directory), ctypes.byref(out))
    path = taken(out.value)
    return None if path is None else decoded_path(path)


def search_path() -> list[str]:
    """The directories in which relative names are looked up."""
    out = ctypes.c_void_p()
    if library.qzfile_path_get(ctypes.byref(out)) != 0:
        raise MemoryError
    directories: list[str] = []
    for part in decoded_path(taken(out.value) or b"").split(":"):
        # A letter, ':' and a backslash are a drive; any other ':' stands between directories.
        if part.startswith("\\") and directories and _is_drive(directories[-1]):
            directories[-1] += ":" + part
        elif part:
            directories.append(part)
    return directories


def _is_drive(text: str) -> bool:
    return len(text) == 1 and text.isascii() and text.isalpha()


def add_to_search_path(*directories: str | os.PathLike[str]) -> None:
    """Adds directories, each expanded, at the end of the search path. ValueError for an empty one."""
    for directory in directories:
        if library.qzfile_path_add(encoded_path(directory)) != 0:
            raise ValueError("an empty directory for the search path")


def set_search_path(*directories: str | os.PathLike[str]) -> None:
    """Replaces the search path; without directories it is empty."""
    library.qzfile_path_clear()
    add_to_search_path(*directories)
