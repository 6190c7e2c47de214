"""Runs the script of all faces through the Python package and prints its transcript."""

from __future__ import annotations

import enum
import io
import re
import shlex
import sys
from typing import Any

import lwconfig

named: dict[str, Any] = {}
connections: dict[str, lwconfig.Connection] = {}


def at(path: str) -> Any:
    return eval(path, {"__builtins__": {}, "True": True, "False": False}, named)  # paths are Python's expressions


def value(word: str) -> Any:
    if word.startswith("@"):
        return at(word[1:])
    if word in ("null", "True", "False"):
        return {"null": None, "True": True, "False": False}[word]
    if word.startswith('"'):
        return word[1:-1]
    if re.fullmatch("-?[0-9]+", word):
        return int(word)
    member = getattr(lwconfig, word, None) if word.isidentifier() else None
    return member if isinstance(member, enum.IntEnum) else word


def text(thing: object) -> str:
    if thing is None:
        return "null"
    if isinstance(thing, enum.IntEnum):
        return f"{type(thing).__name__} {thing.name}"
    for kind, name in ((bool, "boolean"), (int, "integer"), (float, "number")):
        if isinstance(thing, kind):
            return f"{name} {thing}"
    return f'text "{thing}"' if isinstance(thing, str) else f"object ({type(thing).__name__})"


def call(path: str, *words: str) -> list[object]:
    ordered = [value(word) for word in words if ":=" not in word]
    pairs = (word.split(":=") for word in words if ":=" in word)
    method, given = at(path), {name: value(word) for name, word in pairs}
    result = method(*ordered, **given)
    if "ByRef col" in (method.__doc__ or ""):  # the caller has it, or gets a new one as the result
        return [result, given.get("col", result)]
    return list(result) if isinstance(result, tuple) else [result]


def do(name: str, command: str, *words: str) -> list[object]:
    if command == "new":
        return [getattr(lwconfig, words[0])()]
    if command == "get":
        return [at(words[0])]
    if command == "set":
        path, _, member = words[0].rpartition(".")
        setattr(at(path), member, value(words[1]))
    elif command == "call":
        return call(*words)
    elif command == "each":
        return list(at(words[0]))
    elif command == "same":
        return [at(words[0]) is at(words[1])]
    elif command == "connect":
        connections[name] = at(words[0]).on(words[1], lambda: tell(list(words[2:])))
    else:
        assert command == "close", command
        connections[words[0]].close()
    return []


def tell(words: list[str]) -> None:
    print(">", *words)
    is_named = words[1:2] == ["="]
    try:
        results = do(words[0], *words[2:]) if is_named else do("", *words)
    except lwconfig.Error as failure:
        print("  error", failure.number)
    except AttributeError:  # Python's own for a member that is not there
        print("  error 438")
    else:
        if is_named and results:
            named[words[0]] = results[0]
        for result in results:
            print(" ", text(result))


if __name__ == "__main__":
    assert isinstance(sys.stdout, io.TextIOWrapper)
    sys.stdout.reconfigure(encoding="utf-8")
    with open(sys.argv[1], encoding="utf-8") as script:
        for line in script:
            if words := shlex.split(line, comments=True):
                tell(words)
