#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a native build, no longer than a budget of seconds.

    check_tidy.py BUILD_FOLDER [--budget SECONDS] [--all]

A source that passed is not checked again until it, or a header of ours that it includes, changes.
Sources changed since the last commit come first. What the budget leaves over is named, and is
checked by the next run; --all takes the time it takes.
"""
import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
CHECKED = ("desktop", "framework", "src", "gallery")
UNKNOWN_TO_CLANG = ("-fpch-preprocess", "-Winvalid-pch", "-Werror")


def commands(build):
    """The compile commands of our sources, without what only GCC understands, by source."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if not source.is_relative_to(ROOT) or source.is_relative_to(build):
            continue
        if source.relative_to(ROOT).parts[0] not in CHECKED:
            continue
        words = shlex.split(entry["command"])
        if words[0].endswith("ccache"):
            words = words[1:]
        kept = []
        for word in words:
            if word.endswith("cmake_pch.hxx"):
                # Beside the original lies GCC's compiled form, which clang would stumble over.
                copy = build / "tidy" / "pch" / hashlib.sha256(word.encode()).hexdigest()[:16]
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy = copy.with_suffix(".hxx")
                copy.write_text(pathlib.Path(word).read_text())
                word = str(copy)
            if word not in UNKNOWN_TO_CLANG and not word.startswith(("-fsanitize", "-fno-sanitize")):
                kept.append(word)
        found[source] = {"directory": entry["directory"], "file": str(source), "arguments": kept}
    return found


def dependencies(build):
    """For each source, the files of ours that its object was made from, by ninja's own record."""
    text = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True).stdout
    found = {}
    for block in text.split("\n\n"):
        lines = [line.strip() for line in block.splitlines()[1:]]
        files = [pathlib.Path(os.path.normpath(build / line)) for line in lines if line]
        ours = [file for file in files if file.is_relative_to(ROOT) and not file.is_relative_to(build)]
        if ours:
            found[ours[0]] = ours
    return found


def digest(files):
    content = hashlib.sha256((ROOT / ".clang-tidy").read_bytes())
    for file in sorted(set(files)):
        content.update(str(file).encode())
        content.update(file.read_bytes() if file.exists() else b"")
    return content.hexdigest()


def changed_files():
    git = ["git", "-C", str(ROOT), "diff", "--name-only", "HEAD~1"]
    listed = subprocess.run(git, capture_output=True, text=True)
    return {ROOT / name for name in listed.stdout.split()} if listed.returncode == 0 else set()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--budget", type=float, default=120)
    parser.add_argument("--all", action="store_true")
    options = parser.parse_args()
    build = options.build.resolve()
    tidy = build / "tidy"
    passed = tidy / "passed"
    passed.mkdir(parents=True, exist_ok=True)

    sources = commands(build)
    (tidy / "compile_commands.json").write_text(json.dumps(list(sources.values()), indent=1))
    depends = dependencies(build)
    stamps = {source: digest(depends.get(source, [source])) for source in sources}
    changed = changed_files()
    waiting = sorted(
        (source for source in sources if not (passed / stamps[source]).exists()),
        key=lambda source: (source not in changed, str(source)),
    )
    end = time.monotonic() + options.budget

    def check(source):
        if not options.all and time.monotonic() > end:
            return source, None
        run = subprocess.run(
            ["clang-tidy", "--quiet", "-p", str(tidy), str(source)], capture_output=True, text=True
        )
        if run.returncode == 0:
            (passed / stamps[source]).touch()
        return source, run

    left, failed = [], 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for source, run in pool.map(check, waiting):
            if run is None:
                left.append(source)
            elif run.returncode != 0:
                failed += 1
                print(run.stdout or run.stderr, flush=True)
    print(f"{len(sources)} sources: {len(waiting) - len(left)} checked now, {failed} with complaints")
    if left:
        print(f"The time was up before {len(left)} of them; the next run goes on with these:")
        for source in left:
            print(f"    {source.relative_to(ROOT)}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
