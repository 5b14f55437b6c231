# Shared by the other scripts: the project's folder, messages, and installing missing packages.
# shellcheck shell=bash
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
PATH=$PATH:/usr/sbin:/sbin # what only administrators use is not on everybody's

say() { printf '\n== %s\n' "$*"; }

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "installing packages needs root: run this as root or install sudo"
  fi
}

# need PACKAGE...: installs missing Debian packages.
need() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  command -v apt-get >/dev/null || fail "this machine has no apt-get; install by hand: ${missing[*]}"
  say "Installing ${missing[*]}"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq ||
    fail "the package lists could not be updated; is the network up?"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" ||
    fail "these packages could not be installed: ${missing[*]}"
}

need_build_tools() { need g++ cmake ninja-build; }
need_test_tools() {
  need_build_tools
  need libgtest-dev libgmock-dev nlohmann-json3-dev python3 doxygen
  need binutils dpkg-dev file pkgconf xz-utils # what the packaging is tested with
}

# build_and_test PRESET
build_and_test() {
  say "Configuring and building ($1)"
  cmake --preset "$1"
  cmake --build --preset "$1"
  say "Testing ($1)"
  ctest --preset "$1" --parallel "$(nproc)" --progress
}
