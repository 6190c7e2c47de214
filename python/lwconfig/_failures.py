"""What a failing operation raises."""


class Error(Exception):
    """A failure of the library.

    number       what Basic programmers know it by, such as 457 for a duplicate key
    description  what went wrong
    source       what failed: "LWConfigObjects" in most cases
    file, line, column
                 the place in the file that was being read, else None; line and column count from 1
    """

    def __init__(self, number, description, source="LWConfigObjects", file=None, line=None, column=None):
        super().__init__(description)
        self.number = number
        self.description = description
        self.source = source
        self.file = file
        self.line = line
        self.column = column

    def __str__(self):
        place = [str(part) for part in (self.file, self.line, self.column) if part is not None]
        return ":".join(place) + ": " + self.description if place else self.description

    def __reduce__(self):
        return type(self), (self.number, self.description, self.source, self.file, self.line, self.column)


def _kind(name, *bases):
    return type(name, (Error, *bases), {"__doc__": Error.__doc__, "__module__": "lwconfig"})


_FILE = _kind("FileError", OSError)
_MISSING = _kind("MissingFileError", FileNotFoundError)
_DENIED = _kind("FilePermissionError", PermissionError)
_VALUE = _kind("BadValueError", ValueError)
_KEY = _kind("UnknownKeyError", KeyError)
_INDEX = _kind("UnknownPositionError", IndexError)
_MEMBER = _kind("MemberError", AttributeError)
_CALL = _kind("CallError", TypeError)

_KINDS = {
    5: _VALUE,
    6: _VALUE,
    9: _INDEX,
    13: _VALUE,
    52: _FILE,
    53: _MISSING,
    70: _DENIED,
    75: _FILE,
    76: _MISSING,
    94: _VALUE,
    383: _MEMBER,
    429: _CALL,
    438: _MEMBER,
    448: _CALL,
    449: _CALL,
    450: _CALL,
    457: _VALUE,
    459: _MEMBER,
}

Error.__module__ = "lwconfig"


def make(number, description, source, file, line, column, is_key):
    """The exception for a failure; `is_key` where it is about a key that names nothing."""
    kind = _KEY if is_key else _KINDS.get(number, Error)
    return kind(number, description, source, file, line, column)
