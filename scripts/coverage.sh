#!/bin/sh
# scripts/coverage.sh: which branches of the tree's model, layout and selection the tests run. Builds the
# preset 'coverage', runs the tests of the tree natively, and prints a table by file; every branch that did
# not run goes to build/coverage/missing.txt. Needs gcovr, and installs it when that is allowed.
cd "$(dirname "$0")/.." || exit 1
. scripts/setup.sh
install gcovr || die "cannot count without gcovr"

cmake --preset coverage >/dev/null || die "cannot configure the preset coverage"
nice cmake --build --preset coverage --target tests/tree/all tests/faults/all fuzz/all -- -j"${JOBS:-$(nproc)}" \
  --quiet || die "it does not build"
find build/coverage -name '*.gcda' -delete
export VORN_FUZZ_STEPS="${VORN_FUZZ_STEPS:-100000}"
ctest --test-dir build/coverage -L '^(tree|faults|fuzz)$' --output-on-failure --no-tests=error || die "a test failed"

# Left out: branches into the handling of exceptions, and those that the compiler makes of every new and delete.
objects=build/coverage/src/CMakeFiles/VornComCtl.dir
gcovr --root . --object-directory build/coverage "$objects/tree" "$objects/selection" \
  --filter 'src/tree/model/' --filter 'src/tree/layout/' --filter 'src/selection/' \
  --exclude-throw-branches --exclude-unreachable-branches \
  --exclude-branches-by-pattern '.*(\bnew [A-Z(]|\bdelete ).*' --branches \
  --json build/coverage/branches.json --txt build/coverage/branches.txt || die "gcovr failed"
cut -c1-68 build/coverage/branches.txt
python3 - >build/coverage/missing.txt <<'EOF'
import json
for file in json.load(open("build/coverage/branches.json"))["files"]:
    source = open(file["file"]).read().splitlines()
    for line in file["lines"]:
        branches = line["branches"]
        missing = sum(1 for branch in branches if branch["count"] == 0)
        if missing:
            number = line["line_number"]
            print(f"{file['file']}:{number}: {missing} of {len(branches)}: {source[number - 1].strip()}")
EOF
