"""Runs the script of all faces through the Python package and prints its transcript."""

import enum
import re
import shlex
import sys

import lwconfig

named, connections = {}, {}


def at(path):
    return eval(path, {"__builtins__": {}, "True": True, "False": False}, named)  # paths are Python's expressions


def value(word):
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


def text(thing):
    if thing is None:
        return "null"
    if isinstance(thing, enum.IntEnum):
        return f"{type(thing).__name__} {thing.name}"
    for kind, name in ((bool, "boolean"), (int, "integer"), (float, "number")):
        if isinstance(thing, kind):
            return f"{name} {thing}"
    return f'text "{thing}"' if isinstance(thing, str) else f"object ({type(thing).__name__})"


def call(path, *words):
    ordered = [value(word) for word in words if ":=" not in word]
    pairs = (word.split(":=") for word in words if ":=" in word)
    result = at(path)(*ordered, **{name: value(word) for name, word in pairs})
    return list(result) if isinstance(result, tuple) else [result]


def do(name, command, *words):
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
        connections[name] = at(words[0]).on(words[1], lambda: tell(words[2:]))
    else:
        assert command == "close", command
        connections[words[0]].close()
    return []


def tell(words):
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
    sys.stdout.reconfigure(encoding="utf-8")
    with open(sys.argv[1], encoding="utf-8") as script:
        for line in script:
            if words := shlex.split(line, comments=True):
                tell(words)
