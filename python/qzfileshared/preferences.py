"""The preferences of one product, layered over those of the machine and the installation."""

from __future__ import annotations

import contextlib
import ctypes
import enum
import json
from typing import Any, Iterator, NoReturn, TypeVar, Union, cast

from ._library import decoded_path, encoded, library, taken, taken_array, taken_texts

#: What a preference holds.
Value = Union[bool, int, float, str]
T = TypeVar("T", bool, int, float, str)


class Product(enum.IntEnum):
    """The products with preferences of their own."""

    ATELIO = 0
    BORVANE = 1
    CELDRIS = 2
    DOVREL = 3
    ENSKARA = 4
    FENDRO = 5
    GRELLIN = 6
    HESPAR = 7
    ISKRELL = 8
    KORVEL = 9
    LUMARIS = 10
    MERIDAX = 11
    NORVANE = 12
    OSTREL = 13
    PLINDRA = 14
    TARVEX = 15


class Platform(enum.IntEnum):
    """The platforms that a value can be for."""

    WINDOWS = 1
    LINUX = 2
    DARWIN = 3


class ErrorCode(enum.IntEnum):
    """Why a call on preferences failed."""

    FAILURE = 1
    LOWER_LAYER = 2
    CONVERSION_ERROR = 3
    KEY_NOT_FOUND = 4
    ACCESS_ERROR = 6
    FORMAT_ERROR = 7
    UNKNOWN_PRODUCT = 8
    LOCK_ERROR = 9
    INVALID_KEY = 10


class PreferenceError(Exception):
    """A call on preferences failed; the library has reported what a user should know."""

    def __init__(self, code: int, what: str) -> None:
        self.code = ErrorCode(code)
        super().__init__(f"{what}: {self.code.name.lower().replace('_', ' ')}")


class PreferenceKeyError(PreferenceError, KeyError):
    """No layer has the key."""

    __str__ = Exception.__str__


_TYPES: dict[int, type] = {1: int, 2: str, 3: float, 4: bool}
_TYPE_NUMBERS = {type_: number for number, type_ in _TYPES.items()}
_NAMES = {int: "int", str: "string", float: "double", bool: "bool"}
_ELEMENTS: dict[type, Any] = {
    int: ctypes.c_int,
    str: ctypes.c_void_p,
    float: ctypes.c_double,
    bool: ctypes.c_int,
}
_INT_RANGE = range(-(2**31), 2**31)


def _check(code: int, what: str) -> None:
    if code == ErrorCode.KEY_NOT_FOUND:
        raise PreferenceKeyError(code, what)
    if code != 0:
        raise PreferenceError(code, what)


