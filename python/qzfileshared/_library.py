"""The library as the C interface declares it."""

from __future__ import annotations

import ctypes
import os
import pathlib
import sys
from ctypes import POINTER, c_char_p, c_double, c_int, c_size_t, c_uint, c_void_p
from typing import Any, Sequence

#: A window of an error handler: takes the message, gives -1 when it could not.
Window = ctypes.CFUNCTYPE(c_int, c_char_p)

# A text that the caller owns is declared as a plain pointer: c_char_p would copy it and drop it.
_Text = c_void_p
_Out = POINTER(c_void_p)
_Int = POINTER(c_int)

_PROTOTYPES: dict[str, tuple[Any, Sequence[Any]]] = {
    "qzerr_new": (c_int, [_Int]),
    "qzerr_delete": (None, [c_int]),
    "qzerr_level": (c_int, [c_int, c_uint]),
    "qzerr_get_level": (c_int, [c_int, POINTER(c_uint)]),
    "qzerr_maxlevel": (c_int, [c_int, POINTER(c_uint)]),
    "qzerr_errclear": (c_int, [c_int]),
    "qzerr_prefix": (c_int, [c_int, c_char_p]),
    "qzerr_file": (c_int, [c_int, c_void_p]),
    "qzerr_window": (c_int, [c_int, c_void_p]),
    "qzerr_throw": (c_int, [c_int, c_uint, c_char_p]),  # and what the format takes
    "qzfile_dir_expand": (c_int, [c_char_p, _Out]),
    "qzfile_exists": (c_int, [c_char_p, c_int]),
    "qzfile_find": (c_int, [c_char_p, c_int, _Out]),
    "qzfile_free_component_string": (None, [c_void_p]),
    "qzfile_path_add": (c_int, [c_char_p]),
    "qzfile_path_clear": (c_int, []),
    "qzfile_path_get": (c_int, [_Out]),
    "qzpref_new": (c_int, [POINTER(c_size_t), c_int]),
    "qzpref_delete": (None, [c_size_t]),
    "qzpref_begin_group": (c_int, [c_size_t, c_char_p]),
    "qzpref_end_group": (None, [c_size_t]),
    "qzpref_get_group": (_Text, [c_size_t]),
    "qzpref_begin_os_attribute2": (None, [c_size_t, c_int]),
    "qzpref_end_os_attribute": (None, [c_size_t]),
    "qzpref_clear": (None, [c_size_t]),
    "qzpref_remove": (c_int, [c_size_t, c_char_p, c_int]),
    "qzpref_get_type": (c_int, [c_size_t, c_char_p]),
    "qzpref_get_bool": (c_int, [c_size_t, c_char_p, _Int]),
    "qzpref_get_int": (c_int, [c_size_t, c_char_p, _Int]),
    "qzpref_get_double": (c_int, [c_size_t, c_char_p, POINTER(c_double)]),
    "qzpref_get_string": (c_int, [c_size_t, c_char_p, _Out]),
    "qzpref_get_bool_list": (c_int, [c_size_t, c_char_p, _Out, _Out, _Int]),
    "qzpref_get_int_list": (c_int, [c_size_t, c_char_p, _Out, _Out, _Int]),
    "qzpref_get_double_list": (c_int, [c_size_t, c_char_p, _Out, _Out, _Int]),
    "qzpref_get_string_list": (c_int, [c_size_t, c_char_p, _Out, _Out, _Int]),
    "qzpref_get_subgroups": (c_int, [c_size_t, c_int, _Out, _Int]),
    "qzpref_get_settings_file": (_Text, [c_size_t]),
    "qzpref_set_bool": (c_int, [c_size_t, c_char_p, c_int]),
    "qzpref_set_int": (c_int, [c_size_t, c_char_p, c_int]),
    "qzpref_set_double": (c_int, [c_size_t, c_char_p, c_double]),
    "qzpref_set_string": (c_int, [c_size_t, c_char_p, c_char_p]),
    "qzpref_sync": (c_int, [c_size_t]),
    "qzpref_explain": (c_int, [c_int, c_char_p, _Out]),
}


def _load() -> ctypes.CDLL:
    named = os.environ.get("QZFILESHARED_LIBRARY")
    if named:
        return ctypes.CDLL(named)
    if sys.platform != "win32":
        process = ctypes.CDLL(None)
        if hasattr(process, "qzerr_new"):  # a program of the suite embeds this interpreter
            return process
    from ._location import LIBRARY

    return ctypes.CDLL(str(pathlib.Path(__file__).parent / LIBRARY))


def _declare(library: ctypes.CDLL) -> ctypes.CDLL:
    for name, (result, arguments) in _PROTOTYPES.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


library = _declare(_load())


# On Windows the interpreter takes bytes of names for UTF-8; to the library they are in the code page
# of the process, as messages are. Preferences are UTF-8 everywhere.
_MESSAGES = "mbcs" if sys.platform == "win32" else "utf-8"


def encoded(text: str, encoding: str = "utf-8") -> bytes:
    """A text for the library, which ends texts at a NUL."""
    if "\0" in text:
        raise ValueError("embedded null character")
    return text.encode(encoding)


def encoded_message(text: str) -> bytes:
    """A message for the library."""
    return encoded(text, _MESSAGES)


def encoded_path(path: str | os.PathLike[str]) -> bytes:
    """A path for the library, in the encoding of the process."""
    name = os.fspath(path).encode("mbcs") if sys.platform == "win32" else os.fsencode(path)
    if b"\0" in name:
        raise ValueError("embedded null byte")
    return name


def decoded_path(path: bytes) -> str:
    """A path, or a text with paths in it, from the library."""
    return path.decode("mbcs", "replace") if sys.platform == "win32" else os.fsdecode(path)


def taken(pointer: int | None) -> bytes | None:
    """The text behind a pointer that the library handed over, which is released."""
    if pointer is None:
        return None
    text = ctypes.string_at(pointer)
    library.qzfile_free_component_string(pointer)
    return text


def taken_array(pointer: c_void_p, element: Any, count: int) -> list[Any]:
    """The elements of an array that the library handed over, which is released."""
    if not pointer.value:
        return []
    elements = list(ctypes.cast(pointer, POINTER(element))[:count])
    library.qzfile_free_component_string(pointer)
    return elements


def taken_texts(pointer: c_void_p, count: int) -> list[str]:
    """The texts of an array that the library handed over, all of which are released."""
    return [(taken(text) or b"").decode() for text in taken_array(pointer, c_void_p, count)]
