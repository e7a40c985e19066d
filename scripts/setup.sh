# Read by ./test and ./run, in the project's folder: messages, packages, Wine.
# Nothing here asks anything; standard input is never read.
exec </dev/null
export DEBIAN_FRONTEND=noninteractive
export VORN_WINEPREFIX="${VORN_WINEPREFIX:-$PWD/build/wine}"

step() { printf '\n== %s\n' "$*"; }
die() {
  printf '\n%s: %s\n' "$0" "$*" >&2
  exit 1
}

# lacking name... : the packages among the named ones that the machine lacks. A package is looked
# for by what is used of it, so that compilers and tools from elsewhere serve as well.
lacking() {
  for package; do
    case $package in
      g++ | cmake | python3 | clang-format | clang-tidy | pkg-config) command -v "$package" ;;
      ninja-build) command -v ninja ;;
      googletest) [ -e /usr/src/googletest/googletest/CMakeLists.txt ] ;;
      g++-mingw-w64-x86-64-posix) command -v x86_64-w64-mingw32-g++-posix ;;
      wine) command -v wine && command -v wineserver ;;
      fonts-wine) [ -e /usr/share/wine/fonts/tahoma.ttf ] ;;
      xvfb) command -v Xvfb ;;
      imagemagick) command -v import ;;
      *) dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' ;;
    esac >/dev/null 2>&1 || printf '%s ' "$package"
  done
}

# install package... : installs what is missing of them, or says what to install and fails.
install() {
  missing=$(lacking "$@")
  [ -z "$missing" ] && return 0
  as_root=
  if [ "$(id -u)" != 0 ]; then
    as_root='sudo -n'
    if ! $as_root true 2>/dev/null; then
      printf 'Missing; please install them:\n    apt-get install --no-install-recommends %s\n' "$missing" >&2
      return 1
    fi
  fi
  step "Installing $missing"
  # shellcheck disable=SC2086
  $as_root apt-get update -qq &&
    $as_root apt-get install -y -qq --no-install-recommends -o DPkg::Lock::Timeout=300 $missing >/dev/null &&
    [ -z "$(lacking "$@")" ]
}

install_wine() { install wine wine64 fonts-wine; }

# Tries Wine on a trivial program; a prefix or server left broken is thrown away and made anew.
prepare_wine() {
  for attempt in 1 2; do
    timeout 180 scripts/run-wine.sh cmd /c exit >/dev/null 2>&1 && return 0
    stop_wine
    rm -rf "$VORN_WINEPREFIX-null" "$VORN_WINEPREFIX-x11"
  done
  return 1
}

# Ends what runs in the project's own prefixes, and nothing else.
stop_wine() {
  for prefix in "$VORN_WINEPREFIX-null" "$VORN_WINEPREFIX-x11"; do
    [ -d "$prefix" ] && WINEPREFIX=$prefix timeout 30 wineserver -k >/dev/null 2>&1
  done
  return 0
}
