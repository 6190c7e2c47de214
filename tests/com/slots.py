"""Writes the list of the slots in an interface description, in its order, as rows for the preprocessor:

    CLASS(Root, 1)                     and whether objects of it can be created
    SLOT(Root, get_AppPath, AppPath, DISPATCH_PROPERTYGET, 1)     and whether its last parameter is the result
"""

import re
import sys

KINDS = {
    "propget": ("get_", "DISPATCH_PROPERTYGET"),
    "propput": ("put_", "DISPATCH_PROPERTYPUT"),
    "propputref": ("putref_", "DISPATCH_PROPERTYPUTREF"),
}

source, target = sys.argv[1:]
rows, attributes, current = [], "", ""
with open(source, encoding="utf-8") as description:
    for line in description:
        if opened := re.match(r"\s*interface _(\w+) : IDispatch", line):
            current = opened[1]
        elif method := re.match(r"\s*HRESULT (\w+)\(", line):
            names = re.split(r"[\s,]+", re.sub(r'"(\\.|[^"\\])*"', "", attributes).strip(" []\n"))
            prefix, kind = next((KINDS[name] for name in names if name in KINDS), ("", "DISPATCH_METHOD"))
            rows.append(f"SLOT({current}, {prefix}{method[1]}, {method[1]}, {kind}, {int('retval' in line)})")
        elif made := re.match(r"\s*coclass (\w+)", line):
            rows.append(f"CLASS({made[1]}, {int('noncreatable' not in attributes)})")
        attributes = line
with open(target, "w", encoding="utf-8") as out:
    out.write("\n".join(rows) + "\n")
