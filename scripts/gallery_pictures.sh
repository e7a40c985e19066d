#!/bin/sh
# gallery_pictures.sh: makes docs/gallery-*.png anew, from the builds native and windows, on a folder that
# every Debian has. Needs a display, or xvfb-run in front.
cd "$(dirname "$0")/.." || exit 1
shots=$(mktemp -d) || exit 1
trap 'rm -rf "$shots"' EXIT
size=900x600
open=doc/bash

# shrink from to: without what does not show, and as small as it gets.
shrink() { convert "$1" ${3:+-crop "$3" +repage} -strip -define png:compression-level=9 "PNG24:$2"; }

build/native/bin/gallery --size $size --select $open --screenshot "$shots/memory.png" /usr/share &&
  shrink "$shots/memory.png" docs/gallery-memory.png 900x600+22+24 || exit 1
VORN_WINE_X11=1 scripts/run-wine.sh build/windows/bin/gallery.exe --size $size --select $open \
  --screenshot "Z:$(printf %s "$shots/wine.png" | tr / '\\')" 'Z:\usr\share' &&
  shrink "$shots/wine.png" docs/gallery-wine.png || exit 1
ls -l docs/gallery-*.png
