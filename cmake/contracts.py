"""Extracts the contracts of the published classes from their headers, for the descriptions of the interface.

    contracts.py SOURCE_DIR OUTPUT

OUTPUT is a C++ source with two tables: the contracts ("PageTemplate.Load" and its text), and the identities of every
published item. Identities derive from the names and never change.

A comment above a member applies to it and to those that follow it, up to a blank line or the next comment; one
beside a member only to it. The comment of `SetName` belongs to the property `Name`. A class inherits missing
contracts from its base.
"""

import pathlib
import re
import sys
import uuid

LIBRARY = "LWConfigObjects"
IDENTITIES = uuid.UUID("5e0c1f0a-7d64-4c0e-9a3b-2f6f4d1c8b57")
EVERY_COLLECTION = "As of every collection"


class Type:
    """A class or enumeration: its own contract, those of its members, and the classes that it derives from."""

    def __init__(self, text, bases):
        self.text, self.bases, self.members = text, bases, {}


def paragraphs(lines):
    """Comment lines as one text, a blank line between paragraphs."""
    text = "\n".join(re.sub(r"^\s*//+ ?", "", line) for line in lines)
    return "\n\n".join(" ".join(part.split()) for part in text.split("\n\n")).strip()


def sentence(text):
    """A remark beside a member, as a sentence."""
    if not text:
        return text
    return text[0].upper() + text[1:] + ("" if text.endswith(".") else ".")


def words(text):
    """A sentence as it goes on after a colon."""
    return text[0].lower() + text[1:] if re.match(r"[A-Z][a-z]*\b", text) else text


def initial_value(code):
    """The initial value of a data member, as a sentence."""
    option = re.search(r'\{\*this, "(\w*)", "(\w+)", (.*?)(, "\w+")?\}', code, re.S)
    if option:
        section, value, default = option[1], option[2], option[3]
        where = f"the application value `{value}`" + (f" of the section `{section}`" if section else "")
        computed = default.startswith(("[", "Usual")) or "<std::string, " in code
        begin = "" if computed else f" At first {shown(default)}."
        return sentence(f"{where}.") + begin
    plain = re.search(r"^[^(]*= ([^({]+);", code)
    if plain and plain[1] not in ("0", "false") and "(" not in code:
        return f"At first {shown(plain[1])}."
    return ""


def shown(literal):
    return {"true": "True", "false": "False", '""': "empty"}.get(literal, f"`{literal}`")


def read_class(lines, members):
    """Fills `members` with the contracts in the body of a class."""
    comment, group, code, beside = [], "", "", []
    public = True
    setters = {}  # the contracts of `SetName`, which belong to `Name`

    def end_member():
        nonlocal comment, group, code, beside
        head = re.split(r"[({=;]", code, maxsplit=1)[0]
        names = re.findall(r"\w+", head)
        if public and names and not code.startswith(("template <", "using ", "friend ", "enum ")):
            if comment:
                group = paragraphs(comment)
            text = sentence(paragraphs(beside)) if beside else group
            if beside:
                group = ""
            if "(" not in code.split("=")[0].split("{")[0]:
                text = " ".join(filter(None, [text, initial_value(code)]))
            (setters if names[-1].startswith("Set") else members).setdefault(names[-1], text)
        if not code.startswith("template <"):
            comment = []
        code, beside = "", []

    for line in lines + [""]:
        stripped = line.strip()
        if not stripped or re.match(r"  [^ }]", line) or stripped.endswith(":") and re.match(r" \w", line):
            if code:
                end_member()
        if not stripped:
            comment, group = [], ""
        elif re.match(r" (public|private|protected):", line):
            public = stripped == "public:"
        elif re.match(r"  //", line):
            comment.append(line)
        elif re.match(r" +//", line):
            if beside:
                beside.append(line)
        else:
            text, mark, remark = line.partition("  // ")
            code += " " + text.strip() if code else text.strip()
            if mark:
                beside.append(remark)

    for name, text in setters.items():
        of = name[len("Set"):]
        if of not in members:
            members[name] = text
            members.setdefault(of, text)
        elif text and text != members[of]:
            members[of] = " ".join(filter(None, [members[of], "When set: " + words(text)]))


