#!/bin/sh
# Tells which sources clang-format would change, and how. With --fix it changes them.
cd "$(dirname "$0")/.." || exit 1
mode='--dry-run --Werror'
[ "$1" = --fix ] && mode=-i
find desktop framework src gallery tests bench fuzz \( -name '*.h' -o -name '*.cpp' -o -name '*.inl' \) \
  -print0 2>/dev/null | xargs -0 -n 20 -P "$(nproc)" clang-format $mode
