#!/usr/bin/env python3
"""check_modules.py PACKAGE: what the installed modules export, and what they need.

The library exports every free function and class that hosts are promised; a DLL needs only the
system's DLLs and its fellow modules, so that there is nothing else to deploy.
"""
import pathlib
import re
import subprocess
import sys

EXPORTED = """
    AfxInitVornComCtl AfxVornRegisterClass AfxVornUnregisterClasses AfxGetVornTreeOptions
    VornTreeEditContextMenuSetCallback VornTreeSetEncodedSequence VORNCOMCTL_get_build_info
    VORNCOMCTL_get_module_description VORNCOMCTL_get_module_info VornComCtl_get_revision
    IsKeyPress VornStrCmp VornIsApplicationActive VornIsTreeCtrlWindow VornWindowGetWorkingArea
    gTracer CVornDC::BeginPaint CVornTreeOptions::CVornTreeOptions
""".split()

SYSTEM_DLLS = {
    "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msimg32.dll",
    "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll", "user32.dll", "uxtheme.dll",
    "winspool.drv", "ws2_32.dll",
}


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def check_exports(names):
    lacking = [name for name in EXPORTED if not re.search(rf"\b{name}\b", names)]
    if lacking:
        sys.exit("not exported: " + ", ".join(lacking))
    print(f"{len(EXPORTED)} names are exported")


def check_windows(dlls):
    for dll in dlls:
        needed = re.findall(r"DLL Name: (\S+)", output("x86_64-w64-mingw32-objdump", "-p", dll))
        fellows = {other.name.lower() for other in dlls}
        foreign = [name for name in needed if name.lower() not in SYSTEM_DLLS | fellows]
        if foreign:
            sys.exit(f"{dll.name} needs " + ", ".join(foreign))
        print(f"{dll.name} needs {', '.join(needed)}")
    library = next(dll for dll in dlls if "VornComCtl" in dll.name)
    table = output("x86_64-w64-mingw32-objdump", "-p", library).partition("[Ordinal/Name Pointer] Table")[2]
    exported = "\n".join(re.findall(r"^\s*\[\s*\d+\] (\S+)", table, re.MULTILINE))
    check_exports(subprocess.run(["c++filt"], input=exported, capture_output=True, text=True).stdout)


def main():
    package = pathlib.Path(sys.argv[1])
    dlls = sorted(package.glob("bin/*.dll"))
    if dlls:
        check_windows(dlls)
        return
    library = next(package.glob("**/libVornComCtl.so"))
    check_exports(output("nm", "-D", "--defined-only", "--demangle", library))


if __name__ == "__main__":
    main()