def read_enumeration(name, body, members):
    for line in body:
        match = re.match(r"  (\w+) = -?\d+,?(?: +// (.*))?$", line)
        if match:
            last = match[1]
            members[last] = match[2] or ""
        elif re.match(r" +// ", line) and members:
            members[last] += " " + line.strip()[3:]
        elif line.strip():
            sys.exit(f"The enumerator of {name} in '{line.strip()}' needs a line of its own")


def read_header(path, types):
    lines = [line for line in path.read_text(encoding="utf-8").split("\n") if not line.startswith("#")]
    comment = []
    at = 0
    while at < len(lines):
        line = lines[at]
        at += 1
        if line.startswith("///"):
            comment.append(line)
            continue
        start = re.match(r"(class|enum)(?! class) (\w+)\b(?!.*;$)", line)
        if start:
            end = lines.index("};", at) if "};" in lines[at:] else len(lines)
            opening = at - 1
            while "{" not in lines[opening]:
                opening += 1
            bases = re.findall(r"public (\w+)", " ".join(lines[at - 1:opening + 1]))
            known = Type(paragraphs(comment), bases)
            types[start[2]] = known
            body = lines[opening + 1:end]
            if start[1] == "class":
                read_class(body, known.members)
            else:
                read_enumeration(start[2], body, known.members)
            at = end + 1
        if not line.startswith("template"):
            comment = []


def contracts(types, published):
    """The table of contracts, including those of the bases."""
    table = {}
    for name in published:
        known = types[name]
        table[name] = known.text
        members = dict(known.members)
        for base in known.bases:
            for member, text in types[base].members.items() if base in types else ():
                if not members.get(member):
                    members[member] = text
                elif members[member].startswith(EVERY_COLLECTION):
                    members[member] += "\n\nEvery collection: " + words(text)
        every = types["KeyedCollection"].members
        for member, text in members.items():
            if text == EVERY_COLLECTION + ".":
                members[member] = every[member]
        if "begin" in members:
            members["NewEnum"] = members["begin"]
        for member, text in members.items():
            if text and member != "begin":
                table[f"{name}.{member}"] = text
    return {key: text for key, text in table.items() if text}


def identities(classes, enumerations):
    names = [LIBRARY, *(f"enumeration.{name}" for name in enumerations)]
    for name in classes:
        names += [f"class.{name}", f"interface._{name}", f"events.__{name}"]
    return {name: str(uuid.uuid5(IDENTITIES, f"{LIBRARY}.{name}")).upper() for name in names}


def literal(text):
    escaped = text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n").replace("??", "?\\?")
    return f'"{escaped}"'


def cpp_table(function, table):
    rows = "".join(f"    {{{literal(key)},\n     {literal(text)}}},\n" for key, text in sorted(table.items()))
    return (f"std::span<const TextRow> {function}() {{\n  static constexpr TextRow rows[] = {{\n{rows}  }};\n"
            "  return rows;\n}\n\n")


def main():
    source, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    lists = (source / "lwconfig/automation/published.h").read_text(encoding="utf-8")
    classes, enumerations = [re.findall(r"USE\((\w+)(?:<\w+>)?\)", part)
                             for part in lists.split("#define LWCONFIG_PUBLISHED_ENUMERATIONS", 1)]
    types = {}
    for header in sorted((source / "lwconfig").glob("**/*.h")):
        if header.parent.name not in ("platform", "posix", "windows", "internal"):
            read_header(header, types)
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text("// Written by cmake/contracts.py from the headers of the published classes.\n\n"
                      "#include <lwconfig/automation/internal/text_tables.h>\n\n"
                      "namespace lwconfig::automation {\n\n"
                      + cpp_table("ContractRows", contracts(types, classes + enumerations))
                      + cpp_table("IdentityRows", identities(classes, enumerations))
                      + "}  // namespace lwconfig::automation\n", encoding="utf-8")


if __name__ == "__main__":
    main()
