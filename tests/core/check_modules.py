#!/usr/bin/env python3
"""Checks what the built modules export and import.

check_modules.py nm objdump library framework

The library must export every public function and object; Windows modules may import nothing but the
system's modules and each other, and carry the compiler's run-time library in them.
"""

import os
import re
import subprocess
import sys

FUNCTIONS = """
AfxInitVornComCtl AfxVornRegisterClass AfxVornUnregisterClasses AfxGetVornTreeOptions
VornTreeEditContextMenuSetCallback VornTreeSetEncodedSequence
VORNCOMCTL_get_build_info VORNCOMCTL_get_module_description VORNCOMCTL_get_module_info
VornComCtl_get_revision
IsKeyPress VornStrCmp VornIsApplicationActive VornIsTreeCtrlWindow VornWindowGetWorkingArea
gTracer
""".split()

# A method of each exported class, as the compiler names it.
METHODS = {
    "CVornDC": "_ZN7CVornDC10BeginPaintEP4CWnd",
    "CVornTreeOptions": "_ZN16CVornTreeOptions7SetFontEP5CFonti",
    "CVornTreeItemArray": "_ZN18CVornTreeItemArrayC1Ev",
    "CTreeItemNameArray": "_ZN18CTreeItemNameArrayC1Ej",
    "CVornTreeItemUserArray": "_ZN22CVornTreeItemUserArrayC1Ev",
    "CVornTreeTracer": "_ZN15CVornTreeTracer7HitTestEP13CVornTreeItemj",
}

# What must stay inside.
INTERNAL = ["ItemPool", "DecodeSequence", "EncodeSequence", "ModuleInstance", "SetCurrentOptions"]

SYSTEM_MODULES = set("""
kernel32.dll msvcrt.dll user32.dll gdi32.dll comctl32.dll comdlg32.dll advapi32.dll shell32.dll
msimg32.dll winmm.dll ole32.dll
""".split())


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def windows_exports(objdump, module):
    table = run(objdump, "-p", module).split("[Ordinal/Name Pointer] Table", 1)[1]
    return set(re.findall(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+\S+\s+)?(\S+)$", table, re.MULTILINE))


def exports(nm, objdump, module):
    if module.endswith(".dll"):
        return windows_exports(objdump, module)
    return {line.split()[-1] for line in run(nm, "-D", "--defined-only", module).splitlines()}


def imports(objdump, module):
    return {name.lower() for name in re.findall(r"DLL Name: (\S+)", run(objdump, "-p", module))}


def main():
    nm, objdump, library, framework = sys.argv[1:]
    problems = []

    exported = exports(nm, objdump, library)
    for name in FUNCTIONS + list(METHODS.values()):
        if name not in exported:
            problems.append(f"not exported: {name}")
    for name in exported:
        if any(word in name for word in INTERNAL):
            problems.append(f"exported, but internal: {name}")

    if library.endswith(".dll"):
        own = {os.path.basename(module).lower() for module in (library, framework)}
        for module in (library, framework):
            imported = imports(objdump, module)
            if "kernel32.dll" not in imported:
                problems.append(f"no imports read from {module}")
            for name in sorted(imported - SYSTEM_MODULES - own):
                problems.append(f"{os.path.basename(module)} imports {name}")

    print("\n".join(problems) or f"{len(exported)} exported symbols: all there that must be")
    return 1 if problems else 0


sys.exit(main())
