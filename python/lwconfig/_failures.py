"""The exceptions of failing operations."""

from __future__ import annotations

from typing import Any

__all__ = [
    "BadValueError",
    "CallError",
    "Error",
    "FileError",
    "FilePermissionError",
    "MemberError",
    "MissingFileError",
    "UnknownKeyError",
    "UnknownPositionError",
]


class Error(Exception):
    """A failure of the library.

    number       the number of the error in Basic, such as 457 for a duplicate key
    description  the description of the failure
    source       the source of the failure: "LWConfigObjects" in most cases
    file, line, column
                 the place in the file that was being read, else None; line and column count from 1
    """

    def __init__(
        self,
        number: int,
        description: str,
        source: str = "LWConfigObjects",
        file: str | None = None,
        line: int | None = None,
        column: int | None = None,
    ) -> None:
        super().__init__(description)
        self.number = number
        self.description = description
        self.source = source
        self.file = file
        self.line = line
        self.column = column

    def __str__(self) -> str:
        place = [str(part) for part in (self.file, self.line, self.column) if part is not None]
        return ":".join(place) + ": " + self.description if place else self.description

    def __reduce__(self) -> tuple[Any, ...]:
        arguments = self.number, self.description, self.source, self.file, self.line, self.column
        return type(self), arguments, self.__dict__


class FileError(Error, OSError):
    """A file or folder that cannot be used."""


class MissingFileError(Error, FileNotFoundError):
    """A file or folder that does not exist."""


class FilePermissionError(Error, PermissionError):
    """A file or folder that the user may not read or change."""


class BadValueError(Error, ValueError):
    """A value, in a call or in a file, that the library cannot accept."""


class UnknownKeyError(Error, KeyError):
    """A key that names no item."""


class UnknownPositionError(Error, IndexError):
    """A position at which there is no item."""


class MemberError(Error, AttributeError):
    """A member or event that the object does not have, or that does not allow this use."""


class CallError(Error, TypeError):
    """Arguments that do not fit the member, or a class whose objects cannot be created."""


for _name in __all__:
    globals()[_name].__module__ = "lwconfig"

_KINDS: dict[int, type[Error]] = {
    5: BadValueError,
    6: BadValueError,
    9: UnknownPositionError,
    13: BadValueError,
    52: FileError,
    53: MissingFileError,
    70: FilePermissionError,
    75: FileError,
    76: MissingFileError,
    94: BadValueError,
    383: MemberError,
    429: CallError,
    438: MemberError,
    448: CallError,
    449: CallError,
    450: CallError,
    457: BadValueError,
    459: MemberError,
}


def make(
    number: int, description: str, source: str, file: str | None, line: int | None, column: int | None, is_key: bool
) -> Error:
    """The exception for a failure; `is_key` for an unknown key."""
    kind = _KINDS.get(number, Error)
    if is_key:
        kind = UnknownKeyError
    return kind(number, description, source, file, line, column)