class Preferences:
    """An open store, to be closed or used in a "with" statement, which saves at its end.

    Keys are paths with '/', below the groups that are open. A value is read by the type that it is
    stored with: bool, int, float or str. Writing changes the user's file alone, and a key keeps its
    type. A text of nothing but white space is gone with the next reading of the file.
    """

    def __init__(self, product: Product | int) -> None:
        handle = ctypes.c_size_t()
        self._handle = 0
        if library.qzpref_new(ctypes.byref(handle), int(product)) != 0:
            known = int(product) in Product._value2member_map_
            code = ErrorCode.FAILURE if known else ErrorCode.UNKNOWN_PRODUCT
            raise PreferenceError(code, f"preferences of product {int(product)}")
        self._handle = handle.value

    @property
    def handle(self) -> int:
        """The number that the C interface knows the store by."""
        if not self._handle:
            raise ValueError("the preferences are closed")
        return self._handle

    def type_of(self, key: str) -> type | None:
        """The type of the stored value, on any platform; None when there is none."""
        return _TYPES.get(library.qzpref_get_type(self.handle, encoded(key)))

    def __getitem__(self, key: str) -> Value:
        handle, name = self.handle, encoded(key)
        type_ = self.type_of(key)
        if type_ is None:
            raise PreferenceKeyError(ErrorCode.KEY_NOT_FOUND, key)
        out = _ELEMENTS[type_]()
        getter = getattr(library, f"qzpref_get_{_NAMES[type_]}")
        code = getter(handle, name, ctypes.byref(out))
        if type_ is str:
            text = (taken(out.value) or b"").decode()
            _check(code, key)
            return text
        _check(code, key)
        value: Value = type_(out.value)
        return value

    def get(self, key: str, default: T) -> T:
        """The value of a key, or the default when no layer has one of the default's type."""
        try:
            value = self[key]
        except PreferenceKeyError:
            return default
        return cast("T", value) if type(value) is type(default) else default

    def __contains__(self, key: str) -> bool:
        try:
            self[key]
        except PreferenceError:
            return False
        return True

    def __setitem__(self, key: str, value: Value) -> None:
        handle, name = self.handle, encoded(key)
        if isinstance(value, bool):
            code = library.qzpref_set_bool(handle, name, value)
        elif isinstance(value, int):
            if value not in _INT_RANGE:
                raise OverflowError(f"{key}: {value} does not fit into 32 bits")
            code = library.qzpref_set_int(handle, name, value)
        elif isinstance(value, float):
            code = library.qzpref_set_double(handle, name, value)
        elif isinstance(value, str):
            code = library.qzpref_set_string(handle, name, encoded(value))
        else:
            raise TypeError(f"{key}: a preference is a bool, int, float or str")
        _check(code, key)

    def __delitem__(self, key: str) -> None:
        """Removes the user's value; one of the machine or the installation may answer then."""
        type_ = self.type_of(key)
        number = _TYPE_NUMBERS[type_] if type_ is not None else 0
        if number == 0 or library.qzpref_remove(self.handle, encoded(key), number) != 1:
            raise PreferenceKeyError(ErrorCode.KEY_NOT_FOUND, key)

    def remove_group(self, group: str) -> int:
        """Removes a group with all below it from the user's file; gives the number of keys."""
        removed: int = library.qzpref_remove(self.handle, encoded(group), 0)
        return removed

    def clear(self) -> None:
        """Removes every key from the user's file."""
        library.qzpref_clear(self.handle)

    def values(self, type_: type[T], group: str = "") -> dict[str, T]:
        """Every key below a group with a value of that type, in any layer."""
        names, values, count = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_int()
        before = self.current_group
        code = getattr(library, f"qzpref_get_{_NAMES[type_]}_list")(
            self.handle, encoded(group), ctypes.byref(names), ctypes.byref(values),
            ctypes.byref(count))
        keys = taken_texts(names, count.value)
        found: list[Any] = (taken_texts(values, count.value) if type_ is str
                            else taken_array(values, _ELEMENTS[type_], count.value))
        self._return_to(before)
        if code not in (0, ErrorCode.KEY_NOT_FOUND):
            _check(code, group)
        return {key: type_(value) for key, value in zip(keys, found)}

    def _return_to(self, group: str) -> None:
        """A listing may stay in the group that it entered, or leave one of its caller's."""
        while len(self.current_group) > len(group):
            library.qzpref_end_group(self.handle)
        missing = group[len(self.current_group):].strip("/")
        if missing:
            library.qzpref_begin_group(self.handle, encoded(missing))

    def subgroups(self, depth: int = 0) -> list[str]:
        """The groups below the current one in the user's file, as many levels deep; 0 for all."""
        groups, count = ctypes.c_void_p(), ctypes.c_int()
        library.qzpref_get_subgroups(self.handle, depth, ctypes.byref(groups), ctypes.byref(count))
        return taken_texts(groups, count.value)

    @property
    def current_group(self) -> str:
        """The open groups, joined with '/'."""
        return (taken(library.qzpref_get_group(self.handle)) or b"").decode()

    @contextlib.contextmanager
    def group(self, name: str) -> Iterator[Preferences]:
        """Keys are below that group meanwhile."""
        _check(library.qzpref_begin_group(self.handle, encoded(name)), name)
        try:
            yield self
        finally:
            if self._handle:
                library.qzpref_end_group(self._handle)

    @contextlib.contextmanager
    def platform(self, platform: Platform | None = None) -> Iterator[Preferences]:
        """Values are written for one platform meanwhile; None is the one this runs on."""
        library.qzpref_begin_os_attribute2(self.handle, int(platform or 0))
        try:
            yield self
        finally:
            if self._handle:
                library.qzpref_end_os_attribute(self._handle)

    @property
    def file(self) -> str:
        """The user's file."""
        return decoded_path(taken(library.qzpref_get_settings_file(self.handle)) or b"")

    def sync(self) -> None:
        """Saves what changed, and reads what others have saved."""
        _check(library.qzpref_sync(self.handle), self.file)

    def close(self) -> None:
        """Saves and closes. What cannot be saved is lost without a word; sync() would say so."""
        handle, self._handle = self._handle, 0
        if handle:
            library.qzpref_delete(handle)

    def __enter__(self) -> Preferences:
        return self

    def __exit__(self, error: object, *_: object) -> None:
        try:
            if error is None and self._handle:
                self.sync()
        finally:
            self.close()

    def __copy__(self) -> NoReturn:
        raise TypeError("open preferences cannot be copied")

    __deepcopy__ = __reduce__ = __copy__


def explain(product: Product | int, key: str) -> dict[str, Any]:
    """Why a key has the value it has: layers, files, winner, reason, and what each getter gives.

    "winner" is "not found" when no layer has the key. Changes nothing and takes no lock.
    """
    out = ctypes.c_void_p()
    code = library.qzpref_explain(int(product), encoded(key), ctypes.byref(out))
    text = taken(out.value)
    if text is None:
        _check(code or ErrorCode.FAILURE, key)
        raise AssertionError
    report: dict[str, Any] = json.loads(text)
    return report
