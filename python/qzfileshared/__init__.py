"""The shared utility library of the Halcyra suite for Python programs.

Needs nothing but the standard library, and works in a stock interpreter as well as in one that a
program of the suite embeds: where the process has the library already, that one is used.

    import qzfileshared as qz

    with qz.Preferences(qz.Product.ATELIO) as preferences:
        preferences["session/count"] = preferences.get("session/count", 0) + 1

    with qz.capture_messages() as messages:
        path = qz.find("materials.dat")

The library's tables are not locked: call it from one thread at a time.
"""

from .errors import ErrorHandler, Level, capture_messages, throw
from .files import (
    add_to_search_path,
    exists,
    expand,
    find,
    native_path,
    search_path,
    set_search_path,
)
from .preferences import (
    ErrorCode,
    Platform,
    PreferenceError,
    PreferenceKeyError,
    Preferences,
    Product,
    Value,
    explain,
)

__all__ = [
    "ErrorCode",
    "ErrorHandler",
    "Level",
    "Platform",
    "PreferenceError",
    "PreferenceKeyError",
    "Preferences",
    "Product",
    "Value",
    "add_to_search_path",
    "capture_messages",
    "exists",
    "expand",
    "explain",
    "find",
    "native_path",
    "search_path",
    "set_search_path",
    "throw",
]
