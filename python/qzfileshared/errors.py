"""Error handlers: who reports what, how bad it must be, and where it goes."""

from __future__ import annotations

import contextlib
import ctypes
import enum
from typing import Any, Callable, Iterator

from ._library import Window, decoded_path, encoded_message, library


class Level(enum.IntEnum):
    """How bad a message is."""

    BUMMER = 0
    OK = 1
    DEBUG = 2
    INFO = 3
    WARNING = 4
    FATAL = 5
    OFF = 6


#: The handler on which the library itself reports.
LIBRARY_HANDLER = -1

# The windows that this package has set, the last one of each handler last. The library holds the
# addresses only.
_windows: dict[int, list[Any]] = {}


def throw(handler: int, level: int, text: str) -> bool:
    """Reports a message on a handler. A '%' is text.

    Gives False when there is no such handler, or its stream or window failed.
    """
    message = ctypes.c_char_p(encoded_message(text))
    return bool(library.qzerr_throw(handler, int(level), b"%s", message) == 1)


def _push_window(handler: int, callback: Callable[[str], object]) -> None:
    def window(message: bytes) -> int:
        try:
            callback(decoded_path(message))
        except Exception:  # nothing may leave through the library
            return -1
        return 0

    function = Window(window)
    _windows.setdefault(handler, []).append(function)
    library.qzerr_window(handler, ctypes.cast(function, ctypes.c_void_p))


def _pop_window(handler: int) -> None:
    windows = _windows[handler]
    windows.pop()
    if windows:
        library.qzerr_window(handler, ctypes.cast(windows[-1], ctypes.c_void_p))
    else:
        del _windows[handler]
        library.qzerr_window(handler, None)


def _level_of(handler: int) -> int:
    level = ctypes.c_uint()
    if library.qzerr_get_level(handler, ctypes.byref(level)) != 1:
        raise ValueError(f"there is no error handler {handler}")
    return level.value


def _standard_error() -> ctypes.c_void_p | None:
    try:
        return ctypes.c_void_p.in_dll(ctypes.CDLL(None), "stderr")
    except (TypeError, ValueError):  # a system whose run-time keeps it to itself
        return None


@contextlib.contextmanager
def capture_messages(
    handler: int = LIBRARY_HANDLER, level: int | None = None, *, silent: bool = True
) -> Iterator[list[str]]:
    """Collects what is reported on a handler meanwhile, each message with its level's name.

    With a level, that one counts meanwhile instead of the handler's own. Unless silent is False,
    a default handler (0 or -1) does not print meanwhile; it goes on to print to standard error,
    even where the program had given it another stream. A window that the program has set is
    replaced; captures of this package nest.
    """
    previous_level = _level_of(handler)
    stream = _standard_error() if silent and handler in (0, LIBRARY_HANDLER) else None
    messages: list[str] = []
    outermost = handler not in _windows
    if level is not None:
        library.qzerr_level(handler, int(level))
    if stream is not None:
        library.qzerr_file(handler, None)
    _push_window(handler, messages.append)
    try:
        yield messages
    finally:
        _pop_window(handler)
        if stream is not None and outermost:
            library.qzerr_file(handler, stream)
        library.qzerr_level(handler, previous_level)


class ErrorHandler:
    """A handler of the program's own; its messages go to a function.

    with ErrorHandler(print, prefix="mesher: ") as handler:
        handler.throw(Level.WARNING, "12 cells are flat")
    """

    def __init__(
        self,
        on_message: Callable[[str], object] | None = None,
        *,
        level: int = Level.WARNING,
        prefix: str = "",
    ) -> None:
        number = ctypes.c_int()
        library.qzerr_new(ctypes.byref(number))
        self._id = number.value
        library.qzerr_level(self._id, int(level))
        if prefix and library.qzerr_prefix(self._id, encoded_message(prefix)) != 1:
            library.qzerr_delete(self._id)
            raise ValueError("the prefix is longer than 511 bytes")
        if on_message is not None:
            _push_window(self._id, on_message)

    @property
    def id(self) -> int:
        """The number that the library and other languages know the handler by."""
        return self._id

    def throw(self, level: int, text: str) -> bool:
        """Reports a message; False when the function that takes it failed."""
        return throw(self._id, level, text)

    @property
    def level(self) -> int:
        """Messages below are not shown."""
        return _level_of(self._id)

    @level.setter
    def level(self, level: int) -> None:
        _level_of(self._id)
        library.qzerr_level(self._id, int(level))

    @property
    def max_level(self) -> int:
        """The highest level reported so far."""
        level = ctypes.c_uint()
        library.qzerr_maxlevel(self._id, ctypes.byref(level))
        return level.value

    def close(self) -> None:
        """Deletes the handler; its number may be used again."""
        if self._id > 0:
            library.qzerr_window(self._id, None)
            _windows.pop(self._id, None)
            library.qzerr_delete(self._id)
            self._id = -2  # names no handler

    def __enter__(self) -> ErrorHandler:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()
