"""Fails when an operation that takes an item is missing in the table of bad_input_test.cpp.

Usage: check_bad_input.py <source folder> <bad_input_test.cpp>
"""

import pathlib
import re
import sys

HEADERS = ("tree/VornTreeCtrl.h", "selection/VornTreeSelection.h", "selection/VornTreeMultiSelection.h")

# What hosts override is not called by them, and what is private is reached through the rest.
HOOKS = re.compile(r"On(Sel|MultiSel|Item(Icon|Expand|Dbl)|Begin|End|Drag|Drop|Delete|Check|Clear|Change)")
ELSEWHERE = {
    "InitializeItemFont": "overridden by hosts, empty here",
    "NotifyParent": "passes the pointers on unread",
    "ClearSelection": "null and other items only name for whom the hook is asked",
    "ClearAcrossDocuments": "the same",
}


def operations(text):
    """The names of operations that take an item, without private and protected parts of managers."""
    text = re.sub(r"//[^\n]*", "", text)
    text = text.split("\n private:")[0]
    if "class VORNCOMCTL_API CVornTreeCtrl " not in text:
        text = text.split("\n protected:")[0]
    declaration = re.compile(r"([A-Za-z_]+)\(([^()]*CVornTreeItem\s*\*[^()]*)\)\s*(?:const)?\s*(?:override)?\s*[;{]")
    return {name for name, _ in declaration.findall(text)}


def main():
    source, table = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).read_text(encoding="utf-8")
    tried = set(re.findall(r'\{"([^"]*)"', table))
    tried = {word for name in tried for word in name.split()[:2]}
    names = set()
    for header in HEADERS:
        names |= operations((source / header).read_text(encoding="utf-8"))
    missing = sorted(name for name in names - tried - ELSEWHERE.keys() if not HOOKS.match(name))
    if missing:
        sys.exit("not tried with bad input: " + ", ".join(missing))
    print(f"{len(names)} operations found")


if __name__ == "__main__":
    main()
